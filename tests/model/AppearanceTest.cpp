#include "OrvaneApp/model/Appearance.h"

#include "VLANKit/files/Defaults.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class StoredAppearance : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    VLANKit::Defaults defaults = VLANKit::Defaults::inFile(folder.filePath(u"d.plist"_s));
};

TEST_F(StoredAppearance, MissingReadsAsSystem)
{
    EXPECT_EQ(loadAppearance(defaults), Appearance::system);
}

TEST_F(StoredAppearance, UnknownValueReadsAsSystem)
{
    defaults.setString(u"Orvane.appearance"_s, u"Dark"_s);
    EXPECT_EQ(loadAppearance(defaults), Appearance::system);
    defaults.setData(u"Orvane.appearance"_s, "dark");
    EXPECT_EQ(loadAppearance(defaults), Appearance::system);
}

TEST_F(StoredAppearance, RoundTrips)
{
    for (Appearance appearance : {Appearance::system, Appearance::light, Appearance::dark}) {
        saveAppearance(appearance, defaults);
        EXPECT_EQ(loadAppearance(defaults), appearance);
    }
    EXPECT_EQ(defaults.string(u"Orvane.appearance"_s), u"dark"_s);
}

} // namespace
