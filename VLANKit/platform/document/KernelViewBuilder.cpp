#include "VLANKit/platform/document/KernelViewBuilder.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentPaths.h"
#include "VLANKit/platform/document/DocumentProtocols.h"
#include "VLANKit/platform/document/DocumentServices.h"
#include "VLANKit/platform/document/DocumentSets.h"
#include "VLANKit/platform/document/DocumentVLANs.h"
#include "VLANKit/platform/document/VLANNameAllocator.h"

#include <QCryptographicHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

QString dotted(quint32 address)
{
    return u"%1.%2.%3.%4"_s.arg(address >> 24)
        .arg((address >> 16) & 0xff)
        .arg((address >> 8) & 0xff)
        .arg(address & 0xff);
}

quint32 fromQuad(const std::array<int, 4> &quad)
{
    return (quint32(quad[0]) << 24) | (quint32(quad[1]) << 16) | (quint32(quad[2]) << 8)
           | quint32(quad[3]);
}

/// A self-assigned address, the same for a service at every apply: 169.254.1.0 to
/// 169.254.254.255, as link-local addressing hands them out.
QString selfAssigned(const QString &serviceID)
{
    const QByteArray digest =
        QCryptographicHash::hash(serviceID.toUtf8(), QCryptographicHash::Sha256);
    const auto third = 1 + static_cast<quint8>(digest.at(0)) % 254;
    return u"169.254.%1.%2"_s.arg(third).arg(static_cast<quint8>(digest.at(1)));
}

/// The settings of an interface in the current set, for what the link takes from them.
QVariantMap settingsOf(const DocumentSession &session, const std::optional<QString> &setID,
                       const QString &bsdName, const QString &type)
{
    if (!setID)
        return {};
    const QVariantMap *settings = session.document().map(
        DocumentPaths::interfaceSettings(*setID, bsdName, HardwareInterface::settingsEntity(type)));
    return settings ? *settings : QVariantMap();
}

/// Frame size and media as the link configuration sets them: only what the device takes.
void applyLinkSettings(KernelView::Interface &interface, const QVariantMap &settings,
                       const HardwareInterface &device, bool isVLAN)
{
    const std::optional<qint64> mtu = integerIn(settings, kSCPropNetEthernetMTU);
    if (mtu && device.mtu && *mtu >= device.mtu->minimum && *mtu <= device.mtu->maximum)
        interface.mtu = *mtu;
    if (isVLAN)
        return;
    const std::optional<QString> subType = stringIn(settings, kSCPropNetEthernetMediaSubType);
    const std::optional<QStringList> options =
        stringListIn(settings, kSCPropNetEthernetMediaOptions);
    const bool offered =
        subType && std::any_of(device.media.begin(), device.media.end(), [&](const auto &offer) {
            return offer.subType == *subType;
        });
    if (offered && options) {
        interface.mediaSubType = subType;
        interface.mediaOptions = *options;
    }
}

} // namespace

KernelViewBuilder::KernelViewBuilder(const QVariantMap &preferences,
                                     const std::shared_ptr<const DocumentMachine> &machine)
    : m_session(machine, false, preferences, {})
    , m_machine(*machine)
    , m_currentSet(DocumentSets::current(m_session))
{}

KernelView KernelViewBuilder::build()
{
    addAdapters();
    addVLANs();
    for (qsizetype at = 0; at < m_view.interfaces.size(); ++at)
        m_view.positions.insert(m_view.interfaces.at(at).bsdName, at);
    publishInterfaces();
    if (m_currentSet) {
        for (const QString &serviceID : DocumentSets::services(m_session, *m_currentSet))
            publishService(serviceID);
    }
    return m_view;
}

void KernelViewBuilder::add(KernelView::Interface interface)
{
    interface.index = static_cast<std::uint32_t>(m_view.interfaces.size() + 1);
    m_view.interfaces.append(interface);
}

void KernelViewBuilder::addAdapters()
{
    for (const HardwareInterface &device : m_machine.attached()) {
        KernelView::Interface interface;
        interface.bsdName = device.bsdName;
        interface.type = device.type;
        interface.displayName = device.displayName;
        interface.linkUp = device.linkUp;
        if (device.mtu)
            interface.mtu = device.mtu->current;
        interface.mediaSubType = device.activeSubType;
        interface.mediaOptions = device.activeOptions;
        applyLinkSettings(interface,
                          settingsOf(m_session, m_currentSet, device.bsdName, device.type), device,
                          false);
        add(interface);
    }
}

