#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformBackend.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;

class ReadingShowMac : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    // Edits one service dictionary of the copy, found by its name.
    void editService(const QString &serviceName, const std::function<void(QVariantMap &)> &edit)
    {
        editPreferences([&](QVariantMap &preferences) {
            QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
            for (auto it = services.begin(); it != services.end(); ++it) {
                QVariantMap service = it.value().toMap();
                if (service.value(u"UserDefinedName"_s).toString() != serviceName)
                    continue;
                edit(service);
                it.value() = service;
            }
            preferences.insert(u"NetworkServices"_s, services);
        });
    }
};

struct VLANRow
{
    const char *name;
    qint64 tag;
    QString displayName;
    QString bsdName;
    QString parentBSD;
    QString parentName;
    bool live;
    bool hasService;
    bool enabled;
    QString ip;
    IPv6Mode ipv6;
    QStringList searchDomains;
    QString hardware;
};

class ShowMacVLANs : public StoreTest, public ::testing::WithParamInterface<VLANRow>
{};

TEST_P(ShowMacVLANs, RecordIsReadAsTheFileSays)
{
    openCopyOf();
    const VLANRow &row = GetParam();
    const VLANRecord vlan = vlanTagged(*readStore(), row.tag);
    EXPECT_EQ(vlan.name, row.displayName);
    EXPECT_EQ(vlan.bsdName, row.bsdName);
    EXPECT_EQ(vlan.parentBSD, row.parentBSD);
    EXPECT_EQ(vlan.parentName, row.parentName);
    EXPECT_EQ(vlan.live, row.live);
    EXPECT_EQ(vlan.hasService(), row.hasService);
    EXPECT_EQ(vlan.serviceName, row.hasService ? std::optional(row.displayName) : std::nullopt);
    EXPECT_EQ(vlan.serviceEnabled, row.enabled);
    EXPECT_EQ(vlan.ip.summary(), row.ip);
    EXPECT_EQ(vlan.ipv6, row.ipv6);
    EXPECT_EQ(vlan.searchDomains, row.searchDomains);
    EXPECT_EQ(vlan.hardware.summary(), row.hardware);
}

const QString dongle = u"en5"_s;
const QString usb = u"USB 10/100/1000 LAN"_s;
const auto automatic = IPv6Mode::automatic;

