#include "OrvaneApp/surfaces/AppearancePalette.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

QPalette AppearancePalette::light()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0xEC, 0xEC, 0xEC));
    palette.setColor(QPalette::WindowText, QColor(0x1D, 0x1D, 0x1F));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF4, 0xF5, 0xF5));
    palette.setColor(QPalette::Text, QColor(0x1D, 0x1D, 0x1F));
    palette.setColor(QPalette::Button, QColor(0xFB, 0xFB, 0xFB));
    palette.setColor(QPalette::ButtonText, QColor(0x1D, 0x1D, 0x1F));
    palette.setColor(QPalette::PlaceholderText, QColor(0x1D, 0x1D, 0x1F, 0x66));
    palette.setColor(QPalette::Highlight, QColor(0x00, 0x7A, 0xFF));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE6));
    palette.setColor(QPalette::ToolTipText, QColor(0x1D, 0x1D, 0x1F));
    palette.setColor(QPalette::Mid, QColor(0xC8, 0xC8, 0xC8));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x1D, 0x1D, 0x1F, 0x55));
    // A disabled field sits on a grey of its own, as the platform draws one.
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xF5, 0xF5, 0xF5));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x1D, 0x1D, 0x1F, 0x55));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x1D, 0x1D, 0x1F, 0x55));
    return palette;
}

QPalette AppearancePalette::dark()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x32, 0x32, 0x32));
    palette.setColor(QPalette::WindowText, QColor(0xF2, 0xF2, 0xF2));
    palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    palette.setColor(QPalette::AlternateBase, QColor(0x28, 0x28, 0x28));
    palette.setColor(QPalette::Text, QColor(0xF2, 0xF2, 0xF2));
    palette.setColor(QPalette::Button, QColor(0x4A, 0x4A, 0x4A));
    palette.setColor(QPalette::ButtonText, QColor(0xF2, 0xF2, 0xF2));
    palette.setColor(QPalette::PlaceholderText, QColor(0xF2, 0xF2, 0xF2, 0x66));
    palette.setColor(QPalette::Highlight, QColor(0x0A, 0x84, 0xFF));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0x3C, 0x3C, 0x3C));
    palette.setColor(QPalette::ToolTipText, QColor(0xF2, 0xF2, 0xF2));
    palette.setColor(QPalette::Mid, QColor(0x50, 0x50, 0x50));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0xF2, 0xF2, 0xF2, 0x55));
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0x2A, 0x2A, 0x2A));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0xF2, 0xF2, 0xF2, 0x55));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0xF2, 0xF2, 0xF2, 0x55));
    return palette;
}

QPalette AppearancePalette::forAppearance(Appearance appearance)
{
    switch (appearance) {
    case Appearance::light:
        return light();
    case Appearance::dark:
        return dark();
    case Appearance::system:
        break;
    }
    // What the platform's own style reports: a dark window colour means a dark system.
    const QPalette reported =
        QApplication::style() ? QApplication::style()->standardPalette() : QPalette();
    return reported.color(QPalette::Window).lightness() < 128 ? dark() : light();
}

void AppearancePalette::apply(Appearance appearance)
{
    // Asked before Fusion replaces the platform's style, whose palette tells light from dark.
    const QPalette palette = forAppearance(appearance);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(palette);
}
