#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/KeptTable.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

bool byBSDName(const AdapterRecord &a, const AdapterRecord &b)
{
    return canonicallyLess(a.bsdName, b.bsdName);
}

// Positions in a set's list of services, put in service order: first each identifier of the
// order that leads to a service (the last listed of that identifier; twice when it stands twice
// in the order), then, as listed, the services without an identifier or not in the order.
QList<qsizetype> inServiceOrder(const QList<std::optional<QString>> &ids,
                                const std::optional<QVariantList> &storedOrder)
{
    QHash<QString, qsizetype> byID;
    for (qsizetype i = 0; i < ids.size(); ++i) {
        if (ids.at(i))
            byID.insert(*ids.at(i), i); // a later one replaces an earlier
    }
    QList<qsizetype> ordered;
    ordered.reserve(ids.size());
    QSet<QString> inOrder;
    for (const QString &id : VLANStore::stringArray(storedOrder)) {
        inOrder.insert(id);
        const auto found = byID.constFind(id);
        if (found != byID.constEnd())
            ordered.append(*found);
    }
    for (qsizetype i = 0; i < ids.size(); ++i) {
        if (!ids.at(i) || !inOrder.contains(*ids.at(i)))
            ordered.append(i);
    }
    return ordered;
}

} // namespace

QHash<QString, ServiceDetails> VLANStore::serviceIndex() const
{
    return kept(readTables().serviceIndex, "the service index", [this] {
        QHash<QString, ServiceDetails> index;
        for (const ServiceReading &service : targetServiceReadings()) {
            // Two services on one interface: the one read later wins.
            if (service.bsdName) {
                index.insert(*service.bsdName,
                             ServiceDetails{service.id, service.name, service.enabled, service.ip,
                                            service.ipv6, service.searchDomains, service.hardware});
            }
        }
        return index;
    });
}

QList<VLANRecord> VLANStore::vlans() const
{
    QList<VLANRecord> records = kept(readTables().vlans, "the VLANs", [this] {
        const QHash<QString, ServiceDetails> index = serviceIndex();
        const QList<VLANReading> interfaces = vlanReadings();
        QList<VLANRecord> sorted;
        sorted.reserve(interfaces.size());
        for (const VLANReading &vlan : interfaces) {
            VLANRecord record;
            record.bsdName = vlan.bsdName.value_or(notReported());
            record.parentBSD = vlan.parentBSD.value_or(notReported());
            record.name = vlan.name.value_or(record.bsdName);
            record.tag = vlan.tag.value_or(0);
            record.parentName = vlan.parentName.value_or(notReported());
            const auto found = index.constFind(record.bsdName);
            if (found != index.constEnd()) {
                record.serviceName = found->name;
                record.serviceEnabled = found->enabled;
                record.ip = found->ip;
                record.serviceID = found->id;
                record.ipv6 = found->ipv6;
                record.searchDomains = found->searchDomains;
                record.hardware = found->hardware;
            } else {
                record.ip = IPConfig{IPMode::unknown, std::nullopt, std::nullopt, std::nullopt, {}};
                record.ipv6 = IPv6Mode::unknown;
            }
            sorted.append(std::move(record));
        }
        sortStably(sorted, [](const VLANRecord &a, const VLANRecord &b) { return a.tag < b.tag; });
        return sorted;
    });
    // The kernel's view, not the snapshot's: asked at every read.
    for (VLANRecord &record : records)
        record.live = isLive(record.bsdName);
    return records;
}

QList<ServiceRef> VLANStore::orderedServices(const SetRef &set) const
{
    writePendingOrder();
    const QList<ServiceRef> all = presentHandles(m_platform->scNetworkSetCopyServices(set));
    QList<std::optional<QString>> ids;
    ids.reserve(all.size());
    for (const ServiceRef &service : all)
        ids.append(m_platform->scNetworkServiceGetServiceID(service));
    QList<ServiceRef> ordered;
    for (const qsizetype at : inServiceOrder(ids, m_platform->scNetworkSetGetServiceOrder(set)))
        ordered.append(all.at(at));
    return ordered;
}

