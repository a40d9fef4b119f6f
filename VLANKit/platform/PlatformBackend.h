#pragma once

#include "VLANKit/machine/MachineFacts.h"
#include "VLANKit/platform/PlatformAnswers.h"
#include "VLANKit/platform/PlatformHandle.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace VLANKit {

/// The one seam between Orvane and the operating system: every platform operation that the
/// network store, the live state, the watcher, the authorization and the machine's identity
/// need, each named after the framework call it stands for and meaning what that call means.
/// A backend holds no policy of ours: rules, sentences and the order of steps live above it.
///
/// Conventions. A null handle is the framework's NULL. An absent optional is "nothing"; a list
/// that is present may be empty. Lists come in the order the platform gives them. A call that
/// answers false or nothing leaves its code for `scError`. Handles of one backend mean nothing
/// to another. Every operation is virtual, so that a decorator can stand in between.
class PlatformBackend : public MachineFacts
{
public:
    ~PlatformBackend() override = default;

    // Preferences sessions and failures.
    /// A private snapshot of the network preferences under `name`; null when none can be had.
    virtual SessionRef scPreferencesCreate(const QString &name) = 0;
    /// The same, with an authorization handed to the system (null: none); commits and applies
    /// of such a session may change the system's settings when the right was granted.
    virtual SessionRef
    scPreferencesCreateWithAuthorization(const QString &name,
                                         const AuthorizationRef &authorization) = 0;
    /// Stores the session's snapshot. The backend takes the preferences lock itself and refuses a
    /// snapshot that someone else committed over (`kSCStatusStale`).
    virtual bool scPreferencesCommitChanges(const SessionRef &session) = 0;
    /// Tells the running system to follow the stored preferences; takes the lock as commit does.
    virtual bool scPreferencesApplyChanges(const SessionRef &session) = 0;
    /// The code of the failure just had.
    virtual int scError() = 0;
    /// The system's words for a code.
    virtual QString scErrorString(int code) = 0;
    /// The failure just had, with the best description the backend has of it.
    virtual PlatformError scCopyLastError() = 0;

    // The administrator right.
    /// No rights, no environment, default flags.
    virtual AuthorizationCreated authorizationCreate() = 0;
    /// Asks for one right, no value, no environment, no result set; may ask the user.
    virtual std::int32_t authorizationCopyRights(const AuthorizationRef &authorization,
                                                 const QString &rightName, std::uint32_t flags) = 0;
    /// Frees the handle with default flags.
    virtual std::int32_t authorizationFree(const AuthorizationRef &authorization) = 0;

    // The kernel.
    /// Non-zero when the kernel has an interface of that name now.
    virtual std::uint32_t ifNameToIndex(const QString &bsdName) = 0;

