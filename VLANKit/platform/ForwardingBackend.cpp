#include "VLANKit/platform/ForwardingBackend.h"

namespace VLANKit {

namespace {

// How many handles and elements an answer hands over.
template <typename Tag>
qsizetype handedOver(const PlatformHandle<Tag> &handle)
{
    return handle ? 1 : 0;
}
template <typename Element>
qsizetype handedOver(const std::optional<QList<Element>> &list)
{
    return list ? list->size() : 0;
}
qsizetype handedOver(const std::optional<QVariantMap> &map)
{
    return map ? map->size() : 0;
}
qsizetype handedOver(const AuthorizationCreated &created)
{
    return handedOver(created.authorization);
}
qsizetype handedOver(const std::optional<InterfaceMedia> &media)
{
    if (!media)
        return 0;
    return (media->active ? media->active->size() : 0)
           + (media->available ? media->available->size() : 0);
}
template <typename Plain>
qsizetype handedOver(const Plain &)
{
    return 0;
}

} // namespace

ForwardingBackend::ForwardingBackend(std::shared_ptr<PlatformBackend> inner)
    : m_inner(std::move(inner))
{}

void ForwardingBackend::called(const char *, qsizetype) const {}

template <typename Call>
auto ForwardingBackend::forward(const char *operation, Call call) const
{
    auto answer = call();
    called(operation, handedOver(answer));
    return answer;
}

QString ForwardingBackend::machineDisplayName() const
{
    return forward("machineDisplayName", [&] { return m_inner->machineDisplayName(); });
}

std::optional<QString> ForwardingBackend::hardwareUUID() const
{
    return forward("hardwareUUID", [&] { return m_inner->hardwareUUID(); });
}

SessionRef ForwardingBackend::scPreferencesCreate(const QString &name)
{
    return forward("scPreferencesCreate", [&] { return m_inner->scPreferencesCreate(name); });
}

SessionRef
ForwardingBackend::scPreferencesCreateWithAuthorization(const QString &name,
                                                        const AuthorizationRef &authorization)
{
    return forward("scPreferencesCreateWithAuthorization", [&] {
        return m_inner->scPreferencesCreateWithAuthorization(name, authorization);
    });
}

bool ForwardingBackend::scPreferencesCommitChanges(const SessionRef &session)
{
    return forward("scPreferencesCommitChanges",
                   [&] { return m_inner->scPreferencesCommitChanges(session); });
}

bool ForwardingBackend::scPreferencesApplyChanges(const SessionRef &session)
{
    return forward("scPreferencesApplyChanges",
                   [&] { return m_inner->scPreferencesApplyChanges(session); });
}

int ForwardingBackend::scError()
{
    return forward("scError", [&] { return m_inner->scError(); });
}

QString ForwardingBackend::scErrorString(int code)
{
    return forward("scErrorString", [&] { return m_inner->scErrorString(code); });
}

PlatformError ForwardingBackend::scCopyLastError()
{
    return forward("scCopyLastError", [&] { return m_inner->scCopyLastError(); });
}

AuthorizationCreated ForwardingBackend::authorizationCreate()
{
    return forward("authorizationCreate", [&] { return m_inner->authorizationCreate(); });
}

std::int32_t ForwardingBackend::authorizationCopyRights(const AuthorizationRef &authorization,
                                                        const QString &rightName,
                                                        std::uint32_t flags)
{
    return forward("authorizationCopyRights", [&] {
        return m_inner->authorizationCopyRights(authorization, rightName, flags);
    });
}

std::int32_t ForwardingBackend::authorizationFree(const AuthorizationRef &authorization)
{
    return forward("authorizationFree", [&] { return m_inner->authorizationFree(authorization); });
}

std::uint32_t ForwardingBackend::ifNameToIndex(const QString &bsdName)
{
    return forward("ifNameToIndex", [&] { return m_inner->ifNameToIndex(bsdName); });
}

SetRef ForwardingBackend::scNetworkSetCopyCurrent(const SessionRef &session)
{
    return forward("scNetworkSetCopyCurrent",
                   [&] { return m_inner->scNetworkSetCopyCurrent(session); });
}

std::optional<QList<SetRef>> ForwardingBackend::scNetworkSetCopyAll(const SessionRef &session)
{
    return forward("scNetworkSetCopyAll", [&] { return m_inner->scNetworkSetCopyAll(session); });
}

SetRef ForwardingBackend::scNetworkSetCopy(const SessionRef &session, const QString &setID)
{
    return forward("scNetworkSetCopy", [&] { return m_inner->scNetworkSetCopy(session, setID); });
}

std::optional<QString> ForwardingBackend::scNetworkSetGetSetID(const SetRef &set)
{
    return forward("scNetworkSetGetSetID", [&] { return m_inner->scNetworkSetGetSetID(set); });
}

std::optional<QString> ForwardingBackend::scNetworkSetGetName(const SetRef &set)
{
    return forward("scNetworkSetGetName", [&] { return m_inner->scNetworkSetGetName(set); });
}

std::optional<QList<ServiceRef>> ForwardingBackend::scNetworkSetCopyServices(const SetRef &set)
{
    return forward("scNetworkSetCopyServices",
                   [&] { return m_inner->scNetworkSetCopyServices(set); });
}

bool ForwardingBackend::scNetworkSetAddService(const SetRef &set, const ServiceRef &service)
{
    return forward("scNetworkSetAddService",
                   [&] { return m_inner->scNetworkSetAddService(set, service); });
}

bool ForwardingBackend::scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service)
{
    return forward("scNetworkSetRemoveService",
                   [&] { return m_inner->scNetworkSetRemoveService(set, service); });
}