INSTANTIATE_TEST_SUITE_P(Every, ShowMacVLANs,
                         ::testing::Values(VLANRow{"Management",
                                                   100,
                                                   u"100 - Management (en0)"_s,
                                                   u"vlan11"_s,
                                                   u"en0"_s,
                                                   u"Ethernet"_s,
                                                   true,
                                                   true,
                                                   true,
                                                   u"10.0.100.69/255.255.255.0"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"Control",
                                                   1010,
                                                   u"1010 - Control (DONGLE)"_s,
                                                   u"vlan0"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"192.168.10.69/255.255.255.0 gw 192.168.10.1"_s,
                                                   automatic,
                                                   {u"control.show.example"_s, u"show.example"_s},
                                                   u"automatic"_s},
                                           VLANRow{"Audio",
                                                   1012,
                                                   u"1012 - Audio (DONGLE)"_s,
                                                   u"vlan1"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"192.168.12.69/255.255.255.0"_s,
                                                   IPv6Mode::linkLocal,
                                                   {},
                                                   u"MTU 9000"_s},
                                           VLANRow{"Video",
                                                   1014,
                                                   u"1014 - Video (DONGLE)"_s,
                                                   u"vlan2"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"192.168.14.69/255.255.255.0"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"Lighting",
                                                   1016,
                                                   u"1016 - Lighting (DONGLE)"_s,
                                                   u"vlan3"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"192.168.16.69/255.255.255.0"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"Internet",
                                                   1020,
                                                   u"1020 - Internet (DONGLE)"_s,
                                                   u"vlan4"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"DHCP"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"IntercomIsOff",
                                                   1030,
                                                   u"1030 - Intercom (DONGLE)"_s,
                                                   u"vlan5"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   false,
                                                   u"DHCP"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"BackstageHasNoServiceHere",
                                                   1040,
                                                   u"1040 - Backstage (DONGLE)"_s,
                                                   u"vlan6"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   false,
                                                   false,
                                                   u"\u2014"_s,
                                                   IPv6Mode::unknown,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"StageLeft",
                                                   1050,
                                                   u"1050 - Stage Left (DONGLE)"_s,
                                                   u"vlan7"_s,
                                                   dongle,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"192.168.50.69/255.255.255.0"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"Monitors",
                                                   2010,
                                                   u"2010 - Monitors (en6)"_s,
                                                   u"vlan8"_s,
                                                   u"en6"_s,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"172.16.10.69/255.255.255.0"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"Recording",
                                                   2012,
                                                   u"2012 - Recording (en6)"_s,
                                                   u"vlan9"_s,
                                                   u"en6"_s,
                                                   usb,
                                                   true,
                                                   true,
                                                   true,
                                                   u"DHCP"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s},
                                           VLANRow{"TruckFeedOnAnAbsentAdapter",
                                                   3010,
                                                   u"3010 - Truck Feed (TRUCK)"_s,
                                                   u"vlan10"_s,
                                                   u"en8"_s,
                                                   usb,
                                                   false,
                                                   true,
                                                   true,
                                                   u"10.30.10.69/255.255.255.0 gw 10.30.10.1"_s,
                                                   automatic,
                                                   {},
                                                   u"automatic"_s}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ReadingShowMac, ServicesComeInServiceOrder)
{
    QStringList names;
    for (const ServiceRecord &service : readStore()->services())
        names.append(service.name);
    EXPECT_EQ(names.size(), 16);
    EXPECT_EQ(names.mid(0, 6), (QStringList{u"1010 - Control (DONGLE)"_s, u"Ethernet"_s,
                                            u"1020 - Internet (DONGLE)"_s, u"Wi-Fi"_s, u"DONGLE"_s,
                                            u"USB 10/100/1000 LAN"_s}));
}

TEST_F(ReadingShowMac, ServiceRecordsOfEachKind)
{
    const auto store = readStore();
    const ServiceRecord wifi = serviceNamed(*store, u"Wi-Fi"_s);
    EXPECT_TRUE(wifi.isWiFi);
    EXPECT_TRUE(wifi.hasDevice);
    EXPECT_FALSE(wifi.isVLAN);
    EXPECT_TRUE(wifi.isAdapter());
    EXPECT_EQ(wifi.interfaceBSD, u"en1"_s);
    EXPECT_EQ(wifi.interfaceType, u"IEEE80211"_s);
    EXPECT_EQ(wifi.hardware, HardwareSettings::automatic());

    const ServiceRecord dongleService = serviceNamed(*store, u"DONGLE"_s);
    EXPECT_EQ(dongleService.hardwareName, u"USB 10/100/1000 LAN"_s);
    EXPECT_EQ(dongleService.ipv6, IPv6Mode::off); // the trunk's protocols are inactive
    EXPECT_TRUE(dongleService.isAdapter());

    const ServiceRecord audio = serviceNamed(*store, u"1012 - Audio (DONGLE)"_s);
    EXPECT_TRUE(audio.isVLAN);
    EXPECT_EQ(audio.vlanTag, 1012);
    EXPECT_FALSE(audio.isAdapter());
    EXPECT_EQ(audio.hardware.mtu, 9000);

    EXPECT_FALSE(serviceNamed(*store, u"1030 - Intercom (DONGLE)"_s).enabled);
}

TEST_F(ReadingShowMac, VLANWithoutServiceIsNotAService)
{
    const auto store = readStore();
    for (const ServiceRecord &service : store->services())
        EXPECT_NE(service.interfaceBSD, u"vlan6"_s);
    const VLANRecord backstage = vlanTagged(*store, 1040);
    EXPECT_EQ(backstage.ip.mode, IPMode::unknown);
    EXPECT_EQ(backstage.ipv6, IPv6Mode::unknown);
    EXPECT_FALSE(backstage.serviceEnabled);
    EXPECT_EQ(backstage.serviceID, std::nullopt);
}

TEST_F(ReadingShowMac, VLANOnAnAbsentAdapterIsListedAndItsParentIsOrphaned)
{
    const auto store = readStore();
    EXPECT_FALSE(vlanTagged(*store, 3010).live);
    EXPECT_EQ(store->orphanedParents(), QStringList{u"en8"_s});
}

TEST_F(ReadingShowMac, AvailableAdaptersAscendingWithTheirNames)
{
    const QList<AdapterRecord> adapters = readStore()->availableAdapters();
    ASSERT_EQ(adapters.size(), 3);
    EXPECT_EQ(adapters.at(0), (AdapterRecord{u"en0"_s, u"Ethernet"_s, u"Ethernet"_s, true}));
    EXPECT_EQ(adapters.at(1),
              (AdapterRecord{u"en5"_s, u"USB 10/100/1000 LAN"_s, u"DONGLE"_s, true}));
    EXPECT_EQ(adapters.at(2),
              (AdapterRecord{u"en6"_s, u"USB 10/100/1000 LAN"_s, u"USB 10/100/1000 LAN"_s, true}));
    EXPECT_TRUE(adapters.at(1).isNamed());
    EXPECT_FALSE(adapters.at(2).isNamed());
}

TEST_F(ReadingShowMac, AdaptersWithoutServiceListsNothingThatHasOne)
{
    const auto store = readStore();
    // Every attached adapter has a service in the show Location, on or off.
    EXPECT_TRUE(store->adaptersWithoutService().isEmpty());
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s); // Office: en0, en1 only
    QStringList listed;
    for (const AdapterRecord &adapter : store->adaptersWithoutService()) {
        listed.append(adapter.bsdName);
        EXPECT_TRUE(adapter.present);
    }
    EXPECT_EQ(listed, (QStringList{u"en5"_s, u"en6"_s}));
}

