#pragma once

#include "VLANKit/Platform.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentMachine.h"

#include <QSet>
#include <QString>

#include <memory>

/// The document backend over a folder, refusing the operations named in `refused` as the
/// system refuses a call it can't carry out; everything else is the backend's own. It reaches
/// the store's failure sentences that a faithful folder never provokes.
class RefusingBackend final : public VLANKit::DocumentBackend
{
public:
    explicit RefusingBackend(const QString &folder)
        : DocumentBackend(VLANKit::DocumentMachine::open(folder))
    {}

    /// A platform over the folder with a backend of this kind.
    static VLANKit::Platform platformOver(const QString &folder,
                                          std::shared_ptr<RefusingBackend> *backend)
    {
        *backend = std::make_shared<RefusingBackend>(folder);
        return VLANKit::Platform(*backend, folder);
    }

    QSet<QString> refused;

    VLANKit::SetRef scNetworkSetCreate(const VLANKit::SessionRef &session) override
    {
        return refuses(QStringLiteral("SCNetworkSetCreate"))
                   ? VLANKit::SetRef()
                   : DocumentBackend::scNetworkSetCreate(session);
    }
    std::optional<QString> scNetworkSetGetSetID(const VLANKit::SetRef &set) override
    {
        if (refuses(QStringLiteral("SCNetworkSetGetSetID")))
            return std::nullopt;
        return DocumentBackend::scNetworkSetGetSetID(set);
    }
    bool scNetworkSetSetName(const VLANKit::SetRef &set, const QString &name) override
    {
        return !refuses(QStringLiteral("SCNetworkSetSetName"))
               && DocumentBackend::scNetworkSetSetName(set, name);
    }
    bool scNetworkSetRemove(const VLANKit::SetRef &set) override
    {
        return !refuses(QStringLiteral("SCNetworkSetRemove"))
               && DocumentBackend::scNetworkSetRemove(set);
    }
    bool scNetworkSetSetCurrent(const VLANKit::SetRef &set) override
    {
        return !refuses(QStringLiteral("SCNetworkSetSetCurrent"))
               && DocumentBackend::scNetworkSetSetCurrent(set);
    }
    bool scNetworkSetAddService(const VLANKit::SetRef &set,
                                const VLANKit::ServiceRef &service) override
    {
        return !refuses(QStringLiteral("SCNetworkSetAddService"))
               && DocumentBackend::scNetworkSetAddService(set, service);
    }
    VLANKit::ServiceRef scNetworkServiceCreate(const VLANKit::SessionRef &session,
                                               const VLANKit::InterfaceRef &interface) override
    {
        return refuses(QStringLiteral("SCNetworkServiceCreate"))
                   ? VLANKit::ServiceRef()
                   : DocumentBackend::scNetworkServiceCreate(session, interface);
    }
    bool
    scNetworkInterfaceSetConfiguration(const VLANKit::InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) override
    {
        return !refuses(QStringLiteral("SCNetworkInterfaceSetConfiguration"))
               && DocumentBackend::scNetworkInterfaceSetConfiguration(interface, configuration);
    }

private:
    [[nodiscard]] bool refuses(const QString &operation) const
    {
        return refused.contains(operation);
    }
};
