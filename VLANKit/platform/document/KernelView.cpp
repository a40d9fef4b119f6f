#include "VLANKit/platform/document/KernelView.h"

#include "VLANKit/AnyValue.h"
#include "VLANKit/TextRules.h"
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

class Applying
{
public:
    Applying(const QVariantMap &preferences, const std::shared_ptr<const DocumentMachine> &machine)
        : m_session(machine, false, preferences, {})
        , m_machine(*machine)
        , m_currentSet(DocumentSets::current(m_session))
    {}

    KernelView run()
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

private:
    void add(KernelView::Interface interface)
    {
        interface.index = static_cast<std::uint32_t>(m_view.interfaces.size() + 1);
        m_view.interfaces.append(interface);
    }

    void addAdapters()
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
                              settingsOf(m_session, m_currentSet, device.bsdName, device.type),
                              device, false);
            add(interface);
        }
    }

    void addVLANs()
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
            applyLinkSettings(
                interface, settingsOf(m_session, m_currentSet, name, kSCNetworkInterfaceTypeVLAN),
                *parent, true);
            add(interface);
        }
    }

    void publishInterfaces()
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

    void publishService(const QString &serviceID)
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
        const QString method =
            stringIn(*configuration, kSCPropNetIPv4ConfigMethod).value_or(QString());
        QVariantMap state;
        if (method == kSCValNetIPv4ConfigMethodManual || method == u"INFORM"_s) {
            const QStringList addresses =
                anyStringsOf(configuration->value(kSCPropNetIPv4Addresses));
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

    static QVariantMap selfAssignedState(const QString &serviceID)
    {
        return {{kSCPropNetIPv4Addresses, QVariantList{selfAssigned(serviceID)}},
                {kSCPropNetIPv4SubnetMasks, QVariantList{u"255.255.0.0"_s}}};
    }

    /// The lease of the first server on the interface's network, else a self-assigned address.
    QVariantMap lease(const QString &serviceID, const KernelView::Interface &interface)
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

    DocumentSession m_session;
    const DocumentMachine &m_machine;
    std::optional<QString> m_currentSet;
    KernelView m_view;
    QHash<qsizetype, quint32> m_leases;
};

} // namespace

KernelView KernelView::applying(const QVariantMap &preferences,
                                const std::shared_ptr<const DocumentMachine> &machine)
{
    return Applying(preferences, machine).run();
}

const KernelView::Interface *KernelView::interface(const QString &bsdName) const
{
    const auto found = positions.constFind(bsdName);
    return found == positions.constEnd() ? nullptr : &interfaces.at(found.value());
}

QVariantMap KernelView::toPropertyList() const
{
    QVariantList list;
    for (const Interface &interface : interfaces) {
        QVariantMap entry{{u"BSDName"_s, interface.bsdName},
                          {u"Index"_s, qint64(interface.index)},
                          {u"Type"_s, interface.type},
                          {u"DisplayName"_s, interface.displayName},
                          {u"LinkUp"_s, interface.linkUp}};
        if (interface.mtu)
            entry.insert(u"MTU"_s, *interface.mtu);
        if (interface.mediaSubType) {
            entry.insert(kSCPropNetEthernetMediaSubType, *interface.mediaSubType);
            entry.insert(kSCPropNetEthernetMediaOptions, interface.mediaOptions);
        }
        if (!interface.parent.isEmpty())
            entry.insert(u"Parent"_s, interface.parent);
        if (interface.tag)
            entry.insert(u"Tag"_s, *interface.tag);
        list.append(entry);
    }
    return {{u"Interfaces"_s, list}, {u"DynamicStore"_s, dynamicStore}};
}

std::optional<KernelView> KernelView::fromPropertyList(const QVariant &value)
{
    const std::optional<QVariantMap> root = anyMap(value);
    const auto list = root ? listIn(*root, u"Interfaces"_s) : std::nullopt;
    const auto store = root ? mapIn(*root, u"DynamicStore"_s) : std::nullopt;
    if (!list || !store)
        return std::nullopt;
    KernelView view;
    view.dynamicStore = *store;
    for (const QVariant &element : *list) {
        const std::optional<QVariantMap> entry = anyMap(element);
        const auto name = entry ? stringIn(*entry, u"BSDName"_s) : std::nullopt;
        const auto index = entry ? integerIn(*entry, u"Index"_s) : std::nullopt;
        if (!name || !index || *index <= 0 || view.positions.contains(*name))
            return std::nullopt;
        Interface interface;
        interface.bsdName = *name;
        interface.index = static_cast<std::uint32_t>(*index);
        interface.type = stringIn(*entry, u"Type"_s).value_or(kSCNetworkInterfaceTypeEthernet);
        interface.displayName = stringIn(*entry, u"DisplayName"_s).value_or(*name);
        interface.linkUp = boolIn(*entry, u"LinkUp"_s).value_or(false);
        interface.mtu = integerIn(*entry, u"MTU"_s);
        interface.mediaSubType = stringIn(*entry, kSCPropNetEthernetMediaSubType);
        interface.mediaOptions = anyStringsOf(entry->value(kSCPropNetEthernetMediaOptions));
        interface.parent = stringIn(*entry, u"Parent"_s).value_or(QString());
        interface.tag = integerIn(*entry, u"Tag"_s);
        view.positions.insert(interface.bsdName, view.interfaces.size());
        view.interfaces.append(interface);
    }
    return view;
}

} // namespace VLANKit
