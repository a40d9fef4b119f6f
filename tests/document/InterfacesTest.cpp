// The interface calls and the hardware facts, over the example show machine.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Interfaces : public DocumentTest
{
protected:
    void SetUp() override { openCopyOf(u"examples/show-mac"_s); }

    InterfaceRef serviceInterface(const SessionRef &session, const QString &serviceName)
    {
        return backend->scNetworkServiceGetInterface(
            serviceNamed(backend->scNetworkSetCopyCurrent(session), serviceName));
    }
};

TEST_F(Interfaces, CopyAllGivesTheAttachedAdaptersAndTheVLANsOnThem)
{
    EXPECT_EQ(bsdNames(backend->scNetworkInterfaceCopyAll()),
              (QStringList{u"en0"_s, u"en1"_s, u"en5"_s, u"en6"_s, u"vlan0"_s, u"vlan1"_s,
                           u"vlan2"_s, u"vlan3"_s, u"vlan4"_s, u"vlan5"_s, u"vlan6"_s, u"vlan7"_s,
                           u"vlan8"_s, u"vlan9"_s, u"vlan11"_s}));
    const InterfaceRef wifi = adapterNamed(u"en1"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(wifi), kSCNetworkInterfaceTypeIEEE80211);
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(wifi), u"Wi-Fi"_s);
    const InterfaceRef vlan = adapterNamed(u"vlan4"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(vlan), kSCNetworkInterfaceTypeVLAN);
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(vlan),
              u"1020 - Internet (DONGLE)"_s);
    EXPECT_EQ(backend->scVLANInterfaceGetTag(vlan), 1020);
    EXPECT_EQ(
        backend->scNetworkInterfaceGetBSDName(backend->scVLANInterfaceGetPhysicalInterface(vlan)),
        u"en5"_s);
}

TEST_F(Interfaces, TheAdaptersThatCarryVLANsAreTheEthernetOnes)
{
    EXPECT_EQ(bsdNames(backend->scVLANInterfaceCopyAvailablePhysicalInterfaces()),
              (QStringList{u"en0"_s, u"en5"_s, u"en6"_s}));
}

TEST_F(Interfaces, CopyMTUGivesTheFrameSizesOfTheDevice)
{
    EXPECT_EQ(backend->scNetworkInterfaceCopyMTU(adapterNamed(u"en0"_s)),
              (InterfaceMTU{1500, 1280, 9000}));
    EXPECT_EQ(backend->scNetworkInterfaceCopyMTU(adapterNamed(u"en6"_s)),
              (InterfaceMTU{1500, 1280, 4088}));
    EXPECT_EQ(backend->scNetworkInterfaceCopyMTU(adapterNamed(u"vlan8"_s)),
              (InterfaceMTU{1500, 1280, 4088}))
        << "a VLAN takes the range of its adapter";
}

TEST_F(Interfaces, CopyMTUOfAnAdapterThatIsAwayFails)
{
    const SessionRef session = readSession();
    const InterfaceRef truck = serviceInterface(session, u"TRUCK"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(truck), u"en8"_s);
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMTU(truck));
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMTU(
        serviceInterface(session, u"3010 - Truck Feed (TRUCK)"_s)));
}

TEST_F(Interfaces, CopyMediaOptionsGivesTheActiveAndTheOfferedMedia)
{
    const auto media = backend->scNetworkInterfaceCopyMediaOptions(adapterNamed(u"en5"_s), true);
    ASSERT_TRUE(media);
    EXPECT_EQ(media->active, (QVariantMap{{u"MediaSubType"_s, u"autoselect"_s},
                                          {u"MediaOptions"_s, QVariantList()}}));
    ASSERT_TRUE(media->available);
    EXPECT_EQ(media->available->size(), 4);
    EXPECT_EQ(backend->scNetworkInterfaceCopyMediaSubTypes(*media->available),
              (QVariantList{u"autoselect"_s, u"100baseTX"_s, u"1000baseT"_s}));
    EXPECT_EQ(backend->scNetworkInterfaceCopyMediaSubTypeOptions(*media->available, u"1000baseT"_s),
              (QVariantList{QVariantList{u"full-duplex"_s},
                            QVariantList{u"full-duplex"_s, u"flow-control"_s}}));
    EXPECT_FALSE(
        backend->scNetworkInterfaceCopyMediaSubTypeOptions(*media->available, u"10GbaseT"_s));
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMediaSubTypes({}));
}

TEST_F(Interfaces, ADeviceWithoutMediaAndAVLANAnswerNoMedia)
{
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMediaOptions(adapterNamed(u"en1"_s), true));
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMediaOptions(adapterNamed(u"vlan0"_s), true));
}

TEST_F(Interfaces, AppliedMediaReachTheDevice)
{
    const SessionRef session = writeSession();
    const InterfaceRef ethernet = serviceInterface(session, u"Ethernet"_s);
    ASSERT_TRUE(backend->scNetworkInterfaceSetConfiguration(
        ethernet, QVariantMap{{u"MediaSubType"_s, u"1000baseT"_s},
                              {u"MediaOptions"_s, QVariantList{u"full-duplex"_s}}}));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    const auto media = backend->scNetworkInterfaceCopyMediaOptions(ethernet, true);
    ASSERT_TRUE(media);
    EXPECT_EQ(media->active, (QVariantMap{{u"MediaSubType"_s, u"1000baseT"_s},
                                          {u"MediaOptions"_s, QVariantList{u"full-duplex"_s}}}));
}

