// Hardware settings: what drivers offer, what a VLAN takes from its adapter, and how frame size,
// speed and duplex are judged, merged and written. The show machine's preferences, on a machine
// whose drivers answer in every way a driver can.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/store/RefusingBackend.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace {

using OrvaneTestRows::PrintTo;

// en0 answers everything; en5 (under most VLANs) only its frame sizes; en6 only its media;
// en2 gives its frame sizes the wrong way round. en8, TRUCK in the preferences, is away.
const QByteArray benchMachine = R"(
[machine]
computer-name = "Bench Mac"

[[interface]]
bsd-name = "en0"
display-name = "Ethernet"
built-in = true
link-up = true
mtu = { current = 1500, min = 1280, max = 9000 }
media = [
    { subtype = "autoselect" },
    { subtype = "10baseT/UTP" },
    { subtype = "100baseTX", options = [["half-duplex"], ["full-duplex"]] },
    { subtype = "1000baseT", options = [["full-duplex"], ["full-duplex", "flow-control"]] },
]
active-media = { subtype = "1000baseT", options = ["full-duplex"] }

[[interface]]
bsd-name = "en1"
type = "IEEE80211"
display-name = "Wi-Fi"
built-in = true
mtu = { current = 1500, min = 1280, max = 1500 }

[[interface]]
bsd-name = "en5"
display-name = "USB 10/100/1000 LAN"
link-up = true
mtu = { current = 1500, min = 1280, max = 9000 }

[[interface]]
bsd-name = "en6"
display-name = "USB 10/100/1000 LAN"
media = [
    { subtype = "autoselect" },
    { subtype = "1000baseT", options = [["full-duplex"]] },
]

[[interface]]
bsd-name = "en2"
display-name = "Thunderbolt Ethernet"
mtu = { current = 1500, min = 9000, max = 1500 }
media = [{ subtype = "1000baseT", options = [["full-duplex"]] }]
)";

class HardwareOnShowMac : public StoreTest
{
protected:
    void SetUp() override
    {
        openCopyOf();
        temporary.write(u"machine/machine.toml"_s, benchMachine);
        reopen();
    }

    /// A new backend over the same folder, as the next process would have.
    void reopen() { platform = another(); }

    [[nodiscard]] static QString serviceID(const VLANStore &store, const QString &name)
    {
        return serviceNamed(store, name).serviceID;
    }

    /// Stages an interface configuration through the seam, as another tool might have left it.
    static void stageConfiguration(VLANStore &store, const QString &serviceName,
                                   const QVariantMap &configuration)
    {
        PlatformBackend &platform = store.platform();
        const ServiceRef service = serviceIn(store, store.targetSet(), serviceName);
        ASSERT_TRUE(platform.scNetworkInterfaceSetConfiguration(
            platform.scNetworkServiceGetInterface(service), configuration));
    }

    static std::optional<QVariantMap> configurationOf(const VLANStore &store,
                                                      const QString &serviceName)
    {
        PlatformBackend &platform = store.platform();
        const ServiceRef service = serviceIn(store, store.targetSet(), serviceName);
        return platform.scNetworkInterfaceGetConfiguration(
            platform.scNetworkServiceGetInterface(service));
    }

    static HardwareSettings hardwareOf(const VLANStore &store, const QString &serviceName)
    {
        return serviceNamed(store, serviceName).hardware;
    }
};

HardwareSettings settings(std::optional<qint64> mtu, std::optional<QString> speed = std::nullopt,
                          QStringList duplex = {})
{
    return HardwareSettings{mtu, std::move(speed), std::move(duplex)};
}

const QString management = u"100 - Management (en0)"_s; // a VLAN on en0
const QString audio = u"1012 - Audio (DONGLE)"_s;       // a VLAN on en5, MTU 9000 in Show

// What drivers offer.