TEST_F(ReadingShowMac, AdapterNamedInAnotherLocationKeepsThatName)
{
    const auto store = readStore();
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s);
    const QList<AdapterRecord> adapters = store->adaptersWithoutService();
    ASSERT_FALSE(adapters.isEmpty());
    EXPECT_EQ(adapters.first().serviceName, u"DONGLE"_s);
}

TEST_F(ReadingShowMac, AdaptersWithoutServiceNeverListsAVLANOrATwiceListedAdapter)
{
    const auto store = readStore();
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s);
    const auto attached = store->attachedInterfaces;
    QList<InterfaceRef> doubled = attached();
    doubled.append(attached());
    doubled.append(store->platform().scVLANInterfaceCopyAll(store->prefs()).value());
    store->attachedInterfaces = [doubled] { return doubled; };
    QStringList listed;
    for (const AdapterRecord &adapter : store->adaptersWithoutService())
        listed.append(adapter.bsdName);
    EXPECT_EQ(listed, (QStringList{u"en5"_s, u"en6"_s}));
}

TEST_F(ReadingShowMac, ServiceNameIndexTrustsTheLocationUnderView)
{
    const auto store = readStore();
    const auto names = store->serviceNameIndex();
    EXPECT_EQ(names.value(u"en5"_s), u"DONGLE"_s);
    EXPECT_EQ(names.value(u"en8"_s), u"TRUCK"_s);
    EXPECT_EQ(names.value(u"vlan0"_s), u"1010 - Control (DONGLE)"_s);
}

TEST_F(ReadingShowMac, ChosenNameOutlivesTheDefaultNameOfAnotherLocation)
{
    // The Location under view calls en5 by its default name; Rehearsal calls it DONGLE.
    editPreferences([](QVariantMap &preferences) {
        QVariantMap services = preferences.value(u"NetworkServices"_s).toMap();
        QVariantMap show = services.value(u"C0BF32B2-75F2-5E01-83E1-83ACB88A16EB"_s).toMap();
        show.insert(u"UserDefinedName"_s, u"USB 10/100/1000 LAN"_s);
        services.insert(u"C0BF32B2-75F2-5E01-83E1-83ACB88A16EB"_s, show);
        preferences.insert(u"NetworkServices"_s, services);
    });
    EXPECT_EQ(readStore()->serviceNameIndex().value(u"en5"_s), u"DONGLE"_s);
}

