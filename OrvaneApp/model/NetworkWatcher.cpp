#include "OrvaneApp/model/NetworkWatcher.h"

#include "VLANKit/platform/PlatformBackend.h"

using namespace Qt::StringLiterals;

const QStringList &NetworkWatcher::keys()
{
    static const QStringList keys{u"State:/Network/Interface"_s, u"Setup:/Network/Global/IPv4"_s};
    return keys;
}

const QStringList &NetworkWatcher::patterns()
{
    static const QStringList patterns{
        u"State:/Network/Interface/[^/]+/Link"_s, u"State:/Network/Service/[^/]+/IPv4"_s,
        u"Setup:/Network/Service/.*"_s, u"Setup:/Network/Interface/.*"_s};
    return patterns;
}

NetworkWatcher::NetworkWatcher(VLANKit::DynamicStoreRef store)
    : m_store(std::move(store))
{}

std::unique_ptr<NetworkWatcher> NetworkWatcher::make(VLANKit::PlatformBackend &platform,
                                                     std::function<void()> changed)
{
    VLANKit::DynamicStoreRef store =
        platform.scDynamicStoreCreate(u"Orvane-watch"_s, std::move(changed));
    if (!store || !platform.scDynamicStoreSetNotificationKeys(store, keys(), patterns())
        || !platform.scDynamicStoreAddToMainRunLoop(store))
        return nullptr;
    return std::unique_ptr<NetworkWatcher>(new NetworkWatcher(std::move(store)));
}
