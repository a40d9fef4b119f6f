#pragma once

#include "VLANKit/files/FileSignature.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/document/DocumentMachine.h"
#include "VLANKit/platform/document/InterfaceFacts.h"
#include "VLANKit/platform/document/KernelView.h"
#include "VLANKit/platform/document/PreferencesFile.h"

#include <QString>

#include <memory>
#include <optional>

namespace VLANKit {

class DocumentSession;
class PreferencesLock;

/// The platform over a folder shaped like macOS's SystemConfiguration folder: preferences.plist
/// and NetworkInterfaces.plist in the system's own schema, a hand-written description of the
/// machine ("machine.toml"), and a state file that applying writes. A copy of a Mac's files
/// opens here, and what is written here opens on a Mac.
///
/// It behaves as the framework does on the system's own preferences file: sessions are private
/// snapshots; commit and apply take the file lock and refuse a snapshot that another session
/// committed over (code 3005); names, links, pruning and VLAN names follow the system's rules.
/// It holds no rule of Orvane's own.
class DocumentBackend : public PlatformBackend
{
public:
    /// Opens the folder; throws `VLANError` with a sentence naming what can't be read.
    [[nodiscard]] static std::shared_ptr<DocumentBackend> open(const QString &folder);
    explicit DocumentBackend(std::shared_ptr<const DocumentMachine> machine);

    [[nodiscard]] const DocumentMachine &machine() const { return *m_machine; }
    /// Authorization handles made and not yet freed.
    [[nodiscard]] int openAuthorizations() const { return m_openAuthorizations; }
    /// How many times preferences.plist was parsed: once for each version of it that was read.
    [[nodiscard]] int preferencesParses() const { return m_preferences.parses(); }
    /// For tests: whether the session's look-up tables equal tables built from its document.
    [[nodiscard]] static bool indexAgreesWithDocument(const SessionRef &session);
    /// What the kernel holds now: the state file that the last apply wrote, else the view of
    /// the preferences that the folder held when it was opened, as if applied at boot.
    [[nodiscard]] const KernelView &kernelView();

    // MachineFacts
    [[nodiscard]] QString machineDisplayName() const override;
    [[nodiscard]] std::optional<QString> hardwareUUID() const override;

    // Preferences sessions and failures.
    SessionRef scPreferencesCreate(const QString &name) override;
    SessionRef scPreferencesCreateWithAuthorization(const QString &name,
                                                    const AuthorizationRef &authorization) override;
    bool scPreferencesCommitChanges(const SessionRef &session) override;
    bool scPreferencesApplyChanges(const SessionRef &session) override;
    int scError() override;
    QString scErrorString(int code) override;
    PlatformError scCopyLastError() override;

    // The administrator right.
    AuthorizationCreated authorizationCreate() override;
    std::int32_t authorizationCopyRights(const AuthorizationRef &authorization,
                                         const QString &rightName, std::uint32_t flags) override;
    std::int32_t authorizationFree(const AuthorizationRef &authorization) override;

    // The kernel.
    std::uint32_t ifNameToIndex(const QString &bsdName) override;

    // Sets.
    SetRef scNetworkSetCopyCurrent(const SessionRef &session) override;
    std::optional<QList<SetRef>> scNetworkSetCopyAll(const SessionRef &session) override;
    SetRef scNetworkSetCopy(const SessionRef &session, const QString &setID) override;
    std::optional<QString> scNetworkSetGetSetID(const SetRef &set) override;
    std::optional<QString> scNetworkSetGetName(const SetRef &set) override;
    std::optional<QList<ServiceRef>> scNetworkSetCopyServices(const SetRef &set) override;
    bool scNetworkSetAddService(const SetRef &set, const ServiceRef &service) override;
    bool scNetworkSetRemoveService(const SetRef &set, const ServiceRef &service) override;
    std::optional<QVariantList> scNetworkSetGetServiceOrder(const SetRef &set) override;
    bool scNetworkSetSetServiceOrder(const SetRef &set, const QStringList &order) override;
    SetRef scNetworkSetCreate(const SessionRef &session) override;
    bool scNetworkSetSetName(const SetRef &set, const QString &name) override;
    bool scNetworkSetRemove(const SetRef &set) override;
    bool scNetworkSetSetCurrent(const SetRef &set) override;

