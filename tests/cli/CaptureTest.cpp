#include "VLANKit/project/ProfileIO.h"
#include "tests/cli/CliTestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using Capture = CliTest;

TEST_F(Capture, WritesTheVLANsOfTheLocationAsAProject)
{
    const QString path = temporary.filePath(u"show.v2.json"_s);
    const CliRun run = orvanectl({u"capture"_s, path});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().first(), u"Captured 12 VLANs of Location “Show” into “show.v2.json”."_s);
    // The file is the library's capture, named after the file.
    EXPECT_EQ(ProfileIO::read(path), readStore()->capture(u"show.v2"_s));
    EXPECT_EQ(bytesOf(path), ProfileIO::encoded(readStore()->capture(u"show.v2"_s)));
}

TEST_F(Capture, OfAnotherLocation)
{
    const QString path = temporary.filePath(u"rehearsal.json"_s);
    ASSERT_EQ(orvanectl({u"capture"_s, path, u"--location"_s, u"Rehearsal"_s}).status, 0);
    const auto store = readStore();
    store->selectLocation(u"Rehearsal"_s);
    EXPECT_EQ(ProfileIO::read(path), store->capture(u"rehearsal"_s));
}

TEST_F(Capture, KeepsTheClaimsOfTheFileItReplaces)
{
    const QList<HostAssignment> claims{{u"70"_s, u"Lighting Desk Mac"_s, u"0a1b2c3d4e5f"_s},
                                       {u"71"_s, u"Sound Mac"_s}};
    const QString path = writeProject(Profile{.name = u"old"_s, .assignments = claims});
    const CliRun run = orvanectl({u"capture"_s, path});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines().first(), u"Captured 12 VLANs of Location “Show” into “show.json”, "
                                   u"keeping the file’s 2 claims."_s);
    const Profile written = ProfileIO::read(path);
    EXPECT_EQ(written.assignments, claims);
    EXPECT_EQ(written.entries.size(), 12);
}

TEST_F(Capture, RefusesToWriteOverAFileThatHoldsNoProject)
{
    const QString path = temporary.write(u"notes.json"_s, "soundcheck at five\n");
    const CliRun run = orvanectl({u"capture"_s, path});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"Nothing was written: “notes.json” is there already and holds no "
                       u"project that can be read, so name another file.\n"_s);
    EXPECT_EQ(bytesOf(path), QByteArray("soundcheck at five\n"));
}

TEST_F(Capture, JsonHoldsWhatTheTextShows)
{
    const QString path = temporary.filePath(u"show.json"_s);
    const QStringList lines = orvanectl({u"capture"_s, path}).lines();
    const CliRun run = orvanectl({u"capture"_s, path, u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    EXPECT_EQ(json.value(u"file"_s).toString(), path);
    EXPECT_EQ(json.value(u"project"_s).toString(), u"show"_s);
    EXPECT_EQ(json.value(u"location"_s).toString(), u"Show"_s);
    EXPECT_EQ(json.value(u"capturedFrom"_s).toString(), u"en0"_s);
    EXPECT_EQ(json.value(u"claimsKept"_s).toInteger(), 0);
    const QJsonArray entries = json.value(u"entries"_s).toArray();
    // A heading line, the table's own heading, then one row per VLAN.
    ASSERT_EQ(entries.size(), lines.size() - 2);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QJsonObject entry = entries.at(i).toObject();
        EXPECT_EQ(cellsOf(lines.at(i + 2)),
                  (QStringList{QString::number(entry.value(u"tag"_s).toInteger()),
                               entry.value(u"name"_s).toString(), entry.value(u"ip"_s).toString(),
                               entry.value(u"on"_s).toBool() ? u"on"_s : u"off"_s}));
    }
}

TEST_F(Capture, LeavesTheMachineAlone)
{
    const auto before = machineFiles();
    ASSERT_EQ(orvanectl({u"capture"_s, temporary.filePath(u"show.json"_s)}).status, 0);
    EXPECT_EQ(machineFiles(), before);
}

} // namespace
