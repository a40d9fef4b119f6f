#include "VLANKit/machine/LiveState.h"

#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace VLANKit {

namespace {

/// The service identifier of a key "State:/Network/Service/<id>/IPv4"; its first two pieces
/// are not looked at.
std::optional<QString> serviceOfKey(const QString &key)
{
    const QStringList pieces = splitDroppingEmpty(key, u'/');
    if (pieces.size() != 5 || pieces.at(2) != u"Service"_s || pieces.at(4) != u"IPv4"_s)
        return std::nullopt;
    return pieces.at(3);
}

std::optional<QString> firstString(const QVariantMap &map, const QString &key)
{
    const auto strings = stringListIn(map, key);
    if (!strings || strings->isEmpty())
        return std::nullopt;
    return strings->first();
}

} // namespace

LiveState LiveState::parsing(const QVariantMap &answer)
{
    LiveState state;
    for (auto entry = answer.constBegin(); entry != answer.constEnd(); ++entry) {
        const auto serviceID = serviceOfKey(entry.key());
        const auto value = anyMap(entry.value());
        if (!serviceID || !value)
            continue;
        // Further addresses of a service are ignored, and masks are not paired to them.
        const auto address = firstString(*value, u"Addresses"_s);
        if (!address)
            continue;
        state.ipv4.insert(*serviceID, Address{*address, firstString(*value, u"SubnetMasks"_s),
                                              stringIn(*value, u"Router"_s)});
    }
    return state;
}

} // namespace VLANKit
