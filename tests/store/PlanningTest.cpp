#include "VLANKit/project/ProfileIO.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;
using PC = PlannedChange;

namespace {

ProfileEntry entry(qint64 tag, const QString &name, const IPConfig &ip, bool enabled = true)
{
    return ProfileEntry{tag, name, ip, enabled};
}

IPConfig manual(const QString &address, std::optional<QString> router = std::nullopt)
{
    return IPConfig{IPMode::manual, address, u"255.255.255.0"_s, std::move(router), {}};
}

class Planning : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }
};

TEST_F(Planning, EmptyProfileGivesAnEmptyPlanOnTheAdapter)
{
    const Plan plan = readStore()->planApply(Profile{}, u"en5"_s);
    EXPECT_TRUE(plan.isEmpty());
    EXPECT_EQ(plan.adapterBSD, u"en5"_s);
}

TEST_F(Planning, NewTagsAreCreatedInTagOrder)
{
    Profile profile;
    profile.entries = {entry(1062, u"B"_s, IPConfig::dhcp()),
                       entry(1061, u"A"_s, IPConfig::dhcp())};
    const Plan plan = readStore()->planApply(profile, u"en5"_s);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_EQ(plan.changes.at(0),
              PlannedChange(PC::CreateVLAN{1061, u"A"_s, IPConfig::dhcp(), true}));
    EXPECT_EQ(plan.changes.at(1),
              PlannedChange(PC::CreateVLAN{1062, u"B"_s, IPConfig::dhcp(), true}));
}

TEST_F(Planning, SameTagElsewhereWithSameSettingsIsOneReparent)
{
    const VLANRecord control = vlanTagged(*readStore(), 1010);
    Profile profile;
    profile.entries = {entry(1010, u"Control"_s, control.ip, true)};
    const Plan plan = readStore()->planApply(profile, u"en6"_s);
    ASSERT_EQ(plan.changes.size(), 1);
    EXPECT_EQ(plan.changes.first(), PlannedChange(PC::Reparent{control, u"en5"_s, u"en6"_s}));
}

TEST_F(Planning, SameTagElsewhereWithANewAddressIsReparentThenRetag)
{
    const VLANRecord control = vlanTagged(*readStore(), 1010);
    Profile profile;
    profile.entries = {entry(1010, u"Control"_s, manual(u"192.168.10.70"_s), true)};
    const Plan plan = readStore()->planApply(profile, u"en6"_s);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_TRUE(plan.changes.at(0).as<PC::Reparent>());
    EXPECT_EQ(plan.changes.at(1), PlannedChange(PC::Retag{1010, u"vlan0"_s, u"Control"_s,
                                                          control.ip, manual(u"192.168.10.70"_s)}));
}

TEST_F(Planning, VLANWithoutServiceHereIsRetaggedAndTurnedOn)
{
    Profile profile;
    profile.entries = {entry(1040, u"Backstage"_s, IPConfig::dhcp(), true)};
    const Plan plan = readStore()->planApply(profile, u"en5"_s);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_TRUE(plan.changes.at(0).as<PC::Retag>());
    EXPECT_EQ(plan.changes.at(1),
              PlannedChange(PC::SetEnabled{1040, u"vlan6"_s, u"Backstage"_s, true}));
}

TEST_F(Planning, TwoEntriesWithOneTagAreBothPlanned)
{
    Profile profile;
    profile.entries = {entry(1070, u"First"_s, IPConfig::dhcp()),
                       entry(1070, u"Second"_s, IPConfig::dhcp())};
    const Plan plan = readStore()->planApply(profile, u"en5"_s);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_EQ(plan.changes.at(0).as<PC::CreateVLAN>()->name, u"First"_s);
    EXPECT_EQ(plan.changes.at(1).as<PC::CreateVLAN>()->name, u"Second"_s);
}

TEST_F(Planning, TagsOutOfRangeArePlannedLikeAnyOther)
{
    Profile profile;
    profile.entries = {entry(5000, u"Far"_s, IPConfig::dhcp()),
                       entry(0, u"Zero"_s, IPConfig::dhcp())};
    const Plan plan = readStore()->planApply(profile, u"en5"_s);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_EQ(plan.changes.at(0).as<PC::CreateVLAN>()->tag, 0);
}

TEST_F(Planning, TheVLANAlreadyOnTheTargetIsTheOneCompared)
{
    // Tag 1010 on en6 as well as on en5.
    const auto store = writeStore();
    (void)store->createVLAN(1010, u"Control"_s, u"en6"_s, IPConfig::dhcp(), true);
    store->commit();
    Profile profile;
    profile.entries = {entry(1010, u"Control"_s, IPConfig::dhcp(), true)};
    EXPECT_TRUE(readStore()->planApply(profile, u"en6"_s).isEmpty());
    // With none on the target, the first listed is: the one on en5.
    const Plan onEn0 = readStore()->planApply(profile, u"en0"_s);
    ASSERT_FALSE(onEn0.isEmpty());
    EXPECT_EQ(onEn0.changes.first().as<PC::Reparent>()->from, u"en5"_s);
}