std::optional<QVariantList> ForwardingBackend::scNetworkSetGetServiceOrder(const SetRef &set)
{
    return forward("scNetworkSetGetServiceOrder",
                   [&] { return m_inner->scNetworkSetGetServiceOrder(set); });
}

bool ForwardingBackend::scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order)
{
    return forward("scNetworkSetSetServiceOrder",
                   [&] { return m_inner->scNetworkSetSetServiceOrder(set, order); });
}

SetRef ForwardingBackend::scNetworkSetCreate(const SessionRef &session)
{
    return forward("scNetworkSetCreate", [&] { return m_inner->scNetworkSetCreate(session); });
}

bool ForwardingBackend::scNetworkSetSetName(const SetRef &set, const QString &name)
{
    return forward("scNetworkSetSetName", [&] { return m_inner->scNetworkSetSetName(set, name); });
}

bool ForwardingBackend::scNetworkSetRemove(const SetRef &set)
{
    return forward("scNetworkSetRemove", [&] { return m_inner->scNetworkSetRemove(set); });
}

bool ForwardingBackend::scNetworkSetSetCurrent(const SetRef &set)
{
    return forward("scNetworkSetSetCurrent", [&] { return m_inner->scNetworkSetSetCurrent(set); });
}

ServiceRef ForwardingBackend::scNetworkServiceCreate(const SessionRef &session,
                                                     const InterfaceRef &interface)
{
    return forward("scNetworkServiceCreate",
                   [&] { return m_inner->scNetworkServiceCreate(session, interface); });
}

ServiceRef ForwardingBackend::scNetworkServiceCopy(const SessionRef &session,
                                                   const QString &serviceID)
{
    return forward("scNetworkServiceCopy",
                   [&] { return m_inner->scNetworkServiceCopy(session, serviceID); });
}

std::optional<QList<ServiceRef>>
ForwardingBackend::scNetworkServiceCopyAll(const SessionRef &session)
{
    return forward("scNetworkServiceCopyAll",
                   [&] { return m_inner->scNetworkServiceCopyAll(session); });
}

bool ForwardingBackend::scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service)
{
    return forward("scNetworkServiceEstablishDefaultConfiguration",
                   [&] { return m_inner->scNetworkServiceEstablishDefaultConfiguration(service); });
}

bool ForwardingBackend::scNetworkServiceRemove(const ServiceRef &service)
{
    return forward("scNetworkServiceRemove",
                   [&] { return m_inner->scNetworkServiceRemove(service); });
}

std::optional<QString> ForwardingBackend::scNetworkServiceGetServiceID(const ServiceRef &service)
{
    return forward("scNetworkServiceGetServiceID",
                   [&] { return m_inner->scNetworkServiceGetServiceID(service); });
}

std::optional<QString> ForwardingBackend::scNetworkServiceGetName(const ServiceRef &service)
{
    return forward("scNetworkServiceGetName",
                   [&] { return m_inner->scNetworkServiceGetName(service); });
}

bool ForwardingBackend::scNetworkServiceSetName(const ServiceRef &service, const QString &name)
{
    return forward("scNetworkServiceSetName",
                   [&] { return m_inner->scNetworkServiceSetName(service, name); });
}

