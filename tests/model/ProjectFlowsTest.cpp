#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/project/ProfileIO.h"
#include "tests/model/ModelTestSupport.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class ProjectFlows : public ModelTest
{
protected:
    // The lighting desk: a second machine with its own preferences and user defaults.
    std::unique_ptr<AppModel> lightingModel()
    {
        const Platform lighting =
            Platform::overFolder(temporary.copyOf(u"examples/lighting-mac"_s, u"lighting"_s));
        auto model = std::make_unique<AppModel>(
            lighting, Defaults::inFile(temporary.filePath(u"lighting-defaults.plist"_s)), false,
            clock);
        model->reload();
        return model;
    }
    // A show machine that saved the show as a project, with its plan's host 69.
    QString savedProject(const QString &folderName = u"projects"_s)
    {
        QDir(temporary.filePath(QString())).mkpath(folderName);
        const QString path = temporary.filePath(folderName + u"/Show Kit.json"_s);
        const auto model = makeModel();
        model->reload();
        AddressPlan plan = model->addressPlan();
        plan.host = u"69"_s;
        model->setAddressPlan(plan);
        model->saveProfile(path);
        EXPECT_FALSE(model->result());
        return path;
    }
    static Profile manualProfile(const QList<HostAssignment> &assignments)
    {
        ProfileEntry entry{10, u"Control"_s, IPConfig{}, true};
        entry.ip.mode = IPMode::manual;
        entry.ip.address = u"192.168.10.5"_s;
        return Profile{.name = u"Kit"_s, .assignments = assignments, .entries = {entry}};
    }
    [[nodiscard]] static QByteArray bytesOf(const QString &path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

TEST_F(ProjectFlows, SavedOnOneMachineAndOpenedOnTheOther)
{
    const QString path = savedProject();
    const Profile saved = ProfileIO::read(path);
    EXPECT_EQ(saved.name, u"Show Kit"_s);
    EXPECT_EQ(saved.note, u"Captured from Show by Orvane"_s);
    EXPECT_EQ(saved.hostOctet, u"69"_s);
    const auto lighting = lightingModel();
    lighting->loadProfile(path);
    ASSERT_TRUE(lighting->pendingImport());
    EXPECT_EQ(lighting->pendingImportURL(), path);
    EXPECT_EQ(lighting->importHostOctet(), saved.suggestedHost());
    EXPECT_EQ(lighting->importHostOctet(), u"70"_s);
    EXPECT_TRUE(lighting->canConfirmImport());
    lighting->confirmImport();
    EXPECT_FALSE(lighting->pendingImport());
    EXPECT_FALSE(lighting->result());
    EXPECT_EQ(lighting->tab(), AppTab::add);
    EXPECT_EQ(lighting->addressPlan().host, u"70"_s);
    const auto control =
        std::find_if(lighting->drafts().begin(), lighting->drafts().end(),
                     [](const AppModel::DraftRow &draft) { return draft->tag() == u"1010"_s; });
    ASSERT_NE(control, lighting->drafts().end());
    EXPECT_EQ((*control)->address(), u"192.168.10.70"_s);
    EXPECT_FALSE((*control)->autoAddress());
    const Profile recorded = ProfileIO::read(path);
    EXPECT_EQ(recorded.claim(lighting->thisMac()).assignment->host, u"70"_s);
    const auto show = makeModel();
    EXPECT_EQ(recorded.claim(show->thisMac()).assignment->host, u"69"_s);
    // Saving over the project again keeps the lighting desk's claim.
    savedProject();
    EXPECT_EQ(ProfileIO::read(path).claim(lighting->thisMac()).assignment->host, u"70"_s);
}

TEST_F(ProjectFlows, AFailedRecordOfTheHostStillGivesTheRows)
{
    const QString path = savedProject(u"removed"_s);
    const auto lighting = lightingModel();
    lighting->loadProfile(path);
    ASSERT_TRUE(QDir(temporary.filePath(u"removed"_s)).removeRecursively());
    lighting->confirmImport();
    ASSERT_TRUE(lighting->result());
    EXPECT_FALSE(lighting->result()->succeeded);
    EXPECT_TRUE(lighting->result()->message.startsWith(
        u"Loaded, but couldn't record host .70 in the project file: "_s))
        << lighting->result()->message.toStdString();
    EXPECT_GT(lighting->drafts().size(), 1);
    EXPECT_EQ(lighting->addressPlan().host, u"70"_s);
    EXPECT_EQ(lighting->tab(), AppTab::add);
}

TEST_F(ProjectFlows, AnUnreadableFileGivesItsSentenceAndNoSheet)
{
    const QString path = temporary.filePath(u"broken.json"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{ not json");
    file.close();
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"5"_s, u"Mine"_s}}));
    model->loadProfile(path);
    ASSERT_TRUE(model->result());
    EXPECT_FALSE(model->result()->succeeded);
    EXPECT_FALSE(model->result()->message.isEmpty());
    EXPECT_FALSE(model->pendingImport());
    EXPECT_EQ(model->drafts().first()->name(), u"Mine"_s);
    EXPECT_EQ(reads, 0);
}

