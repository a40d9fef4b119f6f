#include "OrvaneApp/proof/RenderRequest.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The request a line gives; a failure of the test when it gives none.
RenderRequest requestOf(const QStringList &arguments)
{
    const RenderRequest::Parsed parsed = RenderRequest::parse(arguments);
    const auto *request = std::get_if<RenderRequest>(&parsed);
    EXPECT_TRUE(request) << arguments.join(u' ').toStdString();
    return request ? *request : RenderRequest{};
}

bool isBadLine(const QStringList &arguments)
{
    return std::holds_alternative<RenderRequest::BadLine>(RenderRequest::parse(arguments));
}

TEST(RenderRequest, NoRenderLetsTheProgramGoOn)
{
    EXPECT_TRUE(std::holds_alternative<RenderRequest::NotAsked>(RenderRequest::parse({})));
    EXPECT_TRUE(std::holds_alternative<RenderRequest::NotAsked>(
        RenderRequest::parse({u"--no-care"_s, u"current"_s})));
}

TEST(RenderRequest, RenderWithoutAFileIsABadLine)
{
    EXPECT_TRUE(isBadLine({u"--render"_s, u"current"_s}));
    EXPECT_TRUE(isBadLine({u"--render"_s}));
}

TEST(RenderRequest, AnUnknownSurfaceIsABadLine)
{
    EXPECT_TRUE(isBadLine({u"--render"_s, u"nonsense"_s, u"out.png"_s}));
    EXPECT_TRUE(isBadLine({u"--render"_s, u"Current"_s, u"out.png"_s}));
}

TEST(RenderRequest, EveryTenNamesParseInTheirOrder)
{
    const QStringList words{u"current"_s, u"add"_s,    u"new"_s,    u"rename"_s, u"order"_s,
                            u"reorder"_s, u"import"_s, u"result"_s, u"more"_s,   u"help"_s};
    for (qsizetype at = 0; at < words.size(); ++at) {
        const RenderRequest request = requestOf({u"--render"_s, words.at(at), u"out.png"_s});
        EXPECT_EQ(int(request.surface), int(at));
        EXPECT_EQ(RenderRequest::word(request.surface), words.at(at));
    }
}

TEST(RenderRequest, DefaultsStandWithoutOptions)
{
    const RenderRequest request = requestOf({u"--render"_s, u"current"_s, u"out.png"_s});
    EXPECT_EQ(request.width, 1340);
    EXPECT_EQ(request.height, 760);
    EXPECT_TRUE(request.dark);
    EXPECT_EQ(request.output, QDir::current().absoluteFilePath(u"out.png"_s));
    EXPECT_EQ(request.location, std::nullopt);
    EXPECT_TRUE(request.drafts.isEmpty());
    EXPECT_FALSE(request.failed);
}

TEST(RenderRequest, AWidthThatIsNoNumberLeavesTheDefault)
{
    const RenderRequest request = requestOf(
        {u"--render"_s, u"current"_s, u"o.png"_s, u"--width"_s, u"abc"_s, u"--height"_s, u"900"_s});
    EXPECT_EQ(request.width, 1340);
    EXPECT_EQ(request.height, 900);
}

TEST(RenderRequest, AnyAppearanceButLightIsDark)
{
    const QStringList line{u"--render"_s, u"current"_s, u"o.png"_s, u"--appearance"_s};
    EXPECT_TRUE(requestOf(line + QStringList{u"sepia"_s}).dark);
    EXPECT_TRUE(requestOf(line + QStringList{u"dark"_s}).dark);
    EXPECT_FALSE(requestOf(line + QStringList{u"light"_s}).dark);
}

TEST(RenderRequest, DraftsAreTakenAgainAndAgainInOrder)
{
    const RenderRequest request =
        requestOf({u"--render"_s, u"add"_s, u"o.png"_s, u"--draft"_s, u"1010,Control,manual"_s,
                   u"--draft"_s, u"1012,Video,dhcp"_s});
    EXPECT_EQ(request.drafts, (QStringList{u"1010,Control,manual"_s, u"1012,Video,dhcp"_s}));
}

TEST(RenderRequest, OnlyWordsBehindThePictureHoldOptions)
{
    const RenderRequest request =
        requestOf({u"--width"_s, u"500"_s, u"--failed"_s, u"--render"_s, u"result"_s, u"o.png"_s});
    EXPECT_EQ(request.width, 1340);
    EXPECT_FALSE(request.failed);
}

TEST(RenderRequest, AnOptionAtTheVeryEndHasNoValue)
{
    const RenderRequest request =
        requestOf({u"--render"_s, u"current"_s, u"o.png"_s, u"--location"_s});
    EXPECT_EQ(request.location, std::nullopt);
}

TEST(RenderRequest, TheFirstOccurrenceOfAnOptionCounts)
{
    const RenderRequest request =
        requestOf({u"--render"_s, u"current"_s, u"o.png"_s, u"--location"_s, u"Show"_s,
                   u"--location"_s, u"Office"_s});
    EXPECT_EQ(request.location, u"Show"_s);
}

TEST(RenderRequest, MessageTurnsBackslashNIntoALineEnd)
{
    const RenderRequest request = requestOf(
        {u"--render"_s, u"result"_s, u"o.png"_s, u"--message"_s, u"One.\\nTwo."_s, u"--failed"_s});
    EXPECT_EQ(request.message, u"One.\nTwo."_s);
    EXPECT_TRUE(request.failed);
}

TEST(RenderRequest, EveryValuedOptionAndFlagIsRead)
{
    const RenderRequest request = requestOf(
        {u"--render"_s, u"new"_s, u"o.png"_s, u"--host"_s, u"70"_s, u"--edit"_s, u"vlan0"_s,
         u"--name"_s, u"Load-in"_s, u"--build-on"_s, u"en6"_s, u"--project"_s, u"show.json"_s,
         u"--adapters-only"_s, u"--switch-now"_s, u"--sample-hardware"_s});
    EXPECT_EQ(request.host, u"70"_s);
    EXPECT_EQ(request.edit, u"vlan0"_s);
    EXPECT_EQ(request.name, u"Load-in"_s);
    EXPECT_EQ(request.buildOn, u"en6"_s);
    EXPECT_EQ(request.project, u"show.json"_s);
    EXPECT_TRUE(request.adaptersOnly);
    EXPECT_TRUE(request.switchNow);
    EXPECT_TRUE(request.sampleHardware);
}

TEST(RenderRequest, UsageIsTheOneLine)
{
    EXPECT_TRUE(RenderRequest::usage().startsWith(
        u"usage: --render current|add|new|rename|order|reorder|import|result|more|help <out.png>"_s));
    EXPECT_TRUE(RenderRequest::usage().endsWith(u"[--failed] [--project FILE]"_s));
    EXPECT_FALSE(RenderRequest::usage().contains(u'\n'));
}

} // namespace
