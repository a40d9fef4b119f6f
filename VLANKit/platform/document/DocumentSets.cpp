#include "VLANKit/platform/document/DocumentSets.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentServices.h"
#include "VLANKit/platform/document/DocumentStatus.h"
#include "VLANKit/platform/document/InterfaceFacts.h"
#include "VLANKit/platform/document/ServiceNaming.h"

#include <QSet>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// Whether an element of the list is that string; compared as strings, without a QVariant
/// comparison for each element of a long service order.
bool isString(const QVariant &element, const QString &text)
{
    return element.metaType().id() == QMetaType::QString
           && *static_cast<const QString *>(element.constData()) == text;
}

} // namespace

QString DocumentSets::newIdentifier()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QStringList DocumentSets::ids(const DocumentSession &session)
{
    QStringList found;
    if (const QVariantMap *sets = session.document().map({DocumentPaths::setsKey})) {
        for (auto set = sets->constBegin(); set != sets->constEnd(); ++set) {
            if (mapIn(set.value()))
                found.append(set.key());
        }
    }
    return found;
}

bool DocumentSets::exists(const DocumentSession &session, const QString &setID)
{
    return session.document().map(DocumentPaths::set(setID)) != nullptr;
}

std::optional<QString> DocumentSets::current(const DocumentSession &session)
{
    const QVariant *value = session.document().value({DocumentPaths::currentSetKey});
    const std::optional<QString> link = value ? anyString(*value) : std::nullopt;
    if (!link)
        return std::nullopt;
    const QStringList parts = link->split(u'/');
    if (parts.size() != 3 || !parts.at(0).isEmpty() || parts.at(1) != DocumentPaths::setsKey
        || *link != DocumentPaths::setLink(parts.at(2)) || !exists(session, parts.at(2)))
        return std::nullopt;
    return parts.at(2);
}

std::optional<QString> DocumentSets::name(const DocumentSession &session, const QString &setID)
{
    const QVariantMap *set = session.document().map(DocumentPaths::set(setID));
    return set ? stringIn(*set, DocumentPaths::nameKey) : std::nullopt;
}

QStringList DocumentSets::services(const DocumentSession &session, const QString &setID)
{
    QStringList found;
    const QVariantMap *links = session.document().map(DocumentPaths::setServices(setID));
    if (!links)
        return found;
    for (auto link = links->constBegin(); link != links->constEnd(); ++link) {
        const QString serviceID = DocumentPaths::serviceOfLinkEntry(link.value());
        const QVariantMap *service =
            serviceID.isEmpty() ? nullptr
                                : session.document().map(DocumentPaths::service(serviceID));
        if (!service)
            continue;
        // The system passes over links to PPTP services, which it no longer offers.
        const QVariantMap interface =
            mapIn(*service, DocumentPaths::interfaceKey).value_or(QVariantMap());
        if (stringIn(interface, DocumentPaths::typeKey) == kSCNetworkInterfaceTypePPP
            && stringIn(interface, DocumentPaths::subTypeKey) == u"PPTP"_s)
            continue;
        found.append(serviceID);
    }
    return found;
}

std::optional<QVariantList> DocumentSets::order(const DocumentSession &session,
                                                const QString &setID)
{
    const QVariant *value = session.document().value(DocumentPaths::serviceOrder(setID));
    return value ? anyList(*value) : std::nullopt;
}

void DocumentSets::insertInOrder(DocumentSession &session, const QString &setID,
                                 const QString &serviceID)
{
    const QStringList path = DocumentPaths::serviceOrder(setID);
    if (!order(session, setID))
        session.edit().setValue(path, QVariantList());
    // The index knows what the order holds, without a walk of a long order per new service.
    if (session.index().isOrdered(setID, serviceID))
        return;
    QVariantList *listed = mutableListIn(*session.edit().mutableValue(path));
    const auto rankOf = [&](const QString &id) {
        return InterfaceFacts::ofService(session, id).value_or(InterfaceFacts()).orderRank();
    };
    const int rank = rankOf(serviceID);
    // After the last listed service that ranks no lower. Looking from the end finds it at once
    // in the usual case, where the services of the lowest kinds stand last.
    qsizetype at = listed->size();
    for (; at > 0; --at) {
        const std::optional<QString> other = anyString(listed->at(at - 1));
        if (other && DocumentServices::exists(session, *other) && rankOf(*other) <= rank)
            break;
    }
    listed->insert(at, serviceID);
    session.index().addToOrder(setID, serviceID);
}

