// The reference's "expected results against this fixture", one by one, over a copy of its two
// example files.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class ReferenceFixture : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }
};

TEST_F(ReferenceFixture, CurrentSetIsKVRTShows2)
{
    const SessionRef session = readSession();
    EXPECT_EQ(backend->scNetworkSetGetName(backend->scNetworkSetCopyCurrent(session)),
              u"KVRT Shows 2"_s);
}

TEST_F(ReferenceFixture, CurrentSetHoldsSixServices)
{
    const SessionRef session = readSession();
    const auto services =
        backend->scNetworkSetCopyServices(backend->scNetworkSetCopyCurrent(session));
    ASSERT_TRUE(services);
    EXPECT_EQ(services->size(), 6);
}

TEST_F(ReferenceFixture, PreferencesHoldTenServices)
{
    const auto services = backend->scNetworkServiceCopyAll(readSession());
    ASSERT_TRUE(services);
    EXPECT_EQ(services->size(), 10);
}

TEST_F(ReferenceFixture, PreferencesHoldFourVLANs)
{
    EXPECT_EQ(vlanNames(readSession()),
              (QStringList{u"vlan0"_s, u"vlan1"_s, u"vlan2"_s, u"vlan3"_s}));
}

TEST_F(ReferenceFixture, CreatingTag1012OnEn7FailsAsKeyExists)
{
    const SessionRef session = readSession();
    EXPECT_FALSE(backend->scVLANInterfaceCreate(session, adapterNamed(u"en7"_s), 1012));
    EXPECT_EQ(backend->scError(), kSCStatusKeyExists);
    EXPECT_EQ(vlanNames(session).size(), 4);
}

TEST_F(ReferenceFixture, CreatingTag1020OnEn7GivesVlan4)
{
    const SessionRef session = readSession();
    const InterfaceRef vlan = backend->scVLANInterfaceCreate(session, adapterNamed(u"en7"_s), 1020);
    ASSERT_TRUE(vlan);
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(vlan), u"vlan4"_s);
    EXPECT_EQ(backend->scVLANInterfaceGetTag(vlan), 1020);
    EXPECT_EQ(
        backend->scNetworkInterfaceGetBSDName(backend->scVLANInterfaceGetPhysicalInterface(vlan)),
        u"en7"_s);
}

TEST_F(ReferenceFixture, AfterRemovingVlan1TheNextVLANIsNamedVlan1)
{
    const SessionRef session = readSession();
    ASSERT_TRUE(backend->scVLANInterfaceRemove(vlanNamed(session, u"vlan1"_s)));
    const InterfaceRef vlan = backend->scVLANInterfaceCreate(session, adapterNamed(u"en7"_s), 1020);
    EXPECT_EQ(backend->scNetworkInterfaceGetBSDName(vlan), u"vlan1"_s);
}

TEST_F(ReferenceFixture, RemovingTheCurrentSetFailsAsInvalidArgument)
{
    const SessionRef session = readSession();
    EXPECT_FALSE(backend->scNetworkSetRemove(backend->scNetworkSetCopyCurrent(session)));
    EXPECT_EQ(backend->scError(), kSCStatusInvalidArgument);
    EXPECT_EQ(setNames(session).size(), 2);
}

TEST_F(ReferenceFixture, TogglingDongleIPv4TouchesOnlyItsInactiveMark)
{
    const QByteArray before = bytesOf(u"preferences.plist"_s);
    const SessionRef session = writeSession();
    const ServiceRef dongle = serviceNamed(backend->scNetworkSetCopyCurrent(session), u"DONGLE"_s);
    const ProtocolRef ipv4 =
        backend->scNetworkServiceCopyProtocol(dongle, kSCNetworkProtocolTypeIPv4);
    ASSERT_FALSE(backend->scNetworkProtocolGetEnabled(ipv4));

    ASSERT_TRUE(backend->scNetworkProtocolSetEnabled(ipv4, true));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    const QByteArray enabled = bytesOf(u"preferences.plist"_s);
    const QByteArray mark = "\t\t\t\t<key>__INACTIVE__</key>\n\t\t\t\t<true/>\n";
    EXPECT_EQ(enabled.size(), before.size() - mark.size());
    EXPECT_EQ(QByteArray(before).replace(before.indexOf(mark, before.indexOf("6B7D8CC7")),
                                         mark.size(), ""),
              enabled);

    ASSERT_TRUE(backend->scNetworkProtocolSetEnabled(ipv4, false));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), before);
}

TEST_F(ReferenceFixture, VLANServicesShowTheirVLANsNames)
{
    const SetRef current = backend->scNetworkSetCopyCurrent(readSession());
    EXPECT_EQ(serviceNames(current),
              (QStringList{u"Ethernet"_s, u"Wi-Fi"_s, u"DONGLE"_s, u"1010 - Control (DONGLE)"_s,
                           u"1012 - Audio (DONGLE)"_s, u"1014 - Video (DONGLE)"_s}));
}

TEST_F(ReferenceFixture, Vlan3HasNoServiceInTheCurrentSet)
{
    const SessionRef session = readSession();
    const SetRef current = backend->scNetworkSetCopyCurrent(session);
    const auto services = backend->scNetworkSetCopyServices(current);
    ASSERT_TRUE(services);
    for (const ServiceRef &service : *services)
        EXPECT_NE(
            backend->scNetworkInterfaceGetBSDName(backend->scNetworkServiceGetInterface(service)),
            u"vlan3"_s);
    EXPECT_TRUE(serviceNamed(setNamed(session, u"Automatic"_s), u"1099 - Spare (DONGLE)"_s));
}

TEST_F(ReferenceFixture, Vlan2CarriesAFrameSizeOf9000InTheCurrentSet)
{
    const ServiceRef video =
        serviceNamed(backend->scNetworkSetCopyCurrent(readSession()), u"1014 - Video (DONGLE)"_s);
    const auto settings =
        backend->scNetworkInterfaceGetConfiguration(backend->scNetworkServiceGetInterface(video));
    ASSERT_TRUE(settings);
    EXPECT_EQ(*settings, (QVariantMap{{u"MTU"_s, qint64(9000)}}));
}

TEST_F(ReferenceFixture, ACommitOfNoChangeLeavesTheBytesAsTheyWere)
{
    const QByteArray before = bytesOf(u"preferences.plist"_s);
    const SessionRef session = writeSession();
    const InterfaceRef vlan = vlanNamed(session, u"vlan0"_s);
    ASSERT_TRUE(backend->scVLANInterfaceSetLocalizedDisplayName(vlan, u"Something else"_s));
    ASSERT_TRUE(
        backend->scVLANInterfaceSetLocalizedDisplayName(vlan, u"1010 - Control (DONGLE)"_s));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), before);
}

} // namespace
