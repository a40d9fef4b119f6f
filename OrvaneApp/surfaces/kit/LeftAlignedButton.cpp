#include "OrvaneApp/surfaces/kit/LeftAlignedButton.h"

#include <QStyleOptionButton>
#include <QStylePainter>

LeftAlignedButton::LeftAlignedButton(QWidget *parent)
    : QPushButton(parent)
{
    setAutoDefault(false);
}

void LeftAlignedButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect room = rect().adjusted(padding, 0, -padding, 0);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    painter.drawItemText(room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                         QPalette::ButtonText);
}