TEST_F(ReadingShowMac, FindVLANNeedsTagAndKernelName)
{
    const auto store = readStore();
    EXPECT_TRUE(store->findVLAN(1010, u"vlan0"_s));
    EXPECT_FALSE(store->findVLAN(1010, u"vlan1"_s));
    EXPECT_FALSE(store->findVLAN(1012, u"vlan0"_s));
}

TEST_F(ReadingShowMac, FindServiceByVLANKernelName)
{
    const auto store = readStore();
    const ServiceRef service = store->findService(u"vlan0"_s);
    ASSERT_TRUE(service);
    EXPECT_EQ(store->platform().scNetworkServiceGetName(service), u"1010 - Control (DONGLE)"_s);
    EXPECT_FALSE(store->findService(u"vlan6"_s));
}

TEST_F(ReadingShowMac, RequireServiceNamesTheServiceItMisses)
{
    const auto store = readStore();
    EXPECT_TRUE(store->requireService(u"E972C583-2B77-509A-8A06-AAF731E46526"_s, u"Control"_s));
    // A service of another Location is no service of this one.
    try {
        (void)store->requireService(u"5261EFCD-D01B-54CC-AC86-DAE621C8525E"_s, u"Office Wi-Fi"_s);
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorDescription(), u"Office Wi-Fi has no service in this Location."_s);
    }
}

TEST_F(ReadingShowMac, RequireAdapterTellsAbsentFromUnable)
{
    const auto store = readStore();
    EXPECT_TRUE(store->requireAdapter(u"en5"_s));
    try {
        (void)store->requireAdapter(u"en1"_s); // Wi-Fi: attached, carries no VLAN
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::adapterCannotHostVLAN);
    }
    try {
        (void)store->requireAdapter(u"en8"_s); // not plugged in
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::adapterNotFound);
    }
    EXPECT_THROW((void)store->requireAdapter(u"\u2014"_s), VLANError);
}

TEST_F(ReadingShowMac, IPv4WithoutConfigurationReadsOff)
{
    editService(u"VLAN (vlan2)"_s, [](QVariantMap &service) { service.remove(u"IPv4"_s); });
    EXPECT_EQ(vlanTagged(*readStore(), 1014).ip, IPConfig::off());
}

TEST_F(ReadingShowMac, IPv4WithoutMethodReadsOffAndOtherWordsUnknown)
{
    editService(u"VLAN (vlan2)"_s, [](QVariantMap &service) {
        service.insert(u"IPv4"_s, QVariantMap{{u"Addresses"_s, QVariantList{u"10.1.1.1"_s}}});
    });
    editService(u"VLAN (vlan3)"_s, [](QVariantMap &service) {
        service.insert(u"IPv4"_s, QVariantMap{{u"ConfigMethod"_s, u"BOOTP"_s}});
    });
    const auto store = readStore();
    EXPECT_EQ(vlanTagged(*store, 1014).ip.mode, IPMode::off);
    EXPECT_EQ(vlanTagged(*store, 1014).ip.address, u"10.1.1.1"_s);
    EXPECT_EQ(vlanTagged(*store, 1016).ip.mode, IPMode::unknown);
}

TEST_F(ReadingShowMac, DHCPServiceReportsStoredAddresses)
{
    editService(u"VLAN (vlan4)"_s, [](QVariantMap &service) {
        service.insert(u"IPv4"_s, QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s},
                                              {u"Addresses"_s, QVariantList{u"10.9.9.9"_s, u"x"_s}},
                                              {u"Router"_s, qint64(5)}});
    });
    const IPConfig ip = vlanTagged(*readStore(), 1020).ip;
    EXPECT_EQ(ip.mode, IPMode::dhcp);
    EXPECT_EQ(ip.address, u"10.9.9.9"_s);
    EXPECT_EQ(ip.router, std::nullopt); // not a string
}