TEST_F(ProjectFlows, ADHCPOnlyProjectOpensWithoutASheetAndRecordsNothing)
{
    const QString path = temporary.filePath(u"dhcp.json"_s);
    ProfileIO::write(Profile{.name = u"dhcp"_s,
                             .entries = {{20, u"Guests"_s, IPConfig::dhcp(), false},
                                         {30, u"Office"_s, IPConfig::dhcp(), true}}},
                     path);
    const QByteArray before = bytesOf(path);
    const auto model = makeModel();
    model->loadProfile(path);
    EXPECT_FALSE(model->pendingImport());
    EXPECT_EQ(bytesOf(path), before);
    ASSERT_EQ(model->drafts().size(), 2);
    EXPECT_EQ(model->drafts().at(0)->tag(), u"20"_s);
    EXPECT_EQ(model->drafts().at(0)->mode(), IPMode::dhcp);
    EXPECT_EQ(model->drafts().at(0)->subnetMask(), u"255.255.255.0"_s);
    EXPECT_EQ(model->tab(), AppTab::add);
    EXPECT_EQ(reads, 0);
}

TEST_F(ProjectFlows, AProjectWithoutEntriesLeavesOneBlankRow)
{
    const auto model = makeModel();
    model->setDrafts(draftsOf({{u"5"_s, u"Mine"_s}, {u"6"_s, u"Yours"_s}}));
    model->populateDrafts(Profile{.name = u"empty"_s});
    ASSERT_EQ(model->drafts().size(), 1);
    EXPECT_TRUE(model->drafts().first()->isBlank());
    EXPECT_EQ(model->tab(), AppTab::add);
}

TEST_F(ProjectFlows, AMachineThatClaimedBeforeIsOfferedItsOctet)
{
    const auto model = makeModel();
    const Profile profile = manualProfile({}).recording(model->thisMac(), u"42"_s);
    EXPECT_EQ(AppModel::hostToOffer(profile, model->thisMac(), u"7"_s), u"42"_s);
}

TEST_F(ProjectFlows, AMachineOfTheSameNameIsOfferedNothingAndToldOfTheOtherMac)
{
    const auto model = makeModel();
    const Profile profile = manualProfile({HostAssignment{u"42"_s, model->thisMac().name}});
    EXPECT_EQ(AppModel::hostToOffer(profile, model->thisMac(), u"7"_s), QString());
    model->setPendingImport(
        manualProfile({HostAssignment{u"42"_s, model->thisMac().name, u"0123456789ab"_s}}));
    model->setImportHostOctet(u"42"_s);
    EXPECT_EQ(model->importHostIssue(),
              u"Host .42 is already assigned to another Mac named FOH Show Mac."_s);
    model->setPendingImport(manualProfile({HostAssignment{u"42"_s, u"Video Mac"_s, u"abc"_s}}));
    EXPECT_EQ(model->importHostIssue(), u"Host .42 is already assigned to Video Mac."_s);
}

TEST_F(ProjectFlows, ThePlansHostIsOfferedIfFreeElseTheSuggestion)
{
    const auto model = makeModel();
    const Profile profile = manualProfile({HostAssignment{u"7"_s, u"Video Mac"_s, u"abc"_s}});
    EXPECT_EQ(AppModel::hostToOffer(profile, model->thisMac(), u"9"_s), u"9"_s);
    EXPECT_EQ(AppModel::hostToOffer(profile, model->thisMac(), u"7"_s), profile.suggestedHost());
    EXPECT_EQ(AppModel::hostToOffer(profile, model->thisMac(), QString()), u"8"_s);
}

TEST_F(ProjectFlows, AnEmptyHostShowsNoIssueAndCannotBeConfirmed)
{
    const auto model = makeModel();
    model->setPendingImport(manualProfile({}));
    model->setImportHostOctet(u"  "_s);
    EXPECT_FALSE(model->importHostIssue());
    EXPECT_FALSE(model->canConfirmImport());
}

TEST_F(ProjectFlows, HostsThatAreNoOctetGiveTheNumberText)
{
    const auto model = makeModel();
    model->setPendingImport(manualProfile({}));
    for (const QString &typed : {u"256"_s, u"-1"_s, u"1a"_s}) {
        model->setImportHostOctet(typed);
        EXPECT_EQ(model->importHostIssue(), u"Must be a number from 0 to 255."_s);
    }
    model->setImportHostOctet(u" 20 "_s);
    EXPECT_FALSE(model->importHostIssue());
    EXPECT_TRUE(model->canConfirmImport());
}

TEST_F(ProjectFlows, TheCapturingMachinesOctetWouldCollide)
{
    const auto model = makeModel();
    model->setPendingImport(manualProfile({}));
    model->setImportHostOctet(u"5"_s);
    EXPECT_EQ(model->importHostIssue(),
              u"That's the machine this project was captured on — the addresses would collide."_s);
}

TEST_F(ProjectFlows, ASaveWithoutAPlanHostWritesNoHostOctet)
{
    const QString path = temporary.filePath(u"No Host.json"_s);
    const auto model = makeModel();
    model->reload();
    ASSERT_TRUE(model->addressPlan().host.isEmpty());
    model->saveProfile(path);
    EXPECT_FALSE(model->result());
    const Profile saved = ProfileIO::read(path);
    EXPECT_EQ(saved.name, u"No Host"_s);
    EXPECT_FALSE(saved.hostOctet);
}

} // namespace
