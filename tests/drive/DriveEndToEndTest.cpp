#include "tests/drive/scenarios/Scenario.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// What a scenario saw: its facts by name (repeated ones in order) and the proof's lines.
struct Seen
{
    std::multimap<QString, QString> facts;
    QStringList lines;

    [[nodiscard]] QString fact(const QString &name) const
    {
        const auto found = facts.find(name);
        return found == facts.end() ? u"(none)"_s : found->second;
    }
    [[nodiscard]] QStringList all(const QString &name) const
    {
        QStringList values;
        const auto [first, last] = facts.equal_range(name);
        for (auto it = first; it != last; ++it)
            values.append(it->second);
        return values;
    }
};

/// Each wait inside a scenario is bounded by 10 s; this bounds the whole run of one scenario
/// in case the scenario program itself is stuck.
constexpr int scenarioBoundMilliseconds = 90000;

} // namespace

/// Runs scenarios of the drive's endings, each in its private mount namespace, and skips the
/// test when the machine refuses a namespace, a mount or a loop device.
class DriveEndToEnd : public ::testing::Test
{
protected:
    /// Runs `name` and keeps what it saw in `seen`. A test returns at once after it when
    /// `stopped()`.
    void run(const QString &name)
    {
        QProcess scenario;
        scenario.start(QStringLiteral(DRIVE_SCENARIOS_PATH),
                       {name, QStringLiteral(ORVANE_PATH),
                        TemporaryFolder::repositoryPath(u"examples/show-mac"_s)});
        if (!scenario.waitForFinished(scenarioBoundMilliseconds)) {
            scenario.kill();
            scenario.waitForFinished();
            FAIL() << "the scenario did not end and was killed";
        }
        const QString errors = QString::fromUtf8(scenario.readAllStandardError());
        if (scenario.exitStatus() == QProcess::NormalExit
            && scenario.exitCode() == Scenario::skipped)
            GTEST_SKIP() << qPrintable(errors);
        ASSERT_EQ(scenario.exitStatus(), QProcess::NormalExit) << qPrintable(errors);
        ASSERT_EQ(scenario.exitCode(), 0) << qPrintable(errors);
        const QStringList output = QString::fromUtf8(scenario.readAllStandardOutput()).split(u'\n');
        for (const QString &line : output) {
            if (!line.startsWith(u"fact: "_s))
                continue;
            const QString rest = line.mid(6);
            const qsizetype space = rest.indexOf(u' ');
            const QString key = rest.left(space);
            const QString value = rest.mid(space + 1);
            seen.facts.emplace(key, value);
            if (key == u"line"_s)
                seen.lines.append(value);
        }
    }

    [[nodiscard]] bool stopped() const { return IsSkipped() || HasFatalFailure(); }

    Seen seen;
};

TEST_F(DriveEndToEnd, UnmountingAnotherTmpfsLeavesTheWatchedChildAlive)
{
    run(u"tmpfs-pull"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"armed"_s), u"armed 0"_s);
    EXPECT_EQ(seen.fact(u"other-unmounted"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"after-other-unmount"_s), u"alive"_s);
}

TEST_F(DriveEndToEnd, PullingTheWatchedTmpfsEndsTheChildWithZero)
{
    run(u"tmpfs-pull"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"armed"_s), u"armed 0"_s);
    EXPECT_EQ(seen.fact(u"end-after-pull"_s), u"exit 0"_s);
}

TEST_F(DriveEndToEnd, TheDisksNodeGoneWhileItsMountStaysEndsWithZero)
{
    run(u"disk-node-gone"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"armed"_s), u"armed 0"_s);
    EXPECT_EQ(seen.fact(u"end-after-node-gone"_s), u"exit 0"_s);
}

TEST_F(DriveEndToEnd, ATouchedPageOfATruncatedFileEndsWithTenUnderCare)
{
    run(u"bus-error"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"end-on-touch"_s), u"exit 10"_s);
}

TEST_F(DriveEndToEnd, WithoutTheBusErrorEndingTheSameTouchIsAnOrdinaryCrash)
{
    run(u"bus-error-without-care"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"end-on-touch"_s), u"signal 7"_s);
}