TEST_F(ReadingShowMac, DisabledIPv6ReadsOffWhateverItsMethod)
{
    editService(u"VLAN (vlan2)"_s, [](QVariantMap &service) {
        service.insert(u"IPv6"_s,
                       QVariantMap{{u"ConfigMethod"_s, u"Automatic"_s}, {u"__INACTIVE__"_s, true}});
    });
    EXPECT_EQ(vlanTagged(*readStore(), 1014).ipv6, IPv6Mode::off);
}

TEST_F(ReadingShowMac, IPv6MethodWords)
{
    editService(u"VLAN (vlan2)"_s, [](QVariantMap &service) {
        service.insert(u"IPv6"_s, QVariantMap{{u"ConfigMethod"_s, u"Manual"_s}});
    });
    editService(u"VLAN (vlan3)"_s, [](QVariantMap &service) {
        service.insert(u"IPv6"_s, QVariantMap{{u"ConfigMethod"_s, u"6to4"_s}});
    });
    editService(u"VLAN (vlan7)"_s, [](QVariantMap &service) {
        service.insert(u"IPv6"_s, QVariantMap{{u"ConfigMethod"_s, qint64(1)}});
    });
    const auto store = readStore();
    EXPECT_EQ(vlanTagged(*store, 1014).ipv6, IPv6Mode::manual);
    EXPECT_EQ(vlanTagged(*store, 1016).ipv6, IPv6Mode::unknown);
    EXPECT_EQ(vlanTagged(*store, 1050).ipv6, IPv6Mode::off);
}

TEST(HardwareSettingsFromConfiguration, AutoselectWithOptionsReadsAutomatic)
{
    const HardwareSettings settings =
        VLANStore::hardwareSettings({{u"MediaSubType"_s, u"autoselect"_s},
                                     {u"MediaOptions"_s, QVariantList{u"full-duplex"_s}}});
    EXPECT_EQ(settings.speed, std::nullopt);
    EXPECT_TRUE(settings.duplex.isEmpty());
    EXPECT_TRUE(settings.isAutomatic());
}

TEST(HardwareSettingsFromConfiguration, ReadsTheThreeKeys)
{
    const HardwareSettings settings = VLANStore::hardwareSettings(
        {{u"MediaSubType"_s, u"1000baseT"_s},
         {u"MediaOptions"_s, QVariantList{u"full-duplex"_s, u"flow-control"_s}},
         {u"MTU"_s, qint64(9000)}});
    EXPECT_EQ(settings,
              (HardwareSettings{9000, u"1000baseT"_s, {u"full-duplex"_s, u"flow-control"_s}}));
}

TEST(HardwareSettingsFromConfiguration, MistypedValuesReadAbsent)
{
    const HardwareSettings settings =
        VLANStore::hardwareSettings({{u"MediaSubType"_s, qint64(1000)},
                                     {u"MediaOptions"_s, u"full-duplex"_s},
                                     {u"MTU"_s, u"9000"_s}});
    EXPECT_EQ(settings, HardwareSettings::automatic());
    const HardwareSettings optionsOfAnotherType = VLANStore::hardwareSettings(
        {{u"MediaSubType"_s, u"1000baseT"_s}, {u"MediaOptions"_s, u"full-duplex"_s}});
    EXPECT_EQ(optionsOfAnotherType.speed, u"1000baseT"_s);
    EXPECT_TRUE(optionsOfAnotherType.duplex.isEmpty());
}

TEST(StringArray, KeepsStringsAndDropsTheRest)
{
    EXPECT_EQ(VLANStore::stringArray(std::nullopt), QStringList());
    EXPECT_EQ(VLANStore::stringArray(QVariantList{u"a"_s, qint64(1), u"b"_s, QVariantMap()}),
              (QStringList{u"a"_s, u"b"_s}));
}

} // namespace
