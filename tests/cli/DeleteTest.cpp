#include "tests/cli/CliTestSupport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Delete : public CliTest
{
protected:
    [[nodiscard]] static bool hasTag(const VLANStore &store, qint64 tag)
    {
        for (const VLANRecord &vlan : store.vlans()) {
            if (vlan.tag == tag)
                return true;
        }
        return false;
    }
};

TEST_F(Delete, RemovesTheVLANsNamedInOneTransaction)
{
    const CliRun run = orvanectl({u"delete"_s, u"1014"_s, u"1012"_s, u"--yes"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_EQ(run.lines(),
              (QStringList{u"2 VLANs to delete, each with its services in every Location:"_s,
                           u"DELETE  1012  1012 - Audio (DONGLE)  (vlan1) and its service(s)"_s,
                           u"DELETE  1014  1014 - Video (DONGLE)  (vlan2) and its service(s)"_s,
                           u"Deleted 1012 - Audio (DONGLE) and its network service."_s,
                           u"Deleted 1014 - Video (DONGLE) and its network service."_s}));
    const auto store = std::make_unique<VLANStore>(another());
    EXPECT_FALSE(hasTag(*store, 1012));
    EXPECT_FALSE(hasTag(*store, 1014));
    EXPECT_TRUE(hasTag(*store, 1010));
}

TEST_F(Delete, TagOnTwoAdaptersNeedsTheAdapter)
{
    // The lighting desk's machine has VLAN 1016 on en4 and on en7.
    folder = temporary.copyOf(u"examples/lighting-mac"_s, u"lighting"_s);
    const auto before = machineFiles();
    const CliRun ambiguous = orvanectl({u"delete"_s, u"1010"_s, u"1016"_s, u"--yes"_s});
    EXPECT_EQ(ambiguous.status, 1);
    EXPECT_EQ(ambiguous.err,
              u"Tag 1016 is on 2 VLANs: 1016 - Lighting (LX) on en4, 1016 - Lighting Backup "
              u"(en7) on en7. Say which adapter's with --on.\n"_s);
    EXPECT_EQ(machineFiles(), before);

    const CliRun named = orvanectl({u"delete"_s, u"1016"_s, u"--on"_s, u"en7"_s, u"--yes"_s});
    ASSERT_EQ(named.status, 0) << named.err.toStdString();
    const auto store = std::make_unique<VLANStore>(Platform::overFolder(folder));
    QStringList parents;
    for (const VLANRecord &vlan : store->vlans()) {
        if (vlan.tag == 1016)
            parents.append(vlan.parentBSD);
    }
    EXPECT_EQ(parents, QStringList{u"en4"_s});
}

TEST_F(Delete, UnknownTagHasNothingToDo)
{
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"delete"_s, u"99"_s});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.lines(), QStringList{u"Nothing to do: no VLAN has the tag 99."_s});
    EXPECT_TRUE(run.err.isEmpty());
    EXPECT_EQ(orvanectl({u"delete"_s, u"1010"_s, u"99"_s, u"--on"_s, u"en6"_s}).lines(),
              QStringList{u"Nothing to do: no VLAN on en6 has any of the tags 1010, 99."_s});
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Delete, AskedAndRefusedWritesNothing)
{
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"delete"_s, u"1012"_s}, "n\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.startsWith(u"Delete this VLAN? Type y to go on: "_s));
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(Delete, JsonHoldsWhatTheTextShows)
{
    const CliRun run = orvanectl(
        {u"delete"_s, u"1012"_s, u"1014"_s, u"--on"_s, u"en5"_s, u"--yes"_s, u"--json"_s});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonObject json = run.json();
    EXPECT_EQ(json.value(u"tags"_s).toArray(), (QJsonArray{1012, 1014}));
    EXPECT_EQ(json.value(u"adapter"_s).toString(), u"en5"_s);
    const QJsonArray changes = json.value(u"changes"_s).toArray();
    ASSERT_EQ(changes.size(), 2);
    const QJsonObject first = changes.at(0).toObject();
    EXPECT_EQ(first.value(u"kind"_s).toString(), u"removeVLAN"_s);
    EXPECT_EQ(first.value(u"tag"_s).toInteger(), 1012);
    EXPECT_EQ(first.value(u"summary"_s).toString(),
              u"DELETE  1012  1012 - Audio (DONGLE)  (vlan1) and its service(s)"_s);
    EXPECT_EQ(first.value(u"completed"_s).toString(),
              u"Deleted 1012 - Audio (DONGLE) and its network service."_s);
}

TEST_F(Delete, DeniedAdministratorRightWritesNothing)
{
    answerAdministrator(u"answer = \"cancel\""_s);
    const auto before = machineFiles();
    const CliRun run = orvanectl({u"delete"_s, u"1012"_s, u"--yes"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, u"Authorization was denied or cancelled — no changes were made.\n"_s);
    EXPECT_EQ(machineFiles(), before);
}

} // namespace
