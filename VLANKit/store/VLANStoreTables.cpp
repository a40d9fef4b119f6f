#include "VLANKit/core/TextRules.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/KeptTable.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"
#include "VLANKit/values/AdapterNaming.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

bool verifying = false;

} // namespace

bool verifyingTables()
{
    return verifying;
}

void VLANStore::setVerifyingTables(bool verifyingFromNowOn)
{
    verifying = verifyingFromNowOn;
}

void VLANStore::writePendingOrder() const
{
    if (!m_tables.orderToWrite || !m_tables.targetOrder)
        return;
    const SetRef set = m_tables.orderToWrite;
    m_tables.orderToWrite = {};
    // As when a new service moves to the end: the answer of the write is dropped.
    if (!m_platform->scNetworkSetSetServiceOrder(set, *m_tables.targetOrder))
        m_tables.targetOrder.reset();
}

void VLANStore::setSelectedSetID(std::optional<QString> setID)
{
    writePendingOrder();
    if (setID != m_selectedSetID) {
        m_tables.dropTarget();
        dropReadTables();
    }
    m_selectedSetID = std::move(setID);
}

bool VLANStore::isTarget(const SetRef &set) const
{
    const SetRef target = targetSet();
    return target && set
           && m_platform->scNetworkSetGetSetID(set) == m_platform->scNetworkSetGetSetID(target);
}

const QHash<QString, InterfaceRef> &VLANStore::vlansByBSD() const
{
    const auto describe = [this](const QHash<QString, InterfaceRef> &table) {
        QMap<QString, qint64> tags;
        for (auto it = table.cbegin(); it != table.cend(); ++it)
            tags.insert(it.key(), m_platform->scVLANInterfaceGetTag(it.value()).value_or(-1));
        return tags;
    };
    return kept(
        m_tables.vlanByBSD, "VLANs by kernel name",
        [this] {
            QHash<QString, InterfaceRef> table;
            for (const InterfaceRef &vlan :
                 presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs))) {
                const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(vlan);
                if (bsdName && !table.contains(*bsdName))
                    table.insert(*bsdName, vlan);
            }
            return table;
        },
        describe);
}

const QHash<QString, ServiceRef> &VLANStore::targetServicesByID() const
{
    const auto describe = [this](const QHash<QString, ServiceRef> &table) {
        QMap<QString, QString> names;
        for (auto it = table.cbegin(); it != table.cend(); ++it)
            names.insert(it.key(),
                         m_platform->scNetworkServiceGetName(it.value()).value_or(QString()));
        return names;
    };
    return kept(
        m_tables.targetByID, "the Location's services by identifier",
        [this] {
            QHash<QString, ServiceRef> table;
            if (const SetRef set = targetSet()) {
                for (const ServiceRef &service : servicesOf(set)) {
                    const auto id = m_platform->scNetworkServiceGetServiceID(service);
                    if (id && !table.contains(*id))
                        table.insert(*id, service);
                }
            }
            return table;
        },
        describe);
}

const QHash<QString, ServiceRef> &VLANStore::targetServicesByBSD() const
{
    const auto describe = [this](const QHash<QString, ServiceRef> &table) {
        QMap<QString, QString> ids;
        for (auto it = table.cbegin(); it != table.cend(); ++it)
            ids.insert(it.key(),
                       m_platform->scNetworkServiceGetServiceID(it.value()).value_or(QString()));
        return ids;
    };
    return kept(
        m_tables.targetByBSD, "the Location's services by kernel name",
        [this] {
            QHash<QString, ServiceRef> table;
            if (const SetRef set = targetSet()) {
                for (const ServiceRef &service : servicesOf(set)) {
                    const auto bsdName = interfaceBSDOf(service);
                    if (bsdName && !table.contains(*bsdName))
                        table.insert(*bsdName, service);
                }
            }
            return table;
        },
        describe);
}

const QStringList &VLANStore::targetOrder(const SetRef &target) const
{
    writePendingOrder();
    // Where the system put the service that is about to move to the end doesn't matter.
    const auto describe = [this](const QStringList &order) {
        QStringList compared = order;
        if (m_tables.orderAwaiting)
            compared.removeAll(*m_tables.orderAwaiting);
        return compared;
    };
    return kept(
        m_tables.targetOrder, "the Location's service order",
        [&] { return stringArray(m_platform->scNetworkSetGetServiceOrder(target)); }, describe);
}

