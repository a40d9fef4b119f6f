#include "VLANKit/core/Overloaded.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "VLANKit/store/PlatformLists.h"
#include "VLANKit/store/VLANStore.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

void VLANStore::execute(const Plan &plan)
{
    if (!m_isWritable) {
        throw VLANError::operationFailed(
            u"This session is read-only \u2014 acquire authorization first."_s);
    }
    stage(plan);
    commit();
}

void VLANStore::stage(const Plan &plan)
{
    stageChanges(plan);
    // After all staging: by now each moved VLAN stands on its new adapter, and a frame size set
    // in the same plan has taken effect.
    for (const PlannedChange &change : plan.changes) {
        if (const auto *move = change.as<PlannedChange::Reparent>())
            checkFrameSizes(move->record.bsdName);
    }
}

void VLANStore::stageChanges(const Plan &plan)
{
    for (const PlannedChange &change : plan.changes)
        stageChange(change, plan.adapterBSD);
}

void VLANStore::stageChange(const PlannedChange &change, const QString &adapterBSD)
{
    using PC = PlannedChange;
    std::visit(
        Overloaded{
            [&](const PC::CreateVLAN &c) {
                (void)createVLAN(c.tag, c.name, adapterBSD, c.ip, c.enabled);
            },
            [&](const PC::Reparent &c) { reparent(c.record, c.to); },
            [&](const PC::Retag &c) { setIP(c.to, c.tag, c.bsdName); },
            [&](const PC::SetEnabled &c) { setEnabled(c.enabled, c.tag, c.bsdName); },
            [&](const PC::RemoveVLAN &c) { removeVLAN(c.tag, c.bsdName); },
            [&](const PC::Rename &c) { renameVLAN(c.tag, c.bsdName, c.to); },
            [&](const PC::AddService &c) { addService(c.tag, c.bsdName); },
            [&](const PC::SetServiceIP &c) { setIP(c.to, c.serviceID, c.name); },
            [&](const PC::SetServiceEnabled &c) { setEnabled(c.enabled, c.serviceID, c.name); },
            [&](const PC::SetIPv6 &c) { setIPv6(c.to, c.serviceID, c.name); },
            [&](const PC::SetDNS &c) { setDNS(c.servers, c.searchDomains, c.serviceID, c.name); },
            [&](const PC::RenameAdapter &c) {
                renameAdapter(c.bsdName, c.to);
                syncAdapterNames(c.bsdName);
            },
            [&](const PC::AddAdapterService &c) { addService(c.bsdName); },
            [&](const PC::RemoveService &c) {
                // Read first: afterwards the service is gone.
                std::optional<QString> interfaceBSD;
                for (const ServiceRecord &record : services()) {
                    if (record.serviceID == c.serviceID) {
                        interfaceBSD = record.interfaceBSD;
                        break;
                    }
                }
                removeService(c.serviceID, c.name);
                if (interfaceBSD && !interfaceBSD->startsWith(u"vlan"_s))
                    syncAdapterNames(*interfaceBSD);
            },
            [&](const PC::SetHardware &c) { setHardware(c.to, c.serviceID, c.name); },
        },
        change.change);
}

void VLANStore::syncAdapterNames(const QString &bsdName)
{
    for (const PlannedChange &change : planSyncAdapterNames(bsdName).changes) {
        if (const auto *rename = change.as<PlannedChange::Rename>())
            renameVLAN(rename->tag, rename->bsdName, rename->to);
    }
}

void VLANStore::checkFrameSizes(const QString &vlanBSD)
{
    const auto range = frameRange(vlanBSD);
    if (!range)
        return;
    const InterfaceRef vlan = vlansByBSD().value(vlanBSD);
    if (!vlan)
        return;
    const QString name = displayNameOr(vlan, vlanBSD);
    const InterfaceRef parent = m_platform->scVLANInterfaceGetPhysicalInterface(vlan);
    const QString adapter =
        (parent ? m_platform->scNetworkInterfaceGetBSDName(parent) : std::nullopt)
            .value_or(u"its adapter"_s);
    // Every Location, not only the one under view: the interface is shared by all of them.
    for (const SetRef &set : allSets()) {
        for (const ServiceRef &service : servicesOf(set)) {
            const InterfaceRef interface = m_platform->scNetworkServiceGetInterface(service);
            if (!interface || m_platform->scNetworkInterfaceGetBSDName(interface) != vlanBSD)
                continue;
            const auto mtu = readHardware(interface).mtu;
            if (!mtu || range->contains(*mtu))
                continue;
            throw VLANError::operationFailed(
                name + u" has an MTU of "_s + QString::number(*mtu) + u", and "_s + adapter
                + u" takes "_s + QString::number(range->lower) + u"\u2013"_s
                + QString::number(range->upper) + u". Set its MTU as well: empty for the "_s
                + u"standard size, or one "_s + adapter + u" takes."_s);
        }
    }
}

} // namespace VLANKit
