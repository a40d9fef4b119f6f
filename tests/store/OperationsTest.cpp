#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace VLANKit {
// The private writers, for the cases no public operation reaches.
struct VLANStoreInternals
{
    static bool writeDNS(VLANStore &store, const std::optional<QStringList> &servers,
                         const std::optional<QStringList> &searchDomains, const ServiceRef &service)
    {
        return store.writeDNS(servers, searchDomains, service);
    }
};
} // namespace VLANKit

namespace {

const QString controlID = u"E972C583-2B77-509A-8A06-AAF731E46526"_s;
const QString videoID = u"5E3B57A5-7E94-5720-B48E-4ACAAE1ED777"_s;
const QString rehearsalSet = u"D7EC2EBB-8067-5223-955F-3FD63113B2B9"_s;

IPConfig manual(std::optional<QString> address, std::optional<QString> mask,
                std::optional<QString> router = std::nullopt, QStringList dns = {})
{
    return IPConfig{IPMode::manual, std::move(address), std::move(mask), std::move(router),
                    std::move(dns)};
}

class Operations : public StoreTest
{
protected:
    void SetUp() override
    {
        openCopyOf();
        store = writeStore();
    }

    std::optional<QVariantMap> configurationOf(const ServiceRef &service, const QString &type)
    {
        const ProtocolRef protocol = store->platform().scNetworkServiceCopyProtocol(service, type);
        if (!protocol)
            return std::nullopt;
        return store->platform().scNetworkProtocolGetConfiguration(protocol);
    }
    ServiceRef service(const QString &id) { return store->requireService(id, id); }

    // Links a service of the preferences into a set, as a hand-edited file would.
    static void link(QVariantMap &preferences, const QString &setID, const QString &serviceID)
    {
        QVariantMap sets = preferences.value(u"Sets"_s).toMap();
        QVariantMap set = sets.value(setID).toMap();
        QVariantMap network = set.value(u"Network"_s).toMap();
        QVariantMap links = network.value(u"Service"_s).toMap();
        links.insert(serviceID, QVariantMap{{u"__LINK__"_s, u"/NetworkServices/"_s + serviceID}});
        network.insert(u"Service"_s, links);
        set.insert(u"Network"_s, network);
        sets.insert(setID, set);
        preferences.insert(u"Sets"_s, sets);
    }
    QStringList orderOfTarget()
    {
        QStringList ids;
        for (const ServiceRecord &record : store->services())
            ids.append(record.serviceID);
        return ids;
    }

    std::unique_ptr<VLANStore> store;
};

TEST_F(Operations, CreateVLANRefusesTagsOutOfRangeBeforeLookingAtTheAdapter)
{
    for (qint64 tag : {qint64(0), qint64(4095), qint64(-1)}) {
        const auto failure = failureOf(
            [&] { (void)store->createVLAN(tag, u"X"_s, u"en99"_s, IPConfig::dhcp(), true); });
        ASSERT_TRUE(failure) << tag;
        EXPECT_EQ(failure->errorCase(), VLANError::Case::tagOutOfRange) << tag;
    }
    const auto unknown =
        failureOf([&] { (void)store->createVLAN(1, u"X"_s, u"en99"_s, IPConfig::dhcp(), true); });
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->errorCase(), VLANError::Case::adapterNotFound);
}

TEST_F(Operations, CreateVLANBuildsInterfaceAndServiceUnderOneName)
{
    const QString bsdName = store->createVLAN(1060, u"Comms"_s, u"en5"_s,
                                              manual(u"192.168.60.5"_s, u"255.255.255.0"_s), false);
    EXPECT_EQ(bsdName, u"vlan12"_s);
    const VLANRecord vlan = vlanTagged(*store, 1060);
    EXPECT_EQ(vlan.name, u"Comms (DONGLE)"_s);
    EXPECT_EQ(vlan.serviceName, u"Comms (DONGLE)"_s);
    EXPECT_EQ(vlan.parentBSD, u"en5"_s);
    EXPECT_FALSE(vlan.serviceEnabled);
    EXPECT_EQ(vlan.ip.address, u"192.168.60.5"_s);
    // The new service ranks last.
    EXPECT_EQ(orderOfTarget().last(), vlan.serviceID);
}

