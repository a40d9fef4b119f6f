// The example machines, and the choice of the process's platform.
#include "VLANKit/Platform.h"
#include "VLANKit/core/TextRules.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class ShowMac : public DocumentTest
{
protected:
    void SetUp() override { openCopyOf(u"examples/show-mac"_s); }
};

TEST_F(ShowMac, HoldsThreeLocationsWithTheShowInUse)
{
    const SessionRef session = readSession();
    QStringList sorted = setNames(session);
    sortCanonically(sorted);
    EXPECT_EQ(sorted, (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s}));
    EXPECT_EQ(backend->scNetworkSetGetName(backend->scNetworkSetCopyCurrent(session)), u"Show"_s);
}

TEST_F(ShowMac, HoldsADozenVLANsAcrossItsAdapters)
{
    const SessionRef session = readSession();
    EXPECT_EQ(vlanNames(session).size(), 12);
    QStringList parents;
    for (const InterfaceRef &vlan : all(backend->scVLANInterfaceCopyAll(session)))
        parents.append(
            backend
                ->scNetworkInterfaceGetBSDName(backend->scVLANInterfaceGetPhysicalInterface(vlan))
                .value_or(QString()));
    parents.removeDuplicates();
    sortCanonically(parents);
    EXPECT_EQ(parents, (QStringList{u"en0"_s, u"en5"_s, u"en6"_s, u"en8"_s}));
}

TEST_F(ShowMac, HasTheCasesAShowBrings)
{
    const SessionRef session = readSession();
    const SetRef show = backend->scNetworkSetCopyCurrent(session);
    QStringList names = serviceNames(show);
    EXPECT_EQ(names.size(), 16);
    EXPECT_TRUE(names.contains(u"DONGLE"_s));
    EXPECT_TRUE(names.contains(u"USB 10/100/1000 LAN"_s)) << "an adapter with its hardware name";
    EXPECT_TRUE(names.contains(u"1020 - Internet (DONGLE)"_s));
    EXPECT_FALSE(names.contains(u"1040 - Backstage (DONGLE)"_s)) << "no service in this Location";
    EXPECT_TRUE(
        serviceNames(setNamed(session, u"Rehearsal"_s)).contains(u"1040 - Backstage (DONGLE)"_s));
    EXPECT_FALSE(
        backend->scNetworkServiceGetEnabled(serviceNamed(show, u"1030 - Intercom (DONGLE)"_s)));

    const ServiceRef control = serviceNamed(show, u"1010 - Control (DONGLE)"_s);
    const auto dns = backend->scNetworkProtocolGetConfiguration(
        backend->scNetworkServiceCopyProtocol(control, kSCNetworkProtocolTypeDNS));
    ASSERT_TRUE(dns);
    EXPECT_EQ(dns->value(u"ServerAddresses"_s).toList().size(), 2);
    EXPECT_EQ(dns->value(u"SearchDomains"_s).toList().size(), 2);
    const auto internet =
        backend->scNetworkProtocolGetConfiguration(backend->scNetworkServiceCopyProtocol(
            serviceNamed(show, u"1020 - Internet (DONGLE)"_s), kSCNetworkProtocolTypeIPv4));
    EXPECT_EQ(internet, (QVariantMap{{u"ConfigMethod"_s, u"DHCP"_s}}));
    EXPECT_EQ(backend->scNetworkInterfaceGetConfiguration(backend->scNetworkServiceGetInterface(
                  serviceNamed(show, u"1012 - Audio (DONGLE)"_s))),
              (QVariantMap{{u"MTU"_s, qint64(9000)}}));
    EXPECT_EQ(backend->ifNameToIndex(u"vlan10"_s), 0u) << "the VLAN whose adapter is away";
}

TEST_F(ShowMac, TellsItsNameAndHardwareIdentifier)
{
    EXPECT_EQ(backend->machineDisplayName(), u"FOH Show Mac"_s);
    EXPECT_EQ(backend->hardwareUUID(), u"6F1C2A9E-3B47-4D8A-9E21-5C0B7D3A4F18"_s);
}

TEST(LightingMac, IsAnotherMachineOfTheSameShow)
{
    TemporaryFolder temporary;
    const auto backend =
        DocumentBackend::open(temporary.copyOf(u"examples/lighting-mac"_s, u"m"_s));
    EXPECT_EQ(backend->machineDisplayName(), u"Lighting Desk Mac"_s);
    EXPECT_NE(backend->hardwareUUID(), u"6F1C2A9E-3B47-4D8A-9E21-5C0B7D3A4F18"_s);
    const SessionRef session = backend->scPreferencesCreate(u"Orvane"_s);
    EXPECT_EQ(backend->scNetworkSetGetName(backend->scNetworkSetCopyCurrent(session)), u"Show"_s);
    EXPECT_EQ(backend->scVLANInterfaceCopyAll(session)->size(), 5);
    QStringList adapters;
    for (const InterfaceRef &adapter :
         all(backend->scVLANInterfaceCopyAvailablePhysicalInterfaces()))
        adapters.append(backend->scNetworkInterfaceGetBSDName(adapter).value_or(QString()));
    EXPECT_EQ(adapters, (QStringList{u"en0"_s, u"en4"_s, u"en7"_s}));
}

