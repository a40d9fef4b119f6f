// The hand-written description of a machine, and a folder without one.
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/platform/document/MachineDescriptionReader.h"
#include "tests/document/DocumentTestSupport.h"

#include <QFile>
#include <QSysInfo>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using OrvaneTestRows::PrintTo;

const QString descriptionPath = u"/shows/foh/machine.toml"_s;

/// The sentence that reading the text gives, or an empty string when it reads.
QString sentenceFor(const QByteArray &text)
{
    try {
        (void)MachineDescriptionReader::parse(text, descriptionPath);
    } catch (const VLANError &error) {
        return error.localizedDescription();
    }
    return {};
}

TEST(MachineDescription, TheShowMachinesDescriptionReadsWhole)
{
    const MachineDescription description = MachineDescriptionReader::readFile(
        TemporaryFolder::repositoryPath(u"examples/show-mac/machine.toml"_s));
    EXPECT_EQ(description.computerName, u"FOH Show Mac"_s);
    EXPECT_EQ(description.hardwareUUID, u"6F1C2A9E-3B47-4D8A-9E21-5C0B7D3A4F18"_s);
    EXPECT_EQ(description.answer, MachineDescription::Answer::allow);
    ASSERT_TRUE(description.interfaces);
    ASSERT_EQ(description.interfaces->size(), 4);
    const HardwareInterface &dongle = description.interfaces->at(2);
    EXPECT_EQ(dongle.bsdName, u"en5"_s);
    EXPECT_EQ(dongle.type, kSCNetworkInterfaceTypeEthernet);
    EXPECT_EQ(dongle.displayName, u"USB 10/100/1000 LAN"_s);
    EXPECT_EQ(dongle.hardwareAddress, u"00:e0:4c:68:12:a1"_s);
    EXPECT_TRUE(dongle.vlanCapable);
    EXPECT_FALSE(dongle.builtIn);
    EXPECT_TRUE(dongle.linkUp);
    EXPECT_EQ(dongle.mtu, (InterfaceMTU{1500, 1280, 9000}));
    ASSERT_EQ(dongle.media.size(), 3);
    EXPECT_EQ(dongle.media.at(2).subType, u"1000baseT"_s);
    EXPECT_EQ(dongle.media.at(2).options,
              (QList<QStringList>{{u"full-duplex"_s}, {u"full-duplex"_s, u"flow-control"_s}}));
    EXPECT_EQ(dongle.activeSubType, u"autoselect"_s);
    EXPECT_FALSE(description.interfaces->at(1).vlanCapable) << "Wi-Fi carries no VLAN";
    ASSERT_EQ(description.dhcpServers.size(), 1);
    EXPECT_EQ(description.dhcpServers.first().adapter, u"en5"_s);
    EXPECT_EQ(description.dhcpServers.first().tag, 1020);
    EXPECT_EQ(description.dhcpServers.first().firstAddress,
              (std::array<int, 4>{192, 168, 20, 100}));
}

TEST(MachineDescription, AnEmptyDescriptionTakesEveryDefault)
{
    EXPECT_EQ(MachineDescriptionReader::parse("# nothing but a comment\n", descriptionPath),
              MachineDescription());
}

struct BadDescription
{
    const char *name;
    QByteArray text;
    QString where;
    QString what;
};

class BadDescriptions : public ::testing::TestWithParam<BadDescription>
{};

TEST_P(BadDescriptions, GiveOneSentenceNamingTheFileTheLineAndTheKey)
{
    const QString sentence = sentenceFor(GetParam().text);
    EXPECT_TRUE(sentence.startsWith(u"\u201c/shows/foh/machine.toml\u201d can\u2019t be read: "_s))
        << sentence.toStdString();
    EXPECT_TRUE(sentence.contains(GetParam().where)) << sentence.toStdString();
    EXPECT_TRUE(sentence.contains(GetParam().what)) << sentence.toStdString();
    EXPECT_TRUE(sentence.endsWith(u'.'));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadDescriptions,
    ::testing::Values(
        BadDescription{"SyntaxError",
                       "[machine]\ncomputer-name = \"A\"\n\n[[interface]]\nlink-up = maybe\n",
                       u"line 5, key \u201clink-up\u201d"_s, u""_s},
        BadDescription{"UnclosedTable", "[machine\ncomputer-name = \"A\"\n", u"line 1"_s, u""_s},
        BadDescription{"WrongType", "[[interface]]\nbsd-name = \"en0\"\nlink-up = \"yes\"\n",
                       u"line 3, key \u201cinterface[1].link-up\u201d"_s, u"true or false"_s},
        BadDescription{"MisspeltKey", "[[interface]]\nbsd-name = \"en0\"\nlinkup = true\n",
                       u"line 3, key \u201cinterface[1].linkup\u201d"_s, u"no such key"_s},
        BadDescription{"UnknownSection", "\n[machines]\n", u"line 2, key \u201cmachines\u201d"_s,
                       u"no such key"_s},
        BadDescription{"MissingKernelName", "[[interface]]\ntype = \"Ethernet\"\n",
                       u"key \u201cinterface[1].bsd-name\u201d"_s, u"needed"_s},
        BadDescription{"UnknownType", "[[interface]]\nbsd-name = \"en0\"\ntype = \"Token Ring\"\n",
                       u"line 3, key \u201cinterface[1].type\u201d"_s, u"IEEE80211"_s},
        BadDescription{"BadHardwareAddress",
                       "[[interface]]\nbsd-name = \"en0\"\nhardware-address = \"3c:a6\"\n",
                       u"line 3, key \u201cinterface[1].hardware-address\u201d"_s,
                       u"hexadecimal"_s},
        BadDescription{"SecondInterfaceOfOneName",
                       "[[interface]]\nbsd-name = \"en0\"\n[[interface]]\nbsd-name = \"en0\"\n",
                       u"line 4, key \u201cinterface[2].bsd-name\u201d"_s, u"already"_s},
        BadDescription{"UnknownAnswer", "[administrator]\nanswer = \"maybe\"\n",
                       u"line 2, key \u201cadministrator.answer\u201d"_s, u"no-handle"_s},
        BadDescription{"FailWithoutStatus", "[administrator]\nanswer = \"fail\"\n",
                       u"key \u201cadministrator.status\u201d"_s, u"status"_s},
        BadDescription{"BadServerAddress",
                       "[[dhcp-server]]\nadapter = \"en5\"\nfirst-address = \"10.0.0\"\n",
                       u"line 3, key \u201cdhcp-server[1].first-address\u201d"_s, u"address"_s},
        BadDescription{
            "TagOutOfRange",
            "[[dhcp-server]]\nadapter = \"en5\"\ntag = 4095\nfirst-address = \"10.0.0.1\"\n",
            u"line 3, key \u201cdhcp-server[1].tag\u201d"_s, u"4094"_s},
        BadDescription{"FrameSizeAsText",
                       "[[interface]]\nbsd-name = \"en0\"\nmtu = { max = \"9000\" }\n",
                       u"line 3, key \u201cinterface[1].mtu.max\u201d"_s, u"whole number"_s}),
    [](const auto &row) { return std::string(row.param.name); });

