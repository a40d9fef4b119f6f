#pragma once

#include "VLANKit/internet/InternetMarks.h"
#include "VLANKit/platform/PlatformHandle.h"
#include "VLANKit/project/Profile.h"
#include "VLANKit/store/ReadTables.h"
#include "VLANKit/store/ServiceDetails.h"
#include "VLANKit/store/StoreTables.h"
#include "VLANKit/values/AdapterRecord.h"
#include "VLANKit/values/HardwareCapabilities.h"
#include "VLANKit/values/HardwareSettings.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"
#include "VLANKit/values/LocationCopy.h"
#include "VLANKit/values/LocationRecord.h"
#include "VLANKit/values/Plan.h"
#include "VLANKit/values/ServiceRecord.h"
#include "VLANKit/values/VLANRecord.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>

namespace VLANKit {

class ChangeNotingBackend;
class NetworkAuthorization;
class Platform;
class PlatformBackend;

/// One session on the system's network preferences: a private snapshot that every read looks
/// at and every change is staged in, until `commit`. Opened for one read cycle or one
/// transaction, then dropped; dropping it unsaved throws the staged changes away.
class VLANStore
{
public:
    using InterfaceList = std::function<QList<InterfaceRef>()>;
    using InterfaceTest = std::function<bool(const InterfaceRef &)>;
    using DriverQuestion = std::function<std::optional<HardwareCapabilities>(const InterfaceRef &)>;

    /// A read-only store. Throws `prefsUnavailable`.
    explicit VLANStore(const Platform &platform);
    /// A writable store on an acquired right. Throws `prefsUnavailable`.
    VLANStore(const Platform &platform, const NetworkAuthorization &authorization);
    ~VLANStore();
    VLANStore(const VLANStore &) = delete;
    VLANStore &operator=(const VLANStore &) = delete;

    [[nodiscard]] bool isWritable() const { return m_isWritable; }
    /// The Location under view; absent means the system's current set.
    [[nodiscard]] const std::optional<QString> &selectedSetID() const { return m_selectedSetID; }
    void setSelectedSetID(std::optional<QString> setID);

    /// In this mode every kept table is compared with a fresh computation at each use, and a
    /// difference throws `std::logic_error`: the tests run with it on.
    static void setVerifyingTables(bool verifying);

    /// The store's view of the machine's hardware; each may be replaced from outside.
    InterfaceList vlanCapableInterfaces;
    InterfaceList attachedInterfaces;
    DriverQuestion driverCapabilities;
    /// Can this interface carry a service? A probe that stages and removes a service.
    [[nodiscard]] bool canHostService(const InterfaceRef &interface);
    void setCanHostService(InterfaceTest test) { m_canHostService = std::move(test); }

    /// Adapter labels taken out of use in this session.
    QSet<QString> retiredLabels;

    /// The Location the store works on: the selected one, else the current set.
    [[nodiscard]] SetRef targetSet() const;
    /// Stores the staged changes, then has the running system follow them.
    void commit();
    /// Writes the first VLAN's display name back unchanged and commits: proof that an
    /// authorized session works end to end. Gives the name written.
    QString selfTestWrite();

