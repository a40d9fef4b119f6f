#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/ReadTables.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

// The driver question, each kernel name asked once: its answers depend on the hardware only.
class AskedOnce
{
public:
    AskedOnce(PlatformBackend &platform, const VLANStore::DriverQuestion &ask)
        : m_platform(platform)
        , m_ask(ask)
    {}

    std::optional<HardwareCapabilities> operator()(const InterfaceRef &interface)
    {
        const auto bsdName = m_platform.scNetworkInterfaceGetBSDName(interface);
        if (!bsdName)
            return m_ask(interface);
        auto found = m_answers.constFind(*bsdName);
        if (found == m_answers.constEnd())
            found = m_answers.insert(*bsdName, m_ask(interface));
        return *found;
    }

private:
    PlatformBackend &m_platform;
    const VLANStore::DriverQuestion &m_ask;
    QHash<QString, std::optional<HardwareCapabilities>> m_answers;
};

} // namespace

std::optional<HardwareCapabilities> VLANStore::offers(const InterfaceRef &interface) const
{
    return offers(interface, m_platform->scNetworkInterfaceGetBSDName(interface),
                  m_platform->scNetworkInterfaceGetInterfaceType(interface), driverCapabilities);
}

std::optional<HardwareCapabilities> VLANStore::offers(const InterfaceRef &interface,
                                                      const std::optional<QString> &bsdName,
                                                      const std::optional<QString> &type,
                                                      const DriverQuestion &ask) const
{
    auto capabilities = ask(interface);
    if (!capabilities)
        return std::nullopt;
    if (bsdName && (type == kSCNetworkInterfaceTypeVLAN || bsdName->startsWith(u"vlan"_s))) {
        // A VLAN has no media of its own, and takes the frame sizes its parent takes.
        capabilities->speeds.clear();
        if (const auto range = frameRange(*bsdName, ask))
            capabilities->mtuRange = range;
    }
    return capabilities;
}

std::optional<ClosedRange> VLANStore::frameRange(const QString &vlanBSD) const
{
    return frameRange(vlanBSD, driverCapabilities);
}

std::optional<ClosedRange> VLANStore::frameRange(const QString &vlanBSD,
                                                 const DriverQuestion &ask) const
{
    const InterfaceRef vlan = vlansByBSD().value(vlanBSD);
    const InterfaceRef parent =
        vlan ? m_platform->scVLANInterfaceGetPhysicalInterface(vlan) : InterfaceRef();
    if (!parent)
        return std::nullopt;
    const auto capabilities = ask(parent);
    return capabilities ? capabilities->mtuRange : std::nullopt;
}

std::optional<HardwareCapabilities> VLANStore::hardwareCapabilities(const QString &serviceID) const
{
    const SetRef set = targetSet();
    if (!set)
        return std::nullopt;
    const ServiceRef service = targetServicesByID().value(serviceID);
    const InterfaceRef interface =
        service ? m_platform->scNetworkServiceGetInterface(service) : InterfaceRef();
    if (!interface || !hasSettableHardware(interface))
        return std::nullopt;
    return offers(interface);
}

QHash<QString, HardwareCapabilities> VLANStore::hardwareCapabilitiesByService() const
{
    QHash<QString, HardwareCapabilities> offered;
    QSet<QString> seen;
    AskedOnce ask(*m_platform, driverCapabilities);
    const DriverQuestion asking = [&ask](const InterfaceRef &interface) { return ask(interface); };
    for (const ServiceReading &service : QList<ServiceReading>(targetServiceReadings())) {
        // The first service of an identifier is the one a look-up by identifier finds.
        if (!service.id || seen.contains(*service.id))
            continue;
        seen.insert(*service.id);
        if (!service.interface || !hasSettableHardwareType(service.type))
            continue;
        if (auto capabilities = offers(service.interface, service.bsdName, service.type, asking))
            offered.insert(*service.id, std::move(*capabilities));
    }
    return offered;
}

QHash<QString, ClosedRange> VLANStore::adapterFrameRanges() const
{
    QHash<QString, ClosedRange> ranges;
    for (const InterfaceRef &adapter : vlanCapableInterfaces()) {
        const auto bsdName = m_platform->scNetworkInterfaceGetBSDName(adapter);
        if (!bsdName)
            continue;
        const auto capabilities = driverCapabilities(adapter);
        if (capabilities && capabilities->mtuRange)
            ranges.insert(*bsdName, *capabilities->mtuRange);
    }
    return ranges;
}

std::optional<QVariantMap> VLANStore::configuration(const std::optional<QVariantMap> &existing,
                                                    const HardwareSettings &settings)
{
    QVariantMap merged = existing.value_or(QVariantMap());
    if (settings.mtu)
        merged.insert(kSCPropNetEthernetMTU, QVariant::fromValue(*settings.mtu));
    else
        merged.remove(kSCPropNetEthernetMTU);
    if (settings.speed) {
        merged.insert(kSCPropNetEthernetMediaSubType, *settings.speed);
        // Written even when empty: the system sets media only when both keys are there.
        merged.insert(kSCPropNetEthernetMediaOptions, variantList(settings.duplex));
    } else {
        merged.remove(kSCPropNetEthernetMediaSubType);
        merged.remove(kSCPropNetEthernetMediaOptions);
    }
    if (merged.isEmpty())
        return std::nullopt;
    return merged;
}

void VLANStore::setHardware(const HardwareSettings &settings, const QString &serviceID,
                            const QString &name)
{
    const ServiceRef service = requireService(serviceID, name);
    const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
    if (!interface || !hasSettableHardware(interface)) {
        throw VLANError::operationFailed(name
                                         + u" has no hardware settings this app can change."_s);
    }
    // Automatic settings need no driver's word, so an adapter that is away can be reset.
    if (settings.mtu || settings.speed) {
        const auto capabilities = offers(interface);
        if (!capabilities) {
            throw VLANError::operationFailed(
                name + u" isn't attached, so there is no telling what its hardware takes."_s);
        }
        if (const auto problem = capabilities->problem(settings))
            throw VLANError::operationFailed(name + u": "_s + *problem);
    }
    const auto merged =
        configuration(m_platform->scNetworkInterfaceGetConfiguration(interface), settings);
    if (!m_platform->scNetworkInterfaceSetConfiguration(interface, merged)) {
        throw VLANError::operationFailed(u"Could not set the hardware settings of "_s + name
                                         + u"."_s);
    }
}

} // namespace VLANKit
