#include "VLANKit/project/ProfileIO.h"
#include "tests/cli/CliTestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Apply : public CliTest
{
protected:
    /// The show machine's own VLANs, as a capture sees them, by tag.
    ProfileEntry capturedEntry(qint64 tag) const
    {
        for (const ProfileEntry &entry : readStore()->capture(u"show"_s).entries) {
            if (entry.tag == tag)
                return entry;
        }
        ADD_FAILURE() << "no VLAN tagged " << tag;
        return {};
    }

    /// A project that makes one change of each kind that a project makes on en5: a new VLAN,
    /// a new address, a move from en6, and a service turned on.
    Profile mixedProject() const
    {
        ProfileEntry audio = capturedEntry(1012);
        audio.ip.address = u"192.168.12.80"_s;
        ProfileEntry intercom = capturedEntry(1030);
        intercom.enabled = true;
        return Profile{.name = u"Show"_s,
                       .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true},
                                   audio,
                                   capturedEntry(2010),
                                   intercom}};
    }

    QStringList applyOnEn5(const QString &project) const
    {
        return {u"apply"_s, project, u"--on"_s, u"en5"_s, u"--yes"_s};
    }
};

TEST_F(Apply, PlanWritesNothing)
{
    const QString project = writeProject(mixedProject());
    const auto before = machineFiles();
    const QByteArray projectBefore = bytesOf(project);
    const CliRun run = orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().size(), 5);
    EXPECT_EQ(machineFiles(), before);
    EXPECT_EQ(bytesOf(project), projectBefore);
}

TEST_F(Apply, PlanPrintsWhatApplyThenWrites)
{
    const Profile profile = mixedProject();
    const QString project = writeProject(profile);
    const CliRun plan = orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s});
    ASSERT_EQ(plan.status, 0) << plan.err.toStdString();
    EXPECT_EQ(plan.lines(), (QStringList{
                                u"4 changes to build “show.json” on en5 in Location “Show”:"_s,
                                u"IP      1012  1012 - Audio  192.168.12.69/255.255.255.0 → "
                                u"192.168.12.80/255.255.255.0"_s,
                                u"ENABLE  1030  1030 - Intercom"_s,
                                u"CREATE  1060  Comms  →  192.168.60.69/255.255.255.0"_s,
                                u"REPARENT 2010  2010 - Monitors (en6)  en6 → en5"_s,
                            }));

    const CliRun apply = orvanectl(applyOnEn5(project));
    ASSERT_EQ(apply.status, 0) << apply.err.toStdString();
    // The plan as printed, then what each change did.
    EXPECT_EQ(apply.lines().mid(0, 5), plan.lines());
    EXPECT_EQ(apply.lines().mid(5),
              (QStringList{u"Set 1012 - Audio to 192.168.12.80/255.255.255.0."_s,
                           u"Turned 1030 - Intercom on."_s, u"Built Comms."_s,
                           u"Moved 2010 - Monitors (en6) onto en5."_s}));

    // A new session over the same files finds each change made, and nothing left to do.
    const auto store = std::make_unique<VLANStore>(another());
    EXPECT_TRUE(store->planApply(profile, u"en5"_s).isEmpty());
    EXPECT_EQ(vlanTagged(*store, 1012).ip.address, u"192.168.12.80"_s);
    EXPECT_TRUE(vlanTagged(*store, 1030).serviceEnabled);
    EXPECT_EQ(vlanTagged(*store, 2010).parentBSD, u"en5"_s);
    const VLANRecord comms = vlanTagged(*store, 1060);
    EXPECT_EQ(comms.parentBSD, u"en5"_s);
    EXPECT_EQ(comms.name, u"Comms (DONGLE)"_s);
    EXPECT_EQ(comms.ip, manualIP(u"192.168.60.69"_s));
    EXPECT_EQ(orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s}).lines(),
              QStringList{u"Nothing to do: en5 in Location “Show” already holds what "
                          u"“show.json” asks for."_s});
}

