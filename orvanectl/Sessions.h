#pragma once

#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"

#include <QString>

#include <memory>
#include <optional>

namespace VLANKit {
class Platform;
}

/// The store sessions of a command: one to read and plan, and one on the administrator right to
/// write, each pointed at the Location that the person named, or at the one in use.
namespace Orvanectl {

/// A read-only store on the named Location. Throws `VLANError` when there is no such Location.
[[nodiscard]] std::unique_ptr<VLANKit::VLANStore>
readingStore(const VLANKit::Platform &platform, const std::optional<QString> &location);

/// The name of the Location that the store works on, or "—".
[[nodiscard]] QString locationName(const VLANKit::VLANStore &store);

/// The administrator right and a writable store on it. The right is asked for first, and held
/// for as long as the session lives.
class WritingSession
{
public:
    /// Throws `VLANError`: the right refused, or the Location not there.
    WritingSession(const VLANKit::Platform &platform, const std::optional<QString> &location);

    [[nodiscard]] VLANKit::VLANStore &store() { return *m_store; }

private:
    VLANKit::NetworkAuthorization m_authorization;
    std::unique_ptr<VLANKit::VLANStore> m_store;
};

} // namespace Orvanectl