TEST(ReferenceFiles, OpenAsTheyAre)
{
    TemporaryFolder temporary;
    const auto backend =
        DocumentBackend::open(temporary.copyOf(u"tests/document/fixtures"_s, u"m"_s));
    EXPECT_TRUE(backend->scPreferencesCreate(u"Orvane"_s));
}

TEST(ChoosePlatform, PrefsAnywhereChoosesTheDocumentBackendOverTheFolder)
{
    TemporaryFolder temporary;
    const QString folder = temporary.copyOf(u"examples/show-mac"_s, u"show-mac"_s);
    const Platform platform = choosePlatform(
        {u"orvane"_s, u"--render"_s, u"current"_s, u"out.png"_s, u"--prefs"_s, folder});
    EXPECT_EQ(platform.documentFolder(), QFileInfo(folder).absoluteFilePath());
    auto *document = dynamic_cast<DocumentBackend *>(&platform.backend());
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(platform.machineFacts().machineDisplayName(), u"FOH Show Mac"_s);
    const SessionRef session = platform.backend().scPreferencesCreate(u"Orvane"_s);
    EXPECT_EQ(platform.backend().scVLANInterfaceCopyAll(session)->size(), 12);
}

TEST(ChoosePlatform, TheLastPrefsCounts)
{
    TemporaryFolder temporary;
    const QString first = temporary.copyOf(u"examples/show-mac"_s, u"first"_s);
    const QString second = temporary.copyOf(u"examples/lighting-mac"_s, u"second"_s);
    const Platform platform = choosePlatform({u"--prefs"_s, first, u"--prefs"_s, second});
    EXPECT_EQ(platform.machineFacts().machineDisplayName(), u"Lighting Desk Mac"_s);
}

TEST(ChoosePlatform, PrefsWithoutAFolderIsRefusedWithASentence)
{
    try {
        (void)choosePlatform({u"orvane"_s, u"--prefs"_s});
        FAIL() << "a platform was chosen";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.localizedDescription(),
                  u"\u201c--prefs\u201d needs a folder of network preferences after it."_s);
    }
}

TEST(ChoosePlatform, PrefsOfAFolderThatIsntThereIsRefused)
{
    EXPECT_THROW((void)choosePlatform({u"--prefs"_s, u"/no/such/folder"_s}), VLANError);
}

TEST(ChoosePlatform, TheRestOfTheArgumentsLeaveOutPrefsAndItsFolder)
{
    EXPECT_EQ(withoutPlatformArguments(
                  {u"orvane"_s, u"--prefs"_s, u"dir"_s, u"--render"_s, u"all"_s, u"out.png"_s}),
              (QStringList{u"orvane"_s, u"--render"_s, u"all"_s, u"out.png"_s}));
    EXPECT_EQ(withoutPlatformArguments({u"orvane"_s, u"--prefs"_s}), QStringList{u"orvane"_s});
}

TEST(ExampleWorkingCopy, IsMadeOnceFromTheExampleBuiltIntoTheProgram)
{
    TemporaryFolder data;
    const QString copy = exampleWorkingCopy(data.path());
    const QDir repository(TemporaryFolder::repositoryPath(u"examples/show-mac"_s));
    const QStringList files = repository.entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(QDir(copy).entryList(QDir::Files, QDir::Name), files);
    for (const QString &name : files) {
        QFile built(QDir(copy).filePath(name));
        QFile original(repository.filePath(name));
        ASSERT_TRUE(built.open(QIODevice::ReadOnly) && original.open(QIODevice::ReadOnly));
        EXPECT_EQ(built.readAll(), original.readAll()) << name.toStdString();
        EXPECT_TRUE(QFileInfo(built).isWritable()) << name.toStdString();
    }
    // A second start keeps what the user changed.
    QFile changed(QDir(copy).filePath(u"machine.toml"_s));
    ASSERT_TRUE(changed.open(QIODevice::WriteOnly | QIODevice::Truncate));
    changed.write("# mine\n");
    changed.close();
    EXPECT_EQ(exampleWorkingCopy(data.path()), copy);
    ASSERT_TRUE(changed.open(QIODevice::ReadOnly));
    EXPECT_EQ(changed.readAll(), QByteArray("# mine\n"));
}

} // namespace