TEST_F(Apply, JsonOfPlanAndApplyHoldWhatTheTextShows)
{
    const QString project = writeProject(mixedProject());
    const QStringList planLines = orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s}).lines();
    const QJsonObject plan =
        orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s, u"--json"_s}).json();
    EXPECT_EQ(plan.value(u"adapter"_s).toString(), u"en5"_s);
    EXPECT_EQ(plan.value(u"location"_s).toString(), u"Show"_s);
    EXPECT_EQ(plan.value(u"project"_s).toString(), u"Show"_s);
    EXPECT_EQ(plan.value(u"file"_s).toString(), project);
    EXPECT_TRUE(plan.value(u"host"_s).isNull());
    const QJsonArray planned = plan.value(u"changes"_s).toArray();
    ASSERT_EQ(planned.size(), 4);
    const QStringList kinds{u"retag"_s, u"setEnabled"_s, u"createVLAN"_s, u"reparent"_s};
    const QList<qint64> tags{1012, 1030, 1060, 2010};
    for (qsizetype i = 0; i < planned.size(); ++i) {
        const QJsonObject change = planned.at(i).toObject();
        EXPECT_EQ(change.value(u"summary"_s).toString(), planLines.at(i + 1));
        EXPECT_EQ(change.value(u"kind"_s).toString(), kinds.at(i));
        EXPECT_EQ(change.value(u"tag"_s).toInteger(), tags.at(i));
        EXPECT_FALSE(change.contains(u"completed"_s));
    }

    const CliRun apply = orvanectl(applyOnEn5(project) + QStringList{u"--json"_s});
    ASSERT_EQ(apply.status, 0) << apply.err.toStdString();
    // With --yes nothing is asked, so standard error stays empty.
    EXPECT_TRUE(apply.err.isEmpty()) << apply.err.toStdString();
    const QJsonArray made = apply.json().value(u"changes"_s).toArray();
    ASSERT_EQ(made.size(), planned.size());
    for (qsizetype i = 0; i < made.size(); ++i) {
        QJsonObject change = made.at(i).toObject();
        EXPECT_FALSE(change.value(u"completed"_s).toString().isEmpty());
        change.remove(u"completed"_s);
        EXPECT_EQ(change, planned.at(i).toObject());
    }
    EXPECT_TRUE(apply.json().value(u"claim"_s).isNull());
}

TEST_F(Apply, HostRewritesTheManualAddresses)
{
    const QString project =
        writeProject(Profile{.name = u"Show"_s,
                             .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true},
                                         {1061, u"Guest"_s, IPConfig::dhcp(), true}}});
    const CliRun plan =
        orvanectl({u"plan"_s, project, u"--on"_s, u"en5"_s, u"--host"_s, u"7"_s, u"--json"_s});
    ASSERT_EQ(plan.status, 0) << plan.err.toStdString();
    EXPECT_EQ(plan.json().value(u"host"_s).toString(), u"7"_s);
    EXPECT_EQ(plan.json().value(u"changes"_s).toArray().at(0).toObject().value(u"summary"_s),
              u"CREATE  1060  Comms  →  192.168.60.7/255.255.255.0"_s);

    ASSERT_EQ(orvanectl(applyOnEn5(project) + QStringList{u"--host"_s, u"7"_s}).status, 0);
    const auto store = std::make_unique<VLANStore>(another());
    EXPECT_EQ(vlanTagged(*store, 1060).ip.address, u"192.168.60.7"_s);
    EXPECT_EQ(vlanTagged(*store, 1061).ip.mode, IPMode::dhcp);
    // The project file keeps the addresses as it had them.
    EXPECT_EQ(ProfileIO::read(project).entries.first().ip.address, u"192.168.60.69"_s);
}

TEST_F(Apply, WhoseThirdChangeFailsLeavesTheFilesAsTheyWere)
{
    // The second VLAN 1062 takes a tag that the first has just taken on en5.
    const QString project =
        writeProject(Profile{.name = u"Show"_s,
                             .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true},
                                         {1062, u"Press"_s, IPConfig::dhcp(), true},
                                         {1062, u"Press again"_s, IPConfig::dhcp(), true}}});
    const auto before = machineFiles();
    const QByteArray projectBefore = bytesOf(project);
    const CliRun run = orvanectl(applyOnEn5(project));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              u"Could not create VLAN 1062 on en5 (tag already in use on that device?).\n"_s);
    EXPECT_EQ(run.lines().size(), 4) << run.out.toStdString();
    EXPECT_FALSE(run.out.contains(u"Built"_s));
    EXPECT_EQ(machineFiles(), before);
    EXPECT_EQ(bytesOf(project), projectBefore);
}

