#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/LocationNames.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

// A new, empty set under a name that no Location bears in any case.
SetRef makeLocation(const VLANStore &store, const QString &name)
{
    const QString trimmed = LocationNames::trimmed(name);
    LocationNames::checkFree(trimmed, store.locations());
    PlatformBackend &platform = store.platform();
    SetRef set = platform.scNetworkSetCreate(store.prefs());
    if (!set)
        throw VLANError::operationFailed(u"Could not create the Location."_s);
    if (!platform.scNetworkSetSetName(set, trimmed))
        throw VLANError::operationFailed(u"Could not name the Location '"_s + trimmed + u"'."_s);
    return set;
}

QString newSetID(PlatformBackend &platform, const SetRef &set)
{
    const auto setID = platform.scNetworkSetGetSetID(set);
    if (!setID)
        throw VLANError::operationFailed(u"Created the Location but could not read its ID."_s);
    return *setID;
}

// The set of a record, looked up by its identifier.
SetRef setOf(PlatformBackend &platform, const SessionRef &prefs, const LocationRecord &record)
{
    SetRef set = platform.scNetworkSetCopy(prefs, record.setID);
    if (!set || platform.scNetworkSetGetSetID(set) != record.setID)
        return {};
    return set;
}

} // namespace

QList<LocationRecord> VLANStore::locations() const
{
    const SetRef current = m_platform->scNetworkSetCopyCurrent(m_prefs);
    const auto currentID = current ? m_platform->scNetworkSetGetSetID(current) : std::nullopt;
    const QHash<QString, InterfaceRef> &vlanBSDNames = vlansByBSD();
    QList<LocationRecord> records;
    for (const SetRef &set : allSets()) {
        LocationRecord record;
        const auto setID = m_platform->scNetworkSetGetSetID(set);
        record.name = m_platform->scNetworkSetGetName(set).value_or(notReported());
        record.setID = setID.value_or(notReported());
        record.isCurrent = currentID && setID == currentID;
        const QList<ServiceRef> services = servicesOf(set);
        record.serviceCount = services.size();
        for (const ServiceRef &service : services) {
            const auto bsdName = interfaceBSDOf(service);
            if (bsdName && vlanBSDNames.contains(*bsdName))
                ++record.vlanServiceCount;
        }
        records.append(std::move(record));
    }
    sortStably(records, [](const LocationRecord &a, const LocationRecord &b) {
        return canonicallyLess(a.name, b.name);
    });
    return records;
}

std::optional<LocationRecord> VLANStore::activeLocation() const
{
    const SetRef set = targetSet();
    const auto setID = set ? m_platform->scNetworkSetGetSetID(set) : std::nullopt;
    if (!setID)
        return std::nullopt;
    for (const LocationRecord &record : locations()) {
        if (record.setID == *setID)
            return record;
    }
    return std::nullopt;
}

void VLANStore::selectLocation(const QString &name)
{
    const QList<LocationRecord> records = locations();
    const auto record = LocationNames::location(name, records);
    if (!record)
        throw LocationNames::notFound(name, records);
    setSelectedSetID(record->setID);
}

QString VLANStore::createLocation(const QString &name, bool populate)
{
    writePendingOrder();
    const SetRef set = makeLocation(*this, name);
    if (populate) {
        const QHash<QString, QString> knownNames = serviceNameIndex();
        for (const InterfaceRef &interface : attachedAdapters()) {
            const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(interface);
            const ServiceRef service = m_platform->scNetworkServiceCreate(m_prefs, interface);
            if (!service || !m_platform->scNetworkServiceEstablishDefaultConfiguration(service))
                continue;
            // The adapter keeps the name it bears in the other Locations.
            const auto known = bsdName ? knownNames.constFind(*bsdName) : knownNames.constEnd();
            if (known != knownNames.constEnd())
                (void)m_platform->scNetworkServiceSetName(service, *known);
            (void)m_platform->scNetworkSetAddService(set, service);
        }
    }
    QString setID = newSetID(*m_platform, set);
    m_tables.dropServices();
    setSelectedSetID(setID);
    return setID;
}

