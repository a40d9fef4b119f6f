#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"
#include "VLANKit/values/AdapterNaming.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

QString number(qint64 value)
{
    return QString::number(value);
}

VLANError noVLAN(qint64 tag, const QString &bsdName)
{
    return VLANError::operationFailed(u"No VLAN "_s + number(tag) + u" on "_s + bsdName + u'.');
}

VLANError noServiceForVLAN(qint64 tag, const QString &bsdName)
{
    return VLANError::operationFailed(u"No network service found for VLAN "_s + number(tag)
                                      + u" ("_s + bsdName + u")."_s);
}

VLANError alreadyHasService(const QString &name)
{
    return VLANError::operationFailed(name + u" already has a service in this Location."_s);
}

} // namespace

QString VLANStore::createVLAN(qint64 tag, const QString &name, const QString &adapterBSD,
                              const IPConfig &ip, bool enabled)
{
    // The range comes first, before the adapter is looked at.
    if (tag < 1 || tag > 4094)
        throw VLANError::tagOutOfRange(tag);
    const InterfaceRef adapter = requireAdapter(adapterBSD);
    const InterfaceRef vlan = m_platform->scVLANInterfaceCreate(m_prefs, adapter, tag);
    if (!vlan) {
        throw VLANError::operationFailed(u"Could not create VLAN "_s + number(tag) + u" on "_s
                                         + adapterBSD
                                         + u" (tag already in use on that device?)."_s);
    }
    if (const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(vlan)) {
        if (m_tables.vlanByBSD)
            m_tables.vlanByBSD->insert(*bsdName, vlan);
        // Services left on a reused kernel name belong to a VLAN again.
        if (m_tables.orphanedVLANs)
            m_tables.orphanedVLANs->remove(*bsdName);
    }
    if (m_tables.parentCounts)
        ++(*m_tables.parentCounts)[adapterBSD];
    const QString composed =
        AdapterNaming::compose(name, adapterLabel(adapterBSD), knownAdapterLabels());
    (void)m_platform->scVLANInterfaceSetLocalizedDisplayName(vlan, composed);
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    const ServiceRef service = makeService(vlan, composed, set);
    (void)m_platform->scNetworkServiceSetEnabled(service, enabled);
    applyIP(ip, service);
    return m_platform->scNetworkInterfaceGetBSDName(vlan).value_or(u"vlan?"_s);
}

void VLANStore::reparent(const VLANRecord &record, const QString &adapterBSD)
{
    const InterfaceRef adapter = requireAdapter(adapterBSD);
    const InterfaceRef vlan = findVLAN(record.tag, record.bsdName);
    if (!vlan) {
        throw VLANError::operationFailed(u"VLAN '"_s + record.name
                                         + u"' vanished from the configuration."_s);
    }
    const QString present = displayNameOr(vlan, record.name);
    const QString composed =
        AdapterNaming::compose(present, adapterLabel(adapterBSD), knownAdapterLabels());
    const QString oldParent = bsdNameOrDash(m_platform->scVLANInterfaceGetPhysicalInterface(vlan));
    if (!m_platform->scVLANInterfaceSetPhysicalInterfaceAndTag(vlan, adapter, record.tag)) {
        throw VLANError::operationFailed(u"Could not re-parent '"_s + record.name + u"' onto "_s
                                         + adapterBSD + u'.');
    }
    if (m_tables.parentCounts) {
        --(*m_tables.parentCounts)[oldParent];
        ++(*m_tables.parentCounts)[adapterBSD];
    }
    // The interface's own name takes part in which service name an interface is known by.
    m_tables.nameIndex.reset();
    (void)m_platform->scVLANInterfaceSetLocalizedDisplayName(vlan, composed);
}

void VLANStore::setIP(const IPConfig &ip, qint64 tag, const QString &bsdName)
{
    const ServiceRef service = findService(bsdName);
    if (!service)
        throw noServiceForVLAN(tag, bsdName);
    applyIP(ip, service);
}

