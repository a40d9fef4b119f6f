#pragma once

class QPainter;
class QWidget;

/// The orange outline that says a problem is about a control: 1 px wide, with a corner radius
/// of 5.5, drawn just inside the control's rectangle.
void paintProblemOutline(QPainter &painter, const QWidget &control);