    // Reading the configuration.
    [[nodiscard]] QHash<QString, ServiceDetails> serviceIndex() const;
    [[nodiscard]] QList<VLANRecord> vlans() const;
    [[nodiscard]] QList<ServiceRef> orderedServices(const SetRef &set) const;
    [[nodiscard]] QList<ServiceRecord> services() const;
    [[nodiscard]] QHash<QString, QString> serviceNameIndex() const;
    [[nodiscard]] QList<AdapterRecord> availableAdapters() const;
    [[nodiscard]] QList<AdapterRecord> adaptersWithoutService();
    [[nodiscard]] QStringList orphanedParents() const;
    [[nodiscard]] InterfaceRef findVLAN(qint64 tag, const QString &bsdName) const;
    [[nodiscard]] ServiceRef findService(const QString &vlanBSD) const;
    /// Throws `noCurrentSet`, or `operationFailed` naming the service.
    [[nodiscard]] ServiceRef requireService(const QString &serviceID, const QString &name) const;
    /// Throws `adapterNotFound` or `adapterCannotHostVLAN`.
    [[nodiscard]] InterfaceRef requireAdapter(const QString &bsdName) const;
    [[nodiscard]] IPConfig readIP(const ServiceRef &service) const;
    [[nodiscard]] IPv6Mode readIPv6(const ServiceRef &service) const;
    [[nodiscard]] QStringList readSearchDomains(const ServiceRef &service) const;
    [[nodiscard]] HardwareSettings readHardware(const ServiceRef &service) const;
    [[nodiscard]] static HardwareSettings hardwareSettings(const QVariantMap &configuration);
    [[nodiscard]] bool hasSettableHardware(const InterfaceRef &interface) const;
    /// Whether an interface of this type word has hardware settings the store changes.
    [[nodiscard]] static bool hasSettableHardwareType(const std::optional<QString> &type);
    [[nodiscard]] bool isVLAN(const InterfaceRef &interface) const;
    [[nodiscard]] static QStringList stringArray(const std::optional<QVariantList> &list);

    // Hardware the driver offers.
    [[nodiscard]] std::optional<HardwareCapabilities>
    askDriver(const InterfaceRef &interface) const;

    // VLAN and service operations: each stages one change in the snapshot.
    /// Gives the kernel name of the new interface.
    QString createVLAN(qint64 tag, const QString &name, const QString &adapterBSD,
                       const IPConfig &ip, bool enabled);
    void reparent(const VLANRecord &record, const QString &adapterBSD);
    void setIP(const IPConfig &ip, qint64 tag, const QString &bsdName);
    void setEnabled(bool enabled, qint64 tag, const QString &bsdName);
    void removeVLAN(qint64 tag, const QString &bsdName);
    void renameVLAN(qint64 tag, const QString &bsdName, const QString &name);
    void addService(qint64 tag, const QString &bsdName);
    void addService(const QString &adapterBSD);
    void setIP(const IPConfig &ip, const QString &serviceID, const QString &name);
    void setEnabled(bool enabled, const QString &serviceID, const QString &name);
    void setIPv6(IPv6Mode mode, const QString &serviceID, const QString &name);
    void setDNS(const QStringList &servers, const QStringList &searchDomains,
                const QString &serviceID, const QString &name);
    void removeService(const QString &serviceID, const QString &name);
    /// Clears the services that deleted VLAN interfaces left behind, in every Location; gives
    /// their kernel names, sorted.
    QStringList pruneOrphanedVLANServices();

    // Service order.
    [[nodiscard]] QList<InternetMarks::Candidate> internetCandidates() const;
    [[nodiscard]] QSet<QString> defaultInternetServiceIDs() const;
    [[nodiscard]] QList<ServiceRecord>
    recommendedOrder(const QSet<QString> &internetServiceIDs) const;
    /// Absent when the order was already the recommended one.
    std::optional<QList<ServiceRecord>>
    applyRecommendedOrder(const QSet<QString> &internetServiceIDs);
    void setServiceOrder(const QStringList &serviceIDs);
    [[nodiscard]] QList<ServiceRecord>
    vlansOutrankingInternet(const QSet<QString> &internetServiceIDs) const;
    [[nodiscard]] QList<ServiceRecord>
    servicesOutrankedByVLANs(const QSet<QString> &internetServiceIDs) const;

    // Adapter labels.
    [[nodiscard]] QString adapterLabel(const QString &bsdName) const;
    [[nodiscard]] QSet<QString> knownAdapterLabels() const;
    void renameAdapter(const QString &bsdName, const QString &name);
    [[nodiscard]] Plan planSyncAdapterNames(const std::optional<QString> &adapterBSD) const;