TEST_F(Operations, CreateVLANOnBoundaryTags)
{
    (void)store->createVLAN(1, u"One"_s, u"en6"_s, IPConfig::dhcp(), true);
    (void)store->createVLAN(4094, u"Last"_s, u"en6"_s, IPConfig::dhcp(), true);
    EXPECT_EQ(vlanTagged(*store, 1).name, u"One (en6)"_s);
    EXPECT_EQ(vlanTagged(*store, 4094).name, u"Last (en6)"_s);
}

TEST_F(Operations, CreateVLANWithATakenTagNamesTagAndAdapter)
{
    EXPECT_EQ(sentenceOf([&] {
                  (void)store->createVLAN(1010, u"Again"_s, u"en5"_s, IPConfig::dhcp(), true);
              }),
              u"Could not create VLAN 1010 on en5 (tag already in use on that device?)."_s);
}

TEST_F(Operations, CreateVLANReplacesAKnownSuffixWithTheAdaptersLabel)
{
    (void)store->createVLAN(1061, u"Comms (en6)"_s, u"en5"_s, IPConfig::dhcp(), true);
    EXPECT_EQ(vlanTagged(*store, 1061).name, u"Comms (DONGLE)"_s);
}

TEST_F(Operations, ManualWithoutAddressOrMaskWritesThePlaceholders)
{
    store->setIP(manual(std::nullopt, std::nullopt, u""_s), controlID, u"Control"_s);
    const auto ipv4 = configurationOf(service(controlID), kSCNetworkProtocolTypeIPv4).value();
    EXPECT_EQ(ipv4.value(u"Addresses"_s).toList(), QVariantList{u"0.0.0.0"_s});
    EXPECT_EQ(ipv4.value(u"SubnetMasks"_s).toList(), QVariantList{u"255.255.255.0"_s});
    EXPECT_FALSE(ipv4.contains(u"Router"_s));
    EXPECT_EQ(ipv4.value(u"ConfigMethod"_s).toString(), u"Manual"_s);
}

TEST_F(Operations, OffAndUnknownClearIPv4AndLeaveDNS)
{
    for (IPMode mode : {IPMode::off, IPMode::unknown}) {
        store->setIP(IPConfig{mode, {}, {}, {}, {}}, controlID, u"Control"_s);
        const auto ipv4 = configurationOf(service(controlID), kSCNetworkProtocolTypeIPv4);
        EXPECT_TRUE(!ipv4 || ipv4->isEmpty());
        // A service without IPv4 settings reads as off, with no servers of its own to show;
        // its DNS protocol keeps them.
        EXPECT_EQ(vlanTagged(*store, 1010).ip, IPConfig::off());
        EXPECT_EQ(configurationOf(service(controlID), kSCNetworkProtocolTypeDNS)
                      ->value(u"ServerAddresses"_s)
                      .toList()
                      .size(),
                  2);
        EXPECT_EQ(vlanTagged(*store, 1010).searchDomains.size(), 2);
    }
}

TEST_F(Operations, ManualToDHCPDropsTheAddressesAndKeepsDNS)
{
    store->setIP(IPConfig::dhcp(), controlID, u"Control"_s);
    const IPConfig ip = vlanTagged(*store, 1010).ip;
    EXPECT_EQ(ip.mode, IPMode::dhcp);
    EXPECT_EQ(ip.address, std::nullopt);
    EXPECT_EQ(ip.router, std::nullopt);
    EXPECT_EQ(ip.dns, (QStringList{u"192.168.10.1"_s, u"192.168.10.2"_s}));
}

