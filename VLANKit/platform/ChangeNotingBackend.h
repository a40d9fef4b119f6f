#pragma once

#include "VLANKit/platform/ForwardingBackend.h"

#include <QtGlobal>

namespace VLANKit {

/// A backend that hands every call on and counts the calls that may change a preferences
/// session. A store speaks through one, so that whatever it derived from its snapshot is known
/// to be out of date after any change, also one made through its backend by someone else.
class ChangeNotingBackend : public ForwardingBackend
{
public:
    using ForwardingBackend::ForwardingBackend;

    /// How many changing calls went through so far.
    [[nodiscard]] quint64 changes() const { return m_changes; }
    /// Forgets changes that left the snapshot as it was: a probe that adds and removes.
    void restoreChanges(quint64 changes) { m_changes = changes; }

    bool scNetworkSetAddService(const SetRef &set, const ServiceRef &service) override;
    bool scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service) override;
    bool scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order) override;
    SetRef scNetworkSetCreate(const SessionRef &session) override;
    bool scNetworkSetSetName(const SetRef &set, const QString &name) override;
    bool scNetworkSetRemove(const SetRef &set) override;
    bool scNetworkSetSetCurrent(const SetRef &set) override;
    ServiceRef scNetworkServiceCreate(const SessionRef &session,
                                      const InterfaceRef &interface) override;
    bool scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service) override;
    bool scNetworkServiceRemove(const ServiceRef &service) override;
    bool scNetworkServiceSetName(const ServiceRef &service, const QString &name) override;
    bool scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled) override;
    bool scNetworkServiceAddProtocolType(const ServiceRef &service,
                                         const QString &protocolType) override;
    bool
    scNetworkProtocolSetConfiguration(const ProtocolRef &protocol,
                                      const std::optional<QVariantMap> &configuration) override;
    bool scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled) override;
    bool
    scNetworkInterfaceSetConfiguration(const InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) override;
    InterfaceRef scVLANInterfaceCreate(const SessionRef &session, const InterfaceRef &physical,
                                       qint64 tag) override;
    bool scVLANInterfaceRemove(const InterfaceRef &vlan) override;
    bool scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                   const InterfaceRef &physical,
                                                   qint64 tag) override;
    bool scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                const QString &name) override;

private:
    // Counted before the call: a call that fails may still have changed something.
    template <typename Call>
    auto noted(Call call)
    {
        ++m_changes;
        return call();
    }

    quint64 m_changes = 0;
};

} // namespace VLANKit
