#include "tests/cli/CliTestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using List = CliTest;

QString text(const QJsonValue &value)
{
    return value.isNull() ? u"\u2014"_s : value.toString();
}

/// The line of the table whose first cell is `first`.
QStringList rowStarting(const QStringList &lines, const QString &first)
{
    for (const QString &line : lines) {
        const QStringList cells = cellsOf(line);
        if (cells.first() == first)
            return cells;
    }
    return {};
}

TEST_F(List, ShowsTheVLANsOfTheLocationInUse)
{
    const CliRun run = orvanectl({u"list"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().first(), u"Location “Show” (in use)"_s);
    // The DHCP server of the description answers on VLAN 1020 of the trunk.
    EXPECT_EQ(rowStarting(run.lines(), u"1020"_s),
              (QStringList{u"1020"_s, u"en5"_s, u"1020 - Internet (DONGLE)"_s, u"DHCP"_s, u"—"_s,
                           u"on"_s, u"192.168.20.100"_s}));
    // The VLAN on the adapter that isn't plugged in holds no live address.
    EXPECT_EQ(rowStarting(run.lines(), u"3010"_s),
              (QStringList{u"3010"_s, u"en8"_s, u"3010 - Truck Feed (TRUCK)"_s, u"Manual"_s,
                           u"10.30.10.69"_s, u"on"_s, u"—"_s}));
    EXPECT_EQ(rowStarting(run.lines(), u"1040"_s).at(5), u"no service"_s);
    EXPECT_TRUE(run.err.isEmpty());
}

TEST_F(List, JsonHoldsWhatTheTextShows)
{
    const CliRun textRun = orvanectl({u"list"_s});
    const QJsonObject json = orvanectl({u"list"_s, u"--json"_s}).json();
    EXPECT_EQ(json.value(u"location"_s).toString(), u"Show"_s);
    EXPECT_TRUE(json.value(u"inUse"_s).toBool());
    const QJsonArray vlans = json.value(u"vlans"_s).toArray();
    ASSERT_EQ(vlans.size(), 12);
    for (const QJsonValue &value : vlans) {
        const QJsonObject vlan = value.toObject();
        const QString tag = QString::number(vlan.value(u"tag"_s).toInteger());
        const QString on = vlan.value(u"serviceID"_s).isNull()
                               ? u"no service"_s
                               : (vlan.value(u"on"_s).toBool() ? u"on"_s : u"off"_s);
        EXPECT_EQ(rowStarting(textRun.lines(), tag),
                  (QStringList{tag, vlan.value(u"adapter"_s).toString(),
                               vlan.value(u"name"_s).toString(), vlan.value(u"mode"_s).toString(),
                               text(vlan.value(u"address"_s)), on, text(vlan.value(u"live"_s))}));
    }
    const QJsonArray others = json.value(u"otherServices"_s).toArray();
    ASSERT_EQ(others.size(), 5);
    for (const QJsonValue &value : others) {
        const QJsonObject service = value.toObject();
        EXPECT_EQ(
            rowStarting(textRun.lines(), service.value(u"name"_s).toString()),
            (QStringList{service.value(u"name"_s).toString(), text(service.value(u"device"_s)),
                         service.value(u"mode"_s).toString(), text(service.value(u"address"_s)),
                         service.value(u"on"_s).toBool() ? u"on"_s : u"off"_s,
                         text(service.value(u"live"_s))}));
    }
}

TEST_F(List, AnotherLocationByItsNameInAnyCase)
{
    const CliRun run = orvanectl({u"list"_s, u"--location"_s, u"rehearsal"_s, u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.json().value(u"location"_s).toString(), u"Rehearsal"_s);
    EXPECT_FALSE(run.json().value(u"inUse"_s).toBool());
    EXPECT_EQ(orvanectl({u"list"_s, u"--location"_s, u"Rehearsal"_s}).lines().first(),
              u"Location “Rehearsal” (not in use)"_s);
}

TEST_F(List, UnknownLocationFailsWithTheLibrarysSentence)
{
    const CliRun run = orvanectl({u"list"_s, u"--location"_s, u"Nowhere"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"No network Location named 'Nowhere'. Known Locations: Office, "
                       u"Rehearsal, Show.\n"_s);
    EXPECT_TRUE(run.out.isEmpty());
}

TEST_F(List, WritesNothing)
{
    const auto before = machineFiles();
    ASSERT_EQ(orvanectl({u"list"_s}).status, 0);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(List, LocationsMarksTheOneInUse)
{
    const CliRun run = orvanectl({u"locations"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines(), (QStringList{u"   Office     2 services, 0 on VLANs"_s,
                                        u"   Rehearsal  7 services, 4 on VLANs"_s,
                                        u"*  Show       16 services, 11 on VLANs"_s}));
}

TEST_F(List, LocationsJsonHoldsWhatTheTextShows)
{
    const QStringList lines = orvanectl({u"locations"_s}).lines();
    const QJsonArray locations =
        orvanectl({u"locations"_s, u"--json"_s}).json().value(u"locations"_s).toArray();
    ASSERT_EQ(locations.size(), lines.size());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QJsonObject location = locations.at(i).toObject();
        const qint64 services = location.value(u"services"_s).toInteger();
        const QString expected =
            (location.value(u"inUse"_s).toBool() ? u"*"_s : u" "_s) + u"  "_s
            + location.value(u"name"_s).toString() + u' ' + QString::number(services)
            + (services == 1 ? u" service, "_s : u" services, "_s)
            + QString::number(location.value(u"vlanServices"_s).toInteger()) + u" on VLANs"_s;
        EXPECT_EQ(lines.at(i).simplified(), expected.simplified());
        EXPECT_FALSE(location.value(u"setID"_s).toString().isEmpty());
    }
}

// A name of a megabyte stands whole on its own line, and pads no other line to its width.
TEST_F(List, AHugeNamePadsNoOtherLine)
{
    const QString huge(1024 * 1024, u'x');
    editPreferences([&](QVariantMap &root) {
        QVariantMap interfaces = root.value(u"VirtualNetworkInterfaces"_s).toMap();
        QVariantMap vlans = interfaces.value(u"VLAN"_s).toMap();
        QVariantMap first = vlans.value(u"vlan0"_s).toMap();
        first.insert(u"UserDefinedName"_s, huge);
        vlans.insert(u"vlan0"_s, first);
        interfaces.insert(u"VLAN"_s, vlans);
        root.insert(u"VirtualNetworkInterfaces"_s, interfaces);
    });
    const CliRun run = orvanectl({u"list"_s, u"--location"_s, u"Rehearsal"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    QStringList longLines;
    for (const QString &line : run.lines()) {
        if (line.size() > 200)
            longLines.append(line);
    }
    ASSERT_EQ(longLines.size(), 1);
    EXPECT_TRUE(longLines.first().contains(huge));
    EXPECT_LT(run.out.size(), huge.size() + 4096);
}

} // namespace
