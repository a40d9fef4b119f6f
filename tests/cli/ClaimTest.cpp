#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/project/ProfileIO.h"
#include "tests/cli/CliTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Claim : public CliTest
{
protected:
    [[nodiscard]] MachineIdentity thisMachine() const
    {
        return MachineIdentity::current(platform->machineFacts());
    }

    /// One new VLAN, and the claims given.
    [[nodiscard]] static Profile projectClaimedBy(QList<HostAssignment> claims)
    {
        return Profile{.name = u"Show"_s,
                       .assignments = std::move(claims),
                       .entries = {{1060, u"Comms"_s, manualIP(u"192.168.60.69"_s), true}}};
    }

    [[nodiscard]] static QStringList claiming(const QString &project, const QString &host)
    {
        return {u"apply"_s,  project, u"--on"_s,    u"en5"_s,
                u"--host"_s, host,    u"--claim"_s, u"--yes"_s};
    }

    const HostAssignment lightingDesk{u"8"_s, u"Lighting Desk Mac"_s, u"0a1b2c3d4e5f"_s};
};

TEST_F(Claim, RecordsThisMachineInTheProjectFile)
{
    const QString project = writeProject(projectClaimedBy({lightingDesk}));
    const CliRun run = orvanectl(claiming(project, u"7"_s));
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().last(), u"Recorded host 7 for “FOH Show Mac” in “show.json”."_s);
    const Profile written = ProfileIO::read(project);
    ASSERT_TRUE(written.assignments);
    EXPECT_EQ(*written.assignments,
              (QList<HostAssignment>{{u"7"_s, u"FOH Show Mac"_s, thisMachine().id}, lightingDesk}));
    // The file keeps its own addresses; only this machine's build takes the octet.
    EXPECT_EQ(written.entries, projectClaimedBy({}).entries);
    EXPECT_EQ(vlanTagged(*std::make_unique<VLANStore>(another()), 1060).ip.address,
              u"192.168.60.7"_s);
}

TEST_F(Claim, OfAnOctetHeldByAnotherMachineWritesNothing)
{
    const QString project =
        writeProject(projectClaimedBy({{u"7"_s, u"Lighting Desk Mac"_s, u"0a1b2c3d4e5f"_s}}));
    const auto before = machineFiles();
    const QByteArray projectBefore = bytesOf(project);
    const CliRun run = orvanectl(claiming(project, u"7"_s));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"Nothing was changed: host 7 in “show.json” is claimed by “Lighting Desk "
                       u"Mac”, so choose another with --host.\n"_s);
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_EQ(machineFiles(), before);
    EXPECT_EQ(bytesOf(project), projectBefore);
}

TEST_F(Claim, ThatTheFileAlreadyRecordsLeavesTheFileAlone)
{
    const QString project =
        writeProject(projectClaimedBy({{u"7"_s, u"FOH Show Mac"_s, thisMachine().id}}));
    const QByteArray projectBefore = bytesOf(project);
    const CliRun run = orvanectl(claiming(project, u"7"_s) + QStringList{u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonObject claim = run.json().value(u"claim"_s).toObject();
    EXPECT_EQ(claim.value(u"host"_s).toString(), u"7"_s);
    EXPECT_EQ(claim.value(u"machine"_s).toString(), u"FOH Show Mac"_s);
    EXPECT_EQ(claim.value(u"machineID"_s).toString(), thisMachine().id);
    EXPECT_FALSE(claim.value(u"written"_s).toBool());
    EXPECT_EQ(bytesOf(project), projectBefore);
}

TEST_F(Claim, WithNothingElseToDoStillAsksFirst)
{
    const QString project = writeProject(
        Profile{.name = u"Show"_s, .assignments = QList<HostAssignment>{lightingDesk}});
    const QByteArray projectBefore = bytesOf(project);
    const auto before = machineFiles();
    const QStringList arguments{u"apply"_s,  project, u"--on"_s,   u"en5"_s,
                                u"--host"_s, u"9"_s,  u"--claim"_s};
    const CliRun refused = orvanectl(arguments, "no\n");
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.startsWith(u"Record host 9 for this machine in “show.json”? "_s))
        << refused.err.toStdString();
    EXPECT_EQ(bytesOf(project), projectBefore);

    const CliRun confirmed = orvanectl(arguments, "y\n");
    ASSERT_EQ(confirmed.status, 0) << confirmed.err.toStdString();
    EXPECT_EQ(ProfileIO::read(project).roster().first().host, u"8"_s);
    EXPECT_EQ(ProfileIO::read(project).roster().last().host, u"9"_s);
    // The system had nothing to change, and was not written.
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Claim, IsNotRecordedWhenTheBuildFails)
{
    const QString project =
        writeProject(Profile{.name = u"Show"_s,
                             .entries = {{1010, u"Again"_s, manualIP(u"192.168.10.69"_s), true},
                                         {1060, u"Comms"_s, IPConfig::dhcp(), true},
                                         {1060, u"Comms again"_s, IPConfig::dhcp(), true}}});
    const QByteArray projectBefore = bytesOf(project);
    const CliRun run = orvanectl(claiming(project, u"7"_s));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.lastErrorLine(),
              u"Could not create VLAN 1060 on en5 (tag already in use on that device?)."_s);
    EXPECT_EQ(bytesOf(project), projectBefore);
}

TEST_F(Claim, ProjectTravelsBetweenTheTwoExampleMachines)
{
    const QString lighting = temporary.copyOf(u"examples/lighting-mac"_s, u"lighting"_s);
    const QString project = temporary.filePath(u"show.json"_s);
    ASSERT_EQ(orvanectl({u"capture"_s, project}).status, 0);
    ASSERT_EQ(orvanectl(claiming(project, u"69"_s)).status, 0);

    const auto onLighting = [&](const QString &host) {
        return orvanectlAlone({u"apply"_s, project, u"--on"_s, u"en4"_s, u"--host"_s, host,
                               u"--claim"_s, u"--yes"_s, u"--prefs"_s, lighting});
    };
    const CliRun taken = onLighting(u"69"_s);
    EXPECT_EQ(taken.status, 1);
    EXPECT_EQ(taken.err, u"Nothing was changed: host 69 in “show.json” is claimed by “FOH Show "
                         u"Mac”, so choose another with --host.\n"_s);

    const CliRun free = onLighting(u"70"_s);
    ASSERT_EQ(free.status, 0) << free.err.toStdString();
    const QList<HostAssignment> roster = ProfileIO::read(project).roster();
    ASSERT_EQ(roster.size(), 2);
    EXPECT_EQ(roster.at(0).machine, u"FOH Show Mac"_s);
    EXPECT_EQ(roster.at(1).host, u"70"_s);
    EXPECT_EQ(roster.at(1).machine, u"Lighting Desk Mac"_s);
    // The lighting desk's machine holds the show's VLANs on its own adapter, at its own octet.
    const auto store = std::make_unique<VLANStore>(Platform::overFolder(lighting));
    const VLANRecord audio = vlanTagged(*store, 1012);
    EXPECT_EQ(audio.parentBSD, u"en4"_s);
    EXPECT_EQ(audio.ip.address, u"192.168.12.70"_s);
}

} // namespace
