#include "OrvaneApp/surfaces/kit/SmallParts.h"

#include "OrvaneApp/model/Theme.h"

#include <QPainter>

namespace {

constexpr int pillPadding = 6;

} // namespace

QLabel *SmallParts::columnLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(11));
    Roles::useSecondaryText(*label);
    return label;
}

Pill::Pill(const QString &text, int pixelSize, QWidget *parent)
    : QLabel(text, parent)
{
    setFont(Theme::font(pixelSize, QFont::Medium));
    setAlignment(Qt::AlignCenter);
    setMargin(0);
    setContentsMargins(pillPadding, 1, pillPadding, 1);
}

void Pill::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // The fill is drawn a little stronger than the quaternary one, which alone would vanish
        // on Fusion's window colour.
        QColor fill = Roles::color(Roles::Role::quaternaryFill, palette());
        fill.setAlphaF(std::min(1.0, fill.alphaF() * 2.5));
        painter.setBrush(fill);
        const QRectF shape = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawRoundedRect(shape, shape.height() / 2, shape.height() / 2);
    }
    QLabel::paintEvent(event);
}

StatusDot::StatusDot(QWidget *parent)
    : QWidget(parent)
{
    setFixedSize(diameter, diameter);
}

void StatusDot::setState(ServiceEdit::Liveness state)
{
    if (m_state == state)
        return;
    m_state = state;
    update();
}

Roles::Role StatusDot::roleOf(ServiceEdit::Liveness state)
{
    switch (state) {
    case ServiceEdit::Liveness::connected:
        return Roles::Role::green;
    case ServiceEdit::Liveness::selfAssigned:
        return Roles::Role::yellow;
    case ServiceEdit::Liveness::notConnected:
        return Roles::Role::red;
    case ServiceEdit::Liveness::inactive:
    case ServiceEdit::Liveness::notInLocation:
        break;
    }
    return Roles::Role::grey;
}

void StatusDot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Roles::color(roleOf(m_state), palette()));
    painter.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}
