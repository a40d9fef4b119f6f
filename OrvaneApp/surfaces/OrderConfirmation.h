#pragma once

#include "OrvaneApp/model/ModelRecords.h"
#include "OrvaneApp/surfaces/kit/Popover.h"

#include <QList>

/// The recommended service order, asked before it is written: one line a service, with the
/// rank it leaves where it moves.
class OrderConfirmation : public Popover
{
    Q_OBJECT

public:
    static constexpr int leastWidth = 420;
    static constexpr int listLimit = 260;

    OrderConfirmation(QWidget *anchor, const QList<OrderLine> &lines, std::function<void()> confirm,
                      std::function<void()> cancel);
};
