// What the kernel holds: at boot without a state file, and after each apply.
#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString servicePattern = u"State:/Network/Service/[^/]+/IPv4"_s;

class KernelOfShowMac : public DocumentTest
{
protected:
    void SetUp() override { openCopyOf(u"examples/show-mac"_s); }

    /// The live IPv4 state of the current Location's service of that name.
    std::optional<QVariantMap> liveStateOf(const QString &serviceName)
    {
        const ServiceRef service =
            serviceNamed(backend->scNetworkSetCopyCurrent(readSession()), serviceName);
        EXPECT_TRUE(service) << serviceName.toStdString();
        const QString key = u"State:/Network/Service/%1/IPv4"_s.arg(
            backend->scNetworkServiceGetServiceID(service).value_or(QString()));
        const auto answer = backend->scDynamicStoreCopyMultiple(
            backend->scDynamicStoreCreate(u"Orvane"_s, {}), {}, {servicePattern});
        EXPECT_TRUE(answer);
        return answer ? mapIn(*answer, key) : std::nullopt;
    }

    QString firstAddressOf(const QString &serviceName)
    {
        const auto state = liveStateOf(serviceName);
        return state ? anyStringsOf(state->value(u"Addresses"_s)).value(0) : QString();
    }

    /// Commits and applies what the session staged.
    void applyStaged(const SessionRef &session)
    {
        ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
        ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    }

    ProtocolRef ipv4Of(const SessionRef &session, const QString &serviceName)
    {
        return backend->scNetworkServiceCopyProtocol(
            serviceNamed(backend->scNetworkSetCopyCurrent(session), serviceName),
            kSCNetworkProtocolTypeIPv4);
    }
};

TEST_F(KernelOfShowMac, WithoutAStateFileTheKernelHoldsWhatBootWouldApply)
{
    EXPECT_FALSE(QFileInfo::exists(path(u"kernel-state.plist"_s)));
    EXPECT_EQ(backend->ifNameToIndex(u"en0"_s), 1u);
    EXPECT_EQ(backend->ifNameToIndex(u"vlan0"_s), 5u);
    EXPECT_EQ(firstAddressOf(u"1010 - Control (DONGLE)"_s), u"192.168.10.69"_s);
    // Reading computed it; nothing was written.
    EXPECT_FALSE(QFileInfo::exists(path(u"kernel-state.plist"_s)));
}

TEST_F(KernelOfShowMac, VLANsStandOnAttachedAdaptersOnly)
{
    EXPECT_NE(backend->ifNameToIndex(u"vlan9"_s), 0u) << "en6 is attached, its link down";
    EXPECT_NE(backend->ifNameToIndex(u"vlan11"_s), 0u);
    EXPECT_EQ(backend->ifNameToIndex(u"vlan10"_s), 0u) << "its adapter en8 is away";
    EXPECT_EQ(backend->ifNameToIndex(u"en8"_s), 0u);
    EXPECT_EQ(backend->ifNameToIndex(u"vlan99"_s), 0u);
}

TEST_F(KernelOfShowMac, ManualAddressesAreHeldWhereTheLinkIsUp)
{
    const auto control = liveStateOf(u"1010 - Control (DONGLE)"_s);
    ASSERT_TRUE(control);
    EXPECT_EQ(anyStringsOf(control->value(u"SubnetMasks"_s)), QStringList{u"255.255.255.0"_s});
    EXPECT_EQ(stringIn(*control, u"Router"_s), u"192.168.10.1"_s);
    EXPECT_EQ(stringIn(*control, u"InterfaceName"_s), u"vlan0"_s);
    EXPECT_EQ(firstAddressOf(u"100 - Management (en0)"_s), u"10.0.100.69"_s);
    EXPECT_FALSE(liveStateOf(u"2010 - Monitors (en6)"_s)) << "the link of en6 is down";
}

TEST_F(KernelOfShowMac, ADHCPServiceGetsALeaseWhereAServerAnswers)
{
    const auto internet = liveStateOf(u"1020 - Internet (DONGLE)"_s);
    ASSERT_TRUE(internet);
    EXPECT_EQ(anyStringsOf(internet->value(u"Addresses"_s)), QStringList{u"192.168.20.100"_s});
    EXPECT_EQ(anyStringsOf(internet->value(u"SubnetMasks"_s)), QStringList{u"255.255.255.0"_s});
    EXPECT_EQ(stringIn(*internet, u"Router"_s), u"192.168.20.1"_s);
}

TEST_F(KernelOfShowMac, ADHCPServiceWithoutAServerAssignsItselfAnAddress)
{
    const auto ethernet = liveStateOf(u"Ethernet"_s);
    ASSERT_TRUE(ethernet);
    const QString address = anyStringsOf(ethernet->value(u"Addresses"_s)).value(0);
    const auto quad = parseDottedQuad(address);
    ASSERT_TRUE(quad) << address.toStdString();
    EXPECT_EQ((*quad)[0], 169);
    EXPECT_EQ((*quad)[1], 254);
    EXPECT_GE((*quad)[2], 1);
    EXPECT_LE((*quad)[2], 254);
    EXPECT_EQ(anyStringsOf(ethernet->value(u"SubnetMasks"_s)), QStringList{u"255.255.0.0"_s});
    EXPECT_FALSE(ethernet->contains(u"Router"_s));

    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    EXPECT_EQ(firstAddressOf(u"Ethernet"_s), address) << "the same address at every apply";
}

TEST_F(KernelOfShowMac, AServiceThatIsOffHoldsNothing)
{
    EXPECT_FALSE(liveStateOf(u"1030 - Intercom (DONGLE)"_s));
    EXPECT_FALSE(liveStateOf(u"DONGLE"_s)) << "its IPv4 protocol is off";
}

