#include "OrvaneApp/surfaces/kit/Help.h"

#include <QWidget>

void setHelp(QWidget *widget, const QString &help)
{
    if (widget->toolTip() != help)
        widget->setToolTip(help);
    if (widget->accessibleDescription() != help)
        widget->setAccessibleDescription(help);
}
