#include "OrvaneApp/model/Theme.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Theme, PrefersIBMPlexSans)
{
    EXPECT_EQ(Theme::chooseFace({u"DejaVu Sans"_s, u"IBMPlexSans"_s, u"IBM Plex Sans"_s}),
              u"IBM Plex Sans"_s);
}

TEST(Theme, FallsBackToTheSecondName)
{
    EXPECT_EQ(Theme::chooseFace({u"DejaVu Sans"_s, u"IBMPlexSans"_s}), u"IBMPlexSans"_s);
}

TEST(Theme, NoFaceWhenNeitherIsInstalled)
{
    EXPECT_EQ(Theme::chooseFace({u"DejaVu Sans"_s}), std::nullopt);
}

TEST(Theme, FontsHaveFixedPixelSizesAndWeights)
{
    const QFont font = Theme::font(12, QFont::DemiBold);
    EXPECT_EQ(font.pixelSize(), 12);
    EXPECT_EQ(font.weight(), QFont::DemiBold);
    EXPECT_EQ(Theme::base().pixelSize(), 13);
    if (Theme::faceName()) {
        EXPECT_EQ(font.family(), *Theme::faceName());
    }
}

} // namespace
