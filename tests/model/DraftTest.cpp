#include "OrvaneApp/model/Draft.h"

#include "VLANKit/project/AddressPlan.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

AddressPlan hostSixtyNine()
{
    AddressPlan plan;
    plan.host = u"69"_s;
    return plan;
}

void makeManual(Draft &draft)
{
    draft.setMode(IPMode::manual);
    draft.modeChanged(IPMode::dhcp, hostSixtyNine());
}

TEST(DraftName, TagWithSpacesCountsAsTheNumber)
{
    const Draft draft(u" \t1010 "_s, u"Control"_s);
    EXPECT_EQ(draft.tagValue(), 1010);
    EXPECT_EQ(draft.effectiveName(), u"1010 - Control"_s);
}

TEST(DraftName, PlusSevenIsTheNumberSeven)
{
    EXPECT_EQ(Draft(u"+7"_s).tagValue(), 7);
    EXPECT_EQ(Draft(u"+7"_s).effectiveName(), u"7"_s);
    EXPECT_EQ(Draft(u"+7"_s, u"Cameras"_s).effectiveName(), u"7 - Cameras"_s);
}

TEST(DraftName, TagLeadsTheNameOnce)
{
    for (const QString &name : {u"1010 Control"_s, u"1010-Control"_s, u"1010- Control"_s,
                                u"1010 - Control"_s, u"1010 \u2013 Control"_s, u"Control"_s})
        EXPECT_EQ(Draft(u"1010"_s, name).effectiveName(), u"1010 - Control"_s)
            << name.toStdString();
    EXPECT_EQ(Draft(u"1010"_s, u"1010"_s).effectiveName(), u"1010"_s);
    EXPECT_EQ(Draft(u"1010"_s, u"1010-"_s).effectiveName(), u"1010"_s);
    EXPECT_EQ(Draft(u"1010"_s).effectiveName(), u"1010"_s);
}

TEST(DraftName, WithoutANumberTheNameOrVLAN)
{
    EXPECT_EQ(Draft(u"ten"_s, u" Control "_s).effectiveName(), u"Control"_s);
    EXPECT_EQ(Draft(u"ten"_s).effectiveName(), u"VLAN"_s);
    EXPECT_EQ(Draft(u"1 0"_s).tagValue(), std::nullopt);
}

TEST(DraftBlank, RowWithOnlyADNSServerIsBlank)
{
    Draft draft;
    draft.setMode(IPMode::manual);
    draft.setDNS(u"192.168.10.1"_s);
    draft.setRouter(u"192.168.10.1"_s);
    draft.setSubnetMask(u"255.255.255.0"_s);
    EXPECT_TRUE(draft.isBlank());
    draft.setName(u" x"_s);
    EXPECT_FALSE(draft.isBlank());
}

TEST(DraftAddress, ManualRowTakesThePlansAddressAndMask)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    EXPECT_EQ(draft.address(), u"192.168.12.69"_s);
    EXPECT_EQ(draft.subnetMask(), u"255.255.255.0"_s);
    EXPECT_TRUE(draft.autoAddress());
}

TEST(DraftAddress, TagChangeMovesAPlanOwnedAddress)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setTag(u"1014"_s);
    draft.applyPlan(hostSixtyNine());
    EXPECT_EQ(draft.address(), u"192.168.14.69"_s);
}

TEST(DraftAddress, TagChangeLeavesAnAddressTheUserTookOver)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setAddress(u"10.9.9.9"_s);
    draft.reconcileAddressOwnership(hostSixtyNine());
    EXPECT_FALSE(draft.autoAddress());
    draft.setTag(u"1014"_s);
    draft.applyPlan(hostSixtyNine());
    EXPECT_EQ(draft.address(), u"10.9.9.9"_s);
}

TEST(DraftAddress, TypingThePlansOwnAddressKeepsItThePlans)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setAddress(u"192.168.12.69"_s);
    draft.reconcileAddressOwnership(hostSixtyNine());
    EXPECT_TRUE(draft.autoAddress());
}

TEST(DraftAddress, ClearingTheAddressGivesItBackToThePlan)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setAddress(u"10.9.9.9"_s);
    draft.reconcileAddressOwnership(hostSixtyNine());
    draft.setAddress(u" "_s);
    draft.reconcileAddressOwnership(hostSixtyNine());
    EXPECT_TRUE(draft.autoAddress());
    EXPECT_EQ(draft.address(), u"192.168.12.69"_s);
}

TEST(DraftStash, SwitchingAwayAndBackRestoresWhatWasTyped)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setAddress(u"10.9.9.9"_s);
    draft.reconcileAddressOwnership(hostSixtyNine());
    draft.setRouter(u"10.9.9.1"_s);
    draft.setDNS(u"10.9.9.2"_s);
    draft.setMode(IPMode::dhcp);
    draft.modeChanged(IPMode::manual, hostSixtyNine());
    EXPECT_TRUE(draft.address().isEmpty());
    EXPECT_TRUE(draft.dns().isEmpty());
    EXPECT_EQ(draft.ipConfig(), IPConfig::dhcp());

    draft.setMode(IPMode::manual);
    draft.modeChanged(IPMode::dhcp, hostSixtyNine());
    EXPECT_EQ(draft.address(), u"10.9.9.9"_s);
    EXPECT_EQ(draft.router(), u"10.9.9.1"_s);
    EXPECT_EQ(draft.dns(), u"10.9.9.2"_s);
    EXPECT_FALSE(draft.stash());
}

TEST(DraftStash, SwitchingAwayTwiceKeepsOnlyTheLastStash)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setAddress(u"10.1.1.1"_s);
    draft.setMode(IPMode::dhcp);
    draft.modeChanged(IPMode::manual, hostSixtyNine());
    draft.setMode(IPMode::manual);
    draft.modeChanged(IPMode::dhcp, hostSixtyNine());
    draft.setAddress(u"10.2.2.2"_s);
    draft.setMode(IPMode::dhcp);
    draft.modeChanged(IPMode::manual, hostSixtyNine());
    ASSERT_TRUE(draft.stash());
    EXPECT_EQ(draft.stash()->address, u"10.2.2.2"_s);
}

TEST(DraftIP, ManualSplitsTheDNSAtCommasAndSpaces)
{
    Draft draft(u"1012"_s);
    makeManual(draft);
    draft.setDNS(u"1.1.1.1, 8.8.8.8  9.9.9.9"_s);
    draft.setRouter(u" "_s);
    const IPConfig ip = draft.ipConfig();
    EXPECT_EQ(ip.dns, (QStringList{u"1.1.1.1"_s, u"8.8.8.8"_s, u"9.9.9.9"_s}));
    EXPECT_EQ(ip.router, std::nullopt);
    EXPECT_EQ(ip.address, u"192.168.12.69"_s);
}

TEST(DraftSignals, EachEditIsOneChange)
{
    Draft draft;
    int changes = 0;
    QObject::connect(&draft, &Draft::changed, [&] { ++changes; });
    draft.setTag(u"5"_s);
    draft.setTag(u"5"_s);
    draft.setName(u"Five"_s);
    EXPECT_EQ(changes, 2);
}

} // namespace