LocationCopy VLANStore::duplicateLocation(const QString &name, const QString &newName)
{
    writePendingOrder();
    const QList<LocationRecord> records = locations();
    const auto record = LocationNames::location(name, records);
    const SetRef source = record ? setOf(*m_platform, m_prefs, *record) : SetRef();
    if (!source)
        throw LocationNames::notFound(name, records);
    const QList<ServiceRef> sourceServices = orderedServices(source);
    const QHash<QString, InterfaceRef> &vlanBSDNames = vlansByBSD();
    const SetRef copySet = makeLocation(*this, newName);

    // Service by service, with new identifiers: a service can't be shared between Locations
    // without sharing its settings too.
    LocationCopy copy;
    QStringList order;
    for (const ServiceRef &service : sourceServices) {
        const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
        const auto bsdName = interfaceBSDOf(service);
        // A VPN has no kernel name and belongs to its app; a "vlan" interface that is no VLAN
        // any more is a service left behind by one that is gone.
        if (!bsdName)
            continue;
        if (bsdName->startsWith(u"vlan"_s) && !vlanBSDNames.contains(*bsdName))
            continue;
        const auto serviceName = m_platform->scNetworkServiceGetName(service);
        const auto copyFailed = [&] {
            return VLANError::operationFailed(u"Could not copy '"_s + serviceName.value_or(*bsdName)
                                              + u"' into the new Location."_s);
        };
        const ServiceRef twin = m_platform->scNetworkServiceCreate(m_prefs, interface);
        if (!twin)
            throw copyFailed();
        if (serviceName)
            (void)m_platform->scNetworkServiceSetName(twin, *serviceName);
        for (const ProtocolRef &protocol :
             presentHandles(m_platform->scNetworkServiceCopyProtocols(service))) {
            const auto type = m_platform->scNetworkProtocolGetProtocolType(protocol);
            if (!type)
                continue;
            (void)m_platform->scNetworkServiceAddProtocolType(twin, *type);
            const ProtocolRef twinProtocol = m_platform->scNetworkServiceCopyProtocol(twin, *type);
            if (!twinProtocol)
                continue;
            (void)m_platform->scNetworkProtocolSetConfiguration(
                twinProtocol, m_platform->scNetworkProtocolGetConfiguration(protocol));
            (void)m_platform->scNetworkProtocolSetEnabled(
                twinProtocol, m_platform->scNetworkProtocolGetEnabled(protocol));
        }
        if (!m_platform->scNetworkSetAddService(copySet, twin))
            throw copyFailed();
        (void)m_platform->scNetworkServiceSetEnabled(
            twin, m_platform->scNetworkServiceGetEnabled(service));
        // Frame size, speed and duplex live with the interface in each set, not in the service.
        // Only an interface reached through a service of the new set can take them.
        if (const auto settings = m_platform->scNetworkInterfaceGetConfiguration(interface)) {
            (void)m_platform->scNetworkInterfaceSetConfiguration(
                m_platform->scNetworkServiceGetInterface(twin), settings);
        }
        const auto sourceID = m_platform->scNetworkServiceGetServiceID(service);
        const auto twinID = m_platform->scNetworkServiceGetServiceID(twin);
        if (sourceID && twinID) {
            copy.serviceIDs.insert(*sourceID, *twinID);
            order.append(*twinID);
        }
    }
    (void)m_platform->scNetworkSetSetServiceOrder(copySet, order);
    copy.setID = newSetID(*m_platform, copySet);
    m_tables.dropServices();
    setSelectedSetID(copy.setID);
    return copy;
}

void VLANStore::renameLocation(const QString &name, const QString &newName)
{
    const QString trimmed = LocationNames::trimmed(newName);
    const QList<LocationRecord> records = locations();
    const auto record = LocationNames::location(name, records);
    if (!record)
        throw LocationNames::notFound(name, records);
    // Its own name doesn't count: a Location may change the case of its name.
    LocationNames::checkFree(trimmed, records, record->setID);
    const SetRef set = setOf(*m_platform, m_prefs, *record);
    if (!set || !m_platform->scNetworkSetSetName(set, trimmed))
        throw VLANError::operationFailed(u"Could not rename Location '"_s + record->name + u"'."_s);
}

void VLANStore::removeLocation(const QString &name)
{
    writePendingOrder();
    const QList<LocationRecord> records = locations();
    const auto record = LocationNames::location(name, records);
    if (!record)
        throw LocationNames::notFound(name, records);
    // The machine's own set, whichever the session has selected.
    if (record->isCurrent) {
        throw VLANError::operationFailed(
            u"'"_s + name + u"' is the active Location \u2014 switch away before deleting it."_s);
    }
    const SetRef set = setOf(*m_platform, m_prefs, *record);
    if (!set)
        throw VLANError::locationNotFound(name, {});

    // Removing the set alone would leave its services behind in the preferences; a service that
    // another Location holds too stays for that one.
    QSet<QString> heldElsewhere;
    for (const SetRef &other : allSets()) {
        if (m_platform->scNetworkSetGetSetID(other) == record->setID)
            continue;
        for (const ServiceRef &service : servicesOf(other)) {
            if (const auto serviceID = m_platform->scNetworkServiceGetServiceID(service))
                heldElsewhere.insert(*serviceID);
        }
    }
    for (const ServiceRef &service : servicesOf(set)) {
        const auto serviceID = m_platform->scNetworkServiceGetServiceID(service);
        if (serviceID && !heldElsewhere.contains(*serviceID))
            (void)m_platform->scNetworkServiceRemove(service);
    }
    if (!m_platform->scNetworkSetRemove(set))
        throw VLANError::operationFailed(u"Could not remove Location '"_s + name + u"'."_s);
    m_tables.dropServices();
    if (m_selectedSetID == record->setID)
        setSelectedSetID(std::nullopt);
}

void VLANStore::makeSelectedLocationCurrent()
{
    writePendingOrder();
    const SetRef set = targetSet();
    if (!set)
        throw VLANError::noCurrentSet();
    if (!m_platform->scNetworkSetSetCurrent(set))
        throw VLANError::operationFailed(u"Could not switch to that Location."_s);
}

} // namespace VLANKit
