#include "OrvaneApp/surfaces/kit/ProblemOutline.h"

#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QPainter>
#include <QWidget>

void paintProblemOutline(QPainter &painter, const QWidget &control)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Roles::color(Roles::Role::orange, control.palette()), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(control.rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5.5, 5.5);
    painter.restore();
}
