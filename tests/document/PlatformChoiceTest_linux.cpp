// Without SystemConfiguration and without "--prefs", the program runs on a per-user copy.
#include "VLANKit/Platform.h"
#include "tests/document/DocumentTestSupport.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

TEST(ChoosePlatform, WithoutPrefsTheUserWorksOnACopyOfTheExample)
{
    TemporaryFolder home;
    const QByteArray previous = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    const Platform platform = choosePlatform({u"orvane"_s});
    if (previous.isNull())
        qunsetenv("XDG_DATA_HOME");
    else
        qputenv("XDG_DATA_HOME", previous);
    ASSERT_TRUE(platform.documentFolder());
    EXPECT_TRUE(platform.documentFolder()->startsWith(home.path()));
    EXPECT_EQ(platform.machineFacts().machineDisplayName(), u"FOH Show Mac"_s);
}

} // namespace