void KernelViewBuilder::addVLANs()
{
    QStringList names = DocumentVLANs::names(m_session);
    // In the order the names were handed out: vlan2 before vlan10.
    sortStably(names, [](const QString &a, const QString &b) {
        return VLANNameAllocator::number(a).value_or(INT64_MAX)
               < VLANNameAllocator::number(b).value_or(INT64_MAX);
    });
    QSet<QString> taken;
    for (const QString &name : std::as_const(names)) {
        const auto entry = DocumentVLANs::entry(m_session, name);
        const HardwareInterface *parent = m_machine.attachedInterface(entry->parent);
        const QString parentAndTag = entry->parent + u'\n' + QString::number(entry->tag);
        if (!parent || !parent->vlanCapable || entry->tag < 1 || entry->tag > 4094
            || taken.contains(parentAndTag))
            continue;
        taken.insert(parentAndTag);
        KernelView::Interface interface;
        interface.bsdName = name;
        interface.type = kSCNetworkInterfaceTypeVLAN;
        interface.displayName = entry->shownName;
        interface.linkUp = parent->linkUp;
        interface.parent = parent->bsdName;
        interface.tag = entry->tag;
        interface.mtu = 1500;
        applyLinkSettings(interface,
                          settingsOf(m_session, m_currentSet, name, kSCNetworkInterfaceTypeVLAN),
                          *parent, true);
        add(interface);
    }
}

void KernelViewBuilder::publishInterfaces()
{
    QVariantList names;
    for (const KernelView::Interface &interface : std::as_const(m_view.interfaces)) {
        names.append(interface.bsdName);
        m_view.dynamicStore.insert(u"State:/Network/Interface/%1/Link"_s.arg(interface.bsdName),
                                   QVariantMap{{u"Active"_s, interface.linkUp}});
    }
    m_view.dynamicStore.insert(u"State:/Network/Interface"_s,
                               QVariantMap{{u"Interfaces"_s, names}});
}

void KernelViewBuilder::publishService(const QString &serviceID)
{
    const std::optional<InterfaceFacts> facts = InterfaceFacts::ofService(m_session, serviceID);
    const auto configuration =
        DocumentProtocols::configuration(m_session, serviceID, kSCNetworkProtocolTypeIPv4);
    if (!DocumentServices::isEnabled(m_session, serviceID) || !facts || !facts->bsdName
        || !configuration
        || !DocumentProtocols::isEnabled(m_session, serviceID, kSCNetworkProtocolTypeIPv4))
        return;
    const KernelView::Interface *interface = m_view.interface(*facts->bsdName);
    if (!interface || !interface->linkUp)
        return;
    const QString method = stringIn(*configuration, kSCPropNetIPv4ConfigMethod).value_or(QString());
    QVariantMap state;
    if (method == kSCValNetIPv4ConfigMethodManual || method == u"INFORM"_s) {
        const QStringList addresses = anyStringsOf(configuration->value(kSCPropNetIPv4Addresses));
        if (addresses.isEmpty() || addresses.first() == u"0.0.0.0"_s
            || !isDottedQuad(addresses.first()))
            return;
        state.insert(kSCPropNetIPv4Addresses, QVariantList{addresses.first()});
        const QStringList masks = anyStringsOf(configuration->value(kSCPropNetIPv4SubnetMasks));
        if (!masks.isEmpty())
            state.insert(kSCPropNetIPv4SubnetMasks, QVariantList{masks.first()});
        if (const auto router = stringIn(*configuration, kSCPropNetIPv4Router))
            state.insert(kSCPropNetIPv4Router, *router);
    } else if (method == kSCValNetIPv4ConfigMethodDHCP || method == u"BOOTP"_s) {
        state = lease(serviceID, *interface);
    } else if (method == kSCValNetIPv4ConfigMethodLinkLocal) {
        state = selfAssignedState(serviceID);
    } else {
        return;
    }
    state.insert(u"InterfaceName"_s, interface->bsdName);
    state.insert(u"ConfirmedInterfaceName"_s, interface->bsdName);
    m_view.dynamicStore.insert(u"State:/Network/Service/%1/IPv4"_s.arg(serviceID), state);
}

QVariantMap KernelViewBuilder::selfAssignedState(const QString &serviceID)
{
    return {{kSCPropNetIPv4Addresses, QVariantList{selfAssigned(serviceID)}},
            {kSCPropNetIPv4SubnetMasks, QVariantList{u"255.255.0.0"_s}}};
}

QVariantMap KernelViewBuilder::lease(const QString &serviceID,
                                     const KernelView::Interface &interface)
{
    const QList<MachineDescription::DHCPServer> servers = m_machine.dhcpServers();
    const KernelView::Interface *parent =
        interface.parent.isEmpty() ? nullptr : m_view.interface(interface.parent);
    const std::optional<qint64> tag = parent ? interface.tag : std::nullopt;
    const QString adapter = parent ? parent->bsdName : interface.bsdName;
    for (qsizetype at = 0; at < servers.size(); ++at) {
        const MachineDescription::DHCPServer &server = servers.at(at);
        if (server.adapter != adapter || server.tag != tag)
            continue;
        const quint32 address = fromQuad(server.firstAddress) + m_leases[at]++;
        QVariantMap state{
            {kSCPropNetIPv4Addresses, QVariantList{dotted(address)}},
            {kSCPropNetIPv4SubnetMasks, QVariantList{dotted(fromQuad(server.subnetMask))}}};
        if (server.router)
            state.insert(kSCPropNetIPv4Router, *server.router);
        return state;
    }
    return selfAssignedState(serviceID);
}

} // namespace VLANKit
