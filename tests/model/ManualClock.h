#pragma once

#include "OrvaneApp/model/ModelClock.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>
#include <memory>

/// A clock moved by hand: nothing fires until the test advances it. Due waits fire in deadline
/// order, ties in the order they were started, each at its own moment.
class ManualClock : public QObject, public ModelClock
{
    Q_OBJECT

public:
    using Time = std::chrono::milliseconds;

    [[nodiscard]] std::unique_ptr<Wait> makeWait(QObject *context,
                                                 std::function<void()> fire) override;
    void after(std::chrono::milliseconds delay, QObject *context,
               std::function<void()> fire) override;

    /// Moves time on by `step`, firing every wait that falls due on the way.
    void advance(Time step);
    [[nodiscard]] Time now() const { return m_now; }
    /// Waits started and not yet fired or cancelled.
    [[nodiscard]] qsizetype pending() const { return m_entries.size(); }

Q_SIGNALS:
    /// A wait was started: a test that waits for an event from outside waits on this.
    void waitStarted();

private:
    struct Entry
    {
        Time deadline;
        quint64 order = 0;
        QPointer<QObject> context;
        std::function<void()> fire;
        /// The restartable wait this entry belongs to; null for a wait of its own.
        const void *owner = nullptr;
    };
    class ManualWait;

    void schedule(Time delay, QObject *context, std::function<void()> fire, const void *owner);
    void drop(const void *owner);

    Time m_now{0};
    quint64 m_nextOrder = 0;
    QList<Entry> m_entries;
};
