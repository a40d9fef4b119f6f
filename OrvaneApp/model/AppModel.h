#pragma once

#include "OrvaneApp/model/Draft.h"
#include "OrvaneApp/model/ModelClock.h"
#include "OrvaneApp/model/ModelRecords.h"
#include "OrvaneApp/model/RowSource.h"
#include "OrvaneApp/model/ServiceEdit.h"
#include "VLANKit/Platform.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/internet/InternetMarks.h"
#include "VLANKit/machine/LiveState.h"
#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/AddressPlan.h"
#include "VLANKit/project/Profile.h"
#include "VLANKit/values/AdapterRecord.h"
#include "VLANKit/values/LocationRecord.h"
#include "VLANKit/values/PlannedChange.h"
#include "VLANKit/values/ServiceRecord.h"
#include "VLANKit/values/VLANRecord.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace VLANKit {
class VLANStore;
}
class NetworkWatcher;

/// Everything on screen, in one object: what was last read from the system, the edits in
/// progress, the open sheets and the outcome of the last action. It owns the main loop (an event,
/// a wait, a full read, a merge with the edits) and keeps no store: each read opens its own.
class AppModel : public QObject
{
    Q_OBJECT

public:
    using OpenStore = std::function<std::unique_ptr<VLANKit::VLANStore>()>;
    using ReadLive = std::function<VLANKit::LiveState()>;
    using SwitchAction = std::function<bool(const QString &)>;
    /// The width of a text in the name column's font.
    using Measure = std::function<qreal(const QString &)>;
    using Row = std::shared_ptr<ServiceEdit>;
    using DraftRow = std::shared_ptr<Draft>;

    /// `isPicture` is for a render with made-up data: nothing is remembered and nothing watched.
    AppModel(VLANKit::Platform platform, VLANKit::Defaults defaults, bool isPicture,
             std::shared_ptr<ModelClock> clock = std::make_shared<TimerClock>(),
             QObject *parent = nullptr);
    ~AppModel() override;

    // What was read.
    [[nodiscard]] AppTab tab() const { return m_tab; }
    void setTab(AppTab tab);
    [[nodiscard]] const QList<VLANKit::AdapterRecord> &adapters() const { return m_adapters; }
    void setAdapters(const QList<VLANKit::AdapterRecord> &adapters);
    /// The last label seen for each kernel name, also of adapters gone since.
    [[nodiscard]] const QHash<QString, QString> &adapterNamesSeen() const
    {
        return m_adapterNamesSeen;
    }
    [[nodiscard]] const QList<VLANKit::LocationRecord> &locations() const { return m_locations; }
    void setLocations(const QList<VLANKit::LocationRecord> &locations);
    [[nodiscard]] const QList<VLANKit::VLANRecord> &existing() const { return m_existing; }
    void setExisting(const QList<VLANKit::VLANRecord> &existing);
    [[nodiscard]] const QString &selectedAdapter() const { return m_selectedAdapter; }
    void setSelectedAdapter(const QString &selectedAdapter);
    [[nodiscard]] const QString &selectedLocation() const { return m_selectedLocation; }
    void setSelectedLocation(const QString &selectedLocation);
    /// The Location a render forces on show.
    [[nodiscard]] const std::optional<QString> &pinnedLocation() const { return m_pinnedLocation; }
    void setPinnedLocation(const std::optional<QString> &pinnedLocation);
    [[nodiscard]] bool isPicture() const { return m_isPicture; }
    [[nodiscard]] VLANKit::Defaults &internetDefaults() { return m_defaults; }

    // The Add tab.
    [[nodiscard]] const QList<DraftRow> &drafts() const { return m_drafts; }
    void setDrafts(const QList<DraftRow> &drafts);
    [[nodiscard]] const VLANKit::AddressPlan &addressPlan() const { return m_addressPlan; }
    void setAddressPlan(const VLANKit::AddressPlan &addressPlan);

    void addRow();
    /// Never leaves the list empty: a blank row replaces the last one.
    void removeRow(const DraftRow &draft);
    [[nodiscard]] QList<DraftRow> buildableDrafts() const;
    [[nodiscard]] QSet<qint64> existingTags() const;
    /// Follows on from the row above, not from the lowest gap; empty when nothing is left.
    [[nodiscard]] QString suggestedNextTag() const;
    [[nodiscard]] QList<ExistingVLAN> existingVLANs() const;
    [[nodiscard]] QList<AdapterChoice> buildAdapterChoices() const;
    [[nodiscard]] bool selectedAdapterNeedsName() const;
    [[nodiscard]] std::optional<QString> selectedAdapterNameHint() const;
    /// The start of a sentence that the Add tab completes.
    [[nodiscard]] std::optional<QString> buildAdapterProblem() const;
    /// One message for each draft that can't be built, by draft.
    [[nodiscard]] QHash<QUuid, QString> issues() const;
    [[nodiscard]] bool canBuild() const;
    /// Shows what a build would do; asks for no right.
    void preparePlan();
    void commitPendingPlan();
    [[nodiscard]] static QString receipt(const QList<VLANKit::PlannedChange> &changes);

