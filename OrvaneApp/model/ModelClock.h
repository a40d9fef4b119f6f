#pragma once

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

/// Where the model takes its waits from: precise timers in the application, a clock moved by
/// hand in tests. Every wait has the model as its context, so none fires once the model is gone.
class ModelClock
{
public:
    /// A wait that can be restarted and cancelled: the debounce and the retry.
    class Wait
    {
    public:
        virtual ~Wait() = default;
        /// Starts the wait anew, dropping a pending one.
        virtual void start(std::chrono::milliseconds delay) = 0;
        virtual void cancel() = 0;
        [[nodiscard]] virtual bool isPending() const = 0;
    };

    virtual ~ModelClock() = default;

    /// A wait that calls `fire` when it is due, owned by the caller.
    [[nodiscard]] virtual std::unique_ptr<Wait> makeWait(QObject *context,
                                                         std::function<void()> fire) = 0;
    /// A wait of its own that nobody keeps or cancels: it fires unless `context` has gone.
    virtual void after(std::chrono::milliseconds delay, QObject *context,
                       std::function<void()> fire) = 0;
};

/// The application's clock: single-shot `QTimer`s, precise, because a coarse timer drifts by
/// about 5 %.
class TimerClock : public ModelClock
{
public:
    [[nodiscard]] std::unique_ptr<Wait> makeWait(QObject *context,
                                                 std::function<void()> fire) override;
    void after(std::chrono::milliseconds delay, QObject *context,
               std::function<void()> fire) override;
};
