// Reading: one store per read, and the merge of what it says with the edits in progress.
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/store/VLANStore.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

using namespace VLANKit;

void AppModel::reload(bool acceptEmpty)
{
    setIsReloading(true);
    std::unique_ptr<VLANStore> store;
    QList<LocationRecord> locations;
    QString shown;
    try {
        store = openStore();
        locations = store->locations();
        shown = locationToShow(locations, m_pinnedLocation);
        if (!shown.isEmpty())
            store->selectLocation(shown);
    } catch (const std::exception &failure) {
        // The last good state stays on show; the next event or the refresh control tries again.
        setLoadError(localizedDescription(failure));
        setIsReloading(false);
        return;
    }
    const QList<VLANRecord> vlans = store->vlans();
    if (vlans.isEmpty() && !m_existing.isEmpty() && !acceptEmpty) {
        store.reset();
        // May read again at once, inside this call: nothing of this read is written after it.
        scheduleRetry();
        setIsReloading(false);
        return;
    }
    m_emptyReadRetries = 0;
    m_pendingRetry->cancel();
    publish(*store, locations, shown, vlans);
    setLoadError(std::nullopt);
    setIsReloading(false);
}

void AppModel::publish(VLANStore &store, const QList<LocationRecord> &locations,
                       const QString &shown, const QList<VLANRecord> &vlans)
{
    setLocations(locations);
    setSelectedLocation(shown);
    setAdapters(store.availableAdapters());
    setSelectedAdapter(adapterToBuildOn(m_selectedAdapter, m_adapters));
    setExisting(vlans);
    if (m_switchingTo) {
        const bool stillALocation =
            std::any_of(locations.begin(), locations.end(), [&](const LocationRecord &location) {
                return location.name == *m_switchingTo;
            });
        // The question has been overtaken.
        if (*m_switchingTo == shown || !stillALocation)
            setSwitchingTo(std::nullopt);
    }
    const QList<ServiceRecord> services = store.services();
    setServiceOrder(services);
    setLive(readLive());
    seedRows(vlans, services);
    const QHash<QString, ClosedRange> frameRanges = store.adapterFrameRanges();
    // Every row's offers in one walk of the Location, each driver asked once.
    const QHash<QString, HardwareCapabilities> offers = store.hardwareCapabilitiesByService();
    for (const Row &row : std::as_const(m_rows)) {
        const std::optional<QString> &serviceID = row->source().serviceID;
        const auto offered = serviceID ? offers.constFind(*serviceID) : offers.constEnd();
        row->setOffers(offered != offers.constEnd() ? std::optional(*offered) : std::nullopt);
        const auto holds = serviceID ? m_live.ipv4.constFind(*serviceID) : m_live.ipv4.constEnd();
        row->setHolds(holds != m_live.ipv4.constEnd() ? std::optional(*holds) : std::nullopt);
        row->setParentFrameRanges(frameRanges);
    }
    setAdaptersNotInLocation(store.adaptersWithoutService());
    readInternetMarks(store);
    refreshOrderState(store);
    setAdapterNameSync(store.planSyncAdapterNames(std::nullopt).changes);
}

void AppModel::readInternetMarks(const VLANStore &store)
{
    const QList<InternetMarks::Candidate> candidates = store.internetCandidates();
    m_internetMarks = InternetMemory::marks(m_selectedLocation, candidates, m_defaults);
    // Quiet: `isReloading` is set, so this is no tick of the user's.
    setInternetServiceIDs(m_internetMarks.internetServiceIDs());
    if (m_isPicture || candidates.isEmpty())
        return;
    if (!InternetMemory::holds(m_internetMarks, m_selectedLocation, m_defaults))
        InternetMemory::keep(m_internetMarks, m_selectedLocation, m_defaults);
}

bool AppModel::isAttached(const QString &bsdName) const
{
    // "—" is no kernel name: the system isn't asked about it.
    return bsdName != notReported() && m_platform.backend().ifNameToIndex(bsdName) != 0;
}

void AppModel::seedRows(const QList<VLANRecord> &vlans, const QList<ServiceRecord> &services)
{
    QList<RowSource> sources;
    sources.reserve(services.size() + vlans.size());
    for (const ServiceRecord &service : services) {
        if (!service.isAdapter())
            continue;
        RowSource source;
        source.kind = RowSource::Kind::adapter;
        source.id = service.serviceID;
        source.serviceID = service.serviceID;
        source.device = service.interfaceBSD;
        source.name = service.name;
        source.attached = isAttached(service.interfaceBSD);
        source.ip = service.ip;
        source.ipv6 = service.ipv6;
        source.searchDomains = service.searchDomains;
        source.enabled = service.enabled;
        source.hardware = service.hardware;
        sources.append(source);
    }
    for (const VLANRecord &vlan : vlans) {
        RowSource source;
        source.kind = RowSource::Kind::vlan;
        source.id = vlan.bsdName;
        source.serviceID = vlan.serviceID;
        source.device = vlan.bsdName;
        source.tag = vlan.tag;
        source.name = vlan.name;
        source.parent = vlan.parentBSD;
        source.attached = vlan.live;
        source.ip = vlan.ip;
        source.ipv6 = vlan.ipv6;
        source.searchDomains = vlan.searchDomains;
        source.enabled = vlan.serviceEnabled;
        source.hardware = vlan.hardware;
        source.vlan = vlan;
        sources.append(source);
    }
    setRows(ServiceEdit::reseeded(m_rows, sources));
    QSet<QString> ids;
    for (const RowSource &source : std::as_const(sources))
        ids.insert(source.id);
    setSelectedIDs(QSet<QString>(m_selectedIDs).intersect(ids));
    setNameColumnWidth(nameWidth(sources, measureName));
}

QString AppModel::locationToShow(const QList<LocationRecord> &among,
                                 const std::optional<QString> &pinned)
{
    const auto named = [&](const LocationRecord &location) { return location.name == *pinned; };
    if (pinned && std::any_of(among.begin(), among.end(), named))
        return *pinned;
    for (const LocationRecord &location : among) {
        if (location.isCurrent)
            return location.name;
    }
    return among.isEmpty() ? QString() : among.first().name;
}

QString AppModel::adapterToBuildOn(const QString &chosen, const QList<AdapterRecord> &among)
{
    // The choice outlives its adapter: the Add tab shows it as absent.
    if (!chosen.isEmpty())
        return chosen;
    for (const AdapterRecord &adapter : among) {
        if (adapter.present)
            return adapter.bsdName;
    }
    return among.isEmpty() ? QString() : among.first().bsdName;
}

double AppModel::nameWidth(const QList<RowSource> &sources, const Measure &measure)
{
    double vlanWidth = 0;
    double adapterWidth = 0;
    for (const RowSource &source : sources) {
        const double width = std::ceil(measure(source.name)) + 40;
        double &widest = source.isVLAN() ? vlanWidth : adapterWidth;
        widest = std::max(widest, width);
    }
    // An adapter's row has room of its own beside the name, which VLAN rows spend on the tag.
    return std::ceil(std::max({210.0, vlanWidth, adapterWidth - 122 - 10}));
}

qreal AppModel::measureInTheme(const QString &text)
{
    return QFontMetricsF(Theme::font(12)).horizontalAdvance(text);
}
