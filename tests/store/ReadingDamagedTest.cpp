#include "VLANKit/platform/PlatformBackend.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/CountingBackend.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString showSet = u"D5F69D4F-F0A4-52FA-9837-D308F6A60BF8"_s;
const QString controlID = u"E972C583-2B77-509A-8A06-AAF731E46526"_s;
const QString ethernetID = u"A18D5E6F-8BB9-52CB-AFA8-33DD149B6B27"_s;

// Hand edits of the show machine's preferences, as a damaged or older file would hold them.
class ReadingDamaged : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    void setOrder(const QVariantList &order)
    {
        editPreferences([&](QVariantMap &preferences) {
            putAt(preferences,
                  {u"Sets"_s, showSet, u"Network"_s, u"Global"_s, u"IPv4"_s, u"ServiceOrder"_s},
                  order);
        });
    }
    QStringList serviceIDs() const
    {
        QStringList ids;
        for (const ServiceRecord &service : readStore()->services())
            ids.append(service.serviceID);
        return ids;
    }
    QStringList orderInFile()
    {
        const QVariantMap preferences = parsePropertyListOrEmpty(preferencesBytes());
        QStringList ids;
        for (const QVariant &id :
             valueAt(preferences, {u"Sets"_s, showSet, u"Network"_s, u"Global"_s, u"IPv4"_s})
                 .value(u"ServiceOrder"_s)
                 .toList())
            ids.append(id.toString());
        return ids;
    }
    static QVariantMap parsePropertyListOrEmpty(const QByteArray &bytes);
};

} // namespace

#include "VLANKit/formats/PropertyList.h"

namespace {

QVariantMap ReadingDamaged::parsePropertyListOrEmpty(const QByteArray &bytes)
{
    return parsePropertyList(bytes).value_or(QVariant()).toMap();
}

TEST_F(ReadingDamaged, ServiceWithoutInterfaceDictionaryHasNoDevice)
{
    editPreferences([](QVariantMap &preferences) {
        putAt(preferences, {u"NetworkServices"_s, ethernetID}, [&] {
            QVariantMap service = valueAt(preferences, {u"NetworkServices"_s, ethernetID});
            service.remove(u"Interface"_s);
            return service;
        }());
    });
    const auto store = readStore();
    ServiceRecord found;
    for (const ServiceRecord &service : store->services()) {
        if (service.serviceID == ethernetID)
            found = service;
    }
    EXPECT_EQ(found.serviceID, ethernetID);
    EXPECT_FALSE(found.hasDevice);
    EXPECT_FALSE(found.isVLAN);
    EXPECT_FALSE(found.isAdapter());
    EXPECT_EQ(found.interfaceBSD, u"\u2014"_s);
    EXPECT_EQ(found.interfaceType, u"\u2014"_s);
    EXPECT_EQ(found.hardwareName, std::nullopt);
    EXPECT_EQ(store->serviceIndex().size(), 15);
    EXPECT_FALSE(store->serviceIndex().contains(u"en0"_s));
}

TEST_F(ReadingDamaged, OrderNamingGoneServicesSkipsThem)
{
    const QStringList before = serviceIDs();
    QVariantList order;
    order.append(u"GONE-1"_s);
    for (const QString &id : orderInFile()) {
        order.append(id);
        order.append(u"GONE-2"_s);
    }
    setOrder(order);
    EXPECT_EQ(serviceIDs(), before);
}

TEST_F(ReadingDamaged, ServiceMissingFromTheOrderComesLastInTheSystemsOrder)
{
    QStringList order = orderInFile();
    order.removeAll(controlID);
    order.removeAll(ethernetID);
    QVariantList written;
    for (const QString &id : order)
        written.append(id);
    setOrder(written);
    const QStringList ids = serviceIDs();
    EXPECT_EQ(ids.mid(0, ids.size() - 2), order);
    // The system lists the set's services by identifier: Ethernet's sorts before Control's.
    EXPECT_EQ(ids.mid(ids.size() - 2), (QStringList{ethernetID, controlID}));
}

TEST_F(ReadingDamaged, IdentifierTwiceInTheOrderComesOutTwice)
{
    QVariantList order{controlID, controlID};
    for (const QString &id : orderInFile().mid(1))
        order.append(id);
    setOrder(order);
    const QStringList ids = serviceIDs();
    EXPECT_EQ(ids.size(), 17);
    EXPECT_EQ(ids.at(0), controlID);
    EXPECT_EQ(ids.at(1), controlID);
}

TEST_F(ReadingDamaged, OrderEntriesThatAreNoStringsAreLeftOut)
{
    QVariantList order{qint64(7), QVariantMap()};
    for (const QString &id : orderInFile())
        order.append(id);
    const QStringList before = serviceIDs();
    setOrder(order);
    EXPECT_EQ(serviceIDs(), before);
}

TEST_F(ReadingDamaged, MissingOrderListsTheSystemsOrder)
{
    editPreferences([](QVariantMap &preferences) {
        QVariantMap global = valueAt(preferences, {u"Sets"_s, showSet, u"Network"_s, u"Global"_s});
        global.remove(u"IPv4"_s);
        putAt(preferences, {u"Sets"_s, showSet, u"Network"_s, u"Global"_s}, global);
    });
    QStringList ids = serviceIDs();
    EXPECT_EQ(ids.size(), 16);
    QStringList sorted = ids;
    std::stable_sort(sorted.begin(), sorted.end());
    EXPECT_EQ(ids, sorted);
}

TEST_F(ReadingDamaged, VLANEntriesWithoutTagOrParentAreNotListed)
{
    editPreferences([](QVariantMap &preferences) {
        QVariantMap vlans = valueAt(preferences, {u"VirtualNetworkInterfaces"_s, u"VLAN"_s});
        QVariantMap control = vlans.value(u"vlan0"_s).toMap();
        control.remove(u"Tag"_s);
        vlans.insert(u"vlan0"_s, control);
        QVariantMap audio = vlans.value(u"vlan1"_s).toMap();
        audio.remove(u"Interface"_s);
        vlans.insert(u"vlan1"_s, audio);
        putAt(preferences, {u"VirtualNetworkInterfaces"_s, u"VLAN"_s}, vlans);
    });
    const auto store = readStore();
    // The system skips a VLAN entry it can't make sense of; the readers go on without it.
    EXPECT_EQ(store->vlans().size(), 10);
    // Its service stays, under the name stored for it, on a device that is no VLAN now.
    const ServiceRecord control = serviceNamed(*store, u"VLAN (vlan0)"_s);
    EXPECT_EQ(control.serviceID, controlID);
    EXPECT_FALSE(control.isVLAN);
    EXPECT_EQ(control.vlanTag, std::nullopt);
    EXPECT_FALSE(store->findVLAN(1010, u"vlan0"_s));
}

// A platform that reports a VLAN without its tag, and another without its adapter.
class VLANsWithoutTagOrParent : public CountingBackend
{
public:
    using CountingBackend::CountingBackend;
    std::optional<qint64> scVLANInterfaceGetTag(const InterfaceRef &vlan) override
    {
        if (scNetworkInterfaceGetBSDName(vlan) == u"vlan0"_s)
            return std::nullopt;
        return CountingBackend::scVLANInterfaceGetTag(vlan);
    }
    InterfaceRef scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan) override
    {
        if (scNetworkInterfaceGetBSDName(vlan) == u"vlan1"_s)
            return {};
        return CountingBackend::scVLANInterfaceGetPhysicalInterface(vlan);
    }
};

