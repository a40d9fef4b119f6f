#pragma once

#include "VLANKit/core/TextRules.h"
#include "VLANKit/values/PlannedChange.h"

#include <QList>
#include <QString>

namespace VLANKit {

/// A batch of changes, carried out first to last.
struct Plan
{
    /// The adapter on which `CreateVLAN` changes build; "—" when the plan isn't tied to one.
    QString adapterBSD = notReported();
    QList<PlannedChange> changes;

    [[nodiscard]] bool isEmpty() const { return changes.isEmpty(); }

    friend bool operator==(const Plan &, const Plan &) = default;
};

} // namespace VLANKit
