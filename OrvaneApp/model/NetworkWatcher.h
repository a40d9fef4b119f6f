#pragma once

#include "VLANKit/platform/PlatformHandle.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace VLANKit {
class PlatformBackend;
}

/// The source of network events: a dynamic-store session that calls `changed` on the main
/// thread for every change of interface state, link, a service's IPv4 state or the saved setup.
/// Its notifications stop when it goes.
class NetworkWatcher
{
public:
    /// A watcher on the main run loop, or none when the session, the subscription or the run
    /// loop refuses.
    [[nodiscard]] static std::unique_ptr<NetworkWatcher> make(VLANKit::PlatformBackend &platform,
                                                              std::function<void()> changed);

    [[nodiscard]] static const QStringList &keys();
    [[nodiscard]] static const QStringList &patterns();

private:
    explicit NetworkWatcher(VLANKit::DynamicStoreRef store);

    VLANKit::DynamicStoreRef m_store;
};
