#include "OrvaneApp/drive/DriveCare.h"
#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/DriveLog.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using DriveCare::Care;
using DriveCare::VolumeFacts;

namespace {

/// What the fake endings were asked to do, in order.
std::vector<std::string> steps;
int watchAnswer = 0;

void armBusError()
{
    steps.emplace_back("bus error");
}

int armWatch(const char *path)
{
    steps.push_back(std::string("watch ") + path);
    return watchAnswer;
}

void log(bool closesWhenPulled)
{
    steps.push_back(closesWhenPulled ? "log true" : "log false");
}

class ArmingOrder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        steps.clear();
        watchAnswer = 0;
    }

    static VolumeFacts stick()
    {
        VolumeFacts facts;
        facts.volume = QStringLiteral("/media/stick");
        facts.isInternal = false;
        facts.isRemovable = true;
        facts.isEjectable = true;
        facts.isLocal = true;
        return facts;
    }

    const DriveCare::Endings endings{armBusError, armWatch, log};
    const QString executable = QStringLiteral("/media/stick/orvane");
};

} // namespace

TEST_F(ArmingOrder, NoFactsArmNothing)
{
    EXPECT_EQ(DriveCare::armFor(std::nullopt, executable, endings), std::nullopt);
    EXPECT_TRUE(steps.empty());
}

TEST_F(ArmingOrder, AVolumeThatStaysArmsNothing)
{
    VolumeFacts fixed = stick();
    fixed.isRoot = true;
    EXPECT_EQ(DriveCare::armFor(fixed, executable, endings), std::nullopt);
    EXPECT_TRUE(steps.empty());
}

TEST_F(ArmingOrder, ADriveThatCanGoArmsBothEndingsThenLogsOnce)
{
    const std::optional<Care> care = DriveCare::armFor(stick(), executable, endings);
    EXPECT_EQ(care, (Care{QStringLiteral("/media/stick"), true}));
    EXPECT_EQ(steps,
              (std::vector<std::string>{"bus error", "watch /media/stick/orvane", "log true"}));
}

TEST_F(ArmingOrder, AWatchThatFailsKeepsTheBusErrorEndingAndSaysFalse)
{
    watchAnswer = -1;
    const std::optional<Care> care = DriveCare::armFor(stick(), executable, endings);
    EXPECT_EQ(care, (Care{QStringLiteral("/media/stick"), false}));
    EXPECT_EQ(steps,
              (std::vector<std::string>{"bus error", "watch /media/stick/orvane", "log false"}));
}

TEST(DriveLog, TheLineWritesItsFlagAsAWord)
{
    EXPECT_EQ(DriveCare::logLine(true),
              QStringLiteral(
                  "Running from a drive that can be taken away. Closes when it is pulled: true."));
    EXPECT_EQ(DriveCare::logLine(false),
              QStringLiteral(
                  "Running from a drive that can be taken away. Closes when it is pulled: false."));
}

TEST(DriveLog, AReplacedSinkTakesTheLine)
{
    steps.clear();
    const DriveLog::Sink before = DriveLog::replaceSink(log);
    DriveLog::write(true);
    DriveLog::replaceSink(before);
    EXPECT_EQ(steps, std::vector<std::string>{"log true"});
}

TEST(DriveCare, SystemEndingsAreTheCLinkageRoutinesAndTheLog)
{
    const DriveCare::Endings system = DriveCare::systemEndings();
    EXPECT_EQ(system.armBusError, &orvane_end_on_bus_error);
    EXPECT_EQ(system.armWatch, &orvane_end_when_taken_away);
    EXPECT_EQ(system.log, &DriveLog::write);
}