TEST_F(ReadingDamaged, VLANWithoutTagReadsZeroAndWithoutParentReadsDash)
{
    const VLANStore store(
        Platform(std::make_shared<VLANsWithoutTagOrParent>(platform->sharedBackend())));
    const QList<VLANRecord> vlans = store.vlans();
    ASSERT_EQ(vlans.size(), 12);
    EXPECT_EQ(vlans.first().tag, 0); // ascending by tag
    EXPECT_EQ(vlans.first().bsdName, u"vlan0"_s);
    const VLANRecord audio = vlanTagged(store, 1012);
    EXPECT_EQ(audio.parentBSD, u"\u2014"_s);
    EXPECT_EQ(audio.parentName, u"\u2014"_s);
    EXPECT_FALSE(store.findVLAN(1010, u"vlan0"_s));
    EXPECT_FALSE(serviceNamed(store, u"1010 - Control (DONGLE)"_s).isVLAN);
}

TEST_F(ReadingDamaged, TwoServicesOnOneInterfaceTheLaterWinsInTheIndex)
{
    const QString twin = u"00000000-0000-0000-0000-0000000000AA"_s;
    editPreferences([&](QVariantMap &preferences) {
        QVariantMap service = valueAt(preferences, {u"NetworkServices"_s, controlID});
        service.insert(u"UserDefinedName"_s, u"Control twin"_s);
        putAt(preferences, {u"NetworkServices"_s, twin}, service);
        putAt(preferences, {u"Sets"_s, showSet, u"Network"_s, u"Service"_s, twin},
              QVariantMap{{u"__LINK__"_s, u"/NetworkServices/"_s + twin}});
    });
    const auto store = readStore();
    // Whichever of the two the system lists later is the one the index keeps.
    QString later;
    const QList<ServiceRef> listed =
        store->platform().scNetworkSetCopyServices(store->targetSet()).value();
    for (const ServiceRef &service : listed) {
        const InterfaceRef interface = store->platform().scNetworkServiceGetInterface(service);
        if (store->platform().scNetworkInterfaceGetBSDName(interface) == u"vlan0"_s)
            later = store->platform().scNetworkServiceGetServiceID(service).value();
    }
    EXPECT_EQ(store->serviceIndex().value(u"vlan0"_s).id, later);
    EXPECT_EQ(vlanTagged(*store, 1010).serviceID, later);
    // findService answers the first instead.
    EXPECT_NE(store->platform().scNetworkServiceGetServiceID(store->findService(u"vlan0"_s)),
              later);
}

TEST_F(ReadingDamaged, TwoLinksToOneServiceListItOnce)
{
    editPreferences([&](QVariantMap &preferences) {
        putAt(preferences, {u"Sets"_s, showSet, u"Network"_s, u"Service"_s, u"ALIAS"_s},
              QVariantMap{{u"__LINK__"_s, u"/NetworkServices/"_s + controlID}});
    });
    EXPECT_EQ(serviceIDs().count(controlID), 1);
}

TEST_F(ReadingDamaged, NothingThrowsOnAnEmptyDocument)
{
    editPreferences([](QVariantMap &preferences) { preferences.clear(); });
    const auto store = readStore();
    EXPECT_TRUE(store->vlans().isEmpty());
    EXPECT_TRUE(store->services().isEmpty());
    EXPECT_TRUE(store->serviceIndex().isEmpty());
    EXPECT_TRUE(store->serviceNameIndex().isEmpty());
    EXPECT_TRUE(store->adaptersWithoutService().isEmpty());
    EXPECT_TRUE(store->orphanedParents().isEmpty());
    EXPECT_EQ(store->availableAdapters().size(), 3);
}

} // namespace