    // Sets (Locations).
    virtual SetRef scNetworkSetCopyCurrent(const SessionRef &session) = 0;
    virtual std::optional<QList<SetRef>> scNetworkSetCopyAll(const SessionRef &session) = 0;
    /// The set of that identifier, without a walk; null when there is none.
    virtual SetRef scNetworkSetCopy(const SessionRef &session, const QString &setID) = 0;
    virtual std::optional<QString> scNetworkSetGetSetID(const SetRef &set) = 0;
    virtual std::optional<QString> scNetworkSetGetName(const SetRef &set) = 0;
    virtual std::optional<QList<ServiceRef>> scNetworkSetCopyServices(const SetRef &set) = 0;
    virtual bool scNetworkSetAddService(const SetRef &set, const ServiceRef &service) = 0;
    virtual bool scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service) = 0;
    /// The stored order as it stands: elements that are no strings are handed over too.
    virtual std::optional<QVariantList> scNetworkSetGetServiceOrder(const SetRef &set) = 0;
    virtual bool scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order) = 0;
    virtual SetRef scNetworkSetCreate(const SessionRef &session) = 0;
    virtual bool scNetworkSetSetName(const SetRef &set, const QString &name) = 0;
    virtual bool scNetworkSetRemove(const SetRef &set) = 0;
    virtual bool scNetworkSetSetCurrent(const SetRef &set) = 0;

    // Services.
    virtual ServiceRef scNetworkServiceCreate(const SessionRef &session,
                                              const InterfaceRef &interface) = 0;
    /// The service of that identifier, without a walk; null when there is none.
    virtual ServiceRef scNetworkServiceCopy(const SessionRef &session,
                                            const QString &serviceID) = 0;
    /// Every service of the preferences, whether a set holds it or not.
    virtual std::optional<QList<ServiceRef>> scNetworkServiceCopyAll(const SessionRef &session) = 0;
    virtual bool scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service) = 0;
    virtual bool scNetworkServiceRemove(const ServiceRef &service) = 0;
    virtual std::optional<QString> scNetworkServiceGetServiceID(const ServiceRef &service) = 0;
    virtual std::optional<QString> scNetworkServiceGetName(const ServiceRef &service) = 0;
    virtual bool scNetworkServiceSetName(const ServiceRef &service, const QString &name) = 0;
    virtual bool scNetworkServiceGetEnabled(const ServiceRef &service) = 0;
    virtual bool scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled) = 0;
    virtual InterfaceRef scNetworkServiceGetInterface(const ServiceRef &service) = 0;
    virtual ProtocolRef scNetworkServiceCopyProtocol(const ServiceRef &service,
                                                     const QString &protocolType) = 0;
    virtual std::optional<QList<ProtocolRef>>
    scNetworkServiceCopyProtocols(const ServiceRef &service) = 0;
    virtual bool scNetworkServiceAddProtocolType(const ServiceRef &service,
                                                 const QString &protocolType) = 0;

    // Protocols.
    virtual std::optional<QVariantMap>
    scNetworkProtocolGetConfiguration(const ProtocolRef &protocol) = 0;
    /// Nothing clears the protocol's settings.
    virtual bool
    scNetworkProtocolSetConfiguration(const ProtocolRef &protocol,
                                      const std::optional<QVariantMap> &configuration) = 0;
    virtual bool scNetworkProtocolGetEnabled(const ProtocolRef &protocol) = 0;
    virtual bool scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled) = 0;
    virtual std::optional<QString>
    scNetworkProtocolGetProtocolType(const ProtocolRef &protocol) = 0;

    // Interfaces and their hardware.
    /// Every interface attached to the machine now.
    virtual std::optional<QList<InterfaceRef>> scNetworkInterfaceCopyAll() = 0;
    virtual std::optional<QString> scNetworkInterfaceGetBSDName(const InterfaceRef &interface) = 0;
    virtual std::optional<QString>
    scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface) = 0;
    virtual std::optional<QString>
    scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface) = 0;
    virtual std::optional<QVariantMap>
    scNetworkInterfaceGetConfiguration(const InterfaceRef &interface) = 0;
    /// Nothing, or an empty map, clears the interface's settings.
    virtual bool
    scNetworkInterfaceSetConfiguration(const InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) = 0;
    /// Absent when the call fails.
    virtual std::optional<InterfaceMTU>
    scNetworkInterfaceCopyMTU(const InterfaceRef &interface) = 0;
    /// Asked without the current settings; absent when the call fails.
    virtual std::optional<InterfaceMedia>
    scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface, bool filter) = 0;
    virtual std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available) = 0;
    virtual std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                              const QString &subType) = 0;

    // VLAN interfaces.
    /// The attached adapters that can carry a VLAN.
    virtual std::optional<QList<InterfaceRef>> scVLANInterfaceCopyAvailablePhysicalInterfaces() = 0;
    /// Every VLAN interface of the session, staged ones included.
    virtual std::optional<QList<InterfaceRef>>
    scVLANInterfaceCopyAll(const SessionRef &session) = 0;
    /// Null when the tag is taken on that device (`kSCStatusKeyExists`) or the call fails.
    virtual InterfaceRef scVLANInterfaceCreate(const SessionRef &session,
                                               const InterfaceRef &physical, qint64 tag) = 0;
    virtual bool scVLANInterfaceRemove(const InterfaceRef &vlan) = 0;
    virtual InterfaceRef scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan) = 0;
    /// The tag's integer value.
    virtual std::optional<qint64> scVLANInterfaceGetTag(const InterfaceRef &vlan) = 0;
    virtual bool scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                           const InterfaceRef &physical,
                                                           qint64 tag) = 0;
    virtual bool scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                        const QString &name) = 0;

    // The dynamic store: live state and network events.
    /// A session on the dynamic store; `changed` is called on the main thread for each
    /// notification, once the session is on the main run loop. Null when none can be had.
    virtual DynamicStoreRef scDynamicStoreCreate(const QString &name,
                                                 std::function<void()> changed) = 0;
    /// A map from each matching key to its value, or nothing. Patterns are regular expressions
    /// over whole keys, such as "State:/Network/Service/[^/]+/IPv4".
    virtual std::optional<QVariantMap> scDynamicStoreCopyMultiple(const DynamicStoreRef &store,
                                                                  const QStringList &keys,
                                                                  const QStringList &patterns) = 0;
    virtual bool scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store,
                                                   const QStringList &keys,
                                                   const QStringList &patterns) = 0;
    /// Puts the session's notifications on the main run loop, in the common modes, until the
    /// session's last handle goes.
    virtual bool scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store) = 0;
};

/// The backend over macOS's own frameworks; defined in platform/sc/, built only on Apple.
[[nodiscard]] std::shared_ptr<PlatformBackend> makeSystemConfigurationBackend();

} // namespace VLANKit
