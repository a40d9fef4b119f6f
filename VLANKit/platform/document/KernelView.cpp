#include "VLANKit/platform/document/KernelView.h"

#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/KernelViewBuilder.h"

using namespace Qt::StringLiterals;

namespace VLANKit {

KernelView KernelView::applying(const QVariantMap &preferences,
                                const std::shared_ptr<const DocumentMachine> &machine)
{
    return KernelViewBuilder(preferences, machine).build();
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
