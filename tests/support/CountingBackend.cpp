#include "tests/support/CountingBackend.h"

using namespace Qt::StringLiterals;
namespace VLANKit {

namespace {

// Declared before the optional's overload, which looks them up when it is defined.
template <typename T>
qint64 elementsOf(const T &)
{
    return 0;
}
template <typename Tag>
qint64 elementsOf(const PlatformHandle<Tag> &handle)
{
    return handle ? 1 : 0;
}
template <typename T>
qint64 elementsOf(const QList<T> &list)
{
    return list.size();
}
qint64 elementsOf(const QVariantMap &map)
{
    return map.size();
}
template <typename T>
qint64 elementsOf(const std::optional<T> &answer)
{
    return answer ? elementsOf(*answer) : 0;
}

} // namespace

CountingBackend::CountingBackend(std::shared_ptr<PlatformBackend> inner)
    : m_inner(std::move(inner))
{}

void CountingBackend::reset()
{
    m_calls.clear();
    m_totalCalls = 0;
    m_elements = 0;
}

template <typename T>
T CountingBackend::handedOver(const QString &operation, T answer)
{
    ++m_calls[operation];
    ++m_totalCalls;
    m_elements += elementsOf(answer);
    return answer;
}

SessionRef CountingBackend::scPreferencesCreate(const QString &name)
{
    return handedOver(u"scPreferencesCreate"_s, m_inner->scPreferencesCreate(name));
}

SessionRef
CountingBackend::scPreferencesCreateWithAuthorization(const QString &name,
                                                      const AuthorizationRef &authorization)
{
    return handedOver(u"scPreferencesCreateWithAuthorization"_s,
                      m_inner->scPreferencesCreateWithAuthorization(name, authorization));
}

bool CountingBackend::scPreferencesCommitChanges(const SessionRef &session)
{
    return handedOver(u"scPreferencesCommitChanges"_s,
                      m_inner->scPreferencesCommitChanges(session));
}

bool CountingBackend::scPreferencesApplyChanges(const SessionRef &session)
{
    return handedOver(u"scPreferencesApplyChanges"_s, m_inner->scPreferencesApplyChanges(session));
}

int CountingBackend::scError()
{
    return handedOver(u"scError"_s, m_inner->scError());
}

QString CountingBackend::scErrorString(int code)
{
    return handedOver(u"scErrorString"_s, m_inner->scErrorString(code));
}

PlatformError CountingBackend::scCopyLastError()
{
    return handedOver(u"scCopyLastError"_s, m_inner->scCopyLastError());
}

AuthorizationCreated CountingBackend::authorizationCreate()
{
    return handedOver(u"authorizationCreate"_s, m_inner->authorizationCreate());
}

std::int32_t CountingBackend::authorizationCopyRights(const AuthorizationRef &authorization,
                                                      const QString &rightName, std::uint32_t flags)
{
    return handedOver(u"authorizationCopyRights"_s,
                      m_inner->authorizationCopyRights(authorization, rightName, flags));
}

std::int32_t CountingBackend::authorizationFree(const AuthorizationRef &authorization)
{
    return handedOver(u"authorizationFree"_s, m_inner->authorizationFree(authorization));
}

std::uint32_t CountingBackend::ifNameToIndex(const QString &bsdName)
{
    return handedOver(u"ifNameToIndex"_s, m_inner->ifNameToIndex(bsdName));
}

SetRef CountingBackend::scNetworkSetCopyCurrent(const SessionRef &session)
{
    return handedOver(u"scNetworkSetCopyCurrent"_s, m_inner->scNetworkSetCopyCurrent(session));
}

std::optional<QList<SetRef>> CountingBackend::scNetworkSetCopyAll(const SessionRef &session)
{
    return handedOver(u"scNetworkSetCopyAll"_s, m_inner->scNetworkSetCopyAll(session));
}

SetRef CountingBackend::scNetworkSetCopy(const SessionRef &session, const QString &setID)
{
    return handedOver(u"scNetworkSetCopy"_s, m_inner->scNetworkSetCopy(session, setID));
}

std::optional<QString> CountingBackend::scNetworkSetGetSetID(const SetRef &set)
{
    return handedOver(u"scNetworkSetGetSetID"_s, m_inner->scNetworkSetGetSetID(set));
}

std::optional<QString> CountingBackend::scNetworkSetGetName(const SetRef &set)
{
    return handedOver(u"scNetworkSetGetName"_s, m_inner->scNetworkSetGetName(set));
}

std::optional<QList<ServiceRef>> CountingBackend::scNetworkSetCopyServices(const SetRef &set)
{
    return handedOver(u"scNetworkSetCopyServices"_s, m_inner->scNetworkSetCopyServices(set));
}

bool CountingBackend::scNetworkSetAddService(const SetRef &set, const ServiceRef &service)
{
    return handedOver(u"scNetworkSetAddService"_s, m_inner->scNetworkSetAddService(set, service));
}

bool CountingBackend::scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service)
{
    return handedOver(u"scNetworkSetRemoveService"_s,
                      m_inner->scNetworkSetRemoveService(set, service));
}

