#include "tests/model/ManualClock.h"

#include <algorithm>

class ManualClock::ManualWait : public ModelClock::Wait
{
public:
    ManualWait(ManualClock &clock, QObject *context, std::function<void()> fire)
        : m_clock(clock)
        , m_context(context)
        , m_fire(std::move(fire))
    {}
    ~ManualWait() override { cancel(); }

    void start(std::chrono::milliseconds delay) override
    {
        cancel();
        m_clock.schedule(delay, m_context, m_fire, this);
    }
    void cancel() override { m_clock.drop(this); }
    [[nodiscard]] bool isPending() const override
    {
        return std::any_of(m_clock.m_entries.begin(), m_clock.m_entries.end(),
                           [this](const Entry &entry) { return entry.owner == this; });
    }

private:
    ManualClock &m_clock;
    QPointer<QObject> m_context;
    std::function<void()> m_fire;
};

std::unique_ptr<ModelClock::Wait> ManualClock::makeWait(QObject *context,
                                                        std::function<void()> fire)
{
    return std::make_unique<ManualWait>(*this, context, std::move(fire));
}

void ManualClock::after(std::chrono::milliseconds delay, QObject *context,
                        std::function<void()> fire)
{
    schedule(delay, context, std::move(fire), nullptr);
}

void ManualClock::schedule(Time delay, QObject *context, std::function<void()> fire,
                           const void *owner)
{
    m_entries.append(Entry{m_now + delay, m_nextOrder++, context, std::move(fire), owner});
    Q_EMIT waitStarted();
}

void ManualClock::drop(const void *owner)
{
    m_entries.removeIf([owner](const Entry &entry) { return entry.owner == owner; });
}

void ManualClock::advance(Time step)
{
    const Time target = m_now + step;
    for (;;) {
        const auto due = std::min_element(
            m_entries.begin(), m_entries.end(), [](const Entry &a, const Entry &b) {
                return a.deadline != b.deadline ? a.deadline < b.deadline : a.order < b.order;
            });
        if (due == m_entries.end() || due->deadline > target)
            break;
        const Entry entry = *due;
        m_entries.erase(due);
        m_now = entry.deadline;
        // A wait whose context has gone never fires, as a timer dies with its object.
        if (entry.context)
            entry.fire();
    }
    m_now = target;
}