bool ForwardingBackend::scNetworkServiceGetEnabled(const ServiceRef &service)
{
    return forward("scNetworkServiceGetEnabled",
                   [&] { return m_inner->scNetworkServiceGetEnabled(service); });
}

bool ForwardingBackend::scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled)
{
    return forward("scNetworkServiceSetEnabled",
                   [&] { return m_inner->scNetworkServiceSetEnabled(service, enabled); });
}

InterfaceRef ForwardingBackend::scNetworkServiceGetInterface(const ServiceRef &service)
{
    return forward("scNetworkServiceGetInterface",
                   [&] { return m_inner->scNetworkServiceGetInterface(service); });
}

ProtocolRef ForwardingBackend::scNetworkServiceCopyProtocol(const ServiceRef &service,
                                                            const QString &protocolType)
{
    return forward("scNetworkServiceCopyProtocol",
                   [&] { return m_inner->scNetworkServiceCopyProtocol(service, protocolType); });
}

std::optional<QList<ProtocolRef>>
ForwardingBackend::scNetworkServiceCopyProtocols(const ServiceRef &service)
{
    return forward("scNetworkServiceCopyProtocols",
                   [&] { return m_inner->scNetworkServiceCopyProtocols(service); });
}

bool ForwardingBackend::scNetworkServiceAddProtocolType(const ServiceRef &service,
                                                        const QString &protocolType)
{
    return forward("scNetworkServiceAddProtocolType",
                   [&] { return m_inner->scNetworkServiceAddProtocolType(service, protocolType); });
}

std::optional<QVariantMap>
ForwardingBackend::scNetworkProtocolGetConfiguration(const ProtocolRef &protocol)
{
    return forward("scNetworkProtocolGetConfiguration",
                   [&] { return m_inner->scNetworkProtocolGetConfiguration(protocol); });
}

bool ForwardingBackend::scNetworkProtocolSetConfiguration(
    const ProtocolRef &protocol, const std::optional<QVariantMap> &configuration)
{
    return forward("scNetworkProtocolSetConfiguration", [&] {
        return m_inner->scNetworkProtocolSetConfiguration(protocol, configuration);
    });
}

bool ForwardingBackend::scNetworkProtocolGetEnabled(const ProtocolRef &protocol)
{
    return forward("scNetworkProtocolGetEnabled",
                   [&] { return m_inner->scNetworkProtocolGetEnabled(protocol); });
}

bool ForwardingBackend::scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled)
{
    return forward("scNetworkProtocolSetEnabled",
                   [&] { return m_inner->scNetworkProtocolSetEnabled(protocol, enabled); });
}

std::optional<QString>
ForwardingBackend::scNetworkProtocolGetProtocolType(const ProtocolRef &protocol)
{
    return forward("scNetworkProtocolGetProtocolType",
                   [&] { return m_inner->scNetworkProtocolGetProtocolType(protocol); });
}

std::optional<QList<InterfaceRef>> ForwardingBackend::scNetworkInterfaceCopyAll()
{
    return forward("scNetworkInterfaceCopyAll",
                   [&] { return m_inner->scNetworkInterfaceCopyAll(); });
}

std::optional<QString>
ForwardingBackend::scNetworkInterfaceGetBSDName(const InterfaceRef &interface)
{
    return forward("scNetworkInterfaceGetBSDName",
                   [&] { return m_inner->scNetworkInterfaceGetBSDName(interface); });
}

std::optional<QString>
ForwardingBackend::scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface)
{
    return forward("scNetworkInterfaceGetInterfaceType",
                   [&] { return m_inner->scNetworkInterfaceGetInterfaceType(interface); });
}

std::optional<QString>
ForwardingBackend::scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface)
{
    return forward("scNetworkInterfaceGetLocalizedDisplayName",
                   [&] { return m_inner->scNetworkInterfaceGetLocalizedDisplayName(interface); });
}

std::optional<QVariantMap>
ForwardingBackend::scNetworkInterfaceGetConfiguration(const InterfaceRef &interface)
{
    return forward("scNetworkInterfaceGetConfiguration",
                   [&] { return m_inner->scNetworkInterfaceGetConfiguration(interface); });
}

bool ForwardingBackend::scNetworkInterfaceSetConfiguration(
    const InterfaceRef &interface, const std::optional<QVariantMap> &configuration)
{
    return forward("scNetworkInterfaceSetConfiguration", [&] {
        return m_inner->scNetworkInterfaceSetConfiguration(interface, configuration);
    });
}