QList<ServiceReading> VLANStore::orderedReadings(const SetRef &set) const
{
    const QList<ServiceReading> all = targetServiceReadings();
    QList<std::optional<QString>> ids;
    ids.reserve(all.size());
    for (const ServiceReading &service : all)
        ids.append(service.id);
    QList<ServiceReading> ordered;
    for (const qsizetype at : inServiceOrder(ids, m_platform->scNetworkSetGetServiceOrder(set)))
        ordered.append(all.at(at));
    return ordered;
}

QList<ServiceRecord> VLANStore::services() const
{
    return kept(readTables().services, "the Location's services", [this] {
        QList<ServiceRecord> records;
        const SetRef set = targetSet();
        if (!set)
            return records;
        QHash<QString, qint64> tags;
        for (const VLANReading &vlan : vlanReadings()) {
            if (vlan.bsdName && vlan.tag)
                tags.insert(*vlan.bsdName, *vlan.tag);
        }
        const QList<ServiceReading> ordered = orderedReadings(set);
        records.reserve(ordered.size());
        for (const ServiceReading &service : ordered) {
            ServiceRecord record;
            record.hardwareName = service.hardwareName;
            record.name = service.name.value_or(notReported());
            record.serviceID = service.id.value_or(notReported());
            record.interfaceBSD = service.bsdName.value_or(notReported());
            record.interfaceType = service.type.value_or(notReported());
            record.enabled = service.enabled;
            record.ip = service.ip;
            record.ipv6 = service.ipv6;
            record.searchDomains = service.searchDomains;
            record.hardware = service.hardware;
            if (service.bsdName) {
                const auto tag = tags.constFind(*service.bsdName);
                record.isVLAN = tag != tags.constEnd();
                if (record.isVLAN)
                    record.vlanTag = *tag;
            }
            record.isWiFi = service.type == kSCNetworkInterfaceTypeIEEE80211;
            record.hasDevice = service.bsdName.has_value();
            records.append(std::move(record));
        }
        return records;
    });
}

QHash<QString, QString> VLANStore::computeServiceNameIndex() const
{
    const SetRef target = targetSet();
    const auto targetID = target ? m_platform->scNetworkSetGetSetID(target) : std::nullopt;
    // Every other Location first, the one under view last: its names are trusted most.
    QList<SetRef> sets;
    for (const SetRef &set : presentHandles(m_platform->scNetworkSetCopyAll(m_prefs))) {
        if (!target || m_platform->scNetworkSetGetSetID(set) != targetID)
            sets.append(set);
    }
    if (target)
        sets.append(target);

    QHash<QString, QString> names;
    for (const SetRef &set : sets) {
        for (const ServiceRef &service :
             presentHandles(m_platform->scNetworkSetCopyServices(set))) {
            const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
            const auto bsdName =
                interface ? m_platform->scNetworkInterfaceGetBSDName(interface) : std::nullopt;
            const auto name = m_platform->scNetworkServiceGetName(service);
            if (!bsdName || !name || name->isEmpty())
                continue;
            const auto entry = names.constFind(*bsdName);
            if (entry != names.constEnd()) {
                // A name the engineer chose outlives the default name in another Location.
                const auto displayName =
                    m_platform->scNetworkInterfaceGetLocalizedDisplayName(interface);
                if (name == displayName && *entry != displayName)
                    continue;
            }
            names.insert(*bsdName, *name);
        }
    }
    return names;
}

QList<AdapterRecord> VLANStore::availableAdapters() const
{
    const QHash<QString, QString> names = serviceNameIndex();
    QList<AdapterRecord> adapters;
    for (const InterfaceRef &interface : vlanCapableInterfaces()) {
        AdapterRecord adapter;
        adapter.bsdName = bsdNameOrDash(interface);
        adapter.displayName = displayNameOr(interface, adapter.bsdName);
        const auto name = names.constFind(adapter.bsdName);
        if (name != names.constEnd())
            adapter.serviceName = *name;
        adapter.present = isLive(adapter.bsdName);
        adapters.append(std::move(adapter));
    }
    sortStably(adapters, byBSDName);
    return adapters;
}

