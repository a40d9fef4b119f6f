#include "orvanectl/Changes.h"

#include "orvanectl/Output.h"

#include <QJsonObject>

#include <array>
#include <optional>
#include <variant>

using namespace Qt::StringLiterals;
using VLANKit::PlannedChange;

namespace Orvanectl {

namespace {

// In the order of the cases of `PlannedChange::Case`.
const std::array<QString, 15> kinds = {
    u"createVLAN"_s,        u"reparent"_s,      u"retag"_s,       u"setEnabled"_s,
    u"removeVLAN"_s,        u"rename"_s,        u"addService"_s,  u"setServiceIP"_s,
    u"setServiceEnabled"_s, u"setIPv6"_s,       u"setDNS"_s,      u"renameAdapter"_s,
    u"addAdapterService"_s, u"removeService"_s, u"setHardware"_s,
};
static_assert(std::variant_size_v<PlannedChange::Case> == std::tuple_size_v<decltype(kinds)>,
              "every case of a change has its name");

std::optional<qint64> tagOf(const PlannedChange &change)
{
    return std::visit(
        [](const auto &value) -> std::optional<qint64> {
            if constexpr (requires { value.record.tag; })
                return value.record.tag;
            else if constexpr (requires { value.tag; })
                return value.tag;
            else
                return std::nullopt;
        },
        change.change);
}

} // namespace

QString kindOf(const PlannedChange &change)
{
    return kinds.at(change.change.index());
}

QStringList summaries(const VLANKit::Plan &plan)
{
    QStringList lines;
    for (const PlannedChange &change : plan.changes)
        lines.append(change.summary());
    return lines;
}

QStringList completedSentences(const VLANKit::Plan &plan)
{
    QStringList lines;
    for (const PlannedChange &change : plan.changes)
        lines.append(change.completed());
    return lines;
}

QJsonArray changesJson(const VLANKit::Plan &plan, bool made)
{
    QJsonArray changes;
    for (const PlannedChange &change : plan.changes) {
        QJsonObject object{{u"kind"_s, kindOf(change)},
                           {u"tag"_s, jsonNumber(tagOf(change))},
                           {u"summary"_s, change.summary()}};
        if (made)
            object.insert(u"completed"_s, change.completed());
        changes.append(object);
    }
    return changes;
}

} // namespace Orvanectl
