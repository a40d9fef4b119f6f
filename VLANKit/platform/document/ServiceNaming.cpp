#include "VLANKit/platform/document/ServiceNaming.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/InterfaceFacts.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// The number behind the last blank of a name, when it is a positive whole number.
std::optional<qint64> countAtEnd(const QString &name, QString *head = nullptr)
{
    const qsizetype blank = name.lastIndexOf(u' ');
    if (blank < 0)
        return std::nullopt;
    const QString word = name.mid(blank + 1);
    if (word.isEmpty() || word.front() == u'+' || word.front() == u'-')
        return std::nullopt;
    const std::optional<qint64> count = parseInteger(word);
    if (!count || *count <= 0)
        return std::nullopt;
    if (head)
        *head = name.first(blank);
    return count;
}

} // namespace

std::optional<QString> ServiceNaming::shownName(const DocumentSession &session,
                                                const QString &serviceID)
{
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    if (!service)
        return std::nullopt;
    const std::optional<QString> stored = stringIn(*service, DocumentPaths::nameKey);
    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (!stored)
        return interface ? interface->displayName : std::nullopt;
    if (!interface || !interface->storedName || !interface->displayName)
        return stored;
    if (*stored == *interface->storedName)
        return interface->displayName;
    QString head;
    if (const auto count = countAtEnd(*stored, &head); count && head == *interface->storedName)
        return *interface->displayName + u' ' + QString::number(*count);
    return stored;
}

QString ServiceNaming::nameToStore(const DocumentSession &session, const QString &serviceID,
                                   const QString &name)
{
    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (interface && interface->storedName && interface->displayName == name)
        return *interface->storedName;
    return name;
}

QSet<QString> ServiceNaming::servicesShowing(DocumentSession &session, const QString &name)
{
    SessionIndex &index = session.index();
    QSet<QString> candidates = index.servicesStoring(name);
    // A VLAN service may show its VLAN's name, or that name with a number behind it.
    for (const QString &vlan : index.vlansShowing(name))
        candidates.unite(index.servicesOnDevice(vlan));
    QString head;
    if (countAtEnd(name, &head)) {
        for (const QString &vlan : index.vlansShowing(head))
            candidates.unite(index.servicesOnDevice(vlan));
    }
    QSet<QString> showing;
    for (const QString &candidate : std::as_const(candidates)) {
        if (shownName(session, candidate) == name)
            showing.insert(candidate);
    }
    return showing;
}

bool ServiceNaming::isTaken(DocumentSession &session, const QString &serviceID, const QString &name,
                            const std::optional<QString> &inSet)
{
    const QSet<QString> showing = servicesShowing(session, name);
    if (showing.isEmpty() || (showing.size() == 1 && showing.contains(serviceID)))
        return false;
    const SessionIndex &index = session.index();
    QSet<QString> sets;
    if (inSet) {
        sets.insert(*inSet);
    } else {
        for (const SessionIndex::Link &link : index.links(serviceID))
            sets.insert(link.setID);
    }
    for (const QString &other : showing) {
        if (other == serviceID)
            continue;
        for (const QString &set : std::as_const(sets)) {
            if (index.links(set, other))
                return true;
        }
    }
    return false;
}

QString ServiceNaming::nextName(const QString &name)
{
    QString head;
    if (const auto count = countAtEnd(name, &head))
        return head + u' ' + QString::number(*count + 1);
    return name + u" 2"_s;
}

} // namespace VLANKit
