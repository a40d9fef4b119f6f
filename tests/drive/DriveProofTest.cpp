#include "OrvaneApp/drive/DriveProof.h"

#include "tests/support/QtPrinters.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DriveProofLine, WithoutDriveProofThereIsNoProof)
{
    EXPECT_EQ(DriveProof::parse({u"--no-care"_s, u"--work"_s, u"out.png"_s}), std::nullopt);
}

TEST(DriveProofLine, NoCareAndWorkAreFoundAnywhere)
{
    const std::optional<DriveProof> proof =
        DriveProof::parse({u"--work"_s, u"/other/current.png"_s, u"--drive-proof"_s, u"--prefs"_s,
                           u"mac"_s, u"--no-care"_s});
    ASSERT_TRUE(proof);
    EXPECT_TRUE(proof->noCare);
    EXPECT_EQ(proof->work, u"/other/current.png"_s);
}

TEST(DriveProofLine, TheFirstWorkCounts)
{
    const std::optional<DriveProof> proof = DriveProof::parse(
        {u"--drive-proof"_s, u"--work"_s, u"first.png"_s, u"--work"_s, u"second.png"_s});
    ASSERT_TRUE(proof);
    EXPECT_FALSE(proof->noCare);
    EXPECT_EQ(proof->work, u"first.png"_s);
}

TEST(DriveProofLine, WorkAsTheLastArgumentLeavesNoWork)
{
    const std::optional<DriveProof> proof = DriveProof::parse({u"--drive-proof"_s, u"--work"_s});
    ASSERT_TRUE(proof);
    EXPECT_EQ(proof->work, std::nullopt);
}

TEST(DriveProofWork, WithoutWorkNothingIsDrawn)
{
    int draws = 0;
    const DriveProof proof;
    EXPECT_EQ(proof.workOnce([&draws](const RenderRequest &) { return ++draws; }), -1);
    EXPECT_EQ(draws, 0);
}

TEST(DriveProofWork, EachCallDrawsTheCurrentTabOnceToTheWorkPath)
{
    std::vector<RenderRequest> draws;
    DriveProof proof;
    proof.work = u"/other/current.png"_s;
    const auto render = [&draws](const RenderRequest &request) {
        draws.push_back(request);
        return 2;
    };
    EXPECT_EQ(proof.workOnce(render), 2);
    EXPECT_EQ(proof.workOnce(render), 2);
    ASSERT_EQ(draws.size(), 2U);
    EXPECT_EQ(draws.front().surface, RenderRequest::Surface::current);
    EXPECT_EQ(draws.front().output, u"/other/current.png"_s);
}

TEST(DriveProofWork, ARelativeWorkPathIsMadeAbsoluteLikeTheRenderProofs)
{
    std::optional<RenderRequest> drawn;
    DriveProof proof;
    proof.work = u"current.png"_s;
    (void)proof.workOnce([&drawn](const RenderRequest &request) {
        drawn = request;
        return 0;
    });
    ASSERT_TRUE(drawn);
    EXPECT_EQ(drawn->output, QDir::current().absoluteFilePath(u"current.png"_s));
}

TEST(DriveProofLines, TheFactsLineSaysEachStateInWords)
{
    DriveCare::VolumeFacts facts;
    facts.volume = u"/media/STICK"_s;
    facts.isInternal = false;
    facts.isEjectable = true;
    EXPECT_EQ(DriveProof::factsLine(facts),
              u"drive-proof: volume /media/STICK \u2014 internal no, removable not said, "
              "ejectable yes, can be taken away yes"_s);
}

TEST(DriveProofLines, AVolumeThatStaysSaysNo)
{
    DriveCare::VolumeFacts facts;
    facts.volume = u"/"_s;
    facts.isRoot = true;
    facts.isRemovable = true;
    EXPECT_EQ(DriveProof::factsLine(facts),
              u"drive-proof: volume / \u2014 internal not said, removable yes, ejectable not "
              "said, can be taken away no"_s);
}
