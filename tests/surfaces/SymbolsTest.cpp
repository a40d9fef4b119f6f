#include "OrvaneApp/surfaces/kit/Symbols.h"

#include "OrvaneApp/surfaces/AppearancePalette.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// How many pixels of the picture are drawn at all, and how many near `colour`.
struct Ink
{
    int drawn = 0;
    int inColour = 0;
};

Ink inkOf(const QImage &image, const QColor &colour)
{
    Ink ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 0)
                continue;
            ++ink.drawn;
            if (pixel.alpha() > 200 && std::abs(pixel.red() - colour.red()) < 8
                && std::abs(pixel.green() - colour.green()) < 8
                && std::abs(pixel.blue() - colour.blue()) < 8)
                ++ink.inColour;
        }
    }
    return ink;
}

// The names the window's surfaces use: every one has a drawing.
TEST(Symbols, TheTwentyOneNamesAreDrawn)
{
    const QStringList used{u"arrow.clockwise"_s,
                           u"arrow.right"_s,
                           u"arrow.triangle.swap"_s,
                           u"cable.connector"_s,
                           u"character.cursor.ibeam"_s,
                           u"checkmark.shield.fill"_s,
                           u"circle.lefthalf.filled"_s,
                           u"exclamationmark.circle.fill"_s,
                           u"exclamationmark.triangle.fill"_s,
                           u"info.circle"_s,
                           u"lock.fill"_s,
                           u"minus.circle.fill"_s,
                           u"moon"_s,
                           u"network"_s,
                           u"plus.circle"_s,
                           u"plus.circle.fill"_s,
                           u"power"_s,
                           u"square.and.arrow.down"_s,
                           u"square.and.arrow.up"_s,
                           u"sun.max"_s,
                           u"trash"_s};
    EXPECT_EQ(Symbols::names().size(), 21);
    AppearancePalette::apply(Appearance::light);
    for (const QString &name : used) {
        const QIcon icon = Symbols::icon(name, Roles::Role::orange);
        ASSERT_FALSE(icon.isNull()) << name.toStdString();
        const Ink ink = inkOf(icon.pixmap(32, 32).toImage(), Roles::color(Roles::Role::orange));
        EXPECT_GT(ink.drawn, 20) << name.toStdString();
        EXPECT_GT(ink.inColour, 10) << name.toStdString();
    }
}

TEST(Symbols, AnUnknownNameHasNoIcon)
{
    EXPECT_TRUE(Symbols::icon(u"star.fill"_s).isNull());
}

TEST(Symbols, TheColourFollowsThePaletteInForce)
{
    const QIcon icon = Symbols::icon(u"plus.circle.fill"_s, Roles::Role::green);
    AppearancePalette::apply(Appearance::light);
    const QColor light = Roles::color(Roles::Role::green);
    EXPECT_GT(inkOf(icon.pixmap(32, 32).toImage(), light).inColour, 50);
    AppearancePalette::apply(Appearance::dark);
    const QColor dark = Roles::color(Roles::Role::green);
    EXPECT_NE(light, dark);
    EXPECT_GT(inkOf(icon.pixmap(32, 32).toImage(), dark).inColour, 50);
}

TEST(Symbols, AFilledSymbolLeavesItsMarkOpen)
{
    const QImage image = Symbols::icon(u"exclamationmark.circle.fill"_s).pixmap(64, 64).toImage();
    // The middle of the exclamation mark is cut out of the disc, the disc beside it is not.
    EXPECT_EQ(image.pixelColor(32, 26).alpha(), 0);
    EXPECT_GT(image.pixelColor(20, 26).alpha(), 200);
}

TEST(Symbols, AnyPixelRatioGivesASharpPixmap)
{
    const QPixmap pixmap = Symbols::icon(u"trash"_s).pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(pixmap.width(), 32);
    EXPECT_EQ(pixmap.devicePixelRatio(), 2.0);
}

} // namespace
