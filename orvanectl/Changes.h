#pragma once

#include "VLANKit/values/Plan.h"

#include <QJsonArray>
#include <QString>
#include <QStringList>

/// A plan as orvanectl shows it: the plan's own lines before, and its sentences after.
namespace Orvanectl {

/// The name of the change's case, as the JSON output gives it: "createVLAN", "retag", …
[[nodiscard]] QString kindOf(const VLANKit::PlannedChange &change);

[[nodiscard]] QStringList summaries(const VLANKit::Plan &plan);
[[nodiscard]] QStringList completedSentences(const VLANKit::Plan &plan);

/// One object per change: "kind", "tag" (null for a change that names no VLAN), "summary",
/// and "completed" once the changes are made.
[[nodiscard]] QJsonArray changesJson(const VLANKit::Plan &plan, bool made);

} // namespace Orvanectl
