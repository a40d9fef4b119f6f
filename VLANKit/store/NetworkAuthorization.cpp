#include "VLANKit/store/NetworkAuthorization.h"

#include "VLANKit/Platform.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

NetworkAuthorization::NetworkAuthorization(const Platform &platform)
    : m_platform(platform.sharedBackend())
{}

NetworkAuthorization::~NetworkAuthorization()
{
    if (m_ref)
        (void)m_platform->authorizationFree(m_ref);
}

QString NetworkAuthorization::rightName()
{
    return u"system.preferences.network"_s;
}

void NetworkAuthorization::acquire()
{
    const AuthorizationCreated created = m_platform->authorizationCreate();
    if (created.status != errAuthorizationSuccess || !created.authorization)
        throw VLANError::authorizationFailed(created.status);

    // Interaction allowed, rights extended, pre-authorized: 19, as the system's own tools ask.
    constexpr std::uint32_t flags = kAuthorizationFlagInteractionAllowed
                                    | kAuthorizationFlagExtendRights
                                    | kAuthorizationFlagPreAuthorize;
    const std::int32_t status =
        m_platform->authorizationCopyRights(created.authorization, rightName(), flags);
    if (status == errAuthorizationSuccess) {
        m_ref = created.authorization;
        return;
    }
    (void)m_platform->authorizationFree(created.authorization);
    if (status == errAuthorizationDenied || status == errAuthorizationCanceled)
        throw VLANError::authorizationDenied();
    throw VLANError::authorizationFailed(status);
}

} // namespace VLANKit
