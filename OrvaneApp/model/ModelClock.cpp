#include "OrvaneApp/model/ModelClock.h"

#include <QTimer>

namespace {

class TimerWait : public ModelClock::Wait
{
public:
    TimerWait(QObject *context, std::function<void()> fire)
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, context, std::move(fire));
    }

    void start(std::chrono::milliseconds delay) override { m_timer.start(delay); }
    void cancel() override { m_timer.stop(); }
    [[nodiscard]] bool isPending() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};

} // namespace

std::unique_ptr<ModelClock::Wait> TimerClock::makeWait(QObject *context, std::function<void()> fire)
{
    return std::make_unique<TimerWait>(context, std::move(fire));
}

void TimerClock::after(std::chrono::milliseconds delay, QObject *context,
                       std::function<void()> fire)
{
    QTimer::singleShot(delay, Qt::PreciseTimer, context, std::move(fire));
}