    // Outcomes.
    [[nodiscard]] const std::optional<QString> &loadError() const { return m_loadError; }
    [[nodiscard]] const std::optional<BuildResult> &result() const { return m_result; }
    void setResult(const std::optional<BuildResult> &result);
    [[nodiscard]] const std::optional<PendingPlan> &pendingPlan() const { return m_pendingPlan; }
    void setPendingPlan(const std::optional<PendingPlan> &pendingPlan);
    [[nodiscard]] bool isReloading() const { return m_isReloading; }

    // Seams for substitute data; none of them notifies.
    OpenStore openStore;
    ReadLive readLive;
    /// Replaces making a Location current when set.
    SwitchAction switchAction;
    /// How the name column measures a name; `Theme::font(12)` unless replaced.
    Measure measureName;

    // The Current tab.
    [[nodiscard]] const QList<Row> &rows() const { return m_rows; }
    [[nodiscard]] const VLANKit::LiveState &live() const { return m_live; }
    [[nodiscard]] double nameColumnWidth() const { return m_nameColumnWidth; }
    [[nodiscard]] const QSet<QString> &selectedIDs() const { return m_selectedIDs; }
    void setSelectedIDs(const QSet<QString> &selectedIDs);
    [[nodiscard]] const QList<VLANKit::AdapterRecord> &adaptersNotInLocation() const
    {
        return m_adaptersNotInLocation;
    }

    /// The row of this identity (`source.id`); null when there is none.
    [[nodiscard]] Row rowWithID(const QString &id) const;
    [[nodiscard]] QList<Row> vlanRows() const;
    [[nodiscard]] QList<Row> dirtyRows() const;
    [[nodiscard]] QList<VLANKit::PlannedChange> allChanges() const;
    [[nodiscard]] QList<RowProblem> rowProblems() const;
    [[nodiscard]] EditStatus editStatus() const;
    /// Writes the changes as one transaction, on a right asked for now.
    void apply(const QList<VLANKit::PlannedChange> &changes);
    void revert(const Row &row);
    void revertAll();
    [[nodiscard]] std::optional<VLANKit::LiveState::Address> liveAddress(const Row &row) const;
    [[nodiscard]] QList<Row> selectedRows() const;
    void toggleSelection(const Row &row);
    [[nodiscard]] QList<VLANKit::PlannedChange> deleteSelectedChanges() const;
    [[nodiscard]] QList<VLANKit::PlannedChange> setSelectedEnabledChanges(bool enabled) const;
    [[nodiscard]] QList<VLANKit::PlannedChange>
    orphanReparentChanges(const QString &adapterBSD) const;
    [[nodiscard]] QList<VLANKit::PlannedChange> addToLocationChanges() const;

    // The service order.
    [[nodiscard]] const QList<VLANKit::ServiceRecord> &serviceOrder() const
    {
        return m_serviceOrder;
    }
    void setServiceOrder(const QList<VLANKit::ServiceRecord> &serviceOrder);
    [[nodiscard]] bool showingServiceOrder() const { return m_showingServiceOrder; }
    void setShowingServiceOrder(bool showing);
    [[nodiscard]] const std::optional<QString> &orderError() const { return m_orderError; }
    void setOrderError(const std::optional<QString> &orderError);
    [[nodiscard]] const QSet<QString> &internetServiceIDs() const { return m_internetServiceIDs; }
    /// A user's ticks are remembered and the order state follows; a reload's are not.
    void setInternetServiceIDs(const QSet<QString> &ids);
    [[nodiscard]] const VLANKit::InternetMarks &internetMarks() const { return m_internetMarks; }
    [[nodiscard]] const QList<VLANKit::ServiceRecord> &riskyVLANs() const { return m_riskyVLANs; }
    [[nodiscard]] const QSet<QString> &riskyVLANIDs() const { return m_riskyVLANIDs; }
    [[nodiscard]] bool orderNeedsFixing() const { return m_orderNeedsFixing; }
    [[nodiscard]] const QList<VLANKit::ServiceRecord> &recommendedOrder() const
    {
        return m_recommendedOrder;
    }
    [[nodiscard]] RankingLine rankingLine() const;
    [[nodiscard]] QList<OrderLine> recommendedOrderLines() const;
    void toggleInternet(const VLANKit::ServiceRecord &service);
    /// Shows the move at once and writes it; `sourceOffsets` land before `targetOffset`, both
    /// counted in the list as it stands before the move.
    void moveServices(const QList<qsizetype> &sourceOffsets, qsizetype targetOffset);
    /// Writes the order on a right asked for now.
    void writeOrder(const QStringList &serviceIDs);
    /// Writes the recommended order as a fresh read has it, not as the field last had it.
    void applyRecommendedOrder();
    /// Inside the sheet while it is open, else as a failed result.
    void reportOrderFailure(const QString &message);

