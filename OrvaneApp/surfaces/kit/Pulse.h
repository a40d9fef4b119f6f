#pragma once

#include <QObject>
#include <QPointer>

class QGraphicsOpacityEffect;
class QAbstractAnimation;
class QWidget;

/// A soft breathing of a widget's opacity, 1.0 → 0.45 → 1.0 at 0.7 s each way, while active:
/// still at 1.0 while motion is reduced or every pulse is frozen (a picture never catches one
/// mid-way).
class Pulse : public QObject
{
    Q_OBJECT

public:
    explicit Pulse(QWidget *target);

    void setActive(bool active);
    [[nodiscard]] bool isActive() const { return m_active; }
    /// Whether it moves now.
    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] qreal opacity() const;

    /// Freezes every pulse of the process; set by the render proof.
    static void freezeAll(bool frozen);
    [[nodiscard]] static bool frozen();

private:
    void refresh();

    QPointer<QWidget> m_target;
    QGraphicsOpacityEffect *m_effect = nullptr;
    QAbstractAnimation *m_animation = nullptr;
    bool m_active = false;
};

/// The system's reduce-motion setting: what the platform reports on macOS, false elsewhere.
namespace Motion {
[[nodiscard]] bool reduced();
} // namespace Motion
