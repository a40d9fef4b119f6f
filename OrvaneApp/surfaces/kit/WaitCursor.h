#pragma once

#include <QApplication>
#include <QCursor>

/// The wait cursor for as long as a flow writes: the flow runs on the main thread and nothing
/// turns the event loop meanwhile, so the cursor is all that says the program is busy.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};