const QHash<QString, qint64> &VLANStore::parentCounts() const
{
    return kept(m_tables.parentCounts, "VLANs per adapter", [this] {
        QHash<QString, qint64> counts;
        for (const InterfaceRef &vlan : presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs)))
            ++counts[bsdNameOrDash(m_platform->scVLANInterfaceGetPhysicalInterface(vlan))];
        return counts;
    });
}

const QSet<QString> &VLANStore::adapterLabelSet() const
{
    return kept(m_tables.adapterLabelSet, "the adapters' labels", [this] {
        QSet<QString> labels;
        for (const AdapterRecord &adapter : availableAdapters())
            labels.insert(AdapterNaming::label(adapter));
        return labels;
    });
}

const QHash<QString, QList<ServiceBinding>> &VLANStore::servicesByBSD() const
{
    // Each binding as its set's and service's identifiers; the order within a name is free.
    const auto describe = [this](const QHash<QString, QList<ServiceBinding>> &table) {
        QMap<QString, QStringList> bindings;
        for (auto it = table.cbegin(); it != table.cend(); ++it) {
            QStringList &held = bindings[it.key()];
            for (const ServiceBinding &binding : it.value()) {
                held.append(m_platform->scNetworkSetGetSetID(binding.set).value_or(QString()) + u'/'
                            + m_platform->scNetworkServiceGetServiceID(binding.service)
                                  .value_or(QString()));
            }
            sortCanonically(held);
        }
        return bindings;
    };
    return kept(
        m_tables.servicesByBSD, "services by kernel name in every Location",
        [this] {
            QHash<QString, QList<ServiceBinding>> table;
            for (const SetRef &set : allSets()) {
                for (const ServiceRef &service : servicesOf(set)) {
                    if (const auto bsdName = interfaceBSDOf(service))
                        table[*bsdName].append(ServiceBinding{set, service});
                }
            }
            return table;
        },
        describe);
}

const QSet<QString> &VLANStore::orphanedVLANNames() const
{
    return kept(m_tables.orphanedVLANs, "kernel names of services whose VLAN is gone", [this] {
        QSet<QString> orphans;
        const QHash<QString, InterfaceRef> &present = vlansByBSD();
        const QHash<QString, QList<ServiceBinding>> &bound = servicesByBSD();
        for (auto it = bound.cbegin(); it != bound.cend(); ++it) {
            if (it.key().startsWith(u"vlan"_s) && !present.contains(it.key()))
                orphans.insert(it.key());
        }
        return orphans;
    });
}

void VLANStore::servicesRemoved(const QSet<QString> &bsdNames, const QList<ServiceBinding> &removed,
                                bool allRemoved)
{
    if (!allRemoved) {
        // The system kept some of them: what the tables would say is no longer known.
        m_tables.dropServices();
        return;
    }
    const QString targetID =
        targetSet() ? m_platform->scNetworkSetGetSetID(targetSet()).value_or(QString()) : QString();
    for (const ServiceBinding &binding : removed) {
        // A removed service leaves every set, and the order of the one under view.
        if (const auto id = m_platform->scNetworkServiceGetServiceID(binding.service);
            id && m_tables.targetByID)
            m_tables.targetByID->remove(*id);
        if (m_platform->scNetworkSetGetSetID(binding.set) == targetID) {
            m_tables.targetOrder.reset();
            m_tables.orderAwaiting.reset();
        }
    }
    bool adapterLost = false;
    for (const QString &bsdName : bsdNames) {
        if (m_tables.servicesByBSD)
            m_tables.servicesByBSD->remove(bsdName);
        if (m_tables.orphanedVLANs)
            m_tables.orphanedVLANs->remove(bsdName);
        if (m_tables.targetByBSD)
            m_tables.targetByBSD->remove(bsdName);
        // Both come from services only, and none is left on this interface anywhere.
        if (m_tables.nameIndex)
            m_tables.nameIndex->remove(bsdName);
        if (m_tables.namesEverywhere)
            m_tables.namesEverywhere->remove(bsdName);
        if (m_tables.adapterLabels)
            m_tables.adapterLabels->remove(bsdName);
        adapterLost = adapterLost || !bsdName.startsWith(u"vlan"_s);
    }
    // An adapter's services give it its label; a VLAN is no adapter.
    if (adapterLost) {
        m_tables.adapterLabelSet.reset();
        m_tables.adapterLabels.reset();
    }
}