void VLANStore::setEnabled(bool enabled, qint64 tag, const QString &bsdName)
{
    const ServiceRef service = findService(bsdName);
    if (!service)
        throw noServiceForVLAN(tag, bsdName);
    if (!m_platform->scNetworkServiceSetEnabled(service, enabled)) {
        throw VLANError::operationFailed(u"Could not change enabled state for VLAN tag "_s
                                         + number(tag) + u'.');
    }
}

void VLANStore::removeVLAN(qint64 tag, const QString &bsdName)
{
    const InterfaceRef vlan = findVLAN(tag, bsdName);
    if (!vlan)
        throw noVLAN(tag, bsdName);
    // A VLAN takes all its services with it, in every Location.
    removeServices({bsdName});
    const QString parentBSD = bsdNameOrDash(m_platform->scVLANInterfaceGetPhysicalInterface(vlan));
    if (!m_platform->scVLANInterfaceRemove(vlan)) {
        m_tables.dropAll();
        throw VLANError::operationFailed(u"Could not remove VLAN "_s + number(tag) + u" ("_s
                                         + bsdName + u")."_s);
    }
    vlanRemoved(bsdName, parentBSD);
    (void)pruneOrphanedVLANServices();
}

void VLANStore::renameVLAN(qint64 tag, const QString &bsdName, const QString &name)
{
    const QString trimmed = trimWhitespaceAndNewlines(name);
    if (trimmed.isEmpty())
        throw VLANError::operationFailed(u"A VLAN needs a name."_s);
    const InterfaceRef vlan = findVLAN(tag, bsdName);
    if (!vlan)
        throw noVLAN(tag, bsdName);
    if (!m_platform->scVLANInterfaceSetLocalizedDisplayName(vlan, trimmed))
        throw VLANError::operationFailed(u"Could not rename VLAN "_s + number(tag) + u'.');
    m_tables.nameIndex.reset();
    m_tables.namesEverywhere.reset();
    if (const ServiceRef service = findService(bsdName))
        (void)m_platform->scNetworkServiceSetName(service, trimmed);
}

void VLANStore::addService(qint64 tag, const QString &bsdName)
{
    const InterfaceRef vlan = findVLAN(tag, bsdName);
    if (!vlan)
        throw noVLAN(tag, bsdName);
    const QString name = displayNameOr(vlan, bsdName);
    if (findService(bsdName))
        throw alreadyHasService(name);
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    (void)makeService(vlan, name, set);
}

void VLANStore::addService(const QString &adapterBSD)
{
    InterfaceRef adapter;
    for (const InterfaceRef &interface : attachedAdapters()) {
        if (m_platform->scNetworkInterfaceGetBSDName(interface) == adapterBSD) {
            adapter = interface;
            break;
        }
    }
    if (!adapter)
        throw VLANError::adapterNotFound(adapterBSD);
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    // An adapter named in another Location comes back under that name.
    const QString name = serviceNameIndex().value(adapterBSD, displayNameOr(adapter, adapterBSD));
    for (const ServiceRef &service : servicesOf(set)) {
        if (interfaceBSDOf(service) == adapterBSD)
            throw alreadyHasService(name);
    }
    (void)makeService(adapter, name, set);
}

void VLANStore::setIP(const IPConfig &ip, const QString &serviceID, const QString &name)
{
    applyIP(ip, requireService(serviceID, name));
}

void VLANStore::setEnabled(bool enabled, const QString &serviceID, const QString &name)
{
    const ServiceRef service = requireService(serviceID, name);
    if (!m_platform->scNetworkServiceSetEnabled(service, enabled)) {
        throw VLANError::operationFailed(u"Could not turn "_s + name
                                         + (enabled ? u" on."_s : u" off."_s));
    }
}

