// The interfaces, VLANs and hardware facts of the document backend. What a device offers comes
// from the machine's description; what it runs at now from the kernel's view.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "VLANKit/platform/document/DocumentHandles.h"
#include "VLANKit/platform/document/DocumentServices.h"
#include "VLANKit/platform/document/DocumentVLANs.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// A VLAN handle that follows its session, or null.
const DocumentInterfaceObject *sessionVLAN(const InterfaceRef &vlan)
{
    const auto *object = vlan.as<DocumentInterfaceObject>();
    return object && object->kind == DocumentInterfaceObject::Kind::sessionVLAN ? object : nullptr;
}

} // namespace

InterfaceRef DocumentBackend::fixedInterface(const InterfaceFacts &facts) const
{
    auto object = std::make_shared<DocumentInterfaceObject>();
    object->kind = DocumentInterfaceObject::Kind::fixed;
    object->facts = facts;
    return InterfaceRef(object);
}

std::optional<InterfaceFacts> DocumentBackend::factsOf(const InterfaceRef &interface)
{
    const auto *object = interface.as<DocumentInterfaceObject>();
    if (!object)
        return std::nullopt;
    switch (object->kind) {
    case DocumentInterfaceObject::Kind::fixed:
        return object->facts;
    case DocumentInterfaceObject::Kind::sessionVLAN:
        return InterfaceFacts::ofVLAN(*object->session, object->key);
    case DocumentInterfaceObject::Kind::service:
        return InterfaceFacts::ofService(*object->session, object->key);
    }
    return std::nullopt;
}

std::optional<QList<InterfaceRef>> DocumentBackend::scNetworkInterfaceCopyAll()
{
    // Every interface the kernel has now: the attached devices and the VLANs on them.
    QList<InterfaceRef> interfaces;
    for (const KernelView::Interface &present : kernelView().interfaces) {
        InterfaceFacts facts;
        if (const HardwareInterface *device = m_machine->attachedInterface(present.bsdName)) {
            facts = InterfaceFacts::ofHardware(*device);
        } else {
            facts.bsdName = present.bsdName;
            facts.type = present.type;
            facts.displayName = present.displayName;
            facts.builtIn = present.type == kSCNetworkInterfaceTypeVLAN;
        }
        interfaces.append(fixedInterface(facts));
    }
    return interfaces;
}

std::optional<QString> DocumentBackend::scNetworkInterfaceGetBSDName(const InterfaceRef &interface)
{
    const auto facts = factsOf(interface);
    return facts ? facts->bsdName : std::nullopt;
}

std::optional<QString>
DocumentBackend::scNetworkInterfaceGetInterfaceType(const InterfaceRef &interface)
{
    const auto facts = factsOf(interface);
    return facts ? facts->type : std::nullopt;
}

std::optional<QString>
DocumentBackend::scNetworkInterfaceGetLocalizedDisplayName(const InterfaceRef &interface)
{
    const auto facts = factsOf(interface);
    return facts ? facts->displayName : std::nullopt;
}

std::optional<QVariantMap>
DocumentBackend::scNetworkInterfaceGetConfiguration(const InterfaceRef &interface)
{
    // Only an interface reached through its service has settings: they live in the sets.
    const auto *object = interface.as<DocumentInterfaceObject>();
    if (!object || object->kind != DocumentInterfaceObject::Kind::service)
        return std::nullopt;
    return DocumentServices::interfaceConfiguration(*object->session, object->key);
}

bool DocumentBackend::scNetworkInterfaceSetConfiguration(
    const InterfaceRef &interface, const std::optional<QVariantMap> &configuration)
{
    const auto *object = interface.as<DocumentInterfaceObject>();
    if (!object || object->kind != DocumentInterfaceObject::Kind::service)
        return fail(kSCStatusInvalidArgument);
    return DocumentServices::setInterfaceConfiguration(*object->session, object->key, configuration,
                                                       m_status);
}

std::optional<InterfaceMTU>
DocumentBackend::scNetworkInterfaceCopyMTU(const InterfaceRef &interface)
{
    const auto facts = factsOf(interface);
    const KernelView::Interface *present =
        facts && facts->bsdName ? kernelView().interface(*facts->bsdName) : nullptr;
    // A VLAN takes the frame sizes its adapter takes.
    const HardwareInterface *device =
        present ? m_machine->attachedInterface(present->parent.isEmpty() ? present->bsdName
                                                                         : present->parent)
                : nullptr;
    if (!device || !device->mtu) {
        fail(kSCStatusFailed);
        return std::nullopt;
    }
    return InterfaceMTU{present->mtu.value_or(device->mtu->current), device->mtu->minimum,
                        device->mtu->maximum};
}

std::optional<InterfaceMedia>
DocumentBackend::scNetworkInterfaceCopyMediaOptions(const InterfaceRef &interface, bool)
{
    const auto facts = factsOf(interface);
    const KernelView::Interface *present =
        facts && facts->bsdName ? kernelView().interface(*facts->bsdName) : nullptr;
    const HardwareInterface *device = present && present->parent.isEmpty()
                                          ? m_machine->attachedInterface(present->bsdName)
                                          : nullptr;
    if (!device || device->media.isEmpty()) {
        fail(kSCStatusFailed);
        return std::nullopt;
    }
    InterfaceMedia media;
    if (present->mediaSubType)
        media.active =
            QVariantMap{{kSCPropNetEthernetMediaSubType, *present->mediaSubType},
                        {kSCPropNetEthernetMediaOptions, storedForm(present->mediaOptions)}};
    QVariantList available;
    for (const HardwareInterface::MediaOffer &offer : device->media) {
        const QList<QStringList> sets =
            offer.options.isEmpty() ? QList<QStringList>{QStringList()} : offer.options;
        for (const QStringList &options : sets)
            available.append(QVariantMap{{kSCPropNetEthernetMediaSubType, offer.subType},
                                         {kSCPropNetEthernetMediaOptions, storedForm(options)}});
    }
    media.available = available;
    return media;
}