TEST_F(Operations, NewDNSServersInAnIPConfigReplaceTheServersAndKeepTheDomains)
{
    store->setIP(manual(u"10.0.0.5"_s, u"255.0.0.0"_s, {}, {u"10.0.0.1"_s}), controlID,
                 u"Control"_s);
    const VLANRecord vlan = vlanTagged(*store, 1010);
    EXPECT_EQ(vlan.ip.dns, QStringList{u"10.0.0.1"_s});
    EXPECT_EQ(vlan.searchDomains, (QStringList{u"control.show.example"_s, u"show.example"_s}));
}

TEST_F(Operations, WriteDNSWithEmptyServersAndNoDomainsRemovesOnlyTheServers)
{
    ASSERT_TRUE(
        VLANStoreInternals::writeDNS(*store, QStringList(), std::nullopt, service(controlID)));
    const auto dns = configurationOf(service(controlID), kSCNetworkProtocolTypeDNS).value();
    EXPECT_FALSE(dns.contains(u"ServerAddresses"_s));
    EXPECT_EQ(dns.value(u"SearchDomains"_s).toList().size(), 2);
}

TEST_F(Operations, WriteDNSWithNeitherListRewritesTheMapUnchanged)
{
    const auto before = configurationOf(service(controlID), kSCNetworkProtocolTypeDNS);
    ASSERT_TRUE(
        VLANStoreInternals::writeDNS(*store, std::nullopt, std::nullopt, service(controlID)));
    EXPECT_EQ(configurationOf(service(controlID), kSCNetworkProtocolTypeDNS), before);
}

TEST_F(Operations, SetDNSWithEmptyListsClearsBoth)
{
    store->setDNS({}, {}, controlID, u"Control"_s);
    const VLANRecord vlan = vlanTagged(*store, 1010);
    EXPECT_TRUE(vlan.ip.dns.isEmpty());
    EXPECT_TRUE(vlan.searchDomains.isEmpty());
}

TEST_F(Operations, SetIPv6OffWithoutProtocolAddsOneThenDisablesIt)
{
    const ServiceRef video = service(videoID);
    ASSERT_TRUE(store->platform().scNetworkServiceCopyProtocol(video, kSCNetworkProtocolTypeIPv6));
    // Take the protocol away by hand, as a service without one would be.
    editPreferences([](QVariantMap &preferences) {
        QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
        QVariantMap entry = services.value(videoID).toMap();
        entry.remove(u"IPv6"_s);
        services.insert(videoID, entry);
        preferences.insert(u"NetworkServices"_s, services);
    });
    store = writeStore();
    ASSERT_FALSE(store->platform().scNetworkServiceCopyProtocol(service(videoID),
                                                                kSCNetworkProtocolTypeIPv6));
    store->setIPv6(IPv6Mode::off, videoID, u"Video"_s);
    const ProtocolRef added = store->platform().scNetworkServiceCopyProtocol(
        service(videoID), kSCNetworkProtocolTypeIPv6);
    ASSERT_TRUE(added);
    EXPECT_FALSE(store->platform().scNetworkProtocolGetEnabled(added));
    EXPECT_EQ(vlanTagged(*store, 1014).ipv6, IPv6Mode::off);
}

TEST_F(Operations, SetIPv6ToAutomaticOrLinkLocalReplacesTheConfiguration)
{
    store->setIPv6(IPv6Mode::linkLocal, videoID, u"Video"_s);
    EXPECT_EQ(vlanTagged(*store, 1014).ipv6, IPv6Mode::linkLocal);
    store->setIPv6(IPv6Mode::off, videoID, u"Video"_s);
    store->setIPv6(IPv6Mode::automatic, videoID, u"Video"_s);
    EXPECT_EQ(vlanTagged(*store, 1014).ipv6, IPv6Mode::automatic);
    EXPECT_EQ(configurationOf(service(videoID), kSCNetworkProtocolTypeIPv6),
              (QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}}));
}