std::optional<InterfaceMTU>
ForwardingBackend::scNetworkInterfaceCopyMTU(const InterfaceRef &interface)
{
    return forward("scNetworkInterfaceCopyMTU",
                   [&] { return m_inner->scNetworkInterfaceCopyMTU(interface); });
}

std::optional<InterfaceMedia>
ForwardingBackend::scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface, bool filter)
{
    return forward("scNetworkInterfaceCopyMediaOptions",
                   [&] { return m_inner->scNetworkInterfaceCopyMediaOptions(interface, filter); });
}

std::optional<QVariantList>
ForwardingBackend::scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available)
{
    return forward("scNetworkInterfaceCopyMediaSubTypes",
                   [&] { return m_inner->scNetworkInterfaceCopyMediaSubTypes(available); });
}

std::optional<QVariantList>
ForwardingBackend::scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                                             const QString &subType)
{
    return forward("scNetworkInterfaceCopyMediaSubTypeOptions", [&] {
        return m_inner->scNetworkInterfaceCopyMediaSubTypeOptions(available, subType);
    });
}

std::optional<QList<InterfaceRef>>
ForwardingBackend::scVLANInterfaceCopyAvailablePhysicalInterfaces()
{
    return forward("scVLANInterfaceCopyAvailablePhysicalInterfaces",
                   [&] { return m_inner->scVLANInterfaceCopyAvailablePhysicalInterfaces(); });
}

std::optional<QList<InterfaceRef>>
ForwardingBackend::scVLANInterfaceCopyAll(const SessionRef &session)
{
    return forward("scVLANInterfaceCopyAll",
                   [&] { return m_inner->scVLANInterfaceCopyAll(session); });
}

InterfaceRef ForwardingBackend::scVLANInterfaceCreate(const SessionRef &session,
                                                      const InterfaceRef &physical, qint64 tag)
{
    return forward("scVLANInterfaceCreate",
                   [&] { return m_inner->scVLANInterfaceCreate(session, physical, tag); });
}

bool ForwardingBackend::scVLANInterfaceRemove(const InterfaceRef &vlan)
{
    return forward("scVLANInterfaceRemove", [&] { return m_inner->scVLANInterfaceRemove(vlan); });
}

InterfaceRef ForwardingBackend::scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan)
{
    return forward("scVLANInterfaceGetPhysicalInterface",
                   [&] { return m_inner->scVLANInterfaceGetPhysicalInterface(vlan); });
}

std::optional<qint64> ForwardingBackend::scVLANInterfaceGetTag(const InterfaceRef &vlan)
{
    return forward("scVLANInterfaceGetTag", [&] { return m_inner->scVLANInterfaceGetTag(vlan); });
}

bool ForwardingBackend::scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                                  const InterfaceRef &physical,
                                                                  qint64 tag)
{
    return forward("scVLANInterfaceSetPhysicalInterfaceAndTag", [&] {
        return m_inner->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, physical, tag);
    });
}

bool ForwardingBackend::scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                               const QString &name)
{
    return forward("scVLANInterfaceSetLocalizedDisplayName",
                   [&] { return m_inner->scVLANInterfaceSetLocalizedDisplayName(vlan, name); });
}

DynamicStoreRef ForwardingBackend::scDynamicStoreCreate(const QString &name,
                                                        std::function<void()> changed)
{
    return forward("scDynamicStoreCreate",
                   [&] { return m_inner->scDynamicStoreCreate(name, std::move(changed)); });
}

std::optional<QVariantMap>
ForwardingBackend::scDynamicStoreCopyMultiple(const DynamicStoreRef &store, const QStringList &keys,
                                              const QStringList &patterns)
{
    return forward("scDynamicStoreCopyMultiple",
                   [&] { return m_inner->scDynamicStoreCopyMultiple(store, keys, patterns); });
}

bool ForwardingBackend::scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store,
                                                          const QStringList &keys,
                                                          const QStringList &patterns)
{
    return forward("scDynamicStoreSetNotificationKeys", [&] {
        return m_inner->scDynamicStoreSetNotificationKeys(store, keys, patterns);
    });
}

bool ForwardingBackend::scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store)
{
    return forward("scDynamicStoreAddToMainRunLoop",
                   [&] { return m_inner->scDynamicStoreAddToMainRunLoop(store); });
}

} // namespace VLANKit
