#include "VLANKit/store/VLANStore.h"

#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/ChangeNotingBackend.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/PlatformLists.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

const QString sessionName = u"Orvane"_s;

// The failure text of the call just made: the system's words and its code.
QString lastFailure(PlatformBackend &platform)
{
    const int code = platform.scError();
    return platform.scErrorString(code) + u" ("_s + QString::number(code) + u')';
}

// The preferences can't be opened. Where the backend knows what exactly is wrong with them (a
// hand-edited file that doesn't parse, say), its sentence says it; else the general words.
VLANError unavailable(PlatformBackend &platform)
{
    const PlatformError error = platform.scCopyLastError();
    if (!error.description.isEmpty() && error.description != platform.scErrorString(error.code))
        return VLANError::operationFailed(error.description);
    return VLANError::prefsUnavailable();
}

} // namespace

VLANStore::VLANStore(const Platform &platform)
    : m_noting(std::make_shared<ChangeNotingBackend>(platform.sharedBackend()))
    , m_platform(m_noting)
{
    installDefaults();
    m_prefs = m_platform->scPreferencesCreate(sessionName);
    if (!m_prefs)
        throw unavailable(*m_platform);
    m_isWritable = false;
}

VLANStore::VLANStore(const Platform &platform, const NetworkAuthorization &authorization)
    : m_noting(std::make_shared<ChangeNotingBackend>(platform.sharedBackend()))
    , m_platform(m_noting)
{
    installDefaults();
    m_prefs = m_platform->scPreferencesCreateWithAuthorization(sessionName, authorization.ref());
    if (!m_prefs)
        throw unavailable(*m_platform);
    m_isWritable = true;
}

VLANStore::~VLANStore() = default;

void VLANStore::installDefaults()
{
    // The defaults hold the backend, not the store: a copy of the function outlives nothing.
    const std::shared_ptr<PlatformBackend> platform = m_platform;
    vlanCapableInterfaces = [platform] {
        return presentHandles(platform->scVLANInterfaceCopyAvailablePhysicalInterfaces());
    };
    attachedInterfaces = [platform] {
        return presentHandles(platform->scNetworkInterfaceCopyAll());
    };
    driverCapabilities = [this](const InterfaceRef &interface) { return askDriver(interface); };
}

bool VLANStore::canHostService(const InterfaceRef &interface)
{
    if (!m_canHostService) {
        // Made on first use; it probes this store's own snapshot and commits nothing.
        m_canHostService = [this](const InterfaceRef &candidate) {
            // The probe leaves the snapshot as it found it: what was read from it stays true.
            const quint64 changes = m_noting->changes();
            const ServiceRef probe = m_platform->scNetworkServiceCreate(m_prefs, candidate);
            if (!probe)
                return false;
            const bool established =
                m_platform->scNetworkServiceEstablishDefaultConfiguration(probe);
            (void)m_platform->scNetworkServiceRemove(probe);
            m_noting->restoreChanges(changes);
            return established;
        };
    }
    return m_canHostService(interface);
}

SetRef VLANStore::targetSet() const
{
    if (!m_selectedSetID)
        return m_platform->scNetworkSetCopyCurrent(m_prefs);
    // A selected Location that has vanished is no Location at all: no fallback on the current.
    const SetRef set = m_platform->scNetworkSetCopy(m_prefs, *m_selectedSetID);
    if (!set || m_platform->scNetworkSetGetSetID(set) != m_selectedSetID)
        return {};
    return set;
}

void VLANStore::commit()
{
    if (!m_isWritable)
        throw VLANError::operationFailed(u"This session is read-only."_s);
    writePendingOrder();
    if (!m_platform->scPreferencesCommitChanges(m_prefs))
        throw VLANError::commitFailed(lastFailure(*m_platform));
    if (!m_platform->scPreferencesApplyChanges(m_prefs))
        throw VLANError::applyFailed(lastFailure(*m_platform));
}

QString VLANStore::selfTestWrite()
{
    if (!m_isWritable)
        throw VLANError::operationFailed(u"Self test needs an authorized session."_s);
    const QList<InterfaceRef> all = presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs));
    if (all.isEmpty())
        throw VLANError::operationFailed(u"No VLAN available to test against."_s);
    const InterfaceRef &vlan = all.first();
    const QString name =
        m_platform->scNetworkInterfaceGetLocalizedDisplayName(vlan).value_or(u"VLAN"_s);
    if (!m_platform->scVLANInterfaceSetLocalizedDisplayName(vlan, name))
        throw VLANError::operationFailed(u"Could not write the display name."_s);
    commit();
    return name;
}

bool VLANStore::isLive(const QString &bsdName) const
{
    return bsdName != notReported() && m_platform->ifNameToIndex(bsdName) != 0;
}

QString VLANStore::bsdNameOrDash(const InterfaceRef &interface) const
{
    if (!interface)
        return notReported();
    return m_platform->scNetworkInterfaceGetBSDName(interface).value_or(notReported());
}

QString VLANStore::displayNameOr(const InterfaceRef &interface, const QString &fallback) const
{
    if (!interface)
        return fallback;
    return m_platform->scNetworkInterfaceGetLocalizedDisplayName(interface).value_or(fallback);
}

} // namespace VLANKit