void VLANStore::setIPv6(IPv6Mode mode, const QString &serviceID, const QString &name)
{
    const ServiceRef service = requireService(serviceID, name);
    ProtocolRef protocol =
        m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeIPv6);
    if (!protocol) {
        (void)m_platform->scNetworkServiceAddProtocolType(service, kSCNetworkProtocolTypeIPv6);
        protocol = m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeIPv6);
    }
    if (!protocol)
        throw VLANError::operationFailed(name + u" has no IPv6 settings to change."_s);
    switch (mode) {
    case IPv6Mode::automatic:
    case IPv6Mode::linkLocal: {
        // The map replaces the whole configuration.
        const QVariantMap configuration{
            {kSCPropNetIPv6ConfigMethod, mode == IPv6Mode::automatic
                                             ? kSCValNetIPv6ConfigMethodAutomatic
                                             : kSCValNetIPv6ConfigMethodLinkLocal}};
        if (!m_platform->scNetworkProtocolSetConfiguration(protocol, configuration)
            || !m_platform->scNetworkProtocolSetEnabled(protocol, true))
            throw VLANError::operationFailed(u"Could not set IPv6 on "_s + name + u'.');
        return;
    }
    case IPv6Mode::off:
        if (!m_platform->scNetworkProtocolSetEnabled(protocol, false))
            throw VLANError::operationFailed(u"Could not turn IPv6 off on "_s + name + u'.');
        return;
    case IPv6Mode::manual:
    case IPv6Mode::unknown:
        break;
    }
    throw VLANError::operationFailed(u"IPv6 on "_s + name
                                     + u" can be set to Automatic, Link-local only or Off."_s);
}

void VLANStore::setDNS(const QStringList &servers, const QStringList &searchDomains,
                       const QString &serviceID, const QString &name)
{
    const ServiceRef service = requireService(serviceID, name);
    if (!writeDNS(servers, searchDomains, service))
        throw VLANError::operationFailed(u"Could not set the DNS settings on "_s + name + u'.');
}

void VLANStore::removeService(const QString &serviceID, const QString &name)
{
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    const ServiceRef service = requireService(serviceID, name);
    const auto bsdName = interfaceBSDOf(service);
    if (!bsdName)
        throw VLANError::operationFailed(name + u" belongs to its VPN app. Remove it there."_s);
    // The label of an adapter whose service goes stays known for the rest of the session.
    if (!bsdName->startsWith(u"vlan"_s))
        retiredLabels.insert(adapterLabel(*bsdName));
    const auto targetID = m_platform->scNetworkSetGetSetID(set);
    bool shared = false;
    for (const SetRef &other : allSets()) {
        if (m_platform->scNetworkSetGetSetID(other) == targetID)
            continue;
        for (const ServiceRef &member : servicesOf(other)) {
            if (m_platform->scNetworkServiceGetServiceID(member) == serviceID) {
                shared = true;
                break;
            }
        }
        if (shared)
            break;
    }
    writePendingOrder();
    m_tables.dropServices();
    if (!m_platform->scNetworkSetRemoveService(set, service))
        throw VLANError::operationFailed(u"Could not take "_s + name + u" out of this Location."_s);
    if (!shared)
        (void)m_platform->scNetworkServiceRemove(service);
}

ServiceRef VLANStore::makeService(const InterfaceRef &interface, const QString &name,
                                  const SetRef &set)
{
    const ServiceRef service = m_platform->scNetworkServiceCreate(m_prefs, interface);
    if (!service) {
        throw VLANError::operationFailed(u"Could not create a network service for '"_s + name
                                         + u"'."_s);
    }
    (void)m_platform->scNetworkServiceSetName(service, name);
    if (!m_platform->scNetworkServiceEstablishDefaultConfiguration(service)) {
        throw VLANError::operationFailed(u"Could not establish default configuration for '"_s + name
                                         + u"'."_s);
    }
    if (!m_platform->scNetworkSetAddService(set, service)) {
        throw VLANError::operationFailed(u"Could not add '"_s + name
                                         + u"' to the current location."_s);
    }
    serviceMade(service, interface, set);
    moveToEndOfOrder(service, set);
    return service;
}

