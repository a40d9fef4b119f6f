// The order state: which services are the way to the internet, and which VLANs outrank them.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QStringList serviceIDs(const QList<ServiceRecord> &services)
{
    QStringList ids;
    ids.reserve(services.size());
    for (const ServiceRecord &service : services)
        ids.append(service.serviceID);
    return ids;
}

} // namespace

void AppModel::refreshOrderState(const VLANStore &store)
{
    setRiskyVLANs(store.vlansOutrankingInternet(m_internetServiceIDs));
    const QStringList risky = serviceIDs(m_riskyVLANs);
    setRiskyVLANIDs(QSet<QString>(risky.begin(), risky.end()));
    setRecommendedOrder(store.recommendedOrder(m_internetServiceIDs));
    // About the order being other than recommended, not about the risky VLANs.
    setOrderNeedsFixing(serviceIDs(m_recommendedOrder) != serviceIDs(m_serviceOrder));
}

void AppModel::setInternetServiceIDs(const QSet<QString> &ids)
{
    if (m_internetServiceIDs == ids)
        return;
    m_internetServiceIDs = ids;
    internetTicksChanged();
    Q_EMIT internetServiceIDsChanged();
}

void AppModel::internetTicksChanged()
{
    // A reload's assignment is no act of the user's, and a tick needs a Location to belong to.
    if (m_selectedLocation.isEmpty() || m_isReloading)
        return;
    m_internetMarks = m_internetMarks.marking(m_internetServiceIDs);
    if (!m_isPicture)
        InternetMemory::keep(m_internetMarks, m_selectedLocation, m_defaults);
    // Without a store the order stays as shown; the next read brings it up to date.
    if (const std::unique_ptr<VLANStore> store = openShownStore())
        refreshOrderState(*store);
}

std::unique_ptr<VLANStore> AppModel::openShownStore()
{
    std::unique_ptr<VLANStore> store;
    try {
        store = openStore();
    } catch (const std::exception &) {
        return nullptr;
    }
    try {
        store->selectLocation(m_selectedLocation);
    } catch (const std::exception &) {
        // The store's current set is the best there is.
    }
    return store;
}

void AppModel::toggleInternet(const ServiceRecord &service)
{
    QSet<QString> ids = m_internetServiceIDs;
    if (!ids.remove(service.serviceID))
        ids.insert(service.serviceID);
    setInternetServiceIDs(ids);
}

RankingLine AppModel::rankingLine() const
{
    const qsizetype count = m_riskyVLANs.size();
    if (count == 0)
        return {u"No VLAN is ranked above your internet connection"_s, false};
    if (count == 1)
        return {u"1 VLAN is ranked above your internet connection"_s, true};
    return {u"%1 VLANs are ranked above your internet connection"_s.arg(count), true};
}

QList<OrderLine> AppModel::recommendedOrderLines() const
{
    QHash<QString, qint64> oldRanks;
    for (qsizetype index = 0; index < m_serviceOrder.size(); ++index)
        oldRanks.insert(m_serviceOrder[index].serviceID, index + 1);
    QList<OrderLine> lines;
    lines.reserve(m_recommendedOrder.size());
    qint64 rank = 0;
    for (const ServiceRecord &service : m_recommendedOrder) {
        ++rank;
        OrderLine line{rank, service.name, std::nullopt};
        const auto was = oldRanks.constFind(service.serviceID);
        if (was != oldRanks.constEnd() && *was != rank)
            line.was = *was;
        lines.append(line);
    }
    return lines;
}