TEST_F(DriveEndToEnd, TheProofWithoutCarePrintsItsLinesAndNoCareTaken)
{
    run(u"proof-without-care"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"ready"_s), u"yes"_s);
    ASSERT_EQ(seen.lines.size(), 4) << qPrintable(seen.lines.join(u'\n'));
    EXPECT_EQ(seen.lines.at(0), u"drive-proof: running from "_s + QStringLiteral(ORVANE_PATH));
    EXPECT_TRUE(seen.lines.at(1).startsWith(u"drive-proof: volume "_s));
    EXPECT_TRUE(seen.lines.at(1).contains(u" \u2014 internal "_s));
    EXPECT_EQ(seen.lines.at(2), u"drive-proof: no care taken"_s);
    EXPECT_EQ(seen.lines.at(3), u"drive-proof: ready"_s);
}

TEST_F(DriveEndToEnd, TheProofWithoutCareEndsWithTenOnABusError)
{
    run(u"proof-without-care"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"end-on-bus-error"_s), u"exit 10"_s);
}

TEST_F(DriveEndToEnd, WorkAsTheLastArgumentMakesSIGUSR1DoNothing)
{
    run(u"proof-work-last"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"ready"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"signal-taken"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"end-on-bus-error"_s), u"exit 10"_s);
    EXPECT_EQ(seen.lines.filter(u"work done"_s).size(), 0) << qPrintable(seen.lines.join(u'\n'));
}

TEST_F(DriveEndToEnd, ThreeSIGUSR1EachAfterTheLastStatusLineRenderThreeTimes)
{
    run(u"proof-working-thrice"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.all(u"work"_s), QStringList(3, u"drive-proof: work done, status 0"_s));
    EXPECT_EQ(seen.fact(u"picture"_s), u"written"_s);
    EXPECT_EQ(seen.lines.filter(u"drive-proof: work done"_s).size(), 3);
    EXPECT_EQ(seen.fact(u"end-on-bus-error"_s), u"exit 10"_s);
}

TEST_F(DriveEndToEnd, FromALoopDriveTheProofClosesWhenPulledAndEndsWithZero)
{
    run(u"loop-pull"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"formatted"_s), u"exit 0"_s);
    EXPECT_EQ(seen.fact(u"ready"_s), u"yes"_s);
    EXPECT_TRUE(seen.lines.contains(u"drive-proof: closes when pulled yes"_s))
        << qPrintable(seen.lines.join(u'\n'));
    EXPECT_EQ(seen.fact(u"work"_s), u"drive-proof: work done, status 0"_s);
    EXPECT_EQ(seen.fact(u"end-after-pull"_s), u"exit 0"_s);
}

TEST_F(DriveEndToEnd, FromALoopDriveWithoutCareTheProofLivesOnAfterThePull)
{
    run(u"loop-pull-without-care"_s);
    if (stopped())
        return;
    EXPECT_TRUE(seen.lines.contains(u"drive-proof: no care taken"_s))
        << qPrintable(seen.lines.join(u'\n'));
    EXPECT_EQ(seen.fact(u"work-after-pull"_s), u"drive-proof: work done, status 0"_s);
    EXPECT_EQ(seen.fact(u"end-on-bus-error"_s), u"exit 10"_s);
}

TEST_F(DriveEndToEnd, TheWindowFromALoopDriveEndsWithZeroWhenPulled)
{
    run(u"window-from-loop"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"window-up"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"waiter"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"end-after-pull"_s), u"exit 0"_s);
}

TEST_F(DriveEndToEnd, NoCareWithoutTheDriveProofStartsTheWindowWithNoEndingAtAll)
{
    run(u"window-from-loop-without-care"_s);
    if (stopped())
        return;
    EXPECT_EQ(seen.fact(u"window-up"_s), u"yes"_s);
    EXPECT_EQ(seen.fact(u"waiter"_s), u"no"_s);
    // No bus-error ending either: a page fault is an ordinary crash.
    EXPECT_EQ(seen.fact(u"end-on-bus-error"_s), u"signal 7"_s);
}