    // Services.
    ServiceRef scNetworkServiceCreate(const SessionRef &session,
                                      const InterfaceRef &interface) override;
    ServiceRef scNetworkServiceCopy(const SessionRef &session, const QString &serviceID) override;
    std::optional<QList<ServiceRef>> scNetworkServiceCopyAll(const SessionRef &session) override;
    bool scNetworkServiceEstablishDefaultConfiguration(const ServiceRef &service) override;
    bool scNetworkServiceRemove(const ServiceRef &service) override;
    std::optional<QString> scNetworkServiceGetServiceID(const ServiceRef &service) override;
    std::optional<QString> scNetworkServiceGetName(const ServiceRef &service) override;
    bool scNetworkServiceSetName(const ServiceRef &service, const QString &name) override;
    bool scNetworkServiceGetEnabled(const ServiceRef &service) override;
    bool scNetworkServiceSetEnabled(const ServiceRef &service, bool enabled) override;
    InterfaceRef scNetworkServiceGetInterface(const ServiceRef &service) override;
    ProtocolRef scNetworkServiceCopyProtocol(const ServiceRef &service,
                                             const QString &protocolType) override;
    std::optional<QList<ProtocolRef>>
    scNetworkServiceCopyProtocols(const ServiceRef &service) override;
    bool scNetworkServiceAddProtocolType(const ServiceRef &service,
                                         const QString &protocolType) override;

    // Protocols.
    std::optional<QVariantMap>
    scNetworkProtocolGetConfiguration(const ProtocolRef &protocol) override;
    bool
    scNetworkProtocolSetConfiguration(const ProtocolRef &protocol,
                                      const std::optional<QVariantMap> &configuration) override;
    bool scNetworkProtocolGetEnabled(const ProtocolRef &protocol) override;
    bool scNetworkProtocolSetEnabled(const ProtocolRef &protocol, bool enabled) override;
    std::optional<QString> scNetworkProtocolGetProtocolType(const ProtocolRef &protocol) override;

    // Interfaces and their hardware.
    std::optional<QList<InterfaceRef>> scNetworkInterfaceCopyAll() override;
    std::optional<QString> scNetworkInterfaceGetBSDName(const InterfaceRef &interface) override;
    std::optional<QString>
    scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface) override;
    std::optional<QString>
    scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface) override;
    std::optional<QVariantMap>
    scNetworkInterfaceGetConfiguration(const InterfaceRef &interface) override;
    bool
    scNetworkInterfaceSetConfiguration(const InterfaceRef &interface,
                                       const std::optional<QVariantMap> &configuration) override;
    std::optional<InterfaceMTU> scNetworkInterfaceCopyMTU(const InterfaceRef &interface) override;
    std::optional<InterfaceMedia> scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface,
                                                                     bool filter) override;
    std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available) override;
    std::optional<QVariantList>
    scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                              const QString &subType) override;

    // VLAN interfaces.
    std::optional<QList<InterfaceRef>> scVLANInterfaceCopyAvailablePhysicalInterfaces() override;
    std::optional<QList<InterfaceRef>> scVLANInterfaceCopyAll(const SessionRef &session) override;
    InterfaceRef scVLANInterfaceCreate(const SessionRef &session, const InterfaceRef &physical,
                                       qint64 tag) override;
    bool scVLANInterfaceRemove(const InterfaceRef &vlan) override;
    InterfaceRef scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan) override;
    std::optional<qint64> scVLANInterfaceGetTag(const InterfaceRef &vlan) override;
    bool scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                   const InterfaceRef &physical,
                                                   qint64 tag) override;
    bool scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                const QString &name) override;

    // The dynamic store.
    DynamicStoreRef scDynamicStoreCreate(const QString &name,
                                         std::function<void()> changed) override;
    std::optional<QVariantMap> scDynamicStoreCopyMultiple(const DynamicStoreRef &store,
                                                          const QStringList &keys,
                                                          const QStringList &patterns) override;
    bool scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store, const QStringList &keys,
                                           const QStringList &patterns) override;
    bool scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store) override;

private:
    /// Notes a failure; answers false for the callers that return it.
    bool fail(int code, QString description = {});
    void succeed();
    /// The session behind a handle of this backend; null, noted as a failure, for any other.
    [[nodiscard]] const std::shared_ptr<DocumentSession> *sessionOf(const SessionRef &session);
    /// The facts of an interface handle, looked up afresh where the handle follows a session.
    [[nodiscard]] std::optional<InterfaceFacts> factsOf(const InterfaceRef &interface);
    /// Takes the lock and checks that nobody committed over the session; false with the code.
    [[nodiscard]] bool lockAndCheck(DocumentSession &session, PreferencesLock &lock);
    /// The session of a commit or an apply, authorized, under the lock and, for a commit, not
    /// stale; null (with the failure recorded) otherwise.
    [[nodiscard]] DocumentSession *lockedForWriting(const SessionRef &session,
                                                    PreferencesLock &lock, bool refuseStale = true);
    [[nodiscard]] InterfaceRef fixedInterface(const InterfaceFacts &facts) const;

    std::shared_ptr<const DocumentMachine> m_machine;
    /// Every reader of the preferences reads through it, so that a version is parsed once.
    mutable PreferencesFile m_preferences;
    int m_status = 0;
    QString m_statusDescription;
    int m_openAuthorizations = 0;
    /// The preferences as the folder held them when it was opened: what the machine booted with.
    QVariantMap m_bootPreferences;
    std::optional<KernelView> m_bootView;
    std::optional<KernelView> m_appliedView;
    FileSignature m_appliedSignature;
};

} // namespace VLANKit