    // Adapter names.
    [[nodiscard]] const std::optional<QString> &renamingAdapter() const
    {
        return m_renamingAdapter;
    }
    void setRenamingAdapter(const std::optional<QString> &bsdName);
    [[nodiscard]] const QString &adapterNewName() const { return m_adapterNewName; }
    void setAdapterNewName(const QString &name);
    /// Opens the sheet for the adapter chosen under "Build on".
    void beginRenamingAdapter();
    [[nodiscard]] std::optional<QString> adapterNameIssue() const;
    [[nodiscard]] bool canRenameAdapter() const;
    /// Closes the sheet, then saves through `apply`, whose result tells how it went.
    void commitAdapterRename();
    [[nodiscard]] const QList<VLANKit::PlannedChange> &adapterNameSync() const
    {
        return m_adapterNameSync;
    }

    // Locations.
    void beginCreatingLocation();
    [[nodiscard]] std::optional<QString> newLocationIssue() const;
    [[nodiscard]] bool canCreateLocation() const;
    /// The line under the tick "switch to it", for the tick's state.
    [[nodiscard]] QString newLocationSwitchNote(bool switching) const;
    void createLocation();
    /// Raises the confirmation of a switch, unless the name is on show already or unknown.
    void askToSwitch(const QString &name);
    [[nodiscard]] QString switchDetail() const;
    void confirmSwitch();
    /// Makes the Location the system's current one; answers whether it did.
    bool makeActive(const QString &name);
    void beginRenamingLocation();
    [[nodiscard]] std::optional<QString> locationRenameIssue() const;
    [[nodiscard]] bool canRenameLocation() const;
    void commitLocationRename();
    /// The Location in use can't be deleted.
    [[nodiscard]] QList<VLANKit::LocationRecord> deletableLocations() const;
    [[nodiscard]] QString deleteDetail(const QString &name) const;
    void deleteLocation(const QString &name);
    [[nodiscard]] bool creatingLocation() const { return m_creatingLocation; }
    void setCreatingLocation(bool creating);
    [[nodiscard]] const QString &newLocationName() const { return m_newLocationName; }
    void setNewLocationName(const QString &name);
    [[nodiscard]] const LocationStart &newLocationStart() const { return m_newLocationStart; }
    void setNewLocationStart(const LocationStart &start);
    [[nodiscard]] bool switchToNewLocation() const { return m_switchToNewLocation; }
    void setSwitchToNewLocation(bool switchTo);
    [[nodiscard]] const std::optional<QString> &newLocationError() const
    {
        return m_newLocationError;
    }
    void setNewLocationError(const std::optional<QString> &error);
    [[nodiscard]] const std::optional<QString> &switchingTo() const { return m_switchingTo; }
    void setSwitchingTo(const std::optional<QString> &location);
    [[nodiscard]] bool renamingLocation() const { return m_renamingLocation; }
    void setRenamingLocation(bool renaming);
    [[nodiscard]] const QString &locationBeingRenamed() const { return m_locationBeingRenamed; }
    void setLocationBeingRenamed(const QString &location);
    [[nodiscard]] const QString &locationNewName() const { return m_locationNewName; }
    void setLocationNewName(const QString &name);
    [[nodiscard]] const std::optional<QString> &locationRenameError() const
    {
        return m_locationRenameError;
    }
    void setLocationRenameError(const std::optional<QString> &error);