TEST_F(KernelOfShowMac, ApplyWritesTheKernelsViewThatEveryoneReads)
{
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkProtocolSetConfiguration(
        ipv4Of(session, u"1014 - Video (DONGLE)"_s),
        QVariantMap{{u"ConfigMethod"_s, u"Manual"_s},
                    {u"Addresses"_s, QVariantList{u"192.168.14.70"_s}},
                    {u"SubnetMasks"_s, QVariantList{u"255.255.255.0"_s}}}));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    EXPECT_EQ(firstAddressOf(u"1014 - Video (DONGLE)"_s), u"192.168.14.69"_s)
        << "stored and not yet applied";
    ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    EXPECT_TRUE(QFileInfo::exists(path(u"kernel-state.plist"_s)));
    EXPECT_EQ(firstAddressOf(u"1014 - Video (DONGLE)"_s), u"192.168.14.70"_s);
    reopen();
    EXPECT_EQ(firstAddressOf(u"1014 - Video (DONGLE)"_s), u"192.168.14.70"_s);
}

TEST_F(KernelOfShowMac, ApplyFollowsTheStoredFileNotTheSnapshot)
{
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkProtocolSetEnabled(ipv4Of(session, u"1016 - Lighting (DONGLE)"_s),
                                                     false));
    ASSERT_TRUE(backend->scPreferencesApplyChanges(session));
    EXPECT_EQ(firstAddressOf(u"1016 - Lighting (DONGLE)"_s), u"192.168.16.69"_s);
}

TEST_F(KernelOfShowMac, OnlyTheCurrentLocationIsApplied)
{
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkSetSetCurrent(setNamed(session, u"Rehearsal"_s)));
    applyStaged(session);
    EXPECT_TRUE(firstAddressOf(u"1012 - Audio (DONGLE)"_s).startsWith(u"169.254."_s))
        << "a DHCP VLAN without a server";
    const auto answer = backend->scDynamicStoreCopyMultiple(
        backend->scDynamicStoreCreate(u"Orvane"_s, {}), {}, {servicePattern});
    ASSERT_TRUE(answer);
    QStringList held;
    for (const QVariant &state : *answer)
        held.append(anyStringsOf(anyMap(state).value_or(QVariantMap()).value(u"Addresses"_s)));
    EXPECT_TRUE(held.contains(u"192.168.20.100"_s)) << "the Internet VLAN of Rehearsal";
    EXPECT_FALSE(held.contains(u"192.168.10.69"_s)) << "the manual address of Show";
}

TEST_F(KernelOfShowMac, AnAppliedFrameSizeReachesTheVLAN)
{
    const SetRef show = backend->scNetworkSetCopyCurrent(readSession());
    const auto audio = backend->scNetworkInterfaceCopyMTU(
        backend->scNetworkServiceGetInterface(serviceNamed(show, u"1012 - Audio (DONGLE)"_s)));
    EXPECT_EQ(audio, (InterfaceMTU{9000, 1280, 9000}));
    const auto video = backend->scNetworkInterfaceCopyMTU(
        backend->scNetworkServiceGetInterface(serviceNamed(show, u"1014 - Video (DONGLE)"_s)));
    EXPECT_EQ(video, (InterfaceMTU{1500, 1280, 9000}));
}

TEST_F(KernelOfShowMac, AFrameSizeTheAdapterCantTakeIsNotApplied)
{
    const SessionRef session = writeSession();
    const ServiceRef monitors =
        serviceNamed(backend->scNetworkSetCopyCurrent(session), u"2010 - Monitors (en6)"_s);
    const InterfaceRef vlan = backend->scNetworkServiceGetInterface(monitors);
    ASSERT_TRUE(backend->scNetworkInterfaceSetConfiguration(vlan, QVariantMap{{u"MTU"_s, 9000}}));
    applyStaged(session);
    EXPECT_EQ(backend->scNetworkInterfaceCopyMTU(vlan), (InterfaceMTU{1500, 1280, 4088}));
}

TEST_F(KernelOfShowMac, TheDynamicStoreAnswersKeysAndPatterns)
{
    const DynamicStoreRef store = backend->scDynamicStoreCreate(u"Orvane"_s, {});
    const auto interfaces =
        backend->scDynamicStoreCopyMultiple(store, {u"State:/Network/Interface"_s}, {});
    ASSERT_TRUE(interfaces);
    EXPECT_EQ(interfaces->keys(), QStringList{u"State:/Network/Interface"_s});
    const auto services = backend->scDynamicStoreCopyMultiple(store, {}, {servicePattern});
    ASSERT_TRUE(services);
    // Ethernet, self-assigned, and seven VLANs with addresses; the rest are off or down.
    EXPECT_EQ(services->size(), 8);
    for (const QString &key : services->keys())
        EXPECT_TRUE(key.startsWith(u"State:/Network/Service/"_s) && key.endsWith(u"/IPv4"_s));
    EXPECT_FALSE(backend->scDynamicStoreCopyMultiple(store, {}, {u"State:/(["_s}));
    EXPECT_FALSE(backend->scDynamicStoreCopyMultiple(DynamicStoreRef(), {}, {servicePattern}));
}

TEST_F(KernelOfShowMac, AStateFileThatCantBeReadCountsAsNone)
{
    write(u"kernel-state.plist"_s, "not a property list");
    EXPECT_EQ(backend->ifNameToIndex(u"vlan0"_s), 5u);
    EXPECT_EQ(firstAddressOf(u"1012 - Audio (DONGLE)"_s), u"192.168.12.69"_s);
}

} // namespace
