// Preferences that no system would write, as a damaged disk, a hand edit or a hostile file
// holds them: every reader answers by its rules ("—", `off`, empty, absent) and nothing crashes.
// Each test ends with the whole read of a refresh, with every kept table checked.
#include "VLANKit/core/VLANError.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/formats/PropertyList.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/RefreshReads.h"

#include <QFile>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QString showSet = u"D5F69D4F-F0A4-52FA-9837-D308F6A60BF8"_s;
const QString controlID = u"E972C583-2B77-509A-8A06-AAF731E46526"_s;
const QString dash = u"\u2014"_s;

class MalformedDocument : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    /// Every reader of a refresh, on every Location, must get through.
    void readEverything() const
    {
        const auto store = readStore();
        const Defaults defaults = Defaults::inFile(folder + u"/defaults.plist"_s);
        for (const LocationRecord &location : store->locations())
            readAsARefreshDoes(*store, location.name, defaults);
        (void)store->capture(u"Captured"_s);
    }

    static QStringList path(std::initializer_list<QString> keys) { return QStringList(keys); }

    QStringList serviceIDs() const
    {
        QStringList ids;
        for (const ServiceRecord &service : readStore()->services())
            ids.append(service.serviceID);
        return ids;
    }

    void linkInShow(const QString &entry, const QString &target)
    {
        editPreferences([&](QVariantMap &preferences) {
            putAt(preferences, path({u"Sets"_s, showSet, u"Network"_s, u"Service"_s, entry}),
                  QVariantMap{{u"__LINK__"_s, target}});
        });
    }

    /// A file of 100 MB in the machine's folder; sparse, so that neither the disk nor the test
    /// pays for it, yet every reader sees its size.
    void makeHuge(const QString &name) const
    {
        QFile file(folder + u'/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_TRUE(file.resize(100 * 1024 * 1024));
    }

    /// The most memory this process has held so far: each test runs in a process of its own.
    static long peakKilobytes()
    {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    }

    /// The sentence with which the store refuses to open, or empty when it opens.
    QString refusal() const
    {
        try {
            (void)Platform::overFolder(folder);
            (void)readStore();
        } catch (const VLANError &error) {
            return error.errorDescription();
        }
        return {};
    }
};

TEST_F(MalformedDocument, DanglingLinkOfALocationIsLeftOut)
{
    const QStringList before = serviceIDs();
    linkInShow(u"GONE"_s, u"/NetworkServices/GONE"_s);
    EXPECT_EQ(serviceIDs(), before);
    readEverything();
}

TEST_F(MalformedDocument, LinkToSomethingThatIsNoServiceIsLeftOut)
{
    const QStringList before = serviceIDs();
    linkInShow(u"ODD"_s, u"/System/System"_s);
    linkInShow(u"NOWHERE"_s, u""_s);
    EXPECT_EQ(serviceIDs(), before);
    readEverything();
}

TEST_F(MalformedDocument, LinksInACycleLeadNowhere)
{
    const QStringList before = serviceIDs();
    const QString entries = u"/Sets/"_s + showSet + u"/Network/Service/"_s;
    linkInShow(u"SELF"_s, entries + u"SELF"_s);
    linkInShow(u"PING"_s, entries + u"PONG"_s);
    linkInShow(u"PONG"_s, entries + u"PING"_s);
    EXPECT_EQ(serviceIDs(), before);
    readEverything();
}

TEST_F(MalformedDocument, VLANOnAnAdapterThatIsGoneIsListedAndOrphaned)
{
    editPreferences([](QVariantMap &preferences) {
        putAt(preferences,
              path({u"VirtualNetworkInterfaces"_s, u"VLAN"_s, u"vlan0"_s, u"Interface"_s}),
              u"en99"_s);
    });
    const auto store = readStore();
    const VLANRecord control = vlanTagged(*store, 1010);
    EXPECT_EQ(control.parentBSD, u"en99"_s);
    EXPECT_EQ(control.parentName, dash);
    EXPECT_FALSE(control.live);
    EXPECT_TRUE(store->orphanedParents().contains(u"en99"_s));
    readEverything();
}

TEST_F(MalformedDocument, MissingProtocolsReadAsOff)
{
    editPreferences([](QVariantMap &preferences) {
        QVariantMap service = valueAt(preferences, path({u"NetworkServices"_s, controlID}));
        service.remove(u"IPv4"_s);
        service.remove(u"IPv6"_s);
        service.remove(u"DNS"_s);
        putAt(preferences, path({u"NetworkServices"_s, controlID}), service);
    });
    const VLANRecord control = vlanTagged(*readStore(), 1010);
    EXPECT_EQ(control.ip.mode, IPMode::off);
    EXPECT_EQ(control.ip.address, std::nullopt);
    EXPECT_TRUE(control.ip.dns.isEmpty());
    EXPECT_EQ(control.ipv6, IPv6Mode::off);
    EXPECT_TRUE(control.searchDomains.isEmpty());
    readEverything();
}

