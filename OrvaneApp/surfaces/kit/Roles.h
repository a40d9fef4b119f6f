#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

/// The system colours the design names, each in a light and a dark form, chosen from the
/// palette in force when painting: "Follow System" and a switch at run time just work.
namespace Roles {

enum class Role {
    /// The text colour of the window: symbols beside a label.
    text,
    green,
    yellow,
    red,
    orange,
    grey,
    secondaryText,
    quaternaryFill,
    separator,
    accent,
};

/// Whether a palette is a dark one: its window is darker than its text.
[[nodiscard]] bool isDark(const QPalette &palette);

/// The colour of a role under a palette; the application's palette when none is given.
[[nodiscard]] QColor color(Role role, const QPalette &palette);
[[nodiscard]] QColor color(Role role);

/// Draws a widget's text in the secondary colour of the palette it has now.
void useSecondaryText(QWidget &widget);

} // namespace Roles
