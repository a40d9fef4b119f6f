#include "VLANKit/platform/ChangeNotingBackend.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/KeptTable.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

namespace VLANKit {

ReadTables &VLANStore::readTables() const
{
    // An order kept for a batch of new services is the snapshot's too: written before the
    // count is looked at, so that it doesn't count as a change made behind the tables' back.
    writePendingOrder();
    if (m_reads.changesSeen != m_noting->changes())
        dropReadTables();
    return m_reads;
}

void VLANStore::dropReadTables() const
{
    m_reads = ReadTables();
    m_reads.changesSeen = m_noting->changes();
}

const QList<ServiceReading> &VLANStore::targetServiceReadings() const
{
    return kept(readTables().targetServices, "the Location's services as read", [this] {
        QList<ServiceReading> readings;
        const SetRef set = targetSet();
        if (!set)
            return readings;
        const QList<ServiceRef> services = servicesOf(set);
        readings.reserve(services.size());
        for (const ServiceRef &service : services) {
            ServiceReading reading;
            reading.service = service;
            reading.interface = m_platform->scNetworkServiceGetInterface(service);
            if (reading.interface) {
                reading.bsdName = m_platform->scNetworkInterfaceGetBSDName(reading.interface);
                reading.type = m_platform->scNetworkInterfaceGetInterfaceType(reading.interface);
                reading.hardwareName =
                    m_platform->scNetworkInterfaceGetLocalizedDisplayName(reading.interface);
            }
            reading.id = m_platform->scNetworkServiceGetServiceID(service);
            reading.name = m_platform->scNetworkServiceGetName(service);
            reading.enabled = m_platform->scNetworkServiceGetEnabled(service);
            readSettings(reading);
            readings.append(std::move(reading));
        }
        return readings;
    });
}

const QList<VLANReading> &VLANStore::vlanReadings() const
{
    return kept(readTables().vlanInterfaces, "the VLAN interfaces as read", [this] {
        QList<VLANReading> readings;
        const QList<InterfaceRef> interfaces =
            presentHandles(m_platform->scVLANInterfaceCopyAll(m_prefs));
        readings.reserve(interfaces.size());
        for (const InterfaceRef &vlan : interfaces) {
            VLANReading reading;
            reading.vlan = vlan;
            reading.parent = m_platform->scVLANInterfaceGetPhysicalInterface(vlan);
            reading.bsdName = m_platform->scNetworkInterfaceGetBSDName(vlan);
            reading.name = m_platform->scNetworkInterfaceGetLocalizedDisplayName(vlan);
            reading.tag = m_platform->scVLANInterfaceGetTag(vlan);
            if (reading.parent) {
                reading.parentBSD = m_platform->scNetworkInterfaceGetBSDName(reading.parent);
                reading.parentName =
                    m_platform->scNetworkInterfaceGetLocalizedDisplayName(reading.parent);
            }
            readings.append(std::move(reading));
        }
        return readings;
    });
}

} // namespace VLANKit
