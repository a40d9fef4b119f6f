#pragma once

#include <QStringList>

class QWidget;

/// What the render proof's walk found under a root widget: the text fields and pop-ups a person
/// can see, the texts cut short, and the texts that touch the root's edge.
struct TextControlCount
{
    int fields = 0;
    int popups = 0;
    QStringList cutShort;
    QStringList atEdge;

    friend bool operator==(const TextControlCount &, const TextControlCount &) = default;
};

/// Walks every widget under `root` that is visible to it, depth first in child order. A text
/// field is a line edit, a label or a button without a menu whose text isn't empty, or a text a
/// `RenderTextReport` view paints; a pop-up is a combo box with a current item or a button with
/// a menu. A text is cut short when it needs more than 1 px beyond the room its control gives it,
/// and at the edge when it stands less than 4 px from the root's left or right side.
[[nodiscard]] TextControlCount walkTextControls(const QWidget &root);