TEST_F(HardwareOnShowMac, WiFiHasNoCapabilitiesAndReadsAutomatic)
{
    const auto store = writeStore();
    stageConfiguration(*store, u"Wi-Fi"_s,
                       {{kSCPropNetEthernetMTU, 1400},
                        {kSCPropNetEthernetMediaSubType, u"1000baseT"_s},
                        {u"JoinMode"_s, u"Automatic"_s}});
    EXPECT_EQ(hardwareOf(*store, u"Wi-Fi"_s), HardwareSettings::automatic());
    EXPECT_EQ(store->hardwareCapabilities(serviceID(*store, u"Wi-Fi"_s)), std::nullopt);
    EXPECT_EQ(sentenceOf([&] {
                  store->setHardware(settings(1400), serviceID(*store, u"Wi-Fi"_s), u"Wi-Fi"_s);
              }),
              u"Wi-Fi has no hardware settings this app can change."_s);
}

TEST_F(HardwareOnShowMac, ADriverThatAnswersEverythingListsItsMediaInOrder)
{
    const auto store = readStore();
    const auto offered = store->hardwareCapabilities(serviceID(*store, u"Ethernet"_s));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, (ClosedRange{1280, 9000}));
    EXPECT_EQ(offered->activeMTU, 1500);
    EXPECT_EQ(offered->speeds,
              (QList<HardwareCapabilities::Speed>{
                  {u"10baseT/UTP"_s, {QStringList()}},
                  {u"100baseTX"_s, {{u"half-duplex"_s}, {u"full-duplex"_s}}},
                  {u"1000baseT"_s, {{u"full-duplex"_s}, {u"full-duplex"_s, u"flow-control"_s}}},
              }));
    EXPECT_EQ(offered->activeSpeed, u"1000baseT"_s);
    EXPECT_EQ(offered->activeDuplex, QStringList{u"full-duplex"_s});
}

TEST_F(HardwareOnShowMac, ADriverThatAnswersFrameSizesOnlyOffersNoSpeeds)
{
    const auto store = readStore();
    const auto offered = store->hardwareCapabilities(serviceID(*store, u"DONGLE"_s));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, (ClosedRange{1280, 9000}));
    EXPECT_TRUE(offered->speeds.isEmpty());
}

TEST_F(HardwareOnShowMac, ADriverThatAnswersMediaOnlyRefusesAnyFrameSize)
{
    const auto store = writeStore();
    const QString usb = u"USB 10/100/1000 LAN"_s;
    const auto offered = store->hardwareCapabilities(serviceID(*store, usb));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, std::nullopt);
    EXPECT_EQ(offered->speeds,
              (QList<HardwareCapabilities::Speed>{{u"1000baseT"_s, {{u"full-duplex"_s}}}}));
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(1500), serviceID(*store, usb), usb); }),
              u"USB 10/100/1000 LAN: The frame size can't be set on this interface."_s);
}

TEST_F(HardwareOnShowMac, ADriverWhoseHighestFrameSizeIsBelowItsLowestHasNoFrameRange)
{
    const auto store = readStore();
    const auto offered = store->offers(adapterNamed(*store, u"en2"_s));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, std::nullopt);
    EXPECT_EQ(offered->activeMTU, std::nullopt);
    EXPECT_EQ(offered->speeds.size(), 1);
    EXPECT_FALSE(store->adapterFrameRanges().contains(u"en2"_s));
}

// What a VLAN takes from its adapter.

TEST_F(HardwareOnShowMac, AVLANOffersItsParentsFrameSizesAndNoSpeeds)
{
    const auto store = writeStore();
    const auto offered = store->hardwareCapabilities(serviceID(*store, management));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, (ClosedRange{1280, 9000}));
    EXPECT_TRUE(offered->speeds.isEmpty());
    EXPECT_EQ(sentenceOf([&] {
                  store->setHardware(settings(std::nullopt, u"1000baseT"_s, {u"full-duplex"_s}),
                                     serviceID(*store, management), management);
              }),
              management + u": This interface doesn't offer 1000baseT."_s);
}