TEST_F(MalformedDocument, MistypedKeysReadAsAbsent)
{
    editPreferences([](QVariantMap &preferences) {
        const QStringList service = path({u"NetworkServices"_s, controlID});
        putAt(preferences, service + QStringList{u"UserDefinedName"_s}, qint64(7));
        putAt(preferences, service + QStringList{u"IPv4"_s, u"ConfigMethod"_s}, qint64(1));
        putAt(preferences, service + QStringList{u"IPv4"_s, u"Addresses"_s}, u"10.0.0.1"_s);
        putAt(preferences, service + QStringList{u"DNS"_s}, u"8.8.8.8"_s);
        putAt(preferences, service + QStringList{u"IPv6"_s}, QVariantList{u"Automatic"_s});
        putAt(preferences,
              path({u"Sets"_s, showSet, u"Network"_s, u"Global"_s, u"IPv4"_s, u"ServiceOrder"_s}),
              QVariantMap{{u"a"_s, u"b"_s}});
    });
    const auto store = readStore();
    const VLANRecord control = vlanTagged(*store, 1010);
    EXPECT_EQ(control.ip.mode, IPMode::off);
    EXPECT_EQ(control.ip.address, std::nullopt);
    EXPECT_TRUE(control.ip.dns.isEmpty());
    EXPECT_EQ(control.ipv6, IPv6Mode::off);
    EXPECT_EQ(store->services().size(), 16);
    readEverything();
}

TEST_F(MalformedDocument, MistypedTagLeavesTheVLANOut)
{
    editPreferences([](QVariantMap &preferences) {
        putAt(preferences, path({u"VirtualNetworkInterfaces"_s, u"VLAN"_s, u"vlan0"_s, u"Tag"_s}),
              u"1010"_s);
    });
    const auto store = readStore();
    EXPECT_EQ(store->vlans().size(), 11);
    EXPECT_FALSE(store->findVLAN(1010, u"vlan0"_s));
    readEverything();
}

TEST_F(MalformedDocument, MistypedTopLevelTablesReadAsEmpty)
{
    editPreferences([](QVariantMap &preferences) {
        preferences.insert(u"Sets"_s, QVariantList{u"Show"_s});
        preferences.insert(u"NetworkServices"_s, u"none"_s);
        preferences.insert(u"VirtualNetworkInterfaces"_s, qint64(3));
        preferences.insert(u"CurrentSet"_s, QVariantMap());
    });
    const auto store = readStore();
    EXPECT_TRUE(store->locations().isEmpty());
    EXPECT_TRUE(store->vlans().isEmpty());
    EXPECT_TRUE(store->services().isEmpty());
    readEverything();
}

TEST_F(MalformedDocument, LocationWithNoNameReadsAsDash)
{
    editPreferences([](QVariantMap &preferences) {
        QVariantMap show = valueAt(preferences, path({u"Sets"_s, showSet}));
        show.remove(u"UserDefinedName"_s);
        putAt(preferences, path({u"Sets"_s, showSet}), show);
    });
    const auto store = readStore();
    int dashes = 0;
    for (const LocationRecord &location : store->locations())
        dashes += location.name == dash ? 1 : 0;
    EXPECT_EQ(dashes, 1);
    EXPECT_EQ(store->locations().size(), 3);
    readEverything();
}

TEST_F(MalformedDocument, TwoVLANsWithOneKernelNameReadAsOne)
{
    QByteArray bytes = preferencesBytes();
    const QByteArray entry = "<key>vlan0</key>";
    const qsizetype at = bytes.indexOf(entry);
    ASSERT_GE(at, 0);
    bytes.insert(at, "<key>vlan0</key>\n<dict><key>Interface</key><string>en6</string>"
                     "<key>Tag</key><integer>77</integer></dict>\n");
    writePreferences(bytes);
    const auto store = readStore();
    int named = 0;
    for (const VLANRecord &vlan : store->vlans())
        named += vlan.bsdName == u"vlan0"_s ? 1 : 0;
    EXPECT_EQ(named, 1);
    EXPECT_EQ(store->vlans().size(), 12);
    readEverything();
}