    // Project files.
    /// Opens a project: straight into the rows, or first to the question of the host octet
    /// when the file holds Manual addresses.
    void loadProfile(const QString &path);
    /// The Add tab's rows become the project's entries.
    void populateDrafts(const VLANKit::Profile &profile);
    [[nodiscard]] static QString hostToOffer(const VLANKit::Profile &in,
                                             const VLANKit::MachineIdentity &to,
                                             const QString &planHost);
    [[nodiscard]] std::optional<QString> importHostIssue() const;
    [[nodiscard]] bool canConfirmImport() const;
    void confirmImport();
    /// Captures the shown Location into the file, keeping the claims it already holds.
    void saveProfile(const QString &path);
    [[nodiscard]] const std::optional<VLANKit::Profile> &pendingImport() const
    {
        return m_pendingImport;
    }
    void setPendingImport(const std::optional<VLANKit::Profile> &profile);
    [[nodiscard]] const std::optional<QString> &pendingImportURL() const
    {
        return m_pendingImportURL;
    }
    void setPendingImportURL(const std::optional<QString> &path);
    [[nodiscard]] const QString &importHostOctet() const { return m_importHostOctet; }
    void setImportHostOctet(const QString &octet);
    [[nodiscard]] const VLANKit::MachineIdentity &thisMac() const { return m_thisMac; }

    // Reading.
    /// Reads everything anew and merges it with the edits in progress. An empty VLAN list
    /// after a non-empty one is distrusted unless `acceptEmpty`.
    void reload(bool acceptEmpty = false);
    /// The order state of the shown Location, from a store that has it selected.
    void refreshOrderState(const VLANKit::VLANStore &store);
    void seedRows(const QList<VLANKit::VLANRecord> &vlans,
                  const QList<VLANKit::ServiceRecord> &services);

    [[nodiscard]] static QString locationToShow(const QList<VLANKit::LocationRecord> &among,
                                                const std::optional<QString> &pinned);
    [[nodiscard]] static QString adapterToBuildOn(const QString &chosen,
                                                  const QList<VLANKit::AdapterRecord> &among);
    /// The name column's width for these rows: VLAN names count in full, adapter names 132
    /// points less, and 210 is the floor.
    [[nodiscard]] static double nameWidth(const QList<RowSource> &sources, const Measure &measure);
    [[nodiscard]] static qreal measureInTheme(const QString &text);

    // The loop.
    void startWatching();
    void networkChanged();
    void scheduleRetry();
    void reloadAfterSettling(bool acceptEmpty);
    [[nodiscard]] bool isWatching() const { return m_watcher != nullptr; }
    [[nodiscard]] int emptyReadRetries() const { return m_emptyReadRetries; }
    [[nodiscard]] bool isRetryPending() const { return m_pendingRetry->isPending(); }
    [[nodiscard]] bool isRefreshPending() const { return m_pendingRefresh->isPending(); }

    [[nodiscard]] const VLANKit::Platform &platform() const { return m_platform; }

Q_SIGNALS:
    void tabChanged();
    void adaptersChanged();
    void locationsChanged();
    void existingChanged();
    void selectedAdapterChanged();
    void selectedLocationChanged();
    void pinnedLocationChanged();
    void draftsChanged();
    void addressPlanChanged();
    void loadErrorChanged();
    void resultChanged();
    void pendingPlanChanged();
    void isReloadingChanged();
    void rowsChanged();
    void liveChanged();
    void nameColumnWidthChanged();
    void selectedIDsChanged();
    void adaptersNotInLocationChanged();
    void serviceOrderChanged();
    void showingServiceOrderChanged();
    void orderErrorChanged();
    void internetServiceIDsChanged();
    void riskyVLANsChanged();
    void riskyVLANIDsChanged();
    void orderNeedsFixingChanged();
    void recommendedOrderChanged();
    void renamingAdapterChanged();
    void adapterNewNameChanged();
    void adapterNameSyncChanged();
    void creatingLocationChanged();
    void newLocationNameChanged();
    void newLocationStartChanged();
    void switchToNewLocationChanged();
    void newLocationErrorChanged();
    void switchingToChanged();
    void renamingLocationChanged();
    void locationBeingRenamedChanged();
    void locationNewNameChanged();
    void locationRenameErrorChanged();
    void pendingImportChanged();
    void pendingImportURLChanged();
    void importHostOctetChanged();
    /// A row of the Current tab was edited.
    void rowEdited();
    /// A row of the Add tab was edited.
    void draftEdited();

private:
    /// Stores a value that differs and announces it; answers whether it did.
    template <typename T>
    bool assign(T &field, const T &value, void (AppModel::*changed)())
    {
        if (field == value)
            return false;
        field = value;
        Q_EMIT(this->*changed)();
        return true;
    }