bool DocumentSets::addService(DocumentSession &session, const QString &setID,
                              const QString &serviceID, int &status)
{
    if (!exists(session, setID) || !DocumentServices::exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    SessionIndex &index = session.index();
    if (index.links(setID, serviceID))
        return true;
    QStringList linkPath = DocumentPaths::setServices(setID);
    linkPath.append(serviceID);
    session.edit().setValue(
        linkPath, QVariantMap{{DocumentPaths::linkKey, DocumentPaths::serviceLink(serviceID)}});
    index.addLink(serviceID, SessionIndex::Link{setID, serviceID});

    // No two services of a set show one name: the newcomer counts up until its name is free.
    if (std::optional<QString> shown = ServiceNaming::shownName(session, serviceID);
        shown && ServiceNaming::isTaken(session, serviceID, *shown, setID)) {
        QString name = ServiceNaming::nextName(*shown);
        while (ServiceNaming::isTaken(session, serviceID, name, setID))
            name = ServiceNaming::nextName(name);
        DocumentServices::storeName(session, serviceID,
                                    ServiceNaming::nameToStore(session, serviceID, name));
    }

    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (const auto kept = session.takeTemplate(serviceID);
        kept && interface && interface->bsdName) {
        const QStringList path =
            DocumentPaths::interfaceSettings(setID, *interface->bsdName, kept->first);
        if (!session.document().value(path))
            session.edit().setValue(path, kept->second);
    }
    insertInOrder(session, setID, serviceID);
    return true;
}

bool DocumentSets::removeService(DocumentSession &session, const QString &setID,
                                 const QString &serviceID, int &status)
{
    if (!exists(session, setID) || !DocumentServices::exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    SessionIndex &index = session.index();
    if (index.isOrdered(setID, serviceID)) {
        const QStringList path = DocumentPaths::serviceOrder(setID);
        QVariantList *listed = mutableListIn(*session.edit().mutableValue(path));
        listed->removeIf([&](const QVariant &element) { return isString(element, serviceID); });
        if (listed->isEmpty())
            session.edit().remove(path);
        index.removeFromOrder(setID, serviceID);
    }
    for (const SessionIndex::Link &link : index.links(serviceID)) {
        if (link.setID != setID)
            continue;
        QStringList linkPath = DocumentPaths::setServices(setID);
        linkPath.append(link.key);
        session.edit().remove(linkPath);
        index.removeLink(serviceID, link);
    }
    // The set's settings of the interface go with its last service on that interface.
    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (interface && interface->bsdName) {
        bool stillUsed = false;
        for (const QString &other : index.servicesOnDevice(*interface->bsdName))
            stillUsed = stillUsed || (other != serviceID && index.links(setID, other));
        const QStringList path = DocumentPaths::interfaceSettings(
            setID, *interface->bsdName,
            HardwareInterface::settingsEntity(interface->type.value_or(QString())));
        if (!stillUsed && session.document().value(path))
            session.edit().remove(path);
    }
    return true;
}

bool DocumentSets::setOrder(DocumentSession &session, const QString &setID,
                            const QStringList &order, int &status)
{
    if (!exists(session, setID))
        return failWith(status, kSCStatusInvalidArgument);
    QVariantList kept;
    QSet<QString> seen;
    for (const QString &serviceID : order) {
        if (seen.contains(serviceID))
            continue;
        seen.insert(serviceID);
        kept.append(serviceID);
    }
    const QStringList path = DocumentPaths::serviceOrder(setID);
    if (kept.isEmpty()) {
        if (session.document().value(path))
            session.edit().remove(path);
        session.index().replaceOrder(setID, std::nullopt);
        return true;
    }
    session.edit().setValue(path, kept);
    session.index().replaceOrder(setID, kept);
    return true;
}

QString DocumentSets::create(DocumentSession &session)
{
    const QString setID = newIdentifier();
    session.edit().setValue(DocumentPaths::set(setID), QVariantMap());
    return setID;
}

bool DocumentSets::setName(DocumentSession &session, const QString &setID, const QString &name,
                           int &status)
{
    if (!exists(session, setID))
        return failWith(status, kSCStatusInvalidArgument);
    for (const QString &other : ids(session)) {
        if (other != setID && DocumentSets::name(session, other) == name)
            return failWith(status, kSCStatusKeyExists);
    }
    QStringList path = DocumentPaths::set(setID);
    path.append(DocumentPaths::nameKey);
    session.edit().setValue(path, name);
    return true;
}

bool DocumentSets::remove(DocumentSession &session, const QString &setID, int &status)
{
    if (!exists(session, setID) || current(session) == setID)
        return failWith(status, kSCStatusInvalidArgument);
    SessionIndex &index = session.index();
    if (const QVariantMap *links = session.document().map(DocumentPaths::setServices(setID))) {
        for (auto link = links->constBegin(); link != links->constEnd(); ++link) {
            const QString target = DocumentPaths::serviceOfLinkEntry(link.value());
            if (!target.isEmpty())
                index.removeLink(target, SessionIndex::Link{setID, link.key()});
        }
    }
    session.edit().remove(DocumentPaths::set(setID));
    index.replaceOrder(setID, std::nullopt);
    return true;
}

bool DocumentSets::makeCurrent(DocumentSession &session, const QString &setID, int &status)
{
    if (!exists(session, setID))
        return failWith(status, kSCStatusInvalidArgument);
    session.edit().setValue({DocumentPaths::currentSetKey}, DocumentPaths::setLink(setID));
    return true;
}

} // namespace VLANKit