TEST_F(Operations, SetIPv6ToManualOrUnknownSaysWhatMayBeChosen)
{
    for (IPv6Mode mode : {IPv6Mode::manual, IPv6Mode::unknown}) {
        EXPECT_EQ(sentenceOf([&] { store->setIPv6(mode, videoID, u"Video"_s); }),
                  u"IPv6 on Video can be set to Automatic, Link-local only or Off."_s);
    }
}

TEST_F(Operations, RenameVLANRefusesBlanksAndChangesNothing)
{
    const QByteArray before = preferencesBytes();
    EXPECT_EQ(sentenceOf([&] { store->renameVLAN(1010, u"vlan0"_s, u" \t\n "_s); }),
              u"A VLAN needs a name."_s);
    EXPECT_EQ(vlanTagged(*store, 1010).name, u"1010 - Control (DONGLE)"_s);
    store->commit();
    EXPECT_EQ(readStore()->vlans(), writeStore()->vlans());
    EXPECT_EQ(before.isEmpty(), false);
}

TEST_F(Operations, RenameVLANStoresTheTrimmedNameInInterfaceAndService)
{
    store->renameVLAN(1010, u"vlan0"_s, u"  Control desk (DONGLE)\n"_s);
    const VLANRecord vlan = vlanTagged(*store, 1010);
    EXPECT_EQ(vlan.name, u"Control desk (DONGLE)"_s);
    EXPECT_EQ(vlan.serviceName, u"Control desk (DONGLE)"_s);
}

TEST_F(Operations, RenameVLANWithoutServiceHereRenamesTheInterfaceOnly)
{
    store->renameVLAN(1040, u"vlan6"_s, u"Backstage 2"_s);
    EXPECT_EQ(vlanTagged(*store, 1040).name, u"Backstage 2"_s);
    store->setSelectedSetID(rehearsalSet);
    // The other Location's service keeps its own name.
    EXPECT_EQ(store->platform().scNetworkServiceGetName(store->findService(u"vlan6"_s)).has_value(),
              true);
}

TEST_F(Operations, NoVLANForTagAndKernelName)
{
    EXPECT_EQ(sentenceOf([&] { store->renameVLAN(1010, u"vlan1"_s, u"X"_s); }),
              u"No VLAN 1010 on vlan1."_s);
    EXPECT_EQ(sentenceOf([&] { store->removeVLAN(999, u"vlan0"_s); }), u"No VLAN 999 on vlan0."_s);
    EXPECT_EQ(sentenceOf([&] { store->addService(999, u"vlan0"_s); }), u"No VLAN 999 on vlan0."_s);
}

TEST_F(Operations, ByTagOperationsNeedTheVLANsServiceHere)
{
    EXPECT_EQ(sentenceOf([&] { store->setEnabled(false, 1040, u"vlan6"_s); }),
              u"No network service found for VLAN 1040 (vlan6)."_s);
    EXPECT_EQ(sentenceOf([&] { store->setIP(IPConfig::dhcp(), 1040, u"vlan6"_s); }),
              u"No network service found for VLAN 1040 (vlan6)."_s);
    store->setEnabled(false, 1010, u"vlan0"_s);
    EXPECT_FALSE(vlanTagged(*store, 1010).serviceEnabled);
}

TEST_F(Operations, AddServiceToAVLANThatHasOneElsewhereMakesANewOneHere)
{
    store->addService(1040, u"vlan6"_s);
    const VLANRecord backstage = vlanTagged(*store, 1040);
    ASSERT_TRUE(backstage.hasService());
    EXPECT_EQ(backstage.serviceName, u"1040 - Backstage (DONGLE)"_s);
    EXPECT_EQ(orderOfTarget().last(), backstage.serviceID);
    store->setSelectedSetID(rehearsalSet);
    const VLANRecord inRehearsal = vlanTagged(*store, 1040);
    ASSERT_TRUE(inRehearsal.hasService());
    EXPECT_NE(inRehearsal.serviceID, backstage.serviceID);
}

