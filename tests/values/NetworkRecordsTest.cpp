#include "VLANKit/values/AdapterRecord.h"
#include "VLANKit/values/HardwareCapabilities.h"
#include "VLANKit/values/IPConfig.h"
#include "VLANKit/values/IPv6Mode.h"
#include "VLANKit/values/ServiceRecord.h"
#include "VLANKit/values/VLANRecord.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

IPConfig manual(std::optional<QString> address, std::optional<QString> mask,
                std::optional<QString> router)
{
    return IPConfig{IPMode::manual, std::move(address), std::move(mask), std::move(router), {}};
}

HardwareCapabilities gigabitDriver()
{
    HardwareCapabilities capabilities;
    capabilities.mtuRange = ClosedRange{1280, 9000};
    capabilities.speeds = {
        {u"1000baseT"_s, {{u"full-duplex"_s}}},
        {u"100baseTX"_s, {{u"full-duplex"_s}, {u"half-duplex"_s}, {}}},
    };
    return capabilities;
}

TEST(IPMode, RawValuesRoundTrip)
{
    EXPECT_EQ(rawValue(IPMode::dhcp), u"DHCP"_s);
    EXPECT_EQ(rawValue(IPMode::manual), u"Manual"_s);
    EXPECT_EQ(rawValue(IPMode::linkLocal), u"LinkLocal"_s);
    EXPECT_EQ(rawValue(IPMode::off), u"Off"_s);
    EXPECT_EQ(rawValue(IPMode::unknown), u"Unknown"_s);
    for (IPMode mode :
         {IPMode::dhcp, IPMode::manual, IPMode::linkLocal, IPMode::off, IPMode::unknown})
        EXPECT_EQ(ipModeFromRaw(rawValue(mode)), mode);
}

TEST(IPMode, UnknownWordMakesNoMode)
{
    EXPECT_EQ(ipModeFromRaw(u"Static"_s), std::nullopt);
    EXPECT_EQ(ipModeFromRaw(u"dhcp"_s), std::nullopt);
    EXPECT_EQ(ipModeFromRaw(u""_s), std::nullopt);
}

TEST(IPv6Mode, LabelsAndRawValues)
{
    EXPECT_EQ(label(IPv6Mode::automatic), u"Automatic"_s);
    EXPECT_EQ(label(IPv6Mode::linkLocal), u"Link-local only"_s);
    EXPECT_EQ(label(IPv6Mode::manual), u"Manual"_s);
    EXPECT_EQ(label(IPv6Mode::off), u"Off"_s);
    EXPECT_EQ(label(IPv6Mode::unknown), u"\u2014"_s);
    EXPECT_EQ(rawValue(IPv6Mode::linkLocal), u"LinkLocal"_s);
    EXPECT_EQ(ipv6ModeFromRaw(u"Automatic"_s), IPv6Mode::automatic);
    EXPECT_EQ(ipv6ModeFromRaw(u"Link-local only"_s), std::nullopt);
}

TEST(IPv6Mode, AllCasesAndSettableInOrder)
{
    EXPECT_EQ(allIPv6Modes(),
              (QList<IPv6Mode>{IPv6Mode::automatic, IPv6Mode::linkLocal, IPv6Mode::manual,
                               IPv6Mode::off, IPv6Mode::unknown}));
    EXPECT_EQ(settableIPv6Modes(),
              (QList<IPv6Mode>{IPv6Mode::automatic, IPv6Mode::linkLocal, IPv6Mode::off}));
    EXPECT_FALSE(isSettable(IPv6Mode::manual));
    EXPECT_FALSE(isSettable(IPv6Mode::unknown));
}

TEST(IPConfig, DhcpConstantHasNothingElse)
{
    const IPConfig dhcp = IPConfig::dhcp();
    EXPECT_EQ(dhcp.mode, IPMode::dhcp);
    EXPECT_FALSE(dhcp.address || dhcp.subnetMask || dhcp.router);
    EXPECT_TRUE(dhcp.dns.isEmpty());
    EXPECT_EQ(IPConfig::off().mode, IPMode::off);
}

