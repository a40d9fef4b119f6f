#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

bool byBSDName(const AdapterRecord &a, const AdapterRecord &b)
{
    return canonicallyLess(a.bsdName, b.bsdName);
}

} // namespace

QHash<QString, ServiceDetails> VLANStore::serviceIndex() const
{
    QHash<QString, ServiceDetails> index;
    const SetRef set = targetSet();
    if (!set)
        return index;
    for (const ServiceRef &service : presentHandles(m_platform->scNetworkSetCopyServices(set))) {
        const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
        const auto bsdName =
            interface ? m_platform->scNetworkInterfaceGetBSDName(interface) : std::nullopt;
        if (!bsdName)
            continue;
        // Two services on one interface: the one read later wins.
        index.insert(*bsdName, ServiceDetails{m_platform->scNetworkServiceGetServiceID(service),
                                              m_platform->scNetworkServiceGetName(service),
                                              m_platform->scNetworkServiceGetEnabled(service),
                                              readIP(service), readIPv6(service),
                                              readSearchDomains(service), readHardware(interface)});
    }
    return index;
}

QList<VLANRecord> VLANStore::vlans() const
{
    const QHash<QString, ServiceDetails> index = serviceIndex();
    QList<VLANRecord> records;
    const QList<InterfaceRef> interfaces =
        presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs));
    records.reserve(interfaces.size());
    for (const InterfaceRef &vlan : interfaces) {
        VLANRecord record;
        record.bsdName = bsdNameOrDash(vlan);
        const InterfaceRef parent = m_platform->scVLANInterfaceGetPhysicalInterface(vlan);
        record.parentBSD = bsdNameOrDash(parent);
        record.name = displayNameOr(vlan, record.bsdName);
        record.tag = m_platform->scVLANInterfaceGetTag(vlan).value_or(0);
        record.parentName = displayNameOr(parent, notReported());
        record.live = isLive(record.bsdName);
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
        records.append(std::move(record));
    }
    sortStably(records, [](const VLANRecord &a, const VLANRecord &b) { return a.tag < b.tag; });
    return records;
}

QList<ServiceRef> VLANStore::orderedServices(const SetRef &set) const
{
    writePendingOrder();
    const QList<ServiceRef> all = presentHandles(m_platform->scNetworkSetCopyServices(set));
    QHash<QString, ServiceRef> byID;
    QList<std::optional<QString>> ids;
    ids.reserve(all.size());
    for (const ServiceRef &service : all) {
        ids.append(m_platform->scNetworkServiceGetServiceID(service));
        if (ids.last())
            byID.insert(*ids.last(), service); // a later one replaces an earlier
    }
    QList<ServiceRef> ordered;
    ordered.reserve(all.size());
    QSet<QString> inOrder;
    for (const QString &id : stringArray(m_platform->scNetworkSetGetServiceOrder(set))) {
        inOrder.insert(id);
        const auto found = byID.constFind(id);
        if (found != byID.constEnd())
            ordered.append(*found);
    }
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (!ids.at(i) || !inOrder.contains(*ids.at(i)))
            ordered.append(all.at(i));
    }
    return ordered;
}

QList<ServiceRecord> VLANStore::services() const
{
    QList<ServiceRecord> records;
    const SetRef set = targetSet();
    if (!set)
        return records;
    QHash<QString, qint64> tags;
    for (const InterfaceRef &vlan : presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs))) {
        const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(vlan);
        const auto tag = m_platform->scVLANInterfaceGetTag(vlan);
        if (bsdName && tag)
            tags.insert(*bsdName, *tag);
    }
    const QList<ServiceRef> ordered = orderedServices(set);
    records.reserve(ordered.size());
    for (const ServiceRef &service : ordered) {
        ServiceRecord record;
        const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
        std::optional<QString> bsdName;
        std::optional<QString> type;
        if (interface) {
            bsdName = m_platform->scNetworkInterfaceGetBSDName(interface);
            type = m_platform->scNetworkInterfaceGetInterfaceType(interface);
            record.hardwareName = m_platform->scNetworkInterfaceGetLocalizedDisplayName(interface);
        }
        record.name = m_platform->scNetworkServiceGetName(service).value_or(notReported());
        record.serviceID =
            m_platform->scNetworkServiceGetServiceID(service).value_or(notReported());
        record.interfaceBSD = bsdName.value_or(notReported());
        record.interfaceType = type.value_or(notReported());
        record.enabled = m_platform->scNetworkServiceGetEnabled(service);
        record.ip = readIP(service);
        record.ipv6 = readIPv6(service);
        record.searchDomains = readSearchDomains(service);
        record.hardware = readHardware(interface);
        if (bsdName) {
            const auto tag = tags.constFind(*bsdName);
            record.isVLAN = tag != tags.constEnd();
            if (record.isVLAN)
                record.vlanTag = *tag;
        }
        record.isWiFi = type == kSCNetworkInterfaceTypeIEEE80211;
        record.hasDevice = bsdName.has_value();
        records.append(std::move(record));
    }
    return records;
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
    for (const ServiceRef &service : presentHandles(m_platform->scNetworkSetCopyServices(set))) {
        const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
        if (const auto bsdName =
                interface ? m_platform->scNetworkInterfaceGetBSDName(interface) : std::nullopt)
            taken.insert(*bsdName);
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
