#include "orvanectl/Sessions.h"

#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"

namespace Orvanectl {

std::unique_ptr<VLANKit::VLANStore> readingStore(const VLANKit::Platform &platform,
                                                 const std::optional<QString> &location)
{
    auto store = std::make_unique<VLANKit::VLANStore>(platform);
    if (location)
        store->selectLocation(*location);
    return store;
}

QString locationName(const VLANKit::VLANStore &store)
{
    const auto active = store.activeLocation();
    return active ? active->name : VLANKit::notReported();
}

WritingSession::WritingSession(const VLANKit::Platform &platform,
                               const std::optional<QString> &location)
    : m_authorization(platform)
{
    m_authorization.acquire();
    m_store = std::make_unique<VLANKit::VLANStore>(platform, m_authorization);
    if (location)
        m_store->selectLocation(*location);
}

} // namespace Orvanectl