void VLANStore::vlanRemoved(const QString &bsdName, const QString &parentBSD)
{
    if (m_tables.vlanByBSD)
        m_tables.vlanByBSD->remove(bsdName);
    if (m_tables.parentCounts) {
        const auto count = m_tables.parentCounts->find(parentBSD);
        if (count != m_tables.parentCounts->end() && --*count <= 0)
            m_tables.parentCounts->erase(count);
    }
    if (m_tables.adapterLabels)
        m_tables.adapterLabels->remove(bsdName);
    // Services still bound to the name now wait for a VLAN of that name.
    if (m_tables.orphanedVLANs) {
        if (!m_tables.servicesByBSD)
            m_tables.orphanedVLANs.reset();
        else if (m_tables.servicesByBSD->contains(bsdName) && bsdName.startsWith(u"vlan"_s))
            m_tables.orphanedVLANs->insert(bsdName);
    }
}

QHash<QString, QString> VLANStore::serviceNameIndex() const
{
    return kept(m_tables.nameIndex, "the service name index",
                [this] { return computeServiceNameIndex(); });
}

QHash<QString, QSet<QString>> VLANStore::serviceNamesEverywhere() const
{
    return kept(m_tables.namesEverywhere, "service names in every Location",
                [this] { return computeServiceNamesEverywhere(); });
}

QString VLANStore::adapterLabel(const QString &bsdName) const
{
    if (!m_tables.adapterLabels)
        m_tables.adapterLabels.emplace();
    const auto found = m_tables.adapterLabels->constFind(bsdName);
    if (found == m_tables.adapterLabels->constEnd())
        return *m_tables.adapterLabels->insert(bsdName, computeAdapterLabel(bsdName));
    if (verifyingTables() && *found != computeAdapterLabel(bsdName))
        throw std::logic_error("the store's kept table differs from a fresh one: labels");
    return *found;
}

// A service was just made in the target set, on an interface that had no service there: the
// tables take it in as a fresh computation would.
void VLANStore::serviceMade(const ServiceRef &service, const InterfaceRef &interface,
                            const SetRef &set)
{
    const auto id = m_platform->scNetworkServiceGetServiceID(service);
    const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(interface);
    if (m_tables.servicesByBSD && bsdName)
        (*m_tables.servicesByBSD)[*bsdName].append(ServiceBinding{set, service});
    // A service on a kernel name that no VLAN has would be an orphan; the store makes none.
    if (bsdName && bsdName->startsWith(u"vlan"_s) && !vlansByBSD().contains(*bsdName))
        m_tables.orphanedVLANs.reset();
    const QString name = m_platform->scNetworkServiceGetName(service).value_or(QString());
    if (m_tables.targetByID && id && !m_tables.targetByID->contains(*id))
        m_tables.targetByID->insert(*id, service);
    if (m_tables.targetByBSD && bsdName && !m_tables.targetByBSD->contains(*bsdName))
        m_tables.targetByBSD->insert(*bsdName, service);
    if (m_tables.targetOrder && id)
        m_tables.orderAwaiting = id;
    else
        m_tables.targetOrder.reset();
    if (bsdName && !name.isEmpty()) {
        if (m_tables.namesEverywhere)
            (*m_tables.namesEverywhere)[*bsdName].insert(name);
        if (m_tables.nameIndex) {
            // The Location under view is read last, so its name wins, save over a chosen name
            // when it is only the interface's own.
            const auto entry = m_tables.nameIndex->constFind(*bsdName);
            const auto display = m_platform->scNetworkInterfaceGetLocalizedDisplayName(interface);
            if (entry == m_tables.nameIndex->constEnd() || name != display || *entry == display)
                m_tables.nameIndex->insert(*bsdName, name);
        }
    }
    // An adapter's new service can change its label; a VLAN is no adapter.
    if (!isVLAN(interface)) {
        m_tables.adapterLabelSet.reset();
        m_tables.adapterLabels.reset();
    }
}

} // namespace VLANKit