TEST_F(Operations, AddServiceTwiceSaysItHasOne)
{
    EXPECT_EQ(sentenceOf([&] { store->addService(1010, u"vlan0"_s); }),
              u"1010 - Control (DONGLE) already has a service in this Location."_s);
    EXPECT_EQ(sentenceOf([&] { store->addService(u"en5"_s); }),
              u"DONGLE already has a service in this Location."_s);
}

TEST_F(Operations, AddServiceForAnAdapterTakesTheNameItBearsElsewhere)
{
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s); // Office
    store->addService(u"en5"_s);
    EXPECT_EQ(serviceNamed(*store, u"DONGLE"_s).interfaceBSD, u"en5"_s);
    EXPECT_EQ(failureOf([&] { store->addService(u"en9"_s); })->errorCase(),
              VLANError::Case::adapterNotFound);
    EXPECT_EQ(failureOf([&] { store->addService(u"vlan0"_s); })->errorCase(),
              VLANError::Case::adapterNotFound);
}

TEST_F(Operations, RemoveServiceOfAnAdapterRetiresItsLabel)
{
    store->removeService(u"C0BF32B2-75F2-5E01-83E1-83ACB88A16EB"_s, u"DONGLE"_s);
    EXPECT_TRUE(store->retiredLabels.contains(u"DONGLE"_s));
    EXPECT_TRUE(store->knownAdapterLabels().contains(u"DONGLE"_s));
    EXPECT_EQ(sentenceOf([&] {
                  (void)store->requireService(u"C0BF32B2-75F2-5E01-83E1-83ACB88A16EB"_s,
                                              u"DONGLE"_s);
              }),
              u"DONGLE has no service in this Location."_s);
}

TEST_F(Operations, RemoveServiceOfAVLANRetiresNoLabel)
{
    store->removeService(controlID, u"Control"_s);
    EXPECT_TRUE(store->retiredLabels.isEmpty());
    EXPECT_FALSE(vlanTagged(*store, 1010).hasService());
}

TEST_F(Operations, RemoveServiceSharedWithAnotherLocationLeavesItThere)
{
    // Link Show's Control service into Rehearsal too, as a shared service.
    editPreferences([](QVariantMap &preferences) { link(preferences, rehearsalSet, controlID); });
    store = writeStore();
    store->removeService(controlID, u"Control"_s);
    EXPECT_TRUE(store->platform().scNetworkServiceCopy(store->prefs(), controlID));
    store->setSelectedSetID(rehearsalSet);
    EXPECT_TRUE(store->requireService(controlID, u"Control"_s));
}

TEST_F(Operations, RemoveServiceWithoutKernelNameFailsBeforeAnyChange)
{
    const QString vpnID = u"0000VPN0-0000-0000-0000-000000000001"_s;
    editPreferences([&](QVariantMap &preferences) {
        QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
        services.insert(vpnID, QVariantMap{{u"UserDefinedName"_s, u"Venue VPN"_s},
                                           {u"Interface"_s, QVariantMap{{u"Type"_s, u"VPN"_s}}}});
        preferences.insert(u"NetworkServices"_s, services);
        link(preferences, u"D5F69D4F-F0A4-52FA-9837-D308F6A60BF8"_s, vpnID);
    });
    store = writeStore();
    const qsizetype services = serviceCount(*store);
    EXPECT_EQ(sentenceOf([&] { store->removeService(vpnID, u"Venue VPN"_s); }),
              u"Venue VPN belongs to its VPN app. Remove it there."_s);
    EXPECT_EQ(serviceCount(*store), services);
    EXPECT_TRUE(store->retiredLabels.isEmpty());
    const ServiceRecord vpn = serviceNamed(*store, u"Venue VPN"_s);
    EXPECT_FALSE(vpn.hasDevice);
    EXPECT_EQ(vpn.interfaceBSD, u"\u2014"_s);
}

