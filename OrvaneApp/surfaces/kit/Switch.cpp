#include "OrvaneApp/surfaces/kit/Switch.h"

#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QPainter>

Switch::Switch(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
}

void Switch::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF track(26, 15);
    const QRectF shape(QPointF((width() - track.width()) / 2, (height() - track.height()) / 2),
                       track);
    const QPalette &colours = palette();
    QColor fill = isChecked() ? Roles::color(Roles::Role::accent, colours)
                              : Roles::color(Roles::Role::quaternaryFill, colours);
    if (!isChecked())
        fill.setAlphaF(std::min<qreal>(1.0, fill.alphaF() * 3));
    if (!isEnabled())
        fill.setAlphaF(fill.alphaF() * 0.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(shape, shape.height() / 2, shape.height() / 2);
    if (hasFocus()) {
        painter.setPen(QPen(Roles::color(Roles::Role::accent, colours), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(shape.adjusted(-1.5, -1.5, 1.5, 1.5), shape.height() / 2 + 1.5,
                                shape.height() / 2 + 1.5);
    }
    const qreal knob = shape.height() - 3;
    const qreal x = isChecked() ? shape.right() - 1.5 - knob : shape.left() + 1.5;
    painter.setPen(QPen(QColor(0, 0, 0, 40), 0.5));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(x, shape.top() + 1.5, knob, knob));
}