std::optional<QVariantList> CountingBackend::scNetworkSetGetServiceOrder(const SetRef &set)
{
    return handedOver(u"scNetworkSetGetServiceOrder"_s, m_inner->scNetworkSetGetServiceOrder(set));
}

bool CountingBackend::scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order)
{
    return handedOver(u"scNetworkSetSetServiceOrder"_s,
                      m_inner->scNetworkSetSetServiceOrder(set, order));
}

SetRef CountingBackend::scNetworkSetCreate(const SessionRef &session)
{
    return handedOver(u"scNetworkSetCreate"_s, m_inner->scNetworkSetCreate(session));
}

bool CountingBackend::scNetworkSetSetName(const SetRef &set, const QString &name)
{
    return handedOver(u"scNetworkSetSetName"_s, m_inner->scNetworkSetSetName(set, name));
}

bool CountingBackend::scNetworkSetRemove(const SetRef &set)
{
    return handedOver(u"scNetworkSetRemove"_s, m_inner->scNetworkSetRemove(set));
}

bool CountingBackend::scNetworkSetSetCurrent(const SetRef &set)
{
    return handedOver(u"scNetworkSetSetCurrent"_s, m_inner->scNetworkSetSetCurrent(set));
}

ServiceRef CountingBackend::scNetworkServiceCreate(const SessionRef &session,
                                                   const InterfaceRef &interface)
{
    return handedOver(u"scNetworkServiceCreate"_s,
                      m_inner->scNetworkServiceCreate(session, interface));
}

ServiceRef CountingBackend::scNetworkServiceCopy(const SessionRef &session,
                                                 const QString &serviceID)
{
    return handedOver(u"scNetworkServiceCopy"_s, m_inner->scNetworkServiceCopy(session, serviceID));
}

std::optional<QList<ServiceRef>> CountingBackend::scNetworkServiceCopyAll(const SessionRef &session)
{
    return handedOver(u"scNetworkServiceCopyAll"_s, m_inner->scNetworkServiceCopyAll(session));
}

bool CountingBackend::scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceEstablishDefaultConfiguration"_s,
                      m_inner->scNetworkServiceEstablishDefaultConfiguration(service));
}

bool CountingBackend::scNetworkServiceRemove(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceRemove"_s, m_inner->scNetworkServiceRemove(service));
}

std::optional<QString> CountingBackend::scNetworkServiceGetServiceID(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceGetServiceID"_s,
                      m_inner->scNetworkServiceGetServiceID(service));
}

std::optional<QString> CountingBackend::scNetworkServiceGetName(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceGetName"_s, m_inner->scNetworkServiceGetName(service));
}

bool CountingBackend::scNetworkServiceSetName(const ServiceRef &service, const QString &name)
{
    return handedOver(u"scNetworkServiceSetName"_s,
                      m_inner->scNetworkServiceSetName(service, name));
}

bool CountingBackend::scNetworkServiceGetEnabled(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceGetEnabled"_s,
                      m_inner->scNetworkServiceGetEnabled(service));
}

bool CountingBackend::scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled)
{
    return handedOver(u"scNetworkServiceSetEnabled"_s,
                      m_inner->scNetworkServiceSetEnabled(service, enabled));
}