TEST_F(HardwareOnShowMac, AVLANNeverOffersMediaEvenWhenItsDriverDoes)
{
    const auto store = readStore();
    const InterfaceRef vlan = vlanNamed(*store, u"vlan11"_s);
    const InterfaceRef parent = adapterNamed(*store, u"en0"_s);
    // A driver that answers for the VLAN with media and a narrower range of its own.
    store->driverCapabilities = [&](const InterfaceRef &interface) {
        if (store->platform().scNetworkInterfaceGetBSDName(interface) != u"vlan11"_s)
            return store->askDriver(interface);
        HardwareCapabilities own;
        own.mtuRange = ClosedRange{1280, 1500};
        own.speeds = {{u"1000baseT"_s, {{u"full-duplex"_s}}}};
        return std::optional(own);
    };
    const auto offered = store->offers(vlan);
    ASSERT_TRUE(offered);
    EXPECT_TRUE(offered->speeds.isEmpty());
    EXPECT_EQ(offered->mtuRange, store->askDriver(parent)->mtuRange);
    EXPECT_EQ(offered->mtuRange, (ClosedRange{1280, 9000}));
}

TEST_F(HardwareOnShowMac, AVLANWhoseParentsDriverIsSilentKeepsItsOwnRange)
{
    const auto store = readStore();
    store->driverCapabilities = [&](const InterfaceRef &interface) {
        if (store->platform().scNetworkInterfaceGetBSDName(interface) != u"vlan11"_s)
            return std::optional<HardwareCapabilities>();
        HardwareCapabilities own;
        own.mtuRange = ClosedRange{1280, 1500};
        return std::optional(own);
    };
    const auto offered = store->offers(vlanNamed(*store, u"vlan11"_s));
    ASSERT_TRUE(offered);
    EXPECT_EQ(offered->mtuRange, (ClosedRange{1280, 1500}));
    EXPECT_EQ(store->frameRange(u"vlan11"_s), std::nullopt);
}

TEST_F(HardwareOnShowMac, FrameRangeOfAVLANIsWhatItsParentTakes)
{
    const auto store = readStore();
    EXPECT_EQ(store->frameRange(u"vlan1"_s), (ClosedRange{1280, 9000})); // on en5
    EXPECT_EQ(store->frameRange(u"vlan8"_s), std::nullopt);              // en6: media only
    EXPECT_EQ(store->frameRange(u"vlan10"_s), std::nullopt);             // en8 is away
    EXPECT_EQ(store->frameRange(u"en0"_s), std::nullopt);                // no VLAN
}

TEST_F(HardwareOnShowMac, AdapterFrameRangesListEachAdapterThatHasOne)
{
    const auto store = readStore();
    EXPECT_EQ(store->adapterFrameRanges(),
              (QHash<QString, ClosedRange>{{u"en0"_s, {1280, 9000}}, {u"en5"_s, {1280, 9000}}}));
}

TEST_F(HardwareOnShowMac, CapabilitiesNeedAServiceOfThisLocation)
{
    const auto store = readStore();
    store->selectLocation(u"Rehearsal"_s);
    const QString rehearsalEthernet = serviceID(*store, u"Ethernet"_s);
    EXPECT_TRUE(store->hardwareCapabilities(rehearsalEthernet));
    store->selectLocation(u"Show"_s);
    EXPECT_EQ(store->hardwareCapabilities(rehearsalEthernet), std::nullopt);
    EXPECT_EQ(store->hardwareCapabilities(u"no-such-service"_s), std::nullopt);
    store->setSelectedSetID(u"5A0E0B1C-0000-4000-8000-000000000000"_s);
    EXPECT_EQ(store->hardwareCapabilities(rehearsalEthernet), std::nullopt);
}

// Reading.

