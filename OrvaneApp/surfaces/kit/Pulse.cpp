#include "OrvaneApp/surfaces/kit/Pulse.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QSequentialAnimationGroup>
#include <QWidget>

namespace {

constexpr int halfCycleMilliseconds = 700;
constexpr qreal dimmest = 0.45;

bool &freezeFlag()
{
    static bool frozen = false;
    return frozen;
}

} // namespace

bool Motion::reduced()
{
    // Qt reports no reduce-motion setting; on macOS the system's own controls honour it.
    return false;
}

Pulse::Pulse(QWidget *target)
    : QObject(target)
    , m_target(target)
{}

void Pulse::freezeAll(bool frozen)
{
    freezeFlag() = frozen;
}

bool Pulse::frozen()
{
    return freezeFlag();
}

void Pulse::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    refresh();
}

bool Pulse::isRunning() const
{
    return m_animation && m_animation->state() == QAbstractAnimation::Running;
}

qreal Pulse::opacity() const
{
    return m_effect ? m_effect->opacity() : 1.0;
}

void Pulse::refresh()
{
    const bool moves = m_active && !Motion::reduced() && !frozen();
    if (!moves) {
        if (m_animation)
            m_animation->stop();
        if (m_effect)
            m_effect->setOpacity(1.0);
        return;
    }
    if (!m_effect && m_target) {
        m_effect = new QGraphicsOpacityEffect(m_target);
        m_target->setGraphicsEffect(m_effect);
        // Each way eases in and out on its own.
        auto *cycle = new QSequentialAnimationGroup(this);
        for (const auto &[from, to] : {std::pair{1.0, dimmest}, std::pair{dimmest, 1.0}}) {
            auto *way = new QPropertyAnimation(m_effect, "opacity", cycle);
            way->setDuration(halfCycleMilliseconds);
            way->setStartValue(from);
            way->setEndValue(to);
            way->setEasingCurve(QEasingCurve::InOutQuad);
            cycle->addAnimation(way);
        }
        cycle->setLoopCount(-1);
        m_animation = cycle;
    }
    if (m_animation)
        m_animation->start();
}
