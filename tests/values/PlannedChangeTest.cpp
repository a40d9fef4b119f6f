#include "VLANKit/values/PlannedChange.h"

#include "VLANKit/values/Plan.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;
using PC = PlannedChange;

IPConfig manual(const QString &address, std::optional<QString> router = std::nullopt)
{
    return IPConfig{IPMode::manual, address, u"255.255.255.0"_s, std::move(router), {}};
}

VLANRecord controlVLAN()
{
    VLANRecord record;
    record.name = u"1010 - Control (DONGLE)"_s;
    record.tag = 1010;
    record.bsdName = u"vlan0"_s;
    record.parentBSD = u"en7"_s;
    return record;
}

struct LineRow
{
    const char *name;
    PlannedChange change;
    QString summary;
    QString completed;
};

class PlannedChangeLines : public ::testing::TestWithParam<LineRow>
{};

TEST_P(PlannedChangeLines, Summary)
{
    EXPECT_EQ(GetParam().change.summary(), GetParam().summary);
}

TEST_P(PlannedChangeLines, Completed)
{
    EXPECT_EQ(GetParam().change.completed(), GetParam().completed);
}

INSTANTIATE_TEST_SUITE_P(
    EveryCase, PlannedChangeLines,
    ::testing::Values(
        LineRow{"CreateVLAN", PC::CreateVLAN{1010, u"Control"_s, manual(u"192.168.10.5"_s), true},
                u"CREATE  1010  Control  \u2192  192.168.10.5/255.255.255.0"_s,
                u"Built Control."_s},
        LineRow{"CreateVLANWithEmptyName", PC::CreateVLAN{1012, u""_s, IPConfig::dhcp(), true},
                u"CREATE  1012    \u2192  DHCP"_s, u"Built 1012."_s},
        LineRow{"Reparent", PC::Reparent{controlVLAN(), u"en7"_s, u"en8"_s},
                u"REPARENT 1010  1010 - Control (DONGLE)  en7 \u2192 en8"_s,
                u"Moved 1010 - Control (DONGLE) onto en8."_s},
        LineRow{"Retag",
                PC::Retag{1010, u"vlan0"_s, u"Control"_s, IPConfig::dhcp(),
                          manual(u"10.0.10.5"_s, u"10.0.10.1"_s)},
                u"IP      1010  Control  DHCP \u2192 10.0.10.5/255.255.255.0 gw 10.0.10.1"_s,
                u"Set Control to 10.0.10.5/255.255.255.0 gw 10.0.10.1."_s},
        LineRow{"SetEnabledOn", PC::SetEnabled{1010, u"vlan0"_s, u"Control"_s, true},
                u"ENABLE  1010  Control"_s, u"Turned Control on."_s},
        LineRow{"SetEnabledOff", PC::SetEnabled{1010, u"vlan0"_s, u"Control"_s, false},
                u"DISABLE 1010  Control"_s, u"Turned Control off."_s},
        LineRow{"RemoveVLAN", PC::RemoveVLAN{1099, u"Spare"_s, u"vlan3"_s},
                u"DELETE  1099  Spare  (vlan3) and its service(s)"_s,
                u"Deleted Spare and its network service."_s},
        LineRow{"Rename", PC::Rename{1012, u"vlan1"_s, u"Audio (DONGLE)"_s, u"Dante (DONGLE)"_s},
                u"RENAME  1012  \"Audio (DONGLE)\" \u2192 \"Dante (DONGLE)\""_s,
                u"Renamed Audio (DONGLE) to Dante (DONGLE)."_s},
        LineRow{"AddService", PC::AddService{1099, u"vlan3"_s, u"Spare"_s},
                u"ADD     1099  Spare  to this Location"_s, u"Added Spare to this Location."_s},
        LineRow{"SetServiceIP",
                PC::SetServiceIP{u"ID"_s, u"Ethernet"_s, IPConfig::dhcp(),
                                 IPConfig{IPMode::linkLocal, {}, {}, {}, {}}},
                u"IP      Ethernet  DHCP \u2192 link-local"_s, u"Set Ethernet to link-local."_s},
        LineRow{"SetServiceEnabledOn", PC::SetServiceEnabled{u"ID"_s, u"Wi-Fi"_s, true},
                u"ENABLE  Wi-Fi"_s, u"Turned Wi-Fi on."_s},
        LineRow{"SetServiceEnabledOff", PC::SetServiceEnabled{u"ID"_s, u"Wi-Fi"_s, false},
                u"DISABLE Wi-Fi"_s, u"Turned Wi-Fi off."_s},
        LineRow{"SetIPv6",
                PC::SetIPv6{u"ID"_s, u"Control"_s, IPv6Mode::automatic, IPv6Mode::linkLocal},
                u"IPV6    Control  Automatic \u2192 Link-local only"_s,
                u"Set IPv6 on Control to Link-local only."_s},
        LineRow{"SetIPv6FromUnknown",
                PC::SetIPv6{u"ID"_s, u"Control"_s, IPv6Mode::unknown, IPv6Mode::off},
                u"IPV6    Control  \u2014 \u2192 Off"_s, u"Set IPv6 on Control to Off."_s},
        LineRow{"SetDNSServersAndDomains",
                PC::SetDNS{u"ID"_s,
                           u"Control"_s,
                           {u"10.0.0.1"_s, u"10.0.0.2"_s},
                           {u"show.example"_s, u"venue.example"_s}},
                u"DNS     Control  10.0.0.1, 10.0.0.2  search show.example, venue.example"_s,
                u"Set the DNS settings on Control."_s},
        LineRow{"SetDNSServersOnly", PC::SetDNS{u"ID"_s, u"Control"_s, {u"10.0.0.1"_s}, {}},
                u"DNS     Control  10.0.0.1"_s, u"Set the DNS settings on Control."_s},
        LineRow{"SetDNSDomainsOnly", PC::SetDNS{u"ID"_s, u"Control"_s, {}, {u"show.example"_s}},
                u"DNS     Control  no servers  search show.example"_s,
                u"Set the DNS settings on Control."_s},
        LineRow{"SetDNSCleared", PC::SetDNS{u"ID"_s, u"Control"_s, {}, {}},
                u"DNS     Control  no servers"_s, u"Cleared the DNS settings on Control."_s},
        LineRow{"RenameAdapter", PC::RenameAdapter{u"en7"_s, u"USB 10/100/1000 LAN"_s, u"DONGLE"_s},
                u"NAME    en7  \"USB 10/100/1000 LAN\" \u2192 \"DONGLE\""_s,
                u"Named en7 \u201CDONGLE\u201D."_s},
        LineRow{"AddAdapterService", PC::AddAdapterService{u"en8"_s, u"USB LAN"_s},
                u"ADD     en8  USB LAN  to this Location"_s, u"Added USB LAN to this Location."_s},
        LineRow{"RemoveService", PC::RemoveService{u"ID"_s, u"Spare"_s},
                u"REMOVE  Spare  from this Location"_s, u"Took Spare out of this Location."_s},
        LineRow{"SetHardware",
                PC::SetHardware{u"ID"_s, u"Video"_s, HardwareSettings::automatic(),
                                HardwareSettings{9000, u"1000baseT"_s, {u"full-duplex"_s}}},
                u"HARDWARE Video  automatic \u2192 1000baseT full-duplex, MTU 9000"_s,
                u"Set the hardware of Video to 1000baseT full-duplex, MTU 9000."_s},
        LineRow{"SetHardwareBackToAutomatic",
                PC::SetHardware{u"ID"_s, u"Video"_s, HardwareSettings{9000, {}, {}},
                                HardwareSettings::automatic()},
                u"HARDWARE Video  MTU 9000 \u2192 automatic"_s,
                u"Set the hardware of Video back to automatic."_s},
        LineRow{"SetHardwareDuplexWithoutSpeedIsAutomatic",
                PC::SetHardware{u"ID"_s, u"Video"_s, HardwareSettings{9000, {}, {}},
                                HardwareSettings{std::nullopt, std::nullopt, {u"full-duplex"_s}}},
                u"HARDWARE Video  MTU 9000 \u2192 automatic"_s,
                u"Set the hardware of Video back to automatic."_s}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(PlannedChange, EnableAndDisableTakeTheSameColumns)
{
    const QString on = PlannedChange(PC::SetServiceEnabled{u"ID"_s, u"X"_s, true}).summary();
    const QString off = PlannedChange(PC::SetServiceEnabled{u"ID"_s, u"X"_s, false}).summary();
    EXPECT_EQ(on.indexOf(u'X'), 8);
    EXPECT_EQ(off.indexOf(u'X'), 8);
}

TEST(PlannedChange, EightLetterVerbsRunOneColumnWider)
{
    const QString reparent =
        PlannedChange(PC::Reparent{controlVLAN(), u"en7"_s, u"en8"_s}).summary();
    const QString create =
        PlannedChange(PC::CreateVLAN{1010, u"X"_s, IPConfig::dhcp(), true}).summary();
    EXPECT_EQ(create.indexOf(u"1010"_s), 8);
    EXPECT_EQ(reparent.indexOf(u"1010"_s), 9);
}

TEST(PlannedChange, ComparesCaseAndFields)
{
    const PlannedChange a = PC::RemoveService{u"ID"_s, u"Spare"_s};
    EXPECT_EQ(a, PlannedChange(PC::RemoveService{u"ID"_s, u"Spare"_s}));
    EXPECT_NE(a, PlannedChange(PC::RemoveService{u"ID2"_s, u"Spare"_s}));
    EXPECT_NE(a, PlannedChange(PC::AddAdapterService{u"ID"_s, u"Spare"_s}));
    ASSERT_NE(a.as<PC::RemoveService>(), nullptr);
    EXPECT_EQ(a.as<PC::AddService>(), nullptr);
}

TEST(Plan, EmptyPlanWithARealAdapterIsEmpty)
{
    Plan plan;
    plan.adapterBSD = u"en7"_s;
    EXPECT_TRUE(plan.isEmpty());
}

TEST(Plan, OneChangeWithoutAdapterIsNotEmpty)
{
    Plan plan;
    plan.changes.append(PC::RemoveService{u"ID"_s, u"Spare"_s});
    EXPECT_EQ(plan.adapterBSD, u"\u2014"_s);
    EXPECT_FALSE(plan.isEmpty());
}

} // namespace