TEST_F(Interfaces, StagedSettingsReadAsTheFileWillGiveThemBack)
{
    const SessionRef session = writeSession();
    const InterfaceRef ethernet = serviceInterface(session, u"Ethernet"_s);
    ASSERT_TRUE(backend->scNetworkInterfaceSetConfiguration(
        ethernet, QVariantMap{{u"MTU"_s, 1500},
                              {u"MediaSubType"_s, u"100baseTX"_s},
                              {u"MediaOptions"_s, QStringList{u"full-duplex"_s}}}));
    const QVariantMap stored{{u"MTU"_s, qint64(1500)},
                             {u"MediaSubType"_s, u"100baseTX"_s},
                             {u"MediaOptions"_s, QVariantList{u"full-duplex"_s}}};
    const auto staged = backend->scNetworkInterfaceGetConfiguration(ethernet);
    ASSERT_TRUE(staged);
    EXPECT_EQ(staged->value(u"MediaOptions"_s).metaType().id(), QMetaType::QVariantList);
    EXPECT_EQ(staged->value(u"MTU"_s).metaType().id(), QMetaType::LongLong);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(
        backend->scNetworkInterfaceGetConfiguration(serviceInterface(readSession(), u"Ethernet"_s)),
        stored);
}

TEST_F(Interfaces, OnlyAnInterfaceReachedThroughItsServiceHasSettings)
{
    const SessionRef session = writeSession();
    EXPECT_EQ(backend->scNetworkInterfaceGetConfiguration(
                  serviceInterface(session, u"1012 - Audio (DONGLE)"_s)),
              (QVariantMap{{u"MTU"_s, qint64(9000)}}));
    EXPECT_FALSE(backend->scNetworkInterfaceGetConfiguration(vlanNamed(session, u"vlan1"_s)));
    EXPECT_FALSE(backend->scNetworkInterfaceSetConfiguration(vlanNamed(session, u"vlan1"_s),
                                                             QVariantMap{{u"MTU"_s, 1500}}));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    EXPECT_FALSE(
        backend->scNetworkInterfaceGetConfiguration(serviceInterface(session, u"Ethernet"_s)));
}

TEST_F(Interfaces, SettingsAreWrittenIntoEverySetThatHoldsTheService)
{
    const SessionRef session = writeSession();
    const SetRef show = backend->scNetworkSetCopyCurrent(session);
    const SetRef office = setNamed(session, u"Office"_s);
    const ServiceRef video = serviceNamed(show, u"1014 - Video (DONGLE)"_s);
    ASSERT_TRUE(backend->scNetworkSetAddService(office, video));
    const InterfaceRef interface = backend->scNetworkServiceGetInterface(video);
    ASSERT_TRUE(
        backend->scNetworkInterfaceSetConfiguration(interface, QVariantMap{{u"MTU"_s, 4000}}));
    ASSERT_TRUE(backend->scNetworkSetRemoveService(show, video));
    EXPECT_EQ(backend->scNetworkInterfaceGetConfiguration(interface),
              (QVariantMap{{u"MTU"_s, 4000}}))
        << "the copy in the other set";
    ASSERT_TRUE(backend->scNetworkInterfaceSetConfiguration(interface, QVariantMap()));
    EXPECT_FALSE(backend->scNetworkInterfaceGetConfiguration(interface));
}

TEST_F(Interfaces, SettingsOfAServiceInNoSetCantBeWritten)
{
    const SessionRef session = writeSession();
    const ServiceRef loose = backend->scNetworkServiceCreate(session, adapterNamed(u"en6"_s));
    EXPECT_FALSE(backend->scNetworkInterfaceSetConfiguration(
        backend->scNetworkServiceGetInterface(loose), QVariantMap{{u"MTU"_s, 1500}}));
    EXPECT_EQ(backend->scError(), kSCStatusNoKey);
}

TEST_F(Interfaces, TheInterfaceOfAServiceOnAnAbsentAdapterIsWhatTheServiceRemembers)
{
    const InterfaceRef truck = serviceInterface(readSession(), u"TRUCK"_s);
    EXPECT_EQ(backend->scNetworkInterfaceGetInterfaceType(truck), kSCNetworkInterfaceTypeEthernet);
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(truck), u"USB 10/100/1000 LAN"_s);
}

TEST_F(Interfaces, CallsOnNoInterfaceGiveNothing)
{
    const InterfaceRef none;
    EXPECT_FALSE(backend->scNetworkInterfaceGetBSDName(none));
    EXPECT_FALSE(backend->scNetworkInterfaceGetInterfaceType(none));
    EXPECT_FALSE(backend->scNetworkInterfaceGetLocalizedDisplayName(none));
    EXPECT_FALSE(backend->scNetworkInterfaceGetConfiguration(none));
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMTU(none));
    EXPECT_FALSE(backend->scNetworkInterfaceCopyMediaOptions(none, true));
    EXPECT_EQ(backend->ifNameToIndex(u"en99"_s), 0u);
}

} // namespace
