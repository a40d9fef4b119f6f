#include "VLANKit/platform/document/InterfaceFacts.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentSession.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// A device that isn't here now, as its service's stored dictionary tells of it.
InterfaceFacts placeholder(const DocumentMachine &machine, const QString &bsdName,
                           const QVariantMap &entity)
{
    InterfaceFacts facts;
    facts.bsdName = bsdName;
    const QString type = stringIn(entity, DocumentPaths::typeKey).value_or(u"Ethernet"_s);
    if (stringIn(entity, DocumentPaths::hardwareKey) == u"AirPort"_s)
        facts.type = kSCNetworkInterfaceTypeIEEE80211;
    else if (type == kSCNetworkInterfaceTypeFireWire)
        facts.type = kSCNetworkInterfaceTypeFireWire;
    else
        facts.type = kSCNetworkInterfaceTypeEthernet;
    facts.displayName = stringIn(entity, DocumentPaths::nameKey);
    if (const HardwareInterface *known = machine.knownInterface(bsdName))
        facts.builtIn = known->builtIn;
    return facts;
}

} // namespace

InterfaceFacts InterfaceFacts::ofHardware(const HardwareInterface &hardware)
{
    InterfaceFacts facts;
    facts.bsdName = hardware.bsdName;
    facts.type = hardware.type;
    facts.displayName = hardware.displayName;
    facts.builtIn = hardware.builtIn;
    return facts;
}

InterfaceFacts InterfaceFacts::ofVLAN(const DocumentSession &session, const QString &name)
{
    DocumentSession::FactsMemo &memo = session.factsMemo();
    if (const auto kept = memo.vlans.constFind(name); kept != memo.vlans.constEnd())
        return *kept;
    InterfaceFacts facts;
    facts.bsdName = name;
    facts.type = kSCNetworkInterfaceTypeVLAN;
    facts.storedName = SessionIndex::genericVLANName(name);
    const QVariant *vlan = session.document().value(DocumentPaths::vlan(name));
    const auto entry = vlan ? SessionIndex::vlanEntry(name, *vlan) : std::nullopt;
    facts.displayName = entry ? entry->shownName : *facts.storedName;
    // The system counts VLANs as built in when it ranks services.
    facts.builtIn = true;
    memo.vlans.insert(name, facts);
    return facts;
}

InterfaceFacts InterfaceFacts::ofAdapter(const DocumentMachine &machine, const QString &bsdName)
{
    if (const HardwareInterface *known = machine.knownInterface(bsdName))
        return ofHardware(*known);
    InterfaceFacts facts;
    facts.bsdName = bsdName;
    facts.type = kSCNetworkInterfaceTypeEthernet;
    return facts;
}

std::optional<InterfaceFacts> InterfaceFacts::ofService(const DocumentSession &session,
                                                        const QString &serviceID)
{
    DocumentSession::FactsMemo &memo = session.factsMemo();
    if (const auto kept = memo.services.constFind(serviceID); kept != memo.services.constEnd())
        return *kept;
    return *memo.services.insert(serviceID, readOfService(session, serviceID));
}

std::optional<InterfaceFacts> InterfaceFacts::readOfService(const DocumentSession &session,
                                                            const QString &serviceID)
{
    const QVariantMap *service = session.document().map(DocumentPaths::service(serviceID));
    const std::optional<QVariantMap> entity =
        service ? mapIn(*service, DocumentPaths::interfaceKey) : std::nullopt;
    if (!entity)
        return std::nullopt;
    const QString type = stringIn(*entity, DocumentPaths::typeKey).value_or(u"Ethernet"_s);
    const std::optional<QString> device = stringIn(*entity, DocumentPaths::deviceNameKey);
    if (type != kSCNetworkInterfaceTypeEthernet && type != kSCNetworkInterfaceTypeFireWire) {
        // PPP, VPN and their kind stand on no kernel interface of their own.
        InterfaceFacts facts;
        facts.type = type;
        facts.displayName = stringIn(*entity, DocumentPaths::nameKey);
        return facts;
    }
    if (!device)
        return placeholder(session.machine(), QString(), *entity);
    if (const HardwareInterface *attached = session.machine().attachedInterface(*device))
        return ofHardware(*attached);
    const QVariant *vlan = session.document().value(DocumentPaths::vlan(*device));
    if (vlan && SessionIndex::vlanEntry(*device, *vlan))
        return ofVLAN(session, *device);
    return placeholder(session.machine(), *device, *entity);
}

QVariantMap InterfaceFacts::storageEntity() const
{
    QVariantMap entity;
    if (bsdName)
        entity.insert(DocumentPaths::deviceNameKey, *bsdName);
    const QString kind = type.value_or(kSCNetworkInterfaceTypeEthernet);
    if (kind == kSCNetworkInterfaceTypeIEEE80211) {
        entity.insert(DocumentPaths::typeKey, kSCNetworkInterfaceTypeEthernet);
        entity.insert(DocumentPaths::hardwareKey, u"AirPort"_s);
    } else if (kind == kSCNetworkInterfaceTypeFireWire) {
        entity.insert(DocumentPaths::typeKey, kSCNetworkInterfaceTypeFireWire);
        entity.insert(DocumentPaths::hardwareKey, kSCNetworkInterfaceTypeFireWire);
    } else {
        // Ethernet, and VLAN, Bond and Bridge alike: the system stores them all as Ethernet.
        entity.insert(DocumentPaths::typeKey, kSCNetworkInterfaceTypeEthernet);
        entity.insert(DocumentPaths::hardwareKey, kSCNetworkInterfaceTypeEthernet);
    }
    if (displayName)
        entity.insert(DocumentPaths::nameKey, *displayName);
    return entity;
}

int InterfaceFacts::orderRank() const
{
    static const QHash<QString, int> classes{
        {kSCNetworkInterfaceTypeEthernet, 7},  {kSCNetworkInterfaceTypeBond, 8},
        {kSCNetworkInterfaceTypeVLAN, 9},      {kSCNetworkInterfaceTypeBridge, 10},
        {kSCNetworkInterfaceTypeFireWire, 11}, {kSCNetworkInterfaceTypeIEEE80211, 12}};
    // VPNs and kinds the system doesn't rank go last.
    const int kind = classes.value(type.value_or(QString()), 100);
    return 2 * kind + (builtIn ? 0 : 1);
}

} // namespace VLANKit