TEST_F(Apply, FailureWithJsonLeavesStandardOutputEmpty)
{
    const QString project = writeProject(
        Profile{.name = u"Show"_s, .entries = {{5000, u"Far"_s, IPConfig::dhcp(), true}}});
    const CliRun run = orvanectl(applyOnEn5(project) + QStringList{u"--json"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"VLAN tag 5000 is out of range (must be 1–4094).\n"_s);
    EXPECT_TRUE(run.out.isEmpty());
}

TEST_F(Apply, DeniedAdministratorRightWritesNothing)
{
    answerAdministrator(u"answer = \"deny\""_s);
    const QString project = writeProject(mixedProject());
    const auto before = machineFiles();
    const CliRun run = orvanectl(applyOnEn5(project));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"Authorization was denied or cancelled — no changes were made.\n"_s);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Apply, RightThatFailsWritesNothing)
{
    answerAdministrator(u"answer = \"fail\"\nstatus = -60008"_s);
    const QString project = writeProject(mixedProject());
    const auto before = machineFiles();
    const CliRun run = orvanectl(applyOnEn5(project));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"Authorization could not be created (OSStatus -60008).\n"_s);
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Apply, AnswerOtherThanYesWritesNothing)
{
    const QString project = writeProject(mixedProject());
    const auto before = machineFiles();
    for (const QByteArray &answer :
         {QByteArray("n\n"), QByteArray("yes please\n"), QByteArray("\n"), QByteArray()}) {
        const CliRun run = orvanectl({u"apply"_s, project, u"--on"_s, u"en5"_s}, answer);
        EXPECT_EQ(run.status, 1) << answer.toStdString();
        EXPECT_EQ(run.lastErrorLine(), u"Nothing was changed: the changes were not confirmed "
                                       u"(answer y, or give --yes)."_s)
            << answer.toStdString();
        EXPECT_TRUE(run.err.startsWith(u"Make these changes? Type y to go on: "_s));
        EXPECT_EQ(machineFiles(), before) << answer.toStdString();
    }
}

TEST_F(Apply, YesOnStandardInputGoesOn)
{
    const QString project = writeProject(mixedProject());
    const CliRun run = orvanectl({u"apply"_s, project, u"--on"_s, u"en5"_s}, "Yes\n");
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().last(), u"Moved 2010 - Monitors (en6) onto en5."_s);
    EXPECT_EQ(vlanTagged(*std::make_unique<VLANStore>(another()), 1060).parentBSD, u"en5"_s);
}

TEST_F(Apply, WithJsonTheQuestionAndThePlanGoToStandardError)
{
    const QString project = writeProject(mixedProject());
    const CliRun run = orvanectl({u"apply"_s, project, u"--on"_s, u"en5"_s, u"--json"_s}, "y\n");
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.err.startsWith(u"4 changes to build “show.json”"_s)) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains(u"Make these changes? Type y to go on: "_s));
    EXPECT_EQ(run.json().value(u"changes"_s).toArray().size(), 4);
}

TEST_F(Apply, InAnotherLocation)
{
    const QString project = writeProject(Profile{
        .name = u"Show"_s, .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true}}});
    const CliRun run =
        orvanectl(applyOnEn5(project) + QStringList{u"--location"_s, u"Rehearsal"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().first(), u"1 change to build “show.json” on en5 in Location "
                                   u"“Rehearsal”:"_s);
    const auto rehearsal = std::make_unique<VLANStore>(another());
    rehearsal->selectLocation(u"Rehearsal"_s);
    EXPECT_TRUE(vlanTagged(*rehearsal, 1060).hasService());
    EXPECT_FALSE(vlanTagged(*std::make_unique<VLANStore>(another()), 1060).hasService());
}

TEST_F(Apply, NothingToDoWritesNothing)
{
    Profile project{.name = u"Show"_s};
    for (const ProfileEntry &entry : readStore()->capture(u"show"_s).entries) {
        if (vlanTagged(*readStore(), entry.tag).parentBSD == u"en5"_s)
            project.entries.append(entry);
    }
    const QString path = writeProject(project);
    const auto before = machineFiles();
    const CliRun run = orvanectl(applyOnEn5(path));
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines(), QStringList{u"Nothing to do: en5 in Location “Show” already holds "
                                       u"what “show.json” asks for."_s});
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Apply, AdapterThatIsNotThereIsSaidBeforeAnything)
{
    const QString project = writeProject(mixedProject());
    const QStringList plan{u"plan"_s, project, u"--on"_s, u"en9"_s};
    const QStringList apply{u"apply"_s, project, u"--on"_s, u"en9"_s, u"--yes"_s};
    for (const QStringList &arguments : {plan, apply}) {
        const CliRun run = orvanectl(arguments);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, u"No interface named 'en9' is attached to this Mac.\n"_s);
    }
}

TEST_F(Apply, ProjectThatCantBeReadIsNamed)
{
    const QString project = temporary.write(u"broken.json"_s, "{\"name\": \"Show\"");
    const auto before = machineFiles();
    const CliRun run = orvanectl(applyOnEn5(project));
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.startsWith(u"“broken.json” can’t be read"_s)) << run.err.toStdString();
    EXPECT_EQ(run.err.count(u'\n'), 1);
    EXPECT_EQ(machineFiles(), before);
}

} // namespace