InterfaceRef CountingBackend::scNetworkServiceGetInterface(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceGetInterface"_s,
                      m_inner->scNetworkServiceGetInterface(service));
}

ProtocolRef CountingBackend::scNetworkServiceCopyProtocol(const ServiceRef &service,
                                                          const QString &protocolType)
{
    return handedOver(u"scNetworkServiceCopyProtocol"_s,
                      m_inner->scNetworkServiceCopyProtocol(service, protocolType));
}

std::optional<QList<ProtocolRef>>
CountingBackend::scNetworkServiceCopyProtocols(const ServiceRef &service)
{
    return handedOver(u"scNetworkServiceCopyProtocols"_s,
                      m_inner->scNetworkServiceCopyProtocols(service));
}

bool CountingBackend::scNetworkServiceAddProtocolType(const ServiceRef &service,
                                                      const QString &protocolType)
{
    return handedOver(u"scNetworkServiceAddProtocolType"_s,
                      m_inner->scNetworkServiceAddProtocolType(service, protocolType));
}

std::optional<QVariantMap>
CountingBackend::scNetworkProtocolGetConfiguration(const ProtocolRef &protocol)
{
    return handedOver(u"scNetworkProtocolGetConfiguration"_s,
                      m_inner->scNetworkProtocolGetConfiguration(protocol));
}

bool CountingBackend::scNetworkProtocolSetConfiguration(
    const ProtocolRef &protocol, const std::optional<QVariantMap> &configuration)
{
    return handedOver(u"scNetworkProtocolSetConfiguration"_s,
                      m_inner->scNetworkProtocolSetConfiguration(protocol, configuration));
}

bool CountingBackend::scNetworkProtocolGetEnabled(const ProtocolRef &protocol)
{
    return handedOver(u"scNetworkProtocolGetEnabled"_s,
                      m_inner->scNetworkProtocolGetEnabled(protocol));
}

bool CountingBackend::scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled)
{
    return handedOver(u"scNetworkProtocolSetEnabled"_s,
                      m_inner->scNetworkProtocolSetEnabled(protocol, enabled));
}

std::optional<QString>
CountingBackend::scNetworkProtocolGetProtocolType(const ProtocolRef &protocol)
{
    return handedOver(u"scNetworkProtocolGetProtocolType"_s,
                      m_inner->scNetworkProtocolGetProtocolType(protocol));
}

std::optional<QList<InterfaceRef>> CountingBackend::scNetworkInterfaceCopyAll()
{
    return handedOver(u"scNetworkInterfaceCopyAll"_s, m_inner->scNetworkInterfaceCopyAll());
}

std::optional<QString> CountingBackend::scNetworkInterfaceGetBSDName(const InterfaceRef &interface)
{
    return handedOver(u"scNetworkInterfaceGetBSDName"_s,
                      m_inner->scNetworkInterfaceGetBSDName(interface));
}

std::optional<QString>
CountingBackend::scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface)
{
    return handedOver(u"scNetworkInterfaceGetInterfaceType"_s,
                      m_inner->scNetworkInterfaceGetInterfaceType(interface));
}

std::optional<QString>
CountingBackend::scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface)
{
    return handedOver(u"scNetworkInterfaceGetLocalizedDisplayName"_s,
                      m_inner->scNetworkInterfaceGetLocalizedDisplayName(interface));
}

std::optional<QVariantMap>
CountingBackend::scNetworkInterfaceGetConfiguration(const InterfaceRef &interface)
{
    return handedOver(u"scNetworkInterfaceGetConfiguration"_s,
                      m_inner->scNetworkInterfaceGetConfiguration(interface));
}

bool CountingBackend::scNetworkInterfaceSetConfiguration(
    const InterfaceRef &interface, const std::optional<QVariantMap> &configuration)
{
    return handedOver(u"scNetworkInterfaceSetConfiguration"_s,
                      m_inner->scNetworkInterfaceSetConfiguration(interface, configuration));
}

std::optional<InterfaceMTU>
CountingBackend::scNetworkInterfaceCopyMTU(const InterfaceRef &interface)
{
    return handedOver(u"scNetworkInterfaceCopyMTU"_s,
                      m_inner->scNetworkInterfaceCopyMTU(interface));
}

