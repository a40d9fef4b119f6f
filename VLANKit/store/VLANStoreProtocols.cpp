#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/ReadTables.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

const QString autoselect = u"autoselect"_s;

std::optional<QVariantMap> configurationOf(PlatformBackend &platform, const ServiceRef &service,
                                           const QString &protocolType)
{
    const ProtocolRef protocol = platform.scNetworkServiceCopyProtocol(service, protocolType);
    if (!protocol)
        return std::nullopt;
    return platform.scNetworkProtocolGetConfiguration(protocol);
}

std::optional<QString> firstString(const QVariantMap &map, const QString &key)
{
    const auto list = stringListIn(map, key);
    if (!list || list->isEmpty())
        return std::nullopt;
    return list->first();
}

IPConfig ipFrom(const std::optional<QVariantMap> &ipv4, const std::optional<QVariantMap> &dns)
{
    if (!ipv4)
        return IPConfig::off();
    const QString method = stringIn(*ipv4, kSCPropNetIPv4ConfigMethod).value_or(QString());
    IPConfig ip;
    if (method == kSCValNetIPv4ConfigMethodManual)
        ip.mode = IPMode::manual;
    else if (method == kSCValNetIPv4ConfigMethodDHCP)
        ip.mode = IPMode::dhcp;
    else if (method == kSCValNetIPv4ConfigMethodLinkLocal)
        ip.mode = IPMode::linkLocal;
    else if (method.isEmpty())
        ip.mode = IPMode::off;
    else
        ip.mode = IPMode::unknown;
    // DNS servers live in a protocol of their own, not in the IPv4 one.
    if (dns)
        ip.dns = stringListIn(*dns, kSCPropNetDNSServerAddresses).value_or(QStringList());
    // Read for every mode: a DHCP service with stored addresses reports them.
    ip.address = firstString(*ipv4, kSCPropNetIPv4Addresses);
    ip.subnetMask = firstString(*ipv4, kSCPropNetIPv4SubnetMasks);
    ip.router = stringIn(*ipv4, kSCPropNetIPv4Router);
    return ip;
}

QStringList searchDomainsFrom(const std::optional<QVariantMap> &dns)
{
    if (!dns)
        return {};
    return stringListIn(*dns, kSCPropNetDNSSearchDomains).value_or(QStringList());
}

} // namespace

IPConfig VLANStore::readIP(const ServiceRef &service) const
{
    return ipFrom(configurationOf(*m_platform, service, kSCNetworkProtocolTypeIPv4),
                  configurationOf(*m_platform, service, kSCNetworkProtocolTypeDNS));
}

IPv6Mode VLANStore::readIPv6(const ServiceRef &service) const
{
    const ProtocolRef protocol =
        m_platform->scNetworkServiceCopyProtocol(service, kSCNetworkProtocolTypeIPv6);
    if (!protocol || !m_platform->scNetworkProtocolGetEnabled(protocol))
        return IPv6Mode::off;
    const auto configuration = m_platform->scNetworkProtocolGetConfiguration(protocol);
    const auto method =
        configuration ? stringIn(*configuration, kSCPropNetIPv6ConfigMethod) : std::nullopt;
    if (!method)
        return IPv6Mode::off;
    if (*method == kSCValNetIPv6ConfigMethodAutomatic)
        return IPv6Mode::automatic;
    if (*method == kSCValNetIPv6ConfigMethodLinkLocal)
        return IPv6Mode::linkLocal;
    if (*method == kSCValNetIPv6ConfigMethodManual)
        return IPv6Mode::manual;
    return IPv6Mode::unknown;
}

QStringList VLANStore::readSearchDomains(const ServiceRef &service) const
{
    return searchDomainsFrom(configurationOf(*m_platform, service, kSCNetworkProtocolTypeDNS));
}

void VLANStore::readSettings(ServiceReading &reading) const
{
    // The DNS protocol serves both the servers and the search domains: read once for both.
    const auto dns = configurationOf(*m_platform, reading.service, kSCNetworkProtocolTypeDNS);
    reading.ip =
        ipFrom(configurationOf(*m_platform, reading.service, kSCNetworkProtocolTypeIPv4), dns);
    reading.ipv6 = readIPv6(reading.service);
    reading.searchDomains = searchDomainsFrom(dns);
    reading.hardware = readHardware(reading.interface, reading.type);
}