    // Planning and the transaction.
    [[nodiscard]] Plan planApply(const Profile &profile, const QString &adapterBSD) const;
    [[nodiscard]] Plan planDelete(QList<qint64> tags,
                                  const std::optional<QString> &adapterBSD) const;
    [[nodiscard]] Plan planReparentAll(const QString &adapterBSD) const;
    [[nodiscard]] Profile capture(const QString &name) const;
    /// Stages the whole plan, checks frame sizes, and commits: all of it, or nothing.
    void execute(const Plan &plan);

    // Locations.
    /// Every Location, sorted by name.
    [[nodiscard]] QList<LocationRecord> locations() const;
    /// The Location the session works on, if it is one.
    [[nodiscard]] std::optional<LocationRecord> activeLocation() const;
    /// Points the session at the named Location. Throws `locationNotFound`, or
    /// `operationFailed` when the name matches several Locations but none exactly.
    void selectLocation(const QString &name);
    /// Makes a Location, with a service for each attached adapter when `populate`, selects it
    /// and gives its identifier.
    QString createLocation(const QString &name, bool populate);
    /// Copies a Location service by service under a new name, and selects the copy.
    LocationCopy duplicateLocation(const QString &name, const QString &newName);
    void renameLocation(const QString &name, const QString &newName);
    /// Removes a Location that isn't in use, with the services that no other Location holds.
    void removeLocation(const QString &name);
    /// Makes the Location under view the one the machine uses. Throws `noCurrentSet`.
    void makeSelectedLocationCurrent();

    // Hardware settings.
    /// What the interface can be told: for a VLAN, no media and its parent's frame sizes.
    [[nodiscard]] std::optional<HardwareCapabilities> offers(const InterfaceRef &interface) const;
    /// The frame sizes that the parent of the VLAN of that kernel name takes.
    [[nodiscard]] std::optional<ClosedRange> frameRange(const QString &vlanBSD) const;
    /// What the interface of a service of this Location can be told.
    [[nodiscard]] std::optional<HardwareCapabilities>
    hardwareCapabilities(const QString &serviceID) const;
    /// The same for every service of this Location in one walk, each driver asked once: by
    /// service identifier, with no entry where `hardwareCapabilities` gives none.
    [[nodiscard]] QHash<QString, HardwareCapabilities> hardwareCapabilitiesByService() const;
    /// The frame sizes of each adapter that can carry a VLAN, by kernel name.
    [[nodiscard]] QHash<QString, ClosedRange> adapterFrameRanges() const;
    /// The settings merged into an interface's configuration, other keys kept; nothing when
    /// nothing is left, which clears the configuration.
    [[nodiscard]] static std::optional<QVariantMap>
    configuration(const std::optional<QVariantMap> &existing, const HardwareSettings &settings);
    /// Throws `operationFailed` when the service, its interface or its driver can't take them.
    void setHardware(const HardwareSettings &settings, const QString &serviceID,
                     const QString &name);

    /// The backend this store speaks to.
    [[nodiscard]] PlatformBackend &platform() const { return *m_platform; }
    [[nodiscard]] const SessionRef &prefs() const { return m_prefs; }

private:
    /// Tests reach the private writers through this, to check what no public road can ask.
    friend struct VLANStoreInternals;