QList<AdapterRecord> VLANStore::adaptersWithoutService()
{
    QList<AdapterRecord> adapters;
    const SetRef set = targetSet();
    if (!set)
        return adapters;
    QSet<QString> taken;
    for (const ServiceReading &service : targetServiceReadings()) {
        if (service.bsdName)
            taken.insert(*service.bsdName);
    }
    const QHash<QString, QString> names = serviceNameIndex();
    for (const InterfaceRef &interface : attachedAdapters()) {
        const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(interface);
        if (!bsdName || taken.contains(*bsdName))
            continue;
        if (!canHostService(interface))
            continue;
        AdapterRecord adapter;
        adapter.bsdName = *bsdName;
        adapter.displayName = displayNameOr(interface, *bsdName);
        const auto name = names.constFind(*bsdName);
        if (name != names.constEnd())
            adapter.serviceName = *name;
        adapter.present = true;
        adapters.append(std::move(adapter));
    }
    sortStably(adapters, byBSDName);
    return adapters;
}

QStringList VLANStore::orphanedParents() const
{
    QSet<QString> parents;
    for (const VLANRecord &vlan : vlans()) {
        if (!vlan.live)
            parents.insert(vlan.parentBSD);
    }
    QStringList sorted(parents.cbegin(), parents.cend());
    sortCanonically(sorted);
    return sorted;
}

InterfaceRef VLANStore::findVLAN(qint64 tag, const QString &bsdName) const
{
    const InterfaceRef vlan = vlansByBSD().value(bsdName);
    if (!vlan || m_platform->scVLANInterfaceGetTag(vlan) != tag)
        return {};
    return vlan;
}

ServiceRef VLANStore::findService(const QString &vlanBSD) const
{
    return targetServicesByBSD().value(vlanBSD);
}

ServiceRef VLANStore::requireService(const QString &serviceID, const QString &name) const
{
    if (!targetSet())
        throw VLANError::noCurrentSet();
    if (const ServiceRef service = targetServicesByID().value(serviceID))
        return service;
    throw VLANError::operationFailed(name + u" has no service in this Location."_s);
}

InterfaceRef VLANStore::requireAdapter(const QString &bsdName) const
{
    for (const InterfaceRef &interface : vlanCapableInterfaces()) {
        if (m_platform->scNetworkInterfaceGetBSDName(interface) == bsdName)
            return interface;
    }
    if (!isLive(bsdName))
        throw VLANError::adapterNotFound(bsdName);
    throw VLANError::adapterCannotHostVLAN(bsdName);
}

QList<SetRef> VLANStore::allSets() const
{
    return presentHandles(m_platform->scNetworkSetCopyAll(m_prefs));
}

QList<InterfaceRef> VLANStore::attachedAdapters() const
{
    QList<InterfaceRef> adapters;
    QSet<QString> seen;
    for (const InterfaceRef &interface : attachedInterfaces()) {
        if (m_platform->scNetworkInterfaceGetInterfaceType(interface)
            == kSCNetworkInterfaceTypeVLAN)
            continue;
        if (const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(interface)) {
            if (seen.contains(*bsdName))
                continue;
            seen.insert(*bsdName);
        }
        adapters.append(interface);
    }
    return adapters;
}

QList<ServiceRef> VLANStore::servicesOf(const SetRef &set) const
{
    return presentHandles(m_platform->scNetworkSetCopyServices(set));
}

std::optional<QString> VLANStore::interfaceBSDOf(const ServiceRef &service) const
{
    const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
    return interface ? m_platform->scNetworkInterfaceGetBSDName(interface) : std::nullopt;
}

} // namespace VLANKit