HardwareSettings VLANStore::readHardware(const ServiceRef &service) const
{
    return readHardware(m_platform->scNetworkServiceGetInterface(service));
}

HardwareSettings VLANStore::readHardware(const InterfaceRef &interface) const
{
    return interface ? readHardware(interface,
                                    m_platform->scNetworkInterfaceGetInterfaceType(interface))
                     : HardwareSettings::automatic();
}

HardwareSettings VLANStore::readHardware(const InterfaceRef &interface,
                                         const std::optional<QString> &type) const
{
    if (!interface || !hasSettableHardwareType(type))
        return HardwareSettings::automatic();
    const auto configuration = m_platform->scNetworkInterfaceGetConfiguration(interface);
    if (!configuration)
        return HardwareSettings::automatic();
    return hardwareSettings(*configuration);
}

HardwareSettings VLANStore::hardwareSettings(const QVariantMap &configuration)
{
    HardwareSettings settings;
    // The system's word for automatic selection is never held as a speed.
    settings.speed = stringIn(configuration, kSCPropNetEthernetMediaSubType);
    if (settings.speed == autoselect)
        settings.speed.reset();
    // A number, taken as an integer: a whole real counts, as the system's number would.
    const auto mtu = configuration.constFind(kSCPropNetEthernetMTU);
    if (mtu != configuration.constEnd()) {
        if (const auto integer = anyInteger(*mtu))
            settings.mtu = integer;
        else if (const auto real = anyReal(*mtu))
            settings.mtu = static_cast<qint64>(*real);
    }
    if (settings.speed) {
        settings.duplex =
            stringListIn(configuration, kSCPropNetEthernetMediaOptions).value_or(QStringList());
    }
    return settings;
}

bool VLANStore::hasSettableHardware(const InterfaceRef &interface) const
{
    return hasSettableHardwareType(m_platform->scNetworkInterfaceGetInterfaceType(interface));
}

bool VLANStore::hasSettableHardwareType(const std::optional<QString> &type)
{
    return type == kSCNetworkInterfaceTypeEthernet || type == kSCNetworkInterfaceTypeVLAN;
}

bool VLANStore::isVLAN(const InterfaceRef &interface) const
{
    return m_platform->scNetworkInterfaceGetInterfaceType(interface) == kSCNetworkInterfaceTypeVLAN;
}

QStringList VLANStore::stringArray(const std::optional<QVariantList> &list)
{
    return list ? anyStringsOf(*list) : QStringList();
}

std::optional<HardwareCapabilities> VLANStore::askDriver(const InterfaceRef &interface) const
{
    const auto mtu = m_platform->scNetworkInterfaceCopyMTU(interface);
    const bool rangeCounts = mtu && mtu->maximum >= mtu->minimum;
    const auto media = m_platform->scNetworkInterfaceCopyMediaOptions(interface, true);
    if (!media && !rangeCounts)
        return std::nullopt;
    HardwareCapabilities capabilities;
    if (media && media->available) {
        const QStringList subTypes =
            stringArray(m_platform->scNetworkInterfaceCopyMediaSubTypes(*media->available));
        for (const QString &subType : subTypes) {
            if (subType == autoselect)
                continue;
            HardwareCapabilities::Speed speed{subType, {}};
            const auto options =
                m_platform->scNetworkInterfaceCopyMediaSubTypeOptions(*media->available, subType);
            if (options) {
                for (const QVariant &combination : *options)
                    speed.duplexes.append(anyStringsOf(combination));
            }
            capabilities.speeds.append(std::move(speed));
        }
    }
    if (rangeCounts) {
        capabilities.mtuRange = ClosedRange{mtu->minimum, mtu->maximum};
        capabilities.activeMTU = mtu->current;
    }
    const QVariantMap active = media && media->active ? *media->active : QVariantMap();
    capabilities.activeSpeed = stringIn(active, kSCPropNetEthernetMediaSubType);
    capabilities.activeDuplex =
        stringListIn(active, kSCPropNetEthernetMediaOptions).value_or(QStringList());
    return capabilities;
}

} // namespace VLANKit