class MachineFolder : public DocumentTest
{};

TEST_F(MachineFolder, OpeningRefusesADescriptionThatCantBeRead)
{
    openFixture();
    write(u"machine.toml"_s, "[machine]\ncomputer-name = 42\n");
    try {
        reopen();
        FAIL() << "the folder opened";
    } catch (const VLANError &error) {
        EXPECT_TRUE(error.localizedDescription().contains(path(u"machine.toml"_s)));
        EXPECT_TRUE(error.localizedDescription().contains(u"line 2"_s));
        EXPECT_TRUE(error.localizedDescription().contains(u"machine.computer-name"_s));
    }
}

TEST_F(MachineFolder, AFolderWithOnlyTheTwoPlistsOpens)
{
    openFixture();
    EXPECT_FALSE(backend->machine().description());
    EXPECT_EQ(bsdNames(backend->scNetworkInterfaceCopyAll()).mid(0, 3),
              (QStringList{u"en0"_s, u"en1"_s, u"en7"_s}));
    EXPECT_EQ(bsdNames(backend->scVLANInterfaceCopyAvailablePhysicalInterfaces()),
              (QStringList{u"en0"_s, u"en7"_s}));
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(adapterNamed(u"en7"_s)),
              u"USB 10/100/1000 LAN"_s);
    for (const KernelView::Interface &interface : backend->kernelView().interfaces)
        EXPECT_FALSE(interface.linkUp) << interface.bsdName.toStdString();
    EXPECT_TRUE(backend->scPreferencesCommitChanges(writeSession()));
}

TEST_F(MachineFolder, OnlyActiveEntriesOfTheInterfaceListAreAttached)
{
    openFixture();
    write(u"NetworkInterfaces.plist"_s,
          bytesOf(u"NetworkInterfaces.plist"_s)
              .replace("\t\t\t<key>Active</key>\n\t\t\t<true/>\n\t\t\t<key>BSD Name</key>\n\t\t\t"
                       "<string>en7</string>",
                       "\t\t\t<key>BSD Name</key>\n\t\t\t<string>en7</string>"));
    reopen();
    EXPECT_FALSE(bsdNames(backend->scNetworkInterfaceCopyAll()).contains(u"en7"_s));
    EXPECT_EQ(backend->ifNameToIndex(u"vlan0"_s), 0u) << "a VLAN of an adapter that is away";
    // The list still knows the adapter by name.
    const InterfaceRef parent =
        backend->scVLANInterfaceGetPhysicalInterface(vlanNamed(readSession(), u"vlan0"_s));
    EXPECT_EQ(backend->scNetworkInterfaceGetLocalizedDisplayName(parent), u"USB 10/100/1000 LAN"_s);
}

TEST_F(MachineFolder, TheNameComesFromTheDescriptionElseThePreferencesElseTheHost)
{
    openFixture();
    EXPECT_EQ(backend->machineDisplayName(), u"KVRT Show Mac"_s);
    EXPECT_FALSE(backend->hardwareUUID());
    write(u"machine.toml"_s, "[machine]\ncomputer-name = \"Desk\"\nhardware-uuid = \"ABC\"\n");
    reopen();
    EXPECT_EQ(backend->machineDisplayName(), u"Desk"_s);
    EXPECT_EQ(backend->hardwareUUID(), u"ABC"_s);
    QFile::remove(path(u"machine.toml"_s));
    QFile::remove(path(u"preferences.plist"_s));
    reopen();
    const QString host = QSysInfo::machineHostName();
    EXPECT_EQ(backend->machineDisplayName(), host.isEmpty() ? u"localhost"_s : host);
}

TEST_F(MachineFolder, AFolderThatIsntThereIsRefused)
{
    try {
        (void)DocumentBackend::open(temporary.filePath(u"nowhere"_s));
        FAIL() << "the folder opened";
    } catch (const VLANError &error) {
        EXPECT_TRUE(error.localizedDescription().contains(u"nowhere"_s));
    }
}

} // namespace
