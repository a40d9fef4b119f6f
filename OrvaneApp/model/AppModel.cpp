// The state of the model: construction, the fields and the rules that run when they change.
#include "OrvaneApp/model/AppModel.h"

#include "OrvaneApp/model/NetworkWatcher.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/store/VLANStore.h"

using namespace VLANKit;

AppModel::AppModel(Platform platform, Defaults defaults, bool isPicture,
                   std::shared_ptr<ModelClock> clock, QObject *parent)
    : QObject(parent)
    , m_platform(std::move(platform))
    , m_defaults(std::move(defaults))
    , m_isPicture(isPicture)
    , m_clock(std::move(clock))
    , m_drafts{std::make_shared<Draft>()}
    , m_addressPlan(AddressPlan::load(m_defaults))
    , m_thisMac(MachineIdentity::current(m_platform.machineFacts()))
{
    openStore = [platform = m_platform] { return std::make_unique<VLANStore>(platform); };
    readLive = [platform = m_platform] { return LiveState::read(platform.backend()); };
    measureName = &AppModel::measureInTheme;
    m_pendingRefresh = m_clock->makeWait(this, [this] { reload(false); });
    m_pendingRetry = m_clock->makeWait(this, [this] { reload(false); });
    watchDrafts();
}

AppModel::~AppModel() = default;

void AppModel::setTab(AppTab tab)
{
    assign(m_tab, tab, &AppModel::tabChanged);
}

void AppModel::setAdapters(const QList<AdapterRecord> &adapters)
{
    if (m_adapters == adapters)
        return;
    m_adapters = adapters;
    // Never shrinks: the label of an adapter that was pulled out stays known.
    for (const AdapterRecord &adapter : adapters)
        m_adapterNamesSeen.insert(adapter.bsdName, adapter.friendlyName());
    Q_EMIT adaptersChanged();
}

void AppModel::setLocations(const QList<LocationRecord> &locations)
{
    assign(m_locations, locations, &AppModel::locationsChanged);
}

void AppModel::setExisting(const QList<VLANRecord> &existing)
{
    assign(m_existing, existing, &AppModel::existingChanged);
}

void AppModel::setSelectedAdapter(const QString &selectedAdapter)
{
    assign(m_selectedAdapter, selectedAdapter, &AppModel::selectedAdapterChanged);
}

void AppModel::setSelectedLocation(const QString &selectedLocation)
{
    assign(m_selectedLocation, selectedLocation, &AppModel::selectedLocationChanged);
}

void AppModel::setPinnedLocation(const std::optional<QString> &pinnedLocation)
{
    assign(m_pinnedLocation, pinnedLocation, &AppModel::pinnedLocationChanged);
}

void AppModel::setDrafts(const QList<DraftRow> &drafts)
{
    if (m_drafts == drafts)
        return;
    m_drafts = drafts;
    watchDrafts();
    Q_EMIT draftsChanged();
}

void AppModel::watchDrafts()
{
    for (const DraftRow &draft : std::as_const(m_drafts))
        connect(draft.get(), &Draft::changed, this, &AppModel::draftEdited, Qt::UniqueConnection);
}

void AppModel::setAddressPlan(const AddressPlan &addressPlan)
{
    if (m_addressPlan == addressPlan)
        return;
    m_addressPlan = addressPlan;
    if (!m_isPicture)
        m_addressPlan.save(m_defaults);
    for (const DraftRow &draft : std::as_const(m_drafts))
        draft->applyPlan(m_addressPlan);
    Q_EMIT addressPlanChanged();
}

void AppModel::setLoadError(const std::optional<QString> &error)
{
    assign(m_loadError, error, &AppModel::loadErrorChanged);
}

void AppModel::setResult(const std::optional<BuildResult> &result)
{
    assign(m_result, result, &AppModel::resultChanged);
}

void AppModel::succeed(const QString &message)
{
    setResult(BuildResult{QUuid::createUuid(), true, message});
}

void AppModel::fail(const std::exception &failure)
{
    setResult(BuildResult{QUuid::createUuid(), false, localizedDescription(failure)});
}

void AppModel::setPendingPlan(const std::optional<PendingPlan> &pendingPlan)
{
    assign(m_pendingPlan, pendingPlan, &AppModel::pendingPlanChanged);
}

void AppModel::setIsReloading(bool reloading)
{
    assign(m_isReloading, reloading, &AppModel::isReloadingChanged);
}

void AppModel::setRows(const QList<Row> &rows)
{
    if (m_rows == rows)
        return;
    m_rows = rows;
    m_rowIndex.clear();
    m_rowIndex.reserve(m_rows.size());
    for (qsizetype index = 0; index < m_rows.size(); ++index) {
        const Row &row = m_rows.at(index);
        m_rowIndex.insert(row->source().id, index);
        connect(row.get(), &ServiceEdit::changed, this, &AppModel::rowEdited, Qt::UniqueConnection);
    }
    Q_EMIT rowsChanged();
}