std::optional<QVariantList>
DocumentBackend::scNetworkInterfaceCopyMediaSubTypes(const QVariantList &available)
{
    QVariantList subTypes;
    QSet<QString> seen;
    for (const QVariant &medium : available) {
        const auto subType =
            stringIn(anyMap(medium).value_or(QVariantMap()), kSCPropNetEthernetMediaSubType);
        if (subType && !seen.contains(*subType)) {
            seen.insert(*subType);
            subTypes.append(*subType);
        }
    }
    if (subTypes.isEmpty())
        return std::nullopt;
    return subTypes;
}

std::optional<QVariantList>
DocumentBackend::scNetworkInterfaceCopyMediaSubTypeOptions(const QVariantList &available,
                                                           const QString &subType)
{
    QVariantList optionSets;
    for (const QVariant &medium : available) {
        const QVariantMap map = anyMap(medium).value_or(QVariantMap());
        if (stringIn(map, kSCPropNetEthernetMediaSubType) != subType)
            continue;
        const QVariant options = map.value(kSCPropNetEthernetMediaOptions);
        if (anyList(options) && !optionSets.contains(options))
            optionSets.append(options);
    }
    if (optionSets.isEmpty())
        return std::nullopt;
    return optionSets;
}

// VLAN interfaces.

std::optional<QList<InterfaceRef>> DocumentBackend::scVLANInterfaceCopyAvailablePhysicalInterfaces()
{
    QList<InterfaceRef> adapters;
    for (const HardwareInterface &device : m_machine->attached()) {
        if (device.vlanCapable && device.type == kSCNetworkInterfaceTypeEthernet)
            adapters.append(fixedInterface(InterfaceFacts::ofHardware(device)));
    }
    return adapters;
}

std::optional<QList<InterfaceRef>>
DocumentBackend::scVLANInterfaceCopyAll(const SessionRef &session)
{
    const auto *held = sessionOf(session);
    if (!held)
        return std::nullopt;
    QList<InterfaceRef> vlans;
    for (const QString &name : DocumentVLANs::names(**held))
        vlans.append(documentVLANHandle(*held, name));
    return vlans;
}

InterfaceRef DocumentBackend::scVLANInterfaceCreate(const SessionRef &session,
                                                    const InterfaceRef &physical, qint64 tag)
{
    const auto *held = sessionOf(session);
    const std::optional<InterfaceFacts> parent = factsOf(physical);
    if (!held || !parent) {
        fail(kSCStatusInvalidArgument);
        return {};
    }
    const auto name = DocumentVLANs::create(**held, *parent, tag, m_status);
    return name ? documentVLANHandle(*held, *name) : InterfaceRef();
}

bool DocumentBackend::scVLANInterfaceRemove(const InterfaceRef &vlan)
{
    const auto *object = sessionVLAN(vlan);
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentVLANs::remove(*object->session, object->key, m_status);
}

InterfaceRef DocumentBackend::scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan)
{
    QString parent;
    if (const auto *object = sessionVLAN(vlan)) {
        if (const auto entry = DocumentVLANs::entry(*object->session, object->key))
            parent = entry->parent;
    } else if (const auto facts = factsOf(vlan); facts && facts->bsdName) {
        if (const KernelView::Interface *present = kernelView().interface(*facts->bsdName))
            parent = present->parent;
    }
    if (parent.isEmpty()) {
        fail(kSCStatusInvalidArgument);
        return {};
    }
    // The parent is found by its kernel name even when the adapter is away.
    return fixedInterface(InterfaceFacts::ofAdapter(*m_machine, parent));
}

std::optional<qint64> DocumentBackend::scVLANInterfaceGetTag(const InterfaceRef &vlan)
{
    if (const auto *object = sessionVLAN(vlan)) {
        const auto entry = DocumentVLANs::entry(*object->session, object->key);
        return entry ? std::optional<qint64>(entry->tag) : std::nullopt;
    }
    const auto facts = factsOf(vlan);
    const KernelView::Interface *present =
        facts && facts->bsdName ? kernelView().interface(*facts->bsdName) : nullptr;
    return present ? present->tag : std::nullopt;
}

bool DocumentBackend::scVLANInterfaceSetPhysicalInterfaceAndTag(const InterfaceRef &vlan,
                                                                const InterfaceRef &physical,
                                                                qint64 tag)
{
    const auto *object = sessionVLAN(vlan);
    const std::optional<InterfaceFacts> parent = factsOf(physical);
    if (!object || !parent)
        return fail(kSCStatusInvalidArgument);
    return DocumentVLANs::setParentAndTag(*object->session, object->key, *parent, tag, m_status);
}

bool DocumentBackend::scVLANInterfaceSetLocalizedDisplayName(const InterfaceRef &vlan,
                                                             const QString &name)
{
    const auto *object = sessionVLAN(vlan);
    if (!object)
        return fail(kSCStatusInvalidArgument);
    return DocumentVLANs::setDisplayName(*object->session, object->key, name, m_status);
}

} // namespace VLANKit
