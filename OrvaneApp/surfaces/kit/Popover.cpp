#include "OrvaneApp/surfaces/kit/Popover.h"

#include <QEvent>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace {

/// Between the anchor and the popover.
constexpr int gap = 4;

} // namespace

Popover::Popover(QWidget *anchor, std::function<void()> confirm, std::function<void()> cancel)
    : QDialog(anchor, Qt::Popup)
    , m_anchor(anchor)
    , m_confirm(std::move(confirm))
    , m_cancel(std::move(cancel))
{
    setAttribute(Qt::WA_DeleteOnClose);
    if (anchor)
        anchor->installEventFilter(this);
    // Escape, a click away and the close box all reject: that is the caller's cancel.
    connect(this, &QDialog::rejected, this, [this] {
        if (!m_quiet && m_cancel)
            m_cancel();
    });
}

void Popover::setConfirmButton(QPushButton *button)
{
    for (QPushButton *other : findChildren<QPushButton *>())
        other->setAutoDefault(false);
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, &Popover::confirmed);
}

void Popover::confirmed()
{
    m_quiet = true;
    accept();
    if (m_confirm)
        m_confirm();
}

void Popover::dismissQuietly()
{
    m_quiet = true;
    reject();
}

void Popover::present()
{
    adjustSize();
    if (m_anchor) {
        const QRect anchor(m_anchor->mapToGlobal(QPoint(0, 0)), m_anchor->size());
        const QScreen *screen = m_anchor->screen();
        move(placement(anchor, size(), screen ? screen->availableGeometry() : QRect()));
    }
    show();
}

QPoint Popover::placement(const QRect &anchor, const QSize &size, const QRect &screen)
{
    QPoint at(anchor.left(), anchor.bottom() + 1 + gap);
    if (screen.isEmpty())
        return at;
    if (at.y() + size.height() > screen.bottom() + 1
        && anchor.top() - gap - size.height() >= screen.top())
        at.setY(anchor.top() - gap - size.height());
    at.setX(std::clamp(at.x(), screen.left(),
                       std::max(screen.left(), screen.right() + 1 - size.width())));
    at.setY(std::clamp(at.y(), screen.top(),
                       std::max(screen.top(), screen.bottom() + 1 - size.height())));
    return at;
}

bool Popover::eventFilter(QObject *watched, QEvent *event)
{
    // An anchor that is hidden or gone takes its popover with it: the question is dropped, as
    // if it had been cancelled.
    if (watched == m_anchor && isVisible()
        && (event->type() == QEvent::Hide || event->type() == QEvent::Destroy))
        reject();
    return QDialog::eventFilter(watched, event);
}
