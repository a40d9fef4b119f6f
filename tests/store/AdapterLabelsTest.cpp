#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace {

const QString rehearsalSet = u"D7EC2EBB-8067-5223-955F-3FD63113B2B9"_s;

QList<PlannedChange::Rename> renamesOf(const Plan &plan)
{
    QList<PlannedChange::Rename> renames;
    for (const PlannedChange &change : plan.changes) {
        if (const auto *rename = change.as<PlannedChange::Rename>())
            renames.append(*rename);
    }
    return renames;
}

class AdapterLabels : public StoreTest
{
protected:
    void SetUp() override
    {
        openCopyOf();
        store = writeStore();
    }
    std::unique_ptr<VLANStore> store;
};

TEST_F(AdapterLabels, LabelsOfTheShowMachine)
{
    EXPECT_EQ(store->adapterLabel(u"en5"_s), u"DONGLE"_s);
    EXPECT_EQ(store->adapterLabel(u"en6"_s), u"en6"_s); // still the system's name
    EXPECT_EQ(store->adapterLabel(u"en0"_s), u"en0"_s);
    EXPECT_EQ(store->adapterLabel(u"en8"_s), u"TRUCK"_s); // unplugged, remembered
    EXPECT_EQ(store->adapterLabel(u"en42"_s), u"en42"_s); // nobody knows it
    EXPECT_EQ(store->knownAdapterLabels(),
              (QSet<QString>{u"en0"_s, u"en5"_s, u"en6"_s, u"en8"_s, u"DONGLE"_s, u"Ethernet"_s,
                             u"USB"_s, u"TRUCK"_s}));
}

TEST_F(AdapterLabels, AbsentAdapterNamedInAnotherLocationKeepsItsLabel)
{
    store->setSelectedSetID(rehearsalSet);
    EXPECT_EQ(store->adapterLabel(u"en8"_s), u"TRUCK"_s);
}

TEST_F(AdapterLabels, RenamingAnAdapterWithoutServiceFailsAndRetiresItsLabel)
{
    EXPECT_EQ(sentenceOf([&] { store->renameAdapter(u"en7"_s, u"Spare"_s); }),
              u"No network service uses en7, so there is nothing to name."_s);
    EXPECT_TRUE(store->retiredLabels.contains(u"en7"_s));
    EXPECT_EQ(sentenceOf([&] { store->renameAdapter(u"en5"_s, u" \n"_s); }),
              u"An adapter needs a name."_s);
}

TEST_F(AdapterLabels, RenamingAnAdapterRenamesItsServiceInEveryLocation)
{
    store->renameAdapter(u"en5"_s, u"  Stage box "_s);
    EXPECT_EQ(serviceNamed(*store, u"Stage box"_s).interfaceBSD, u"en5"_s);
    store->setSelectedSetID(rehearsalSet);
    EXPECT_EQ(serviceNamed(*store, u"Stage box"_s).interfaceBSD, u"en5"_s);
    EXPECT_EQ(store->adapterLabel(u"en5"_s), u"Stage"_s);
}

TEST_F(AdapterLabels, AfterARenameTheOldSuffixIsPlannedAway)
{
    store->renameAdapter(u"en5"_s, u"Stage box"_s);
    const Plan plan = store->planSyncAdapterNames(u"en5"_s);
    EXPECT_EQ(plan.adapterBSD, u"\u2014"_s);
    const auto renames = renamesOf(plan);
    ASSERT_EQ(renames.size(), 8);
    EXPECT_EQ(renames.first().tag, 1010);
    EXPECT_EQ(renames.first().from, u"1010 - Control (DONGLE)"_s);
    EXPECT_EQ(renames.first().to, u"1010 - Control (Stage)"_s);
}

TEST_F(AdapterLabels, NameWithoutSuffixIsPlannedToGetOne)
{
    store->renameVLAN(1012, u"vlan1"_s, u"Audio"_s);
    const auto renames = renamesOf(store->planSyncAdapterNames(std::nullopt));
    ASSERT_EQ(renames.size(), 1);
    EXPECT_EQ(renames.first().to, u"Audio (DONGLE)"_s);
}

TEST_F(AdapterLabels, UnknownBracketIsKeptAndTheSuffixAdded)
{
    store->renameVLAN(1012, u"vlan1"_s, u"Mix (L+R)"_s);
    const auto renames = renamesOf(store->planSyncAdapterNames(u"en5"_s));
    ASSERT_EQ(renames.size(), 1);
    EXPECT_EQ(renames.first().to, u"Mix (L+R) (DONGLE)"_s);
}

TEST_F(AdapterLabels, VLANOnAnAdapterThatIsNotAvailableIsLeftOut)
{
    store->renameVLAN(3010, u"vlan10"_s, u"Truck Feed"_s);
    EXPECT_TRUE(store->planSyncAdapterNames(std::nullopt).isEmpty());
}

TEST_F(AdapterLabels, NamesInStepPlanNothing)
{
    EXPECT_TRUE(store->planSyncAdapterNames(std::nullopt).isEmpty());
}

} // namespace
