#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QGuiApplication>
#include <QWidget>

namespace Roles {

namespace {

struct Pair
{
    QColor light;
    QColor dark;
};

// The platform's system colours in their light and dark appearances.
Pair pairOf(Role role)
{
    switch (role) {
    case Role::green:
        return {QColor(0x28, 0xCD, 0x41), QColor(0x32, 0xD7, 0x4B)};
    case Role::yellow:
        return {QColor(0xFF, 0xCC, 0x00), QColor(0xFF, 0xD6, 0x0A)};
    case Role::red:
        return {QColor(0xFF, 0x3B, 0x30), QColor(0xFF, 0x45, 0x3A)};
    case Role::orange:
        return {QColor(0xFF, 0x95, 0x00), QColor(0xFF, 0x9F, 0x0A)};
    case Role::grey:
        return {QColor(0x8E, 0x8E, 0x93), QColor(0x98, 0x98, 0x9D)};
    case Role::secondaryText:
        return {QColor(0, 0, 0, 0x80), QColor(0xFF, 0xFF, 0xFF, 0x8C)};
    case Role::quaternaryFill:
        return {QColor(0, 0, 0, 0x0D), QColor(0xFF, 0xFF, 0xFF, 0x0D)};
    case Role::separator:
        return {QColor(0, 0, 0, 0x1A), QColor(0xFF, 0xFF, 0xFF, 0x1A)};
    case Role::text:
    case Role::accent:
        break;
    }
    return {};
}

} // namespace

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness()
           < palette.color(QPalette::WindowText).lightness();
}

QColor color(Role role, const QPalette &palette)
{
    // The accent is the palette's own selection colour, whatever the appearance.
    if (role == Role::accent)
        return palette.color(QPalette::Highlight);
    if (role == Role::text)
        return palette.color(QPalette::WindowText);
    const Pair pair = pairOf(role);
    return isDark(palette) ? pair.dark : pair.light;
}

QColor color(Role role)
{
    return color(role, QGuiApplication::palette());
}

void useSecondaryText(QWidget &widget)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color(Role::secondaryText, palette));
    widget.setPalette(palette);
}

} // namespace Roles
