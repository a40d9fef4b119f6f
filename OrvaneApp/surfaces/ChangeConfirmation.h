#pragma once

#include "OrvaneApp/surfaces/kit/Popover.h"
#include "VLANKit/values/PlannedChange.h"

#include <QList>

/// What saving edits will change, asked before anything is written: a title, an optional line
/// of detail, the changes one a line, and the buttons, "Revert" set apart when it is offered.
class ChangeConfirmation : public Popover
{
    Q_OBJECT

public:
    static constexpr int popoverWidth = 480;
    static constexpr int listLimit = 220;

    struct Content
    {
        QString title;
        QString detail;
        QList<VLANKit::PlannedChange> changes;
        QString confirmLabel;
        bool destructive = false;
    };

    /// `revert` empty: no "Revert" button.
    ChangeConfirmation(QWidget *anchor, const Content &content, std::function<void()> confirm,
                       std::function<void()> cancel, std::function<void()> revert = {});
};