TEST_F(Planning, DeleteWithAnAdapterCountsOnlyItsVLANs)
{
    const auto store = writeStore();
    (void)store->createVLAN(1010, u"Control"_s, u"en6"_s, IPConfig::dhcp(), true);
    const Plan plan = store->planDelete({1010}, u"en6"_s);
    ASSERT_EQ(plan.changes.size(), 1);
    EXPECT_EQ(plan.changes.first(),
              PlannedChange(PC::RemoveVLAN{1010, u"Control (en6)"_s, u"vlan12"_s}));
    EXPECT_EQ(plan.adapterBSD, u"\u2014"_s);
}

TEST_F(Planning, DeleteOfATagOnTwoAdaptersGivesItsSentenceAndNoPlan)
{
    const auto store = writeStore();
    (void)store->createVLAN(1010, u"Control"_s, u"en6"_s, IPConfig::dhcp(), true);
    EXPECT_EQ(sentenceOf([&] {
                  (void)store->planDelete({100, 1010}, std::nullopt);
              }),
              u"Tag 1010 is on 2 VLANs: 1010 - Control (DONGLE) on en5, Control (en6) on en6. "
              u"Say which adapter's with --on."_s);
}

TEST_F(Planning, DeleteSkipsUnknownTagsAndKeepsDuplicates)
{
    const Plan plan = readStore()->planDelete({1012, 9, 1012}, std::nullopt);
    ASSERT_EQ(plan.changes.size(), 2);
    EXPECT_EQ(plan.changes.at(0), plan.changes.at(1));
    EXPECT_TRUE(readStore()->planDelete({9}, std::nullopt).isEmpty());
}

TEST_F(Planning, ReparentAllMovesEveryVLANOffTheTarget)
{
    const Plan plan = readStore()->planReparentAll(u"en5"_s);
    // 100 on en0, 2010 and 2012 on en6, 3010 on en8.
    ASSERT_EQ(plan.changes.size(), 4);
    for (const PlannedChange &change : plan.changes)
        EXPECT_EQ(change.as<PC::Reparent>()->to, u"en5"_s);
    EXPECT_EQ(plan.adapterBSD, u"en5"_s);
}

TEST_F(Planning, CaptureStripsSuffixesAndNamesTheFirstAdapter)
{
    const Profile profile = readStore()->capture(u"Show"_s);
    EXPECT_EQ(profile.name, u"Show"_s);
    EXPECT_EQ(profile.note, u"Captured by Orvane"_s);
    EXPECT_EQ(profile.capturedFrom, u"en0"_s); // tag 100 comes first
    EXPECT_EQ(profile.hostOctet, std::nullopt);
    EXPECT_EQ(profile.addressPrefix, std::nullopt);
    EXPECT_EQ(profile.assignments, std::nullopt);
    ASSERT_EQ(profile.entries.size(), 12);
    EXPECT_EQ(profile.entries.at(1).name, u"1010 - Control"_s);
    EXPECT_EQ(profile.entries.at(11).name, u"3010 - Truck Feed"_s);
    EXPECT_FALSE(profile.entries.at(6).enabled); // Intercom is off
}

TEST_F(Planning, CaptureKeepsABracketThatIsNoAdapter)
{
    const auto store = writeStore();
    store->renameVLAN(1012, u"vlan1"_s, u"Mix (L+R)"_s);
    EXPECT_EQ(store->capture(u"Show"_s).entries.at(2).name, u"Mix (L+R)"_s);
}

TEST_F(Planning, CaptureOfAMachineWithoutVLANs)
{
    openSynthetic(0);
    const Profile profile = readStore()->capture(u"Empty"_s);
    EXPECT_TRUE(profile.entries.isEmpty());
    EXPECT_EQ(profile.capturedFrom, std::nullopt);
}

TEST_F(Planning, CapturedProjectPlannedBackIsEmptyOnItsAdapterAndMovesOnAnother)
{
    openSynthetic(5);
    const QString file = temporary.filePath(u"show.json"_s);
    ProfileIO::write(readStore()->capture(u"show"_s), file);
    const Profile read = ProfileIO::read(file);
    EXPECT_TRUE(readStore()->planApply(read, u"en5"_s).isEmpty());
    const Plan moved = readStore()->planApply(read, u"en0"_s);
    ASSERT_EQ(moved.changes.size(), 5);
    for (const PlannedChange &change : moved.changes)
        EXPECT_TRUE(change.as<PC::Reparent>());
}

} // namespace