AppModel::Row AppModel::rowWithID(const QString &id) const
{
    const qsizetype index = m_rowIndex.value(id, -1);
    return index < 0 ? Row() : m_rows.at(index);
}

void AppModel::setLive(const LiveState &live)
{
    assign(m_live, live, &AppModel::liveChanged);
}

void AppModel::setNameColumnWidth(double width)
{
    assign(m_nameColumnWidth, width, &AppModel::nameColumnWidthChanged);
}

void AppModel::setSelectedIDs(const QSet<QString> &selectedIDs)
{
    assign(m_selectedIDs, selectedIDs, &AppModel::selectedIDsChanged);
}

void AppModel::setAdaptersNotInLocation(const QList<AdapterRecord> &adapters)
{
    assign(m_adaptersNotInLocation, adapters, &AppModel::adaptersNotInLocationChanged);
}

void AppModel::setServiceOrder(const QList<ServiceRecord> &serviceOrder)
{
    assign(m_serviceOrder, serviceOrder, &AppModel::serviceOrderChanged);
}

void AppModel::setShowingServiceOrder(bool showing)
{
    assign(m_showingServiceOrder, showing, &AppModel::showingServiceOrderChanged);
}

void AppModel::setOrderError(const std::optional<QString> &orderError)
{
    assign(m_orderError, orderError, &AppModel::orderErrorChanged);
}

void AppModel::setRiskyVLANs(const QList<ServiceRecord> &vlans)
{
    assign(m_riskyVLANs, vlans, &AppModel::riskyVLANsChanged);
}

void AppModel::setRiskyVLANIDs(const QSet<QString> &ids)
{
    assign(m_riskyVLANIDs, ids, &AppModel::riskyVLANIDsChanged);
}

void AppModel::setOrderNeedsFixing(bool needsFixing)
{
    assign(m_orderNeedsFixing, needsFixing, &AppModel::orderNeedsFixingChanged);
}

void AppModel::setRecommendedOrder(const QList<ServiceRecord> &order)
{
    assign(m_recommendedOrder, order, &AppModel::recommendedOrderChanged);
}

void AppModel::setRenamingAdapter(const std::optional<QString> &bsdName)
{
    assign(m_renamingAdapter, bsdName, &AppModel::renamingAdapterChanged);
}

void AppModel::setAdapterNewName(const QString &name)
{
    assign(m_adapterNewName, name, &AppModel::adapterNewNameChanged);
}

void AppModel::setAdapterNameSync(const QList<PlannedChange> &changes)
{
    assign(m_adapterNameSync, changes, &AppModel::adapterNameSyncChanged);
}

void AppModel::setCreatingLocation(bool creating)
{
    assign(m_creatingLocation, creating, &AppModel::creatingLocationChanged);
}

void AppModel::setNewLocationName(const QString &name)
{
    if (m_newLocationName == name)
        return;
    m_newLocationName = name;
    // What failed was about the name before.
    setNewLocationError(std::nullopt);
    Q_EMIT newLocationNameChanged();
}

void AppModel::setNewLocationStart(const LocationStart &start)
{
    assign(m_newLocationStart, start, &AppModel::newLocationStartChanged);
}

void AppModel::setSwitchToNewLocation(bool switchTo)
{
    assign(m_switchToNewLocation, switchTo, &AppModel::switchToNewLocationChanged);
}

void AppModel::setNewLocationError(const std::optional<QString> &error)
{
    assign(m_newLocationError, error, &AppModel::newLocationErrorChanged);
}

void AppModel::setSwitchingTo(const std::optional<QString> &location)
{
    assign(m_switchingTo, location, &AppModel::switchingToChanged);
}

void AppModel::setRenamingLocation(bool renaming)
{
    assign(m_renamingLocation, renaming, &AppModel::renamingLocationChanged);
}

void AppModel::setLocationBeingRenamed(const QString &location)
{
    assign(m_locationBeingRenamed, location, &AppModel::locationBeingRenamedChanged);
}

void AppModel::setLocationNewName(const QString &name)
{
    if (m_locationNewName == name)
        return;
    m_locationNewName = name;
    setLocationRenameError(std::nullopt);
    Q_EMIT locationNewNameChanged();
}

void AppModel::setLocationRenameError(const std::optional<QString> &error)
{
    assign(m_locationRenameError, error, &AppModel::locationRenameErrorChanged);
}

void AppModel::setPendingImport(const std::optional<Profile> &profile)
{
    assign(m_pendingImport, profile, &AppModel::pendingImportChanged);
}

void AppModel::setPendingImportURL(const std::optional<QString> &path)
{
    assign(m_pendingImportURL, path, &AppModel::pendingImportURLChanged);
}

void AppModel::setImportHostOctet(const QString &octet)
{
    assign(m_importHostOctet, octet, &AppModel::importHostOctetChanged);
}
