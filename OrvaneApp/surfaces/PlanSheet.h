#pragma once

#include "VLANKit/values/Plan.h"

#include <QDialog>

#include <functional>

/// A batch of new VLANs, reviewed before it is built: what will change, line by line, and that
/// it lands as one transaction. Every way it closes but "Build" is the caller's cancel.
class PlanSheet : public QDialog
{
    Q_OBJECT

public:
    static constexpr int sheetWidth = 620;
    static constexpr int listLimit = 260;

    PlanSheet(const VLANKit::Plan &plan, std::function<void()> confirm,
              std::function<void()> cancel, QWidget *parent = nullptr);

    /// "Nothing has been changed yet. These 3 changes will be applied to en5 as a single
    /// transaction."
    [[nodiscard]] static QString introduction(const VLANKit::Plan &plan);
    /// The symbol a change is listed with.
    [[nodiscard]] static QString symbolFor(const VLANKit::PlannedChange &change);

private:
    std::function<void()> m_confirm;
    std::function<void()> m_cancel;
    bool m_confirmed = false;
};