    void installDefaults();
    ServiceRef makeService(const InterfaceRef &interface, const QString &name, const SetRef &set);
    void removeServices(const QSet<QString> &bsdNames);
    void applyIP(const IPConfig &ip, const ServiceRef &service);
    bool writeDNS(const std::optional<QStringList> &servers,
                  const std::optional<QStringList> &searchDomains, const ServiceRef &service);
    void moveToEndOfOrder(const ServiceRef &service, const SetRef &set);
    [[nodiscard]] QHash<QString, QSet<QString>> serviceNamesEverywhere() const;
    void stage(const Plan &plan);
    void stageChanges(const Plan &plan);
    void stageChange(const PlannedChange &change, const QString &adapterBSD);
    void syncAdapterNames(const QString &bsdName);
    void checkFrameSizes(const QString &vlanBSD);
    [[nodiscard]] QList<SetRef> allSets() const;
    /// The attached interfaces that are no VLANs, the first of each kernel name.
    [[nodiscard]] QList<InterfaceRef> attachedAdapters() const;
    [[nodiscard]] QList<ServiceRef> servicesOf(const SetRef &set) const;
    [[nodiscard]] std::optional<QString> interfaceBSDOf(const ServiceRef &service) const;
    [[nodiscard]] HardwareSettings readHardware(const InterfaceRef &interface) const;
    [[nodiscard]] HardwareSettings readHardware(const InterfaceRef &interface,
                                                const std::optional<QString> &type) const;
    /// Fills the settings of a service's reading: IPv4, IPv6, DNS and hardware.
    void readSettings(ServiceReading &reading) const;
    /// What the interface of that kernel name and type can be told, with each driver's answer
    /// from `ask`.
    [[nodiscard]] std::optional<HardwareCapabilities> offers(const InterfaceRef &interface,
                                                             const std::optional<QString> &bsdName,
                                                             const std::optional<QString> &type,
                                                             const DriverQuestion &ask) const;
    [[nodiscard]] std::optional<ClosedRange> frameRange(const QString &vlanBSD,
                                                        const DriverQuestion &ask) const;
    [[nodiscard]] bool isLive(const QString &bsdName) const;
    [[nodiscard]] QString displayNameOr(const InterfaceRef &interface,
                                        const QString &fallback) const;
    [[nodiscard]] QString bsdNameOrDash(const InterfaceRef &interface) const;

    // The kept tables, and the fresh computations behind them.
    [[nodiscard]] const QHash<QString, InterfaceRef> &vlansByBSD() const;
    [[nodiscard]] const QHash<QString, ServiceRef> &targetServicesByID() const;
    [[nodiscard]] const QHash<QString, ServiceRef> &targetServicesByBSD() const;
    [[nodiscard]] const QStringList &targetOrder(const SetRef &target) const;
    [[nodiscard]] const QHash<QString, qint64> &parentCounts() const;
    [[nodiscard]] const QSet<QString> &adapterLabelSet() const;
    [[nodiscard]] QHash<QString, QString> computeServiceNameIndex() const;
    [[nodiscard]] QHash<QString, QSet<QString>> computeServiceNamesEverywhere() const;
    [[nodiscard]] QString computeAdapterLabel(const QString &bsdName) const;
    [[nodiscard]] bool isTarget(const SetRef &set) const;
    [[nodiscard]] const QHash<QString, QList<ServiceBinding>> &servicesByBSD() const;
    [[nodiscard]] const QSet<QString> &orphanedVLANNames() const;
    void serviceMade(const ServiceRef &service, const InterfaceRef &interface, const SetRef &set);
    /// The services bound to these kernel names were removed from every Location; `allRemoved`
    /// is false when the system kept some of them.
    void servicesRemoved(const QSet<QString> &bsdNames, const QList<ServiceBinding> &removed,
                         bool allRemoved);
    void vlanRemoved(const QString &bsdName, const QString &parentBSD);
    /// Writes a kept order that is newer than the stored one.
    void writePendingOrder() const;

    // What the readers share, read again after any change of the snapshot.
    [[nodiscard]] ReadTables &readTables() const;
    void dropReadTables() const;
    [[nodiscard]] const QList<ServiceReading> &targetServiceReadings() const;
    [[nodiscard]] const QList<VLANReading> &vlanReadings() const;
    [[nodiscard]] QList<ServiceReading> orderedReadings(const SetRef &set) const;

    /// The backend, seen through a counter of the calls that change the snapshot.
    std::shared_ptr<ChangeNotingBackend> m_noting;
    std::shared_ptr<PlatformBackend> m_platform;
    SessionRef m_prefs;
    bool m_isWritable = false;
    std::optional<QString> m_selectedSetID;
    InterfaceTest m_canHostService;
    mutable StoreTables m_tables;
    mutable ReadTables m_reads;
};

} // namespace VLANKit
