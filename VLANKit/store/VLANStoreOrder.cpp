#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

// A VLAN whose service is named for the internet is offered ticked; an adapter is not.
bool guessesInternet(const ServiceRecord &record)
{
    if (record.isWiFi)
        return true;
    return record.isVLAN && lowercaseContains(record.name, u"internet"_s);
}

QList<ServiceRecord> enabledOnly(const QList<ServiceRecord> &records)
{
    QList<ServiceRecord> enabled;
    for (const ServiceRecord &record : records) {
        if (record.enabled)
            enabled.append(record);
    }
    return enabled;
}

bool couldCarryInternet(const ServiceRecord &record, const QSet<QString> &internetServiceIDs)
{
    return record.isAdapter() || internetServiceIDs.contains(record.serviceID);
}

bool isClosedVLAN(const ServiceRecord &record, const QSet<QString> &internetServiceIDs)
{
    return record.isVLAN && !internetServiceIDs.contains(record.serviceID);
}

QStringList idsOf(const QList<ServiceRecord> &records)
{
    QStringList ids;
    ids.reserve(records.size());
    for (const ServiceRecord &record : records)
        ids.append(record.serviceID);
    return ids;
}

} // namespace

void VLANStore::moveToEndOfOrder(const ServiceRef &service, const SetRef &set)
{
    const auto id = m_platform->scNetworkServiceGetServiceID(service);
    if (!id)
        return;
    // The target's order is kept and written once for a whole batch of new services, before
    // anything reads an order and before the commit.
    if (isTarget(set) && !m_tables.targetOrder) {
        // First read of the order: the system has already put the new service somewhere in it.
        (void)targetOrder(set);
        m_tables.targetOrder->removeAll(*id);
        m_tables.orderAwaiting = id;
    }
    if (isTarget(set) && m_tables.targetOrder && m_tables.orderAwaiting == id) {
        // A kept order was read before the service was born: it can't hold it yet, and a batch
        // of new services appends without a walk of the order per service.
        m_tables.targetOrder->append(*id);
        m_tables.orderAwaiting.reset();
        m_tables.orderToWrite = set;
        return;
    }
    writePendingOrder();
    QStringList order = stringArray(m_platform->scNetworkSetGetServiceOrder(set));
    order.removeAll(*id);
    order.append(*id);
    (void)m_platform->scNetworkSetSetServiceOrder(set, order);
    m_tables.orderAwaiting.reset();
    m_tables.targetOrder.reset();
}

QList<InternetMarks::Candidate> VLANStore::internetCandidates() const
{
    QHash<QString, QString> parents;
    for (const InterfaceRef &vlan : presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs))) {
        const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(vlan);
        const InterfaceRef parent = m_platform->scVLANInterfaceGetPhysicalInterface(vlan);
        const auto parentBSD =
            parent ? m_platform->scNetworkInterfaceGetBSDName(parent) : std::nullopt;
        if (bsdName && parentBSD)
            parents.insert(*bsdName, *parentBSD);
    }
    QList<InternetMarks::Candidate> candidates;
    for (const ServiceRecord &record : services()) {
        InternetMarks::Candidate candidate;
        candidate.serviceID = record.serviceID;
        candidate.tag = record.vlanTag;
        if (record.isVLAN) {
            const auto parent = parents.constFind(record.interfaceBSD);
            if (parent != parents.constEnd())
                candidate.device = *parent;
        } else if (record.hasDevice) {
            candidate.device = record.interfaceBSD;
        }
        candidate.guess = guessesInternet(record);
        candidates.append(std::move(candidate));
    }
    return candidates;
}

QSet<QString> VLANStore::defaultInternetServiceIDs() const
{
    QSet<QString> ids;
    for (const ServiceRecord &record : services()) {
        if (guessesInternet(record))
            ids.insert(record.serviceID);
    }
    return ids;
}

QList<ServiceRecord> VLANStore::recommendedOrder(const QSet<QString> &internetServiceIDs) const
{
    const QList<ServiceRecord> present = services();
    QList<ServiceRecord> ranked;
    ranked.reserve(present.size());
    QSet<QString> placed;
    // Three stable passes: ticked services, then whatever is no VLAN, then the closed VLANs.
    const auto pass = [&](const auto &belongs) {
        for (const ServiceRecord &record : present) {
            if (placed.contains(record.serviceID) || !belongs(record))
                continue;
            placed.insert(record.serviceID);
            ranked.append(record);
        }
    };
    pass([&](const ServiceRecord &r) { return internetServiceIDs.contains(r.serviceID); });
    pass([](const ServiceRecord &r) { return !r.isVLAN; });
    pass([](const ServiceRecord &) { return true; });
    return ranked;
}

std::optional<QList<ServiceRecord>>
VLANStore::applyRecommendedOrder(const QSet<QString> &internetServiceIDs)
{
    const QList<ServiceRecord> recommended = recommendedOrder(internetServiceIDs);
    const QStringList ids = idsOf(recommended);
    if (ids == idsOf(services()))
        return std::nullopt;
    setServiceOrder(ids);
    return recommended;
}

void VLANStore::setServiceOrder(const QStringList &serviceIDs)
{
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    writePendingOrder();
    m_tables.targetOrder.reset();
    if (!m_platform->scNetworkSetSetServiceOrder(set, serviceIDs))
        throw VLANError::operationFailed(u"Could not set the service order."_s);
}

QList<ServiceRecord>
VLANStore::vlansOutrankingInternet(const QSet<QString> &internetServiceIDs) const
{
    const QList<ServiceRecord> enabled = enabledOnly(services());
    qsizetype lowest = -1;
    for (qsizetype i = enabled.size() - 1; i >= 0; --i) {
        if (couldCarryInternet(enabled.at(i), internetServiceIDs)) {
            lowest = i;
            break;
        }
    }
    QList<ServiceRecord> above;
    for (qsizetype i = 0; i < lowest; ++i) {
        if (isClosedVLAN(enabled.at(i), internetServiceIDs))
            above.append(enabled.at(i));
    }
    return above;
}

QList<ServiceRecord>
VLANStore::servicesOutrankedByVLANs(const QSet<QString> &internetServiceIDs) const
{
    const QList<ServiceRecord> enabled = enabledOnly(services());
    qsizetype highest = enabled.size();
    for (qsizetype i = 0; i < enabled.size(); ++i) {
        if (isClosedVLAN(enabled.at(i), internetServiceIDs)) {
            highest = i;
            break;
        }
    }
    QList<ServiceRecord> below;
    for (qsizetype i = highest; i < enabled.size(); ++i) {
        if (couldCarryInternet(enabled.at(i), internetServiceIDs))
            below.append(enabled.at(i));
    }
    return below;
}

} // namespace VLANKit
