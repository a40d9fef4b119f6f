#include "OrvaneApp/surfaces/AppearancePalette.h"

#include <QApplication>
#include <QStyle>

#include <gtest/gtest.h>

namespace {

TEST(AppearancePalette, DarkIsDarkAndLightIsLight)
{
    EXPECT_LT(AppearancePalette::dark().color(QPalette::Window).lightness(), 128);
    EXPECT_GT(AppearancePalette::light().color(QPalette::Window).lightness(), 128);
    EXPECT_GT(AppearancePalette::dark().color(QPalette::Text).lightness(), 128);
}

TEST(AppearancePalette, ApplySetsFusionAndThePalette)
{
    AppearancePalette::apply(Appearance::dark);
    EXPECT_EQ(QApplication::style()->name().toLower(), QStringLiteral("fusion"));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              AppearancePalette::dark().color(QPalette::Window));
    AppearancePalette::apply(Appearance::light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window),
              AppearancePalette::light().color(QPalette::Window));
}

TEST(AppearancePalette, SystemIsLightWhereNothingIsReported)
{
    // The off-screen platform reports no dark scheme.
    EXPECT_EQ(AppearancePalette::forAppearance(Appearance::system).color(QPalette::Window),
              AppearancePalette::light().color(QPalette::Window));
}

} // namespace