void VLANStore::removeServices(const QSet<QString> &bsdNames)
{
    if (bsdNames.isEmpty())
        return;
    writePendingOrder();
    // Looked up by kernel name, so that removing one VLAN among thousands walks only its own.
    QList<ServiceBinding> bound;
    for (const QString &bsdName : bsdNames)
        bound.append(servicesByBSD().value(bsdName));
    // The answers are dropped, as the system's rules ask; a refusal only costs the tables.
    QSet<QString> gone;
    for (const ServiceBinding &binding : std::as_const(bound)) {
        (void)m_platform->scNetworkSetRemoveService(binding.set, binding.service);
        const auto id = m_platform->scNetworkServiceGetServiceID(binding.service);
        if (m_platform->scNetworkServiceRemove(binding.service) && id)
            gone.insert(*id);
    }
    const bool allGone = std::all_of(bound.cbegin(), bound.cend(), [&](const ServiceBinding &b) {
        const auto id = m_platform->scNetworkServiceGetServiceID(b.service);
        return id && gone.contains(*id);
    });
    servicesRemoved(bsdNames, bound, allGone);
}

void VLANStore::applyIP(const IPConfig &ip, const ServiceRef &service)
{
    const ProtocolRef protocol =
        m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeIPv4);
    if (!protocol)
        throw VLANError::operationFailed(u"Service has no IPv4 protocol."_s);
    // Built from nothing: what the protocol held before isn't read.
    QVariantMap configuration;
    switch (ip.mode) {
    case IPMode::dhcp:
        configuration.insert(kSCPropNetIPv4ConfigMethod, kSCValNetIPv4ConfigMethodDHCP);
        break;
    case IPMode::manual:
        configuration.insert(kSCPropNetIPv4ConfigMethod, kSCValNetIPv4ConfigMethodManual);
        configuration.insert(kSCPropNetIPv4Addresses,
                             QVariantList{ip.address.value_or(u"0.0.0.0"_s)});
        configuration.insert(kSCPropNetIPv4SubnetMasks,
                             QVariantList{ip.subnetMask.value_or(u"255.255.255.0"_s)});
        if (ip.router && !ip.router->isEmpty())
            configuration.insert(kSCPropNetIPv4Router, *ip.router);
        break;
    case IPMode::linkLocal:
        configuration.insert(kSCPropNetIPv4ConfigMethod, kSCValNetIPv4ConfigMethodLinkLocal);
        break;
    case IPMode::off:
    case IPMode::unknown:
        break;
    }
    const std::optional<QVariantMap> written =
        configuration.isEmpty() ? std::nullopt : std::optional(configuration);
    if (!m_platform->scNetworkProtocolSetConfiguration(protocol, written))
        throw VLANError::operationFailed(u"Could not set the IPv4 configuration."_s);
    // An empty list leaves the service's DNS servers as they were: clearing is setDNS's work.
    if (!ip.dns.isEmpty())
        (void)writeDNS(ip.dns, std::nullopt, service);
}

bool VLANStore::writeDNS(const std::optional<QStringList> &servers,
                         const std::optional<QStringList> &searchDomains, const ServiceRef &service)
{
    ProtocolRef protocol =
        m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeDNS);
    if (!protocol) {
        (void)m_platform->scNetworkServiceAddProtocolType(service, kSCNetworkProtocolTypeDNS);
        protocol = m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeDNS);
    }
    if (!protocol)
        return false;
    QVariantMap configuration =
        m_platform->scNetworkProtocolGetConfiguration(protocol).value_or(QVariantMap());
    const auto put = [&configuration](const QString &key, const std::optional<QStringList> &list) {
        if (!list)
            return;
        if (list->isEmpty())
            configuration.remove(key);
        else
            configuration.insert(key, variantList(*list));
    };
    put(kSCPropNetDNSServerAddresses, servers);
    put(kSCPropNetDNSSearchDomains, searchDomains);
    return m_platform->scNetworkProtocolSetConfiguration(protocol, configuration);
}

QStringList VLANStore::pruneOrphanedVLANServices()
{
    const QSet<QString> orphans = orphanedVLANNames();
    if (orphans.isEmpty())
        return {};
    removeServices(orphans);
    QStringList sorted(orphans.cbegin(), orphans.cend());
    sortCanonically(sorted);
    return sorted;
}

} // namespace VLANKit
