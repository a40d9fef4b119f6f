#include "VLANKit/platform/document/DocumentServices.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentProtocols.h"
#include "VLANKit/platform/document/DocumentSets.h"
#include "VLANKit/platform/document/DocumentStatus.h"
#include "VLANKit/platform/document/ServiceNaming.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace VLANKit {

bool DocumentServices::exists(const DocumentSession &session, const QString &serviceID)
{
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    return service && mapIn(service->value(DocumentPaths::interfaceKey));
}

QStringList DocumentServices::ids(const DocumentSession &session)
{
    QStringList found;
    if (const QVariantMap *services = session.document().map({DocumentPaths::servicesKey})) {
        for (auto service = services->constBegin(); service != services->constEnd(); ++service) {
            const QVariantMap *map = mapIn(service.value());
            if (map && mapIn(map->value(DocumentPaths::interfaceKey)))
                found.append(service.key());
        }
    }
    return found;
}

std::optional<QString> DocumentServices::create(DocumentSession &session,
                                                const InterfaceFacts &interface, int &status)
{
    if (!interface.bsdName) {
        failWith(status, kSCStatusInvalidArgument);
        return std::nullopt;
    }
    const QString serviceID = DocumentSets::newIdentifier();
    QVariantMap service{{DocumentPaths::interfaceKey, interface.storageEntity()}};
    // The system names a new service after its interface, in the word it stores for that name.
    if (interface.displayName)
        service.insert(DocumentPaths::nameKey,
                       interface.storedName.value_or(*interface.displayName));
    session.edit().setValue(DocumentPaths::service(serviceID), service);
    session.index().addService(serviceID, service);
    if (interface.type == kSCNetworkInterfaceTypeIEEE80211)
        session.keepTemplate(serviceID, u"AirPort"_s, {{u"JoinMode"_s, u"Automatic"_s}});
    return serviceID;
}

bool DocumentServices::establishDefaultConfiguration(DocumentSession &session,
                                                     const QString &serviceID, int &status)
{
    if (!exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    for (const QString &type :
         {kSCNetworkProtocolTypeDNS, kSCNetworkProtocolTypeIPv4, kSCNetworkProtocolTypeIPv6,
          kSCNetworkProtocolTypeProxies, kSCNetworkProtocolTypeSMB}) {
        int ignored = kSCStatusOK;
        if (!DocumentProtocols::exists(session, serviceID, type))
            DocumentProtocols::add(session, serviceID, type, ignored);
    }
    return true;
}

bool DocumentServices::remove(DocumentSession &session, const QString &serviceID, int &status)
{
    const QVariantMap *stored = session.document().map(DocumentPaths::service(serviceID));
    if (!stored)
        return failWith(status, kSCStatusNoKey);
    const QVariantMap service = *stored;
    QSet<QString> sets;
    for (const SessionIndex::Link &link : session.index().links(serviceID))
        sets.insert(link.setID);
    for (const QString &setID : std::as_const(sets)) {
        int ignored = kSCStatusOK;
        DocumentSets::removeService(session, setID, serviceID, ignored);
    }
    session.index().removeService(serviceID, service);
    session.edit().remove(DocumentPaths::service(serviceID));
    return true;
}

bool DocumentServices::setName(DocumentSession &session, const QString &serviceID,
                               const QString &name, int &status)
{
    if (!exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    if (ServiceNaming::shownName(session, serviceID) != name
        && ServiceNaming::isTaken(session, serviceID, name))
        return failWith(status, kSCStatusKeyExists);
    storeName(session, serviceID, ServiceNaming::nameToStore(session, serviceID, name));
    return true;
}

void DocumentServices::storeName(DocumentSession &session, const QString &serviceID,
                                 const std::optional<QString> &stored)
{
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    const std::optional<QString> before =
        service ? stringIn(*service, DocumentPaths::nameKey) : std::nullopt;
    if (before == stored)
        return;
    QStringList path = DocumentPaths::service(serviceID);
    path.append(DocumentPaths::nameKey);
    if (stored)
        session.edit().setValue(path, *stored);
    else
        session.edit().remove(path);
    session.index().renameService(serviceID, before, stored);
}

bool DocumentServices::isEnabled(const DocumentSession &session, const QString &serviceID)
{
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    return service && !service->contains(DocumentPaths::inactiveKey);
}

bool DocumentServices::setEnabled(DocumentSession &session, const QString &serviceID, bool enabled,
                                  int &status)
{
    if (!exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    if (isEnabled(session, serviceID) == enabled)
        return true;
    QStringList path = DocumentPaths::service(serviceID);
    path.append(DocumentPaths::inactiveKey);
    if (enabled)
        session.edit().remove(path);
    else
        session.edit().setValue(path, true);
    return true;
}

std::optional<QVariantMap> DocumentServices::withoutInactiveMark(const QVariantMap &map)
{
    if (map.isEmpty() || (map.size() == 1 && map.contains(DocumentPaths::inactiveKey)))
        return std::nullopt;
    return map;
}

std::optional<QVariantMap> DocumentServices::interfaceConfiguration(DocumentSession &session,
                                                                    const QString &serviceID)
{
    const QList<SessionIndex::Link> links = session.index().links(serviceID);
    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (links.isEmpty() || !interface || !interface->bsdName)
        return std::nullopt;
    const QVariantMap *settings = session.document().map(DocumentPaths::interfaceSettings(
        links.first().setID, *interface->bsdName,
        HardwareInterface::settingsEntity(interface->type.value_or(QString()))));
    return settings ? withoutInactiveMark(*settings) : std::nullopt;
}

bool DocumentServices::setInterfaceConfiguration(DocumentSession &session, const QString &serviceID,
                                                 const std::optional<QVariantMap> &configuration,
                                                 int &status)
{
    const std::optional<InterfaceFacts> interface = InterfaceFacts::ofService(session, serviceID);
    if (!interface || !interface->bsdName)
        return failWith(status, kSCStatusInvalidArgument);
    const QList<SessionIndex::Link> links = session.index().links(serviceID);
    if (links.isEmpty())
        return failWith(status, kSCStatusNoKey);
    const QString entity = HardwareInterface::settingsEntity(interface->type.value_or(QString()));
    for (const SessionIndex::Link &link : links) {
        const QStringList path =
            DocumentPaths::interfaceSettings(link.setID, *interface->bsdName, entity);
        if (configuration && !configuration->isEmpty())
            session.edit().setValue(path, storedForm(*configuration));
        else if (session.document().value(path))
            session.edit().remove(path);
    }
    return true;
}

} // namespace VLANKit