TEST_F(HardwareOnShowMac, AnAutoselectConfigurationWithOptionsReadsAutomatic)
{
    const auto store = writeStore();
    stageConfiguration(*store, u"Ethernet"_s,
                       {{kSCPropNetEthernetMediaSubType, u"autoselect"_s},
                        {kSCPropNetEthernetMediaOptions, QVariantList{u"full-duplex"_s}}});
    const HardwareSettings read = hardwareOf(*store, u"Ethernet"_s);
    EXPECT_EQ(read, HardwareSettings::automatic());
    EXPECT_TRUE(read.duplex.isEmpty());
}

// Writing.

TEST_F(HardwareOnShowMac, SettingAutomaticOnTheThreeKeysClearsTheConfiguration)
{
    auto store = writeStore();
    stageConfiguration(*store, u"Ethernet"_s,
                       {{kSCPropNetEthernetMTU, 9000},
                        {kSCPropNetEthernetMediaSubType, u"1000baseT"_s},
                        {kSCPropNetEthernetMediaOptions, QVariantList{u"full-duplex"_s}}});
    store->setHardware(HardwareSettings::automatic(), serviceID(*store, u"Ethernet"_s),
                       u"Ethernet"_s);
    EXPECT_EQ(configurationOf(*store, u"Ethernet"_s), std::nullopt);
    store->commit();

    reopen();
    EXPECT_EQ(configurationOf(*readStore(), u"Ethernet"_s), std::nullopt);
}

TEST_F(HardwareOnShowMac, SettingAutomaticLeavesAFurtherKey)
{
    auto store = writeStore();
    stageConfiguration(*store, u"Ethernet"_s,
                       {{kSCPropNetEthernetMTU, 9000},
                        {kSCPropNetEthernetMediaSubType, u"1000baseT"_s},
                        {kSCPropNetEthernetMediaOptions, QVariantList{u"full-duplex"_s}},
                        {u"TSO"_s, 1}});
    store->setHardware(HardwareSettings::automatic(), serviceID(*store, u"Ethernet"_s),
                       u"Ethernet"_s);
    store->commit();

    reopen();
    const auto left = configurationOf(*readStore(), u"Ethernet"_s);
    ASSERT_TRUE(left);
    EXPECT_EQ(left->keys(), QStringList{u"TSO"_s});
    EXPECT_EQ(integerIn(*left, u"TSO"_s), 1);
}

TEST_F(HardwareOnShowMac, ASpeedWithoutDuplexWritesAnEmptyOptionList)
{
    auto store = writeStore();
    store->setHardware(settings(std::nullopt, u"10baseT/UTP"_s), serviceID(*store, u"Ethernet"_s),
                       u"Ethernet"_s);
    store->commit();

    reopen();
    const auto written = configurationOf(*readStore(), u"Ethernet"_s);
    ASSERT_TRUE(written);
    EXPECT_EQ(stringIn(*written, kSCPropNetEthernetMediaSubType), u"10baseT/UTP"_s);
    EXPECT_EQ(stringListIn(*written, kSCPropNetEthernetMediaOptions), QStringList());
    EXPECT_FALSE(written->contains(kSCPropNetEthernetMTU));
}

TEST_F(HardwareOnShowMac, WhatIsSetReadsBackAfterTheCommit)
{
    auto store = writeStore();
    const HardwareSettings wanted = settings(9000, u"1000baseT"_s, {u"full-duplex"_s});
    store->setHardware(wanted, serviceID(*store, u"Ethernet"_s), u"Ethernet"_s);
    store->setHardware(settings(1500), serviceID(*store, audio), audio);
    EXPECT_EQ(hardwareOf(*store, u"Ethernet"_s), wanted);
    store->commit();

    reopen();
    const auto reader = readStore();
    EXPECT_EQ(hardwareOf(*reader, u"Ethernet"_s), wanted);
    EXPECT_EQ(hardwareOf(*reader, audio), settings(1500));
}

