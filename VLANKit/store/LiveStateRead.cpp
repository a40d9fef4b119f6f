#include "VLANKit/machine/LiveState.h"
#include "VLANKit/platform/PlatformBackend.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

LiveState LiveState::read(PlatformBackend &platform)
{
    const DynamicStoreRef store = platform.scDynamicStoreCreate(u"Orvane"_s, {});
    if (!store)
        return {};
    const auto answer =
        platform.scDynamicStoreCopyMultiple(store, {}, {u"State:/Network/Service/[^/]+/IPv4"_s});
    if (!answer)
        return {};
    return parsing(*answer);
}

} // namespace VLANKit
