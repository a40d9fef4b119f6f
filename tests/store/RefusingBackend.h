#pragma once

#include "VLANKit/Platform.h"
#include "tests/support/CountingBackend.h"

#include <QSet>
#include <QString>

#include <memory>

/// A real backend that refuses the operations named, as the system refuses a call it can't
/// carry out; every other answer is the real backend's. It reaches the failure sentences that
/// a faithful folder never provokes.
class RefusingBackend final : public VLANKit::CountingBackend
{
public:
    using CountingBackend::CountingBackend;

    /// A platform over the given one's backend that refuses those operations.
    static VLANKit::Platform over(const VLANKit::Platform &platform, QSet<QString> operations)
    {
        auto refusing = std::make_shared<RefusingBackend>(platform.sharedBackend());
        refusing->m_refused = std::move(operations);
        return VLANKit::Platform(refusing);
    }

    VLANKit::SetRef scNetworkSetCreate(const VLANKit::SessionRef &session) override
    {
        if (refuses(QStringLiteral("SCNetworkSetCreate")))
            return {};
        return CountingBackend::scNetworkSetCreate(session);
    }
    std::optional<QString> scNetworkSetGetSetID(const VLANKit::SetRef &set) override
    {
        if (refuses(QStringLiteral("SCNetworkSetGetSetID")))
            return std::nullopt;
        return CountingBackend::scNetworkSetGetSetID(set);
    }
    bool scNetworkSetSetName(const VLANKit::SetRef &set, const QString &name) override
    {
        return !refuses(QStringLiteral("SCNetworkSetSetName"))
               && CountingBackend::scNetworkSetSetName(set, name);
    }
    bool scNetworkSetRemove(const VLANKit::SetRef &set) override
    {
        return !refuses(QStringLiteral("SCNetworkSetRemove"))
               && CountingBackend::scNetworkSetRemove(set);
    }
    bool scNetworkSetSetCurrent(const VLANKit::SetRef &set) override
    {
        return !refuses(QStringLiteral("SCNetworkSetSetCurrent"))
               && CountingBackend::scNetworkSetSetCurrent(set);
    }
    bool scNetworkSetAddService(const VLANKit::SetRef &set,
                                const VLANKit::ServiceRef &service) override
    {
        return !refuses(QStringLiteral("SCNetworkSetAddService"))
               && CountingBackend::scNetworkSetAddService(set, service);
    }
    VLANKit::ServiceRef scNetworkServiceCreate(const VLANKit::SessionRef &session,
                                               const VLANKit::InterfaceRef &interface) override
    {
        if (refuses(QStringLiteral("SCNetworkServiceCreate")))
            return {};
        return CountingBackend::scNetworkServiceCreate(session, interface);
    }
    bool
    scNetworkInterfaceSetConfiguration(const VLANKit::InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) override
    {
        return !refuses(QStringLiteral("SCNetworkInterfaceSetConfiguration"))
               && CountingBackend::scNetworkInterfaceSetConfiguration(interface, configuration);
    }

    bool scVLANInterfaceSetLocalizedDisplayName(const VLANKit::InterfaceRef &vlan,
                                                const QString &name) override
    {
        return !refuses(QStringLiteral("SCVLANInterfaceSetLocalizedDisplayName"))
               && CountingBackend::scVLANInterfaceSetLocalizedDisplayName(vlan, name);
    }

private:
    [[nodiscard]] bool refuses(const QString &operation) const
    {
        return m_refused.contains(operation);
    }

    QSet<QString> m_refused;
};
