#include "OrvaneApp/surfaces/kit/ProminentButton.h"

#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QPainter>

ProminentButton::ProminentButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
    setAutoDefault(false);
}

void ProminentButton::setProminent(bool prominent)
{
    if (m_prominent == prominent)
        return;
    m_prominent = prominent;
    update();
}

void ProminentButton::paintEvent(QPaintEvent *event)
{
    if (!looksProminent()) {
        QPushButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = Roles::color(Roles::Role::accent, palette());
    if (isDown())
        fill = fill.darker(120);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    const QRectF shape = QRectF(rect()).adjusted(1, 1.5, -1, -1.5);
    painter.drawRoundedRect(shape, 5, 5);
    if (hasFocus()) {
        painter.setPen(QPen(fill.lighter(150), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(shape.adjusted(-0.5, -0.5, 0.5, 0.5), 5.5, 5.5);
    }
    painter.setPen(Qt::white);
    painter.setFont(font());
    painter.drawText(rect(), Qt::AlignCenter, text());
}
