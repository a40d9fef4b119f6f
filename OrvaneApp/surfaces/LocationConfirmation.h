#pragma once

#include "OrvaneApp/surfaces/kit/Popover.h"

/// A question about a Location (switch to it, delete it): a title, a line of detail, and two
/// buttons. It holds nothing; the caller keeps the logic.
class LocationConfirmation : public Popover
{
    Q_OBJECT

public:
    static constexpr int popoverWidth = 400;

    LocationConfirmation(QWidget *anchor, const QString &title, const QString &detail,
                         const QString &confirmLabel, bool destructive,
                         std::function<void()> confirm, std::function<void()> cancel);
};
