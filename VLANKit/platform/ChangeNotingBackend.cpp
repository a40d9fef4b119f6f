#include "VLANKit/platform/ChangeNotingBackend.h"

namespace VLANKit {

bool ChangeNotingBackend::scNetworkSetAddService(const SetRef &set, const ServiceRef &service)
{
    return noted([&] { return ForwardingBackend::scNetworkSetAddService(set, service); });
}

bool ChangeNotingBackend::scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service)
{
    return noted([&] { return ForwardingBackend::scNetworkSetRemoveService(set, service); });
}

bool ChangeNotingBackend::scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order)
{
    return noted([&] { return ForwardingBackend::scNetworkSetSetServiceOrder(set, order); });
}

SetRef ChangeNotingBackend::scNetworkSetCreate(const SessionRef &session)
{
    return noted([&] { return ForwardingBackend::scNetworkSetCreate(session); });
}

bool ChangeNotingBackend::scNetworkSetSetName(const SetRef &set, const QString &name)
{
    return noted([&] { return ForwardingBackend::scNetworkSetSetName(set, name); });
}

bool ChangeNotingBackend::scNetworkSetRemove(const SetRef &set)
{
    return noted([&] { return ForwardingBackend::scNetworkSetRemove(set); });
}

bool ChangeNotingBackend::scNetworkSetSetCurrent(const SetRef &set)
{
    return noted([&] { return ForwardingBackend::scNetworkSetSetCurrent(set); });
}

ServiceRef ChangeNotingBackend::scNetworkServiceCreate(const SessionRef &session,
                                                       const InterfaceRef &interface)
{
    return noted([&] { return ForwardingBackend::scNetworkServiceCreate(session, interface); });
}

bool ChangeNotingBackend::scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service)
{
    return noted(
        [&] { return ForwardingBackend::scNetworkServiceEstablishDefaultConfiguration(service); });
}

bool ChangeNotingBackend::scNetworkServiceRemove(const ServiceRef &service)
{
    return noted([&] { return ForwardingBackend::scNetworkServiceRemove(service); });
}

bool ChangeNotingBackend::scNetworkServiceSetName(const ServiceRef &service, const QString &name)
{
    return noted([&] { return ForwardingBackend::scNetworkServiceSetName(service, name); });
}

bool ChangeNotingBackend::scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled)
{
    return noted([&] { return ForwardingBackend::scNetworkServiceSetEnabled(service, enabled); });
}

bool ChangeNotingBackend::scNetworkServiceAddProtocolType(const ServiceRef &service,
                                                          const QString &protocolType)
{
    return noted(
        [&] { return ForwardingBackend::scNetworkServiceAddProtocolType(service, protocolType); });
}

bool ChangeNotingBackend::scNetworkProtocolSetConfiguration(
    const ProtocolRef &protocol, const std::optional<QVariantMap> &configuration)
{
    return noted([&] {
        return ForwardingBackend::scNetworkProtocolSetConfiguration(protocol, configuration);
    });
}

bool ChangeNotingBackend::scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled)
{
    return noted([&] { return ForwardingBackend::scNetworkProtocolSetEnabled(protocol, enabled); });
}

bool ChangeNotingBackend::scNetworkInterfaceSetConfiguration(
    const InterfaceRef &interface, const std::optional<QVariantMap> &configuration)
{
    return noted([&] {
        return ForwardingBackend::scNetworkInterfaceSetConfiguration(interface, configuration);
    });
}

InterfaceRef ChangeNotingBackend::scVLANInterfaceCreate(const SessionRef &session,
                                                        const InterfaceRef &physical, qint64 tag)
{
    return noted([&] { return ForwardingBackend::scVLANInterfaceCreate(session, physical, tag); });
}

bool ChangeNotingBackend::scVLANInterfaceRemove(const InterfaceRef &vlan)
{
    return noted([&] { return ForwardingBackend::scVLANInterfaceRemove(vlan); });
}

bool ChangeNotingBackend::scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                                    const InterfaceRef &physical,
                                                                    qint64 tag)
{
    return noted([&] {
        return ForwardingBackend::scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, physical, tag);
    });
}

bool ChangeNotingBackend::scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                                 const QString &name)
{
    return noted(
        [&] { return ForwardingBackend::scVLANInterfaceSetLocalizedDisplayName(vlan, name); });
}

} // namespace VLANKit