TEST_F(Operations, RemoveVLANTakesItsServicesInEveryLocation)
{
    store->removeVLAN(1010, u"vlan0"_s);
    EXPECT_FALSE(store->findVLAN(1010, u"vlan0"_s));
    for (const SetRef &set :
         presentHandles(store->platform().scNetworkSetCopyAll(store->prefs()))) {
        for (const ServiceRef &member :
             presentHandles(store->platform().scNetworkSetCopyServices(set))) {
            const InterfaceRef interface = store->platform().scNetworkServiceGetInterface(member);
            EXPECT_NE(store->platform().scNetworkInterfaceGetBSDName(interface), u"vlan0"_s);
        }
    }
}

TEST_F(Operations, RemoveVLANPrunesServicesLeftByEarlierDeletions)
{
    // A service in Rehearsal on a VLAN interface that no longer exists.
    const QString orphanID = u"0000ORPH-0000-0000-0000-000000000001"_s;
    editPreferences([&](QVariantMap &preferences) {
        QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
        QVariantMap orphan = services.value(controlID).toMap();
        QVariantMap interface = orphan.value(u"Interface"_s).toMap();
        interface.insert(u"DeviceName"_s, u"vlan42"_s);
        orphan.insert(u"Interface"_s, interface);
        orphan.insert(u"UserDefinedName"_s, u"Old VLAN"_s);
        services.insert(orphanID, orphan);
        preferences.insert(u"NetworkServices"_s, services);
        link(preferences, rehearsalSet, orphanID);
    });
    store = writeStore();
    ASSERT_TRUE(store->platform().scNetworkServiceCopy(store->prefs(), orphanID));
    store->removeVLAN(1012, u"vlan1"_s);
    EXPECT_FALSE(store->platform().scNetworkServiceCopy(store->prefs(), orphanID));
    EXPECT_TRUE(store->pruneOrphanedVLANServices().isEmpty());
}

TEST_F(Operations, ReparentMovesTheVLANAndRelabelsItsInterfaceOnly)
{
    store->reparent(vlanTagged(*store, 1010), u"en6"_s);
    const VLANRecord moved = vlanTagged(*store, 1010);
    EXPECT_EQ(moved.parentBSD, u"en6"_s);
    EXPECT_EQ(moved.name, u"1010 - Control (en6)"_s);
    // The service isn't touched: it still stores the system's generic name, which shows the
    // VLAN's own name, as the system's file does.
    store->commit();
    const QVariantMap stored = parsePropertyList(preferencesBytes()).value().toMap();
    EXPECT_EQ(stored.value(u"NetworkServices"_s)
                  .toMap()
                  .value(controlID)
                  .toMap()
                  .value(u"UserDefinedName"_s)
                  .toString(),
              u"VLAN (vlan0)"_s);
}

TEST_F(Operations, ReparentOfAVanishedVLANSaysSo)
{
    VLANRecord ghost = vlanTagged(*store, 1010);
    ghost.bsdName = u"vlan77"_s;
    ghost.name = u"Ghost"_s;
    EXPECT_EQ(sentenceOf([&] { store->reparent(ghost, u"en6"_s); }),
              u"VLAN 'Ghost' vanished from the configuration."_s);
    EXPECT_EQ(failureOf([&] { store->reparent(ghost, u"en1"_s); })->errorCase(),
              VLANError::Case::adapterCannotHostVLAN);
}

TEST_F(Operations, SetEnabledByServiceTurnsAnyServiceOnOrOff)
{
    store->setEnabled(false, u"A18D5E6F-8BB9-52CB-AFA8-33DD149B6B27"_s, u"Ethernet"_s);
    EXPECT_FALSE(serviceNamed(*store, u"Ethernet"_s).enabled);
}

TEST_F(Operations, ChangesLandWithTheCommit)
{
    (void)store->createVLAN(1070, u"Press"_s, u"en5"_s, manual(u"10.70.0.5"_s, u"255.255.0.0"_s),
                            true);
    store->commit();
    const VLANRecord press = vlanTagged(*readStore(), 1070);
    EXPECT_EQ(press.name, u"Press (DONGLE)"_s);
    EXPECT_EQ(press.ip.address, u"10.70.0.5"_s);
}

} // namespace