std::optional<InterfaceMedia>
CountingBackend::scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface, bool filter)
{
    return handedOver(u"scNetworkInterfaceCopyMediaOptions"_s,
                      m_inner->scNetworkInterfaceCopyMediaOptions(interface, filter));
}

std::optional<QVariantList>
CountingBackend::scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available)
{
    return handedOver(u"scNetworkInterfaceCopyMediaSubTypes"_s,
                      m_inner->scNetworkInterfaceCopyMediaSubTypes(available));
}

std::optional<QVariantList>
CountingBackend::scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                                           const QString &subType)
{
    return handedOver(u"scNetworkInterfaceCopyMediaSubTypeOptions"_s,
                      m_inner->scNetworkInterfaceCopyMediaSubTypeOptions(available, subType));
}

std::optional<QList<InterfaceRef>> CountingBackend::scVLANInterfaceCopyAvailablePhysicalInterfaces()
{
    return handedOver(u"scVLANInterfaceCopyAvailablePhysicalInterfaces"_s,
                      m_inner->scVLANInterfaceCopyAvailablePhysicalInterfaces());
}

std::optional<QList<InterfaceRef>>
CountingBackend::scVLANInterfaceCopyAll(const SessionRef &session)
{
    return handedOver(u"scVLANInterfaceCopyAll"_s, m_inner->scVLANInterfaceCopyAll(session));
}

InterfaceRef CountingBackend::scVLANInterfaceCreate(const SessionRef &session,
                                                    const InterfaceRef &physical, qint64 tag)
{
    return handedOver(u"scVLANInterfaceCreate"_s,
                      m_inner->scVLANInterfaceCreate(session, physical, tag));
}

bool CountingBackend::scVLANInterfaceRemove(const InterfaceRef &vlan)
{
    return handedOver(u"scVLANInterfaceRemove"_s, m_inner->scVLANInterfaceRemove(vlan));
}

InterfaceRef CountingBackend::scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan)
{
    return handedOver(u"scVLANInterfaceGetPhysicalInterface"_s,
                      m_inner->scVLANInterfaceGetPhysicalInterface(vlan));
}

std::optional<qint64> CountingBackend::scVLANInterfaceGetTag(const InterfaceRef &vlan)
{
    return handedOver(u"scVLANInterfaceGetTag"_s, m_inner->scVLANInterfaceGetTag(vlan));
}

bool CountingBackend::scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                                const InterfaceRef &physical,
                                                                qint64 tag)
{
    return handedOver(u"scVLANInterfaceSetPhysicalInterfaceAndTag"_s,
                      m_inner->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, physical, tag));
}

bool CountingBackend::scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                             const QString &name)
{
    return handedOver(u"scVLANInterfaceSetLocalizedDisplayName"_s,
                      m_inner->scVLANInterfaceSetLocalizedDisplayName(vlan, name));
}

DynamicStoreRef CountingBackend::scDynamicStoreCreate(const QString &name,
                                                      std::function<void()> changed)
{
    return handedOver(u"scDynamicStoreCreate"_s,
                      m_inner->scDynamicStoreCreate(name, std::move(changed)));
}

std::optional<QVariantMap> CountingBackend::scDynamicStoreCopyMultiple(const DynamicStoreRef &store,
                                                                       const QStringList &keys,
                                                                       const QStringList &patterns)
{
    return handedOver(u"scDynamicStoreCopyMultiple"_s,
                      m_inner->scDynamicStoreCopyMultiple(store, keys, patterns));
}

bool CountingBackend::scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store,
                                                        const QStringList &keys,
                                                        const QStringList &patterns)
{
    return handedOver(u"scDynamicStoreSetNotificationKeys"_s,
                      m_inner->scDynamicStoreSetNotificationKeys(store, keys, patterns));
}

bool CountingBackend::scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store)
{
    return handedOver(u"scDynamicStoreAddToMainRunLoop"_s,
                      m_inner->scDynamicStoreAddToMainRunLoop(store));
}

} // namespace VLANKit
