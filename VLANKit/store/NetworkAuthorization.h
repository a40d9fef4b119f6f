#pragma once

#include "VLANKit/platform/PlatformHandle.h"

#include <QString>

#include <memory>

namespace VLANKit {

class Platform;
class PlatformBackend;

/// The administrator right to change the network settings. Obtained first, with `acquire`,
/// then handed to a writable store; freed when the object goes.
class NetworkAuthorization
{
public:
    explicit NetworkAuthorization(const Platform &platform);
    ~NetworkAuthorization();
    NetworkAuthorization(const NetworkAuthorization &) = delete;
    NetworkAuthorization &operator=(const NetworkAuthorization &) = delete;

    /// The right asked for.
    [[nodiscard]] static QString rightName();

    /// Asks for the right, with the system's dialog where it needs one. Throws
    /// `authorizationDenied` when the user refuses or cancels, `authorizationFailed` with the
    /// status otherwise.
    void acquire();

    /// Absent until `acquire` succeeds.
    [[nodiscard]] const AuthorizationRef &ref() const { return m_ref; }

private:
    std::shared_ptr<PlatformBackend> m_platform;
    AuthorizationRef m_ref;
};

} // namespace VLANKit