TEST(IPConfig, SummaryWordsPerMode)
{
    EXPECT_EQ(IPConfig::dhcp().summary(), u"DHCP"_s);
    EXPECT_EQ((IPConfig{IPMode::linkLocal, {}, {}, {}, {}}).summary(), u"link-local"_s);
    EXPECT_EQ(IPConfig::off().summary(), u"off"_s);
    EXPECT_EQ((IPConfig{IPMode::unknown, {}, {}, {}, {}}).summary(), u"\u2014"_s);
}

TEST(IPConfig, CompleteManualSummary)
{
    EXPECT_EQ(manual(u"10.0.10.5"_s, u"255.255.255.0"_s, u"10.0.10.1"_s).summary(),
              u"10.0.10.5/255.255.255.0 gw 10.0.10.1"_s);
}

TEST(IPConfig, ManualWithNothingSetSummarisesAsQuestionMarks)
{
    EXPECT_EQ(manual({}, {}, {}).summary(), u"?/?"_s);
}

TEST(IPConfig, ManualWithOnlyRouterSummarisesWithGateway)
{
    EXPECT_EQ(manual({}, {}, u"10.0.0.1"_s).summary(), u"?/? gw 10.0.0.1"_s);
}

TEST(IPConfig, EmptyStringsPrintAsTheyAre)
{
    EXPECT_EQ(manual(u""_s, u""_s, u""_s).summary(), u"/ gw "_s);
}

TEST(HardwareSettings, AutomaticConstant)
{
    EXPECT_TRUE(HardwareSettings::automatic().isAutomatic());
    EXPECT_EQ(HardwareSettings::automatic().summary(), u"automatic"_s);
}

TEST(HardwareSettings, OnlyDuplexIsStillAutomatic)
{
    const HardwareSettings settings{std::nullopt, std::nullopt, {u"full-duplex"_s}};
    EXPECT_TRUE(settings.isAutomatic());
    EXPECT_EQ(settings.summary(), u"automatic"_s);
    EXPECT_EQ(gigabitDriver().problem(settings), std::nullopt);
}

TEST(HardwareSettings, SpeedWithoutMTUHasNoTrailingComma)
{
    const HardwareSettings settings{std::nullopt, u"1000baseT"_s, {u"full-duplex"_s}};
    EXPECT_FALSE(settings.isAutomatic());
    EXPECT_EQ(settings.summary(), u"1000baseT full-duplex"_s);
}

TEST(HardwareSettings, SpeedAndMTU)
{
    const HardwareSettings settings{9000, u"1000baseT"_s, {u"full-duplex"_s}};
    EXPECT_EQ(settings.summary(), u"1000baseT full-duplex, MTU 9000"_s);
}

TEST(HardwareSettings, OnlyMTU)
{
    EXPECT_EQ((HardwareSettings{1500, std::nullopt, {}}).summary(), u"MTU 1500"_s);
}

TEST(HardwareCapabilities, MTUWithoutRangeCannotBeSet)
{
    HardwareCapabilities capabilities;
    EXPECT_EQ(capabilities.problem(HardwareSettings{1500, std::nullopt, {}}),
              u"The frame size can't be set on this interface."_s);
}

TEST(HardwareCapabilities, MTUAtEitherBoundPasses)
{
    EXPECT_EQ(gigabitDriver().problem(HardwareSettings{1280, std::nullopt, {}}), std::nullopt);
    EXPECT_EQ(gigabitDriver().problem(HardwareSettings{9000, std::nullopt, {}}), std::nullopt);
}

TEST(HardwareCapabilities, MTUOneStepOutsideFailsWithTheBounds)
{
    EXPECT_EQ(gigabitDriver().problem(HardwareSettings{1279, std::nullopt, {}}),
              u"MTU 1279 is outside what this interface takes (1280\u20139000)."_s);
    EXPECT_EQ(gigabitDriver().problem(HardwareSettings{9001, std::nullopt, {}}),
              u"MTU 9001 is outside what this interface takes (1280\u20139000)."_s);
}

TEST(HardwareCapabilities, SpeedNotOffered)
{
    EXPECT_EQ(gigabitDriver().problem(HardwareSettings{std::nullopt, u"10GbaseT"_s, {}}),
              u"This interface doesn't offer 10GbaseT."_s);
}