    /// Runs `work` on a writable store opened on a right asked for now, with the shown
    /// Location selected when `selectShown`. Every failure reaches the caller.
    void writeWithRight(const std::function<void(VLANKit::VLANStore &)> &work,
                        bool selectShown = true);
    /// The adapter chosen under "Build on", when it is among `adapters`.
    [[nodiscard]] const VLANKit::AdapterRecord *selectedAdapterRecord() const;
    [[nodiscard]] bool selectedAdapterIsPresent() const;
    /// A read-only store on the shown Location, or the system's current one when that can't
    /// be selected; none when no store opens.
    [[nodiscard]] std::unique_ptr<VLANKit::VLANStore> openShownStore();
    /// Whether a Location other than `except` has this name, case aside.
    [[nodiscard]] bool locationNameTaken(const QString &name, const QString &except = {}) const;
    /// What saving would throw away, said after a note about a switch; empty without edits.
    [[nodiscard]] QString editsLost() const;
    void succeed(const QString &message);
    void fail(const std::exception &failure);
    void setLoadError(const std::optional<QString> &error);
    void setIsReloading(bool reloading);
    void setRows(const QList<Row> &rows);
    void setLive(const VLANKit::LiveState &live);
    void setNameColumnWidth(double width);
    void setAdaptersNotInLocation(const QList<VLANKit::AdapterRecord> &adapters);
    void setRiskyVLANs(const QList<VLANKit::ServiceRecord> &vlans);
    void setRiskyVLANIDs(const QSet<QString> &ids);
    void setOrderNeedsFixing(bool needsFixing);
    void setRecommendedOrder(const QList<VLANKit::ServiceRecord> &order);
    void setAdapterNameSync(const QList<VLANKit::PlannedChange> &changes);
    void watchDrafts();
    /// The ticks of the user, written down and followed by the order state.
    void internetTicksChanged();
    /// The parts of a complete read that come after the empty check.
    void publish(VLANKit::VLANStore &store, const QList<VLANKit::LocationRecord> &locations,
                 const QString &shown, const QList<VLANKit::VLANRecord> &vlans);
    void readInternetMarks(const VLANKit::VLANStore &store);
    [[nodiscard]] bool isAttached(const QString &bsdName) const;

    VLANKit::Platform m_platform;
    VLANKit::Defaults m_defaults;
    bool m_isPicture = false;
    std::shared_ptr<ModelClock> m_clock;

    AppTab m_tab = AppTab::current;
    QList<VLANKit::AdapterRecord> m_adapters;
    QHash<QString, QString> m_adapterNamesSeen;
    QList<VLANKit::LocationRecord> m_locations;
    QList<VLANKit::VLANRecord> m_existing;
    QString m_selectedAdapter;
    QString m_selectedLocation;
    std::optional<QString> m_pinnedLocation;
    QList<DraftRow> m_drafts;
    VLANKit::AddressPlan m_addressPlan;
    std::optional<QString> m_loadError;
    std::optional<BuildResult> m_result;
    std::optional<PendingPlan> m_pendingPlan;
    bool m_isReloading = false;
    QList<Row> m_rows;
    QHash<QString, qsizetype> m_rowIndex;
    VLANKit::LiveState m_live;
    double m_nameColumnWidth = 210;
    QSet<QString> m_selectedIDs;
    QList<VLANKit::AdapterRecord> m_adaptersNotInLocation;
    QList<VLANKit::ServiceRecord> m_serviceOrder;
    bool m_showingServiceOrder = false;
    std::optional<QString> m_orderError;
    QSet<QString> m_internetServiceIDs;
    VLANKit::InternetMarks m_internetMarks;
    QList<VLANKit::ServiceRecord> m_riskyVLANs;
    QSet<QString> m_riskyVLANIDs;
    bool m_orderNeedsFixing = false;
    QList<VLANKit::ServiceRecord> m_recommendedOrder;
    std::optional<QString> m_renamingAdapter;
    QString m_adapterNewName;
    QList<VLANKit::PlannedChange> m_adapterNameSync;
    bool m_creatingLocation = false;
    QString m_newLocationName;
    LocationStart m_newLocationStart;
    bool m_switchToNewLocation = false;
    std::optional<QString> m_newLocationError;
    std::optional<QString> m_switchingTo;
    bool m_renamingLocation = false;
    QString m_locationBeingRenamed;
    QString m_locationNewName;
    std::optional<QString> m_locationRenameError;
    std::optional<VLANKit::Profile> m_pendingImport;
    std::optional<QString> m_pendingImportURL;
    QString m_importHostOctet;
    VLANKit::MachineIdentity m_thisMac;

    // The loop.
    std::unique_ptr<NetworkWatcher> m_watcher;
    std::unique_ptr<ModelClock::Wait> m_pendingRefresh;
    int m_emptyReadRetries = 0;
    std::unique_ptr<ModelClock::Wait> m_pendingRetry;
};
