#include "VLANKit/platform/document/DocumentProtocols.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentServices.h"
#include "VLANKit/platform/document/DocumentStatus.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

QStringList protocolPath(const QString &serviceID, const QString &type)
{
    QStringList path = DocumentPaths::service(serviceID);
    path.append(type);
    return path;
}

QVariantMap defaultSettings(const QString &type)
{
    if (type == kSCNetworkProtocolTypeIPv4)
        return {{kSCPropNetIPv4ConfigMethod, kSCValNetIPv4ConfigMethodDHCP}};
    if (type == kSCNetworkProtocolTypeIPv6)
        return {{kSCPropNetIPv6ConfigMethod, kSCValNetIPv6ConfigMethodAutomatic}};
    if (type == kSCNetworkProtocolTypeProxies)
        return {{u"ExceptionsList"_s, QVariantList{u"*.local"_s, u"169.254/16"_s}},
                {u"FTPPassive"_s, qint64(1)}};
    return {};
}

} // namespace

bool DocumentProtocols::isInterfaceEntity(const DocumentSession &session, const QString &serviceID,
                                          const QString &type)
{
    if (type == DocumentPaths::interfaceKey || type == kSCNetworkInterfaceTypePPP)
        return true;
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    const QVariantMap interface =
        service ? mapIn(*service, DocumentPaths::interfaceKey).value_or(QVariantMap())
                : QVariantMap();
    for (const QString &key :
         {DocumentPaths::typeKey, DocumentPaths::subTypeKey, DocumentPaths::hardwareKey}) {
        if (stringIn(interface, key) == type)
            return true;
    }
    return false;
}

bool DocumentProtocols::exists(const DocumentSession &session, const QString &serviceID,
                               const QString &type)
{
    return !isInterfaceEntity(session, serviceID, type)
           && session.document().map(protocolPath(serviceID, type));
}

QStringList DocumentProtocols::types(const DocumentSession &session, const QString &serviceID)
{
    QStringList found;
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    if (!service)
        return found;
    for (auto entry = service->constBegin(); entry != service->constEnd(); ++entry) {
        if (mapIn(entry.value()) && !isInterfaceEntity(session, serviceID, entry.key()))
            found.append(entry.key());
    }
    return found;
}

bool DocumentProtocols::add(DocumentSession &session, const QString &serviceID, const QString &type,
                            int &status)
{
    static const QStringList known{kSCNetworkProtocolTypeDNS, kSCNetworkProtocolTypeIPv4,
                                   kSCNetworkProtocolTypeIPv6, kSCNetworkProtocolTypeProxies,
                                   kSCNetworkProtocolTypeSMB};
    if (!DocumentServices::exists(session, serviceID)
        || (!known.contains(type) && !type.contains(u'.')))
        return failWith(status, kSCStatusInvalidArgument);
    if (session.document().value(protocolPath(serviceID, type)))
        return failWith(status, kSCStatusKeyExists);
    session.edit().setValue(protocolPath(serviceID, type), defaultSettings(type));
    return true;
}

std::optional<QVariantMap> DocumentProtocols::configuration(const DocumentSession &session,
                                                            const QString &serviceID,
                                                            const QString &type)
{
    const QVariantMap *settings = session.document().map(protocolPath(serviceID, type));
    return settings ? DocumentServices::withoutInactiveMark(*settings) : std::nullopt;
}

bool DocumentProtocols::setConfiguration(DocumentSession &session, const QString &serviceID,
                                         const QString &type,
                                         const std::optional<QVariantMap> &configuration,
                                         int &status)
{
    if (!DocumentServices::exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    QVariantMap settings = *mapIn(storedForm(configuration.value_or(QVariantMap())));
    settings.remove(DocumentPaths::inactiveKey);
    if (!isEnabled(session, serviceID, type))
        settings.insert(DocumentPaths::inactiveKey, true);
    session.edit().setValue(protocolPath(serviceID, type), settings);
    return true;
}

bool DocumentProtocols::isEnabled(const DocumentSession &session, const QString &serviceID,
                                  const QString &type)
{
    const QVariantMap *settings = session.document().map(protocolPath(serviceID, type));
    return !settings || !settings->contains(DocumentPaths::inactiveKey);
}

bool DocumentProtocols::setEnabled(DocumentSession &session, const QString &serviceID,
                                   const QString &type, bool enabled, int &status)
{
    if (!DocumentServices::exists(session, serviceID))
        return failWith(status, kSCStatusInvalidArgument);
    if (isEnabled(session, serviceID, type) == enabled)
        return true;
    QStringList path = protocolPath(serviceID, type);
    if (enabled) {
        // Removing the mark leaves the dictionary, empty or not: no pruning here.
        mutableMapIn(*session.edit().mutableValue(path))->remove(DocumentPaths::inactiveKey);
        return true;
    }
    path.append(DocumentPaths::inactiveKey);
    session.edit().setValue(path, true);
    return true;
}

} // namespace VLANKit
