#pragma once

#include <QString>

class QWidget;

/// A control's help: the tooltip a pointer raises and what a screen reader says. Disabled
/// controls keep theirs, so the help can tell why a control can't be used.
void setHelp(QWidget *widget, const QString &help);