TEST(HardwareCapabilities, DuplexMustMatchAWholeCombination)
{
    const auto capabilities = gigabitDriver();
    EXPECT_EQ(capabilities.problem({std::nullopt, u"1000baseT"_s, {u"full-duplex"_s}}),
              std::nullopt);
    EXPECT_EQ(
        capabilities.problem({std::nullopt, u"1000baseT"_s, {u"full-duplex"_s, u"flow-control"_s}}),
        u"This interface doesn't offer 1000baseT with full-duplex, flow-control."_s);
}

TEST(HardwareCapabilities, DuplexInAnotherOrderIsRefused)
{
    HardwareCapabilities capabilities;
    capabilities.speeds = {{u"1000baseT"_s, {{u"full-duplex"_s, u"flow-control"_s}}}};
    EXPECT_EQ(
        capabilities.problem({std::nullopt, u"1000baseT"_s, {u"flow-control"_s, u"full-duplex"_s}}),
        u"This interface doesn't offer 1000baseT with flow-control, full-duplex."_s);
}

TEST(HardwareCapabilities, EmptyDuplexNeedsAnEmptyCombination)
{
    const auto capabilities = gigabitDriver();
    EXPECT_EQ(capabilities.problem({std::nullopt, u"1000baseT"_s, {}}),
              u"This interface doesn't offer 1000baseT with no duplex."_s);
    EXPECT_EQ(capabilities.problem({std::nullopt, u"100baseTX"_s, {}}), std::nullopt);
}

TEST(HardwareCapabilities, MTUIsCheckedBeforeSpeed)
{
    EXPECT_EQ(gigabitDriver().problem({20000, u"10GbaseT"_s, {}}),
              u"MTU 20000 is outside what this interface takes (1280\u20139000)."_s);
}

TEST(AdapterRecord, EmptyServiceNameFallsBackToDisplayName)
{
    const AdapterRecord adapter{u"en7"_s, u"USB 10/100/1000 LAN"_s, u""_s, true};
    EXPECT_EQ(adapter.friendlyName(), u"USB 10/100/1000 LAN"_s);
    EXPECT_FALSE(adapter.isNamed());
}

TEST(AdapterRecord, SameNameAsAdapterIsNotNamed)
{
    const AdapterRecord adapter{u"en7"_s, u"USB LAN"_s, u"USB LAN"_s, true};
    EXPECT_FALSE(adapter.isNamed());
    EXPECT_EQ(adapter.friendlyName(), u"USB LAN"_s);
}

TEST(AdapterRecord, OwnNameIsNamed)
{
    const AdapterRecord adapter{u"en7"_s, u"USB LAN"_s, u"DONGLE"_s, true};
    EXPECT_TRUE(adapter.isNamed());
    EXPECT_EQ(adapter.friendlyName(), u"DONGLE"_s);
}

TEST(AdapterRecord, AbsentServiceName)
{
    const AdapterRecord adapter{u"en0"_s, u"Ethernet"_s, std::nullopt, true};
    EXPECT_FALSE(adapter.isNamed());
    EXPECT_EQ(adapter.friendlyName(), u"Ethernet"_s);
}

TEST(VLANRecord, HasServiceDependsOnServiceIDAlone)
{
    VLANRecord record;
    record.serviceName = u"1010 - Control (DONGLE)"_s;
    EXPECT_FALSE(record.hasService());
    record.serviceID = u"ABC"_s;
    EXPECT_TRUE(record.hasService());
}

TEST(ServiceRecord, DeviceThatIsNeitherVLANNorWiFiIsAnAdapter)
{
    ServiceRecord service;
    service.hasDevice = true;
    EXPECT_TRUE(service.isAdapter());
    service.isVLAN = true;
    EXPECT_FALSE(service.isAdapter());
}

TEST(ServiceRecord, NoDeviceIsNoAdapterEvenWhenNotVLAN)
{
    ServiceRecord service;
    service.hasDevice = false;
    service.isVLAN = false;
    EXPECT_FALSE(service.isAdapter());
}

TEST(ServiceRecord, IdentityIsServiceID)
{
    ServiceRecord service;
    service.serviceID = u"1234"_s;
    EXPECT_EQ(service.id(), u"1234"_s);
}

TEST(Records, CompareFieldByField)
{
    VLANRecord a;
    a.tag = 1010;
    VLANRecord b = a;
    EXPECT_EQ(a, b);
    b.hardware.mtu = 9000;
    EXPECT_NE(a, b);
}

} // namespace