TEST_F(HardwareOnShowMac, FrameSizesAtEitherBoundPassAndOneStepOutsideFails)
{
    auto store = writeStore();
    const QString ethernet = serviceID(*store, u"Ethernet"_s);
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(1280), ethernet, u"Ethernet"_s); }),
              u"(no failure)"_s);
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(9000), ethernet, u"Ethernet"_s); }),
              u"(no failure)"_s);
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(9001), ethernet, u"Ethernet"_s); }),
              u"Ethernet: MTU 9001 is outside what this interface takes (1280\u20139000)."_s);
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(1279), ethernet, u"Ethernet"_s); }),
              u"Ethernet: MTU 1279 is outside what this interface takes (1280\u20139000)."_s);
    EXPECT_EQ(hardwareOf(*store, u"Ethernet"_s), settings(9000));
}

struct RefusalCase
{
    const char *name;
    HardwareSettings settings;
    QString sentence;
};

class SetHardwareRefuses : public HardwareOnShowMac,
                           public ::testing::WithParamInterface<RefusalCase>
{};

TEST_P(SetHardwareRefuses, WhatTheDriverDoesNotOfferWithItsWords)
{
    auto store = writeStore();
    const auto failure = failureOf([&] {
        store->setHardware(GetParam().settings, serviceID(*store, u"Ethernet"_s), u"Ethernet"_s);
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::operationFailed);
    EXPECT_EQ(failure->localizedDescription(), GetParam().sentence);
    // Nothing was written.
    EXPECT_EQ(configurationOf(*store, u"Ethernet"_s), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SetHardwareRefuses,
    ::testing::Values(
        RefusalCase{"SpeedNotOffered", settings(std::nullopt, u"10GbaseT"_s, {u"full-duplex"_s}),
                    u"Ethernet: This interface doesn't offer 10GbaseT."_s},
        RefusalCase{"DuplexNotOffered", settings(std::nullopt, u"1000baseT"_s, {u"half-duplex"_s}),
                    u"Ethernet: This interface doesn't offer 1000baseT with half-duplex."_s},
        RefusalCase{"OptionsInAnotherOrder",
                    settings(std::nullopt, u"1000baseT"_s, {u"flow-control"_s, u"full-duplex"_s}),
                    u"Ethernet: This interface doesn't offer 1000baseT with flow-control, "
                    u"full-duplex."_s},
        RefusalCase{"NoDuplexWhereTheDriverListsNone", settings(std::nullopt, u"100baseTX"_s),
                    u"Ethernet: This interface doesn't offer 100baseTX with no duplex."_s},
        RefusalCase{
            "FrameSizeAboveTheRange", settings(16000),
            u"Ethernet: MTU 16000 is outside what this interface takes (1280\u20139000)."_s},
        RefusalCase{"AutoselectIsNoSpeedTheDriverLists", settings(std::nullopt, u"autoselect"_s),
                    u"Ethernet: This interface doesn't offer autoselect."_s}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(HardwareOnShowMac, AnAdapterThatIsAwayTakesOnlyAutomaticSettings)
{
    auto store = writeStore();
    const QString truck = serviceID(*store, u"TRUCK"_s);
    EXPECT_EQ(sentenceOf([&] { store->setHardware(settings(1500), truck, u"TRUCK"_s); }),
              u"TRUCK isn't attached, so there is no telling what its hardware takes."_s);
    EXPECT_EQ(sentenceOf([&] {
                  store->setHardware(settings(std::nullopt, u"1000baseT"_s, {u"full-duplex"_s}),
                                     truck, u"TRUCK"_s);
              }),
              u"TRUCK isn't attached, so there is no telling what its hardware takes."_s);
    EXPECT_EQ(sentenceOf([&] {
                  store->setHardware(settings(std::nullopt, std::nullopt, {u"full-duplex"_s}),
                                     truck, u"TRUCK"_s);
              }),
              u"(no failure)"_s);
}

TEST_F(HardwareOnShowMac, SetHardwareNeedsAServiceOfThisLocation)
{
    auto store = writeStore();
    store->selectLocation(u"Rehearsal"_s);
    const QString rehearsalEthernet = serviceID(*store, u"Ethernet"_s);
    store->selectLocation(u"Show"_s);
    EXPECT_EQ(
        sentenceOf([&] { store->setHardware(settings(1500), rehearsalEthernet, u"Ethernet"_s); }),
        u"Ethernet has no service in this Location."_s);
    store->setSelectedSetID(u"5A0E0B1C-0000-4000-8000-000000000000"_s);
    const auto failure =
        failureOf([&] { store->setHardware(settings(1500), rehearsalEthernet, u"Ethernet"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::noCurrentSet);
}

TEST_F(HardwareOnShowMac, AWriteTheSystemRefusesNamesTheService)
{
    VLANStore store(RefusingBackend::over(*platform, {u"SCNetworkInterfaceSetConfiguration"_s}));
    EXPECT_EQ(sentenceOf([&] {
                  store.setHardware(settings(9000), serviceID(store, u"Ethernet"_s), u"Ethernet"_s);
              }),
              u"Could not set the hardware settings of Ethernet."_s);
}

// Merging settings into a configuration.

struct MergeCase
{
    const char *name;
    std::optional<QVariantMap> existing;
    HardwareSettings settings;
    std::optional<QVariantMap> expected;
};

class ConfigurationMerge : public ::testing::TestWithParam<MergeCase>
{};

TEST_P(ConfigurationMerge, KeepsOtherKeysAndClearsWhatIsAutomatic)
{
    EXPECT_EQ(VLANStore::configuration(GetParam().existing, GetParam().settings),
              GetParam().expected);
}

const QVariantMap threeKeys{{kSCPropNetEthernetMTU, 9000},
                            {kSCPropNetEthernetMediaSubType, u"1000baseT"_s},
                            {kSCPropNetEthernetMediaOptions, QVariantList{u"full-duplex"_s}}};

QVariantMap with(QVariantMap map, const QString &key, const QVariant &value)
{
    map.insert(key, value);
    return map;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ConfigurationMerge,
    ::testing::Values(MergeCase{"NothingOnNothingIsNothing", std::nullopt,
                                HardwareSettings::automatic(), std::nullopt},
                      MergeCase{"AutomaticOnTheThreeKeysClears", threeKeys,
                                HardwareSettings::automatic(), std::nullopt},
                      MergeCase{"AutomaticKeepsAFurtherKey", with(threeKeys, u"TSO"_s, 1),
                                HardwareSettings::automatic(), QVariantMap{{u"TSO"_s, 1}}},
                      MergeCase{"DuplexWithoutSpeedIsDropped", threeKeys,
                                settings(1500, std::nullopt, {u"full-duplex"_s}),
                                QVariantMap{{kSCPropNetEthernetMTU, qint64(1500)}}},
                      MergeCase{"SpeedWithoutDuplexWritesAnEmptyList", QVariantMap{{u"TSO"_s, 1}},
                                settings(std::nullopt, u"100baseTX"_s),
                                QVariantMap{{u"TSO"_s, 1},
                                            {kSCPropNetEthernetMediaSubType, u"100baseTX"_s},
                                            {kSCPropNetEthernetMediaOptions, QVariantList()}}},
                      MergeCase{"EverythingReplaced", threeKeys,
                                settings(1500, u"100baseTX"_s, {u"half-duplex"_s}),
                                QVariantMap{{kSCPropNetEthernetMTU, qint64(1500)},
                                            {kSCPropNetEthernetMediaSubType, u"100baseTX"_s},
                                            {kSCPropNetEthernetMediaOptions,
                                             QVariantList{u"half-duplex"_s}}}}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