TEST_F(MalformedDocument, TagsOutsideTheRangeAreReadAsTheyStand)
{
    editPreferences([](QVariantMap &preferences) {
        const QStringList vlans = path({u"VirtualNetworkInterfaces"_s, u"VLAN"_s});
        putAt(preferences, vlans + QStringList{u"vlan0"_s, u"Tag"_s}, qint64(0));
        putAt(preferences, vlans + QStringList{u"vlan1"_s, u"Tag"_s}, qint64(4095));
        putAt(preferences, vlans + QStringList{u"vlan2"_s, u"Tag"_s}, qint64(-5));
        putAt(preferences, vlans + QStringList{u"vlan3"_s, u"Tag"_s},
              std::numeric_limits<qint64>::max());
    });
    const auto store = readStore();
    const QList<VLANRecord> vlans = store->vlans();
    ASSERT_EQ(vlans.size(), 12);
    EXPECT_EQ(vlans.first().tag, -5);
    EXPECT_EQ(vlans.at(1).tag, 0);
    EXPECT_EQ(vlans.last().tag, std::numeric_limits<qint64>::max());
    EXPECT_TRUE(store->findVLAN(4095, u"vlan1"_s));
    readEverything();
}

TEST_F(MalformedDocument, HugeNamesAreReadWhole)
{
    const QString huge(4 * 1024 * 1024, u'x');
    editPreferences([&](QVariantMap &preferences) {
        putAt(preferences, path({u"NetworkServices"_s, controlID, u"UserDefinedName"_s}), huge);
        putAt(preferences, path({u"Sets"_s, showSet, u"UserDefinedName"_s}), huge);
    });
    const auto store = readStore();
    EXPECT_EQ(vlanTagged(*store, 1010).serviceName, huge);
    bool found = false;
    for (const LocationRecord &location : store->locations())
        found = found || location.name == huge;
    EXPECT_TRUE(found);
    readEverything();
}

TEST_F(MalformedDocument, DeepNestingIsRefusedWithASentence)
{
    QByteArray nested;
    for (int depth = 0; depth < 300; ++depth)
        nested += "<array>";
    for (int depth = 0; depth < 300; ++depth)
        nested += "</array>";
    QByteArray bytes = preferencesBytes();
    bytes.insert(bytes.indexOf("<key>CurrentSet</key>"), "<key>Deep</key>" + nested);
    temporary.write(u"machine/preferences.plist"_s, bytes);
    EXPECT_EQ(refusal(), u"\u201c"_s + folder
                             + u"/preferences.plist\u201d can\u2019t be read: it is "
                               "nested more than 256 levels deep. The file was "
                               "left as it is."_s);
    EXPECT_EQ(preferencesBytes(), bytes);
}

TEST_F(MalformedDocument, DocumentOfAHundredMegabytesIsRefusedUnreadWithASentence)
{
    makeHuge(u"preferences.plist"_s);
    const long before = peakKilobytes();
    EXPECT_EQ(refusal(), u"\u201c"_s + folder
                             + u"/preferences.plist\u201d can\u2019t be read: it is 104857600 "
                               "bytes long, far too large for a property list. The file was "
                               "left as it is."_s);
    EXPECT_LT(peakKilobytes() - before, 16 * 1024);
}

TEST_F(MalformedDocument, InterfaceListOfAHundredMegabytesIsRefusedUnreadWithASentence)
{
    makeHuge(u"NetworkInterfaces.plist"_s);
    const long before = peakKilobytes();
    EXPECT_EQ(refusal(), u"\u201c"_s + folder
                             + u"/NetworkInterfaces.plist\u201d can\u2019t be read: it is "
                               "104857600 bytes long, far too large for a property list."_s);
    EXPECT_LT(peakKilobytes() - before, 16 * 1024);
}

TEST_F(MalformedDocument, MachineDescriptionOfAHundredMegabytesIsRefusedUnreadWithASentence)
{
    makeHuge(u"machine.toml"_s);
    const long before = peakKilobytes();
    EXPECT_EQ(refusal(), u"\u201c"_s + folder
                             + u"/machine.toml\u201d can\u2019t be read: it is 104857600 bytes "
                               "long, far too large for a machine description."_s);
    EXPECT_LT(peakKilobytes() - before, 16 * 1024);
}

TEST_F(MalformedDocument, DefaultsFileOfAHundredMegabytesReadsAsEmptyUnread)
{
    makeHuge(u"defaults.plist"_s);
    const long before = peakKilobytes();
    const Defaults defaults = Defaults::inFile(folder + u"/defaults.plist"_s);
    EXPECT_EQ(defaults.value(u"Orvane.appearance"_s), std::nullopt);
    EXPECT_LT(peakKilobytes() - before, 16 * 1024);
}

} // namespace
