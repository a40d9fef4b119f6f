#include "tests/store/RefusingBackend.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/CountingBackend.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;
using PC = PlannedChange;

namespace {

const QString rehearsalSet = u"D7EC2EBB-8067-5223-955F-3FD63113B2B9"_s;
const QString showSet = u"D5F69D4F-F0A4-52FA-9837-D308F6A60BF8"_s;
const QString audioID = u"90A0254C-5CA0-5428-B649-5A89ABA3F1F0"_s;

Plan planOf(const QString &adapter, QList<PlannedChange> changes)
{
    Plan plan;
    plan.adapterBSD = adapter;
    plan.changes = std::move(changes);
    return plan;
}

IPConfig manual(const QString &address)
{
    return IPConfig{IPMode::manual, address, u"255.255.255.0"_s, std::nullopt, {}};
}

class Transaction : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    // A writable store over a backend that counts the calls.
    std::unique_ptr<VLANStore> countedStore(std::shared_ptr<CountingBackend> &counter)
    {
        counter = std::make_shared<CountingBackend>(platform->sharedBackend());
        const Platform counted(counter);
        NetworkAuthorization authorization(counted);
        authorization.acquire();
        return std::make_unique<VLANStore>(counted, authorization);
    }
};

TEST_F(Transaction, EmptyPlanStillCommitsAndApplies)
{
    std::shared_ptr<CountingBackend> counter;
    const auto store = countedStore(counter);
    store->execute(planOf(u"en5"_s, {}));
    EXPECT_EQ(counter->calls(u"scPreferencesCommitChanges"_s), 1);
    EXPECT_EQ(counter->calls(u"scPreferencesApplyChanges"_s), 1);
}

TEST_F(Transaction, ReadOnlyStoreRefusesWithTheLongerWordsAndStagesNothing)
{
    const auto store = readStore();
    EXPECT_EQ(sentenceOf([&] {
                  store->execute(
                      planOf(u"en5"_s, {PC::CreateVLAN{1060, u"X"_s, IPConfig::dhcp(), true}}));
              }),
              u"This session is read-only \u2014 acquire authorization first."_s);
    EXPECT_FALSE(store->findVLAN(1060, u"vlan12"_s));
    EXPECT_EQ(vlanTagged(*store, 1010).tag, 1010);
    EXPECT_EQ(store->vlans().size(), 12);
}

TEST_F(Transaction, PlanWhoseThirdChangeFailsChangesNothing)
{
    const QByteArray before = preferencesBytes();
    const QList<VLANRecord> vlansBefore = readStore()->vlans();
    const auto store = writeStore();
    const Plan plan = planOf(u"en5"_s, {PC::CreateVLAN{1060, u"Press"_s, IPConfig::dhcp(), true},
                                        PC::RemoveVLAN{1012, u"Audio"_s, u"vlan1"_s},
                                        PC::CreateVLAN{1010, u"Again"_s, IPConfig::dhcp(), true},
                                        PC::RemoveVLAN{1014, u"Video"_s, u"vlan2"_s}});
    EXPECT_EQ(sentenceOf([&] { store->execute(plan); }),
              u"Could not create VLAN 1010 on en5 (tag already in use on that device?)."_s);
    EXPECT_EQ(preferencesBytes(), before);
    EXPECT_EQ(readStore()->vlans(), vlansBefore);
}

TEST_F(Transaction, AThousandCreationsCommitOnceAndReadBack)
{
    openSynthetic(0);
    Plan plan = planOf(u"en5"_s, {});
    for (int tag = 1; tag <= 1000; ++tag)
        plan.changes.append(
            PC::CreateVLAN{tag, u"Net %1"_s.arg(tag), manual(u"10.0.%1.5"_s.arg(tag % 250)), true});
    std::shared_ptr<CountingBackend> counter;
    const auto store = countedStore(counter);
    store->execute(plan);
    EXPECT_EQ(counter->calls(u"scPreferencesCommitChanges"_s), 1);
    const QList<VLANRecord> vlans = readStore()->vlans();
    ASSERT_EQ(vlans.size(), 1000);
    for (const VLANRecord &vlan : vlans) {
        EXPECT_EQ(vlan.name, u"Net %1 (DONGLE)"_s.arg(vlan.tag));
        EXPECT_EQ(vlan.ip.address, u"10.0.%1.5"_s.arg(vlan.tag % 250));
        EXPECT_TRUE(vlan.serviceEnabled);
    }
    // Every new service ranks after the trunk's, in the order they were made.
    const QList<ServiceRecord> services = readStore()->services();
    EXPECT_EQ(services.first().name, u"DONGLE"_s);
    EXPECT_EQ(services.last().vlanTag, 1000);
}

TEST_F(Transaction, PlanStagedOverAStaleSnapshotWritesNothing)
{
    const auto stale = writeStore();
    (void)stale->vlans();
    const auto other = writeStore();
    other->renameVLAN(1010, u"vlan0"_s, u"Renamed elsewhere"_s);
    other->commit();
    const QByteArray committed = preferencesBytes();
    const auto failure = failureOf([&] {
        stale->execute(planOf(u"en5"_s, {PC::CreateVLAN{1060, u"X"_s, IPConfig::dhcp(), true}}));
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::commitFailed);
    EXPECT_EQ(preferencesBytes(), committed);
}

TEST_F(Transaction, TagsOutOfRangeAreRefusedBeforeTheAdapter)
{
    const auto store = writeStore();
    for (qint64 tag : {qint64(0), qint64(4095)}) {
        EXPECT_EQ(failureOf([&] {
                      store->execute(
                          planOf(u"en99"_s, {PC::CreateVLAN{tag, u"X"_s, IPConfig::dhcp(), true}}));
                  })->errorCase(),
                  VLANError::Case::tagOutOfRange);
    }
}

TEST_F(Transaction, WithoutALocationTagChangesFindNoServiceAndServiceChangesNoSet)
{
    const auto store = writeStore();
    store->setSelectedSetID(u"GONE"_s);
    EXPECT_EQ(sentenceOf([&] {
                  store->execute(
                      planOf(u"\u2014"_s, {PC::Retag{1010, u"vlan0"_s, u"Control"_s,
                                                     IPConfig::dhcp(), IPConfig::dhcp()}}));
              }),
              u"No network service found for VLAN 1010 (vlan0)."_s);
    EXPECT_EQ(sentenceOf([&] {
                  store->execute(
                      planOf(u"\u2014"_s, {PC::SetEnabled{1010, u"vlan0"_s, u"Control"_s, false}}));
              }),
              u"No network service found for VLAN 1010 (vlan0)."_s);
    EXPECT_EQ(failureOf([&] {
                  store->execute(planOf(
                      u"\u2014"_s,
                      {PC::SetServiceIP{audioID, u"Audio"_s, IPConfig::dhcp(), IPConfig::dhcp()}}));
              })->errorCase(),
              VLANError::Case::noCurrentSet);
}

TEST_F(Transaction, MovingAVLANWhoseFrameSizeTheNewAdapterCantCarryFailsAfterStaging)
{
    const auto store = writeStore();
    const VLANRecord audio = vlanTagged(*store, 1012); // MTU 9000; en6 takes up to 4088
    const QByteArray before = preferencesBytes();
    EXPECT_EQ(sentenceOf([&] {
                  store->execute(planOf(u"en6"_s, {PC::Reparent{audio, u"en5"_s, u"en6"_s}}));
              }),
              u"1012 - Audio (en6) has an MTU of 9000, and en6 takes 1280\u20134088. Set its MTU "
              u"as well: empty for the standard size, or one en6 takes."_s);
    EXPECT_EQ(preferencesBytes(), before);
}

TEST_F(Transaction, FrameSizeInAnotherLocationIsCheckedToo)
{
    // Move Audio's frame size from Show's settings into Rehearsal's.
    editPreferences([](QVariantMap &preferences) {
        QVariantMap sets = preferences.value(u"Sets"_s).toMap();
        QVariantMap show = sets.value(showSet).toMap();
        QVariantMap network = show.value(u"Network"_s).toMap();
        QVariantMap interfaces = network.value(u"Interface"_s).toMap();
        const QVariant audioSettings = interfaces.take(u"vlan1"_s);
        network.insert(u"Interface"_s, interfaces);
        show.insert(u"Network"_s, network);
        sets.insert(showSet, show);
        QVariantMap rehearsal = sets.value(rehearsalSet).toMap();
        QVariantMap rehearsalNetwork = rehearsal.value(u"Network"_s).toMap();
        QVariantMap rehearsalInterfaces = rehearsalNetwork.value(u"Interface"_s).toMap();
        rehearsalInterfaces.insert(u"vlan1"_s, audioSettings);
        rehearsalNetwork.insert(u"Interface"_s, rehearsalInterfaces);
        rehearsal.insert(u"Network"_s, rehearsalNetwork);
        sets.insert(rehearsalSet, rehearsal);
        preferences.insert(u"Sets"_s, sets);
    });
    const auto store = writeStore();
    const VLANRecord audio = vlanTagged(*store, 1012);
    EXPECT_EQ(audio.hardware.mtu, std::nullopt); // nothing in the Location under view
    const auto failure = failureOf([&] {
        store->execute(planOf(u"en6"_s, {PC::Reparent{audio, u"en5"_s, u"en6"_s}}));
    });
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->errorDescription().startsWith(u"1012 - Audio (en6) has an MTU of 9000"_s));
}

TEST_F(Transaction, MovingWithAFittingFrameSizeInTheSamePlanPasses)
{
    for (const HardwareSettings &fitting :
         {HardwareSettings{4000, std::nullopt, {}}, HardwareSettings::automatic()}) {
        openCopyOf();
        const auto store = writeStore();
        const VLANRecord audio = vlanTagged(*store, 1012);
        store->execute(
            planOf(u"en6"_s, {PC::Reparent{audio, u"en5"_s, u"en6"_s},
                              PC::SetHardware{audioID, u"Audio"_s, audio.hardware, fitting}}));
        const VLANRecord moved = vlanTagged(*readStore(), 1012);
        EXPECT_EQ(moved.parentBSD, u"en6"_s);
        EXPECT_EQ(moved.hardware.mtu, fitting.mtu);
    }
}

TEST_F(Transaction, MovingOntoAnAdapterWithoutARangeIsNotChecked)
{
    const auto store = writeStore();
    store->driverCapabilities = [](const InterfaceRef &) {
        return std::optional<HardwareCapabilities>();
    };
    const VLANRecord audio = vlanTagged(*store, 1012);
    store->execute(planOf(u"en6"_s, {PC::Reparent{audio, u"en5"_s, u"en6"_s}}));
    EXPECT_EQ(vlanTagged(*readStore(), 1012).parentBSD, u"en6"_s);
}

TEST_F(Transaction, RenamingAnAdapterRelabelsItsVLANsInTheSameTransaction)
{
    const auto store = writeStore();
    store->execute(planOf(u"\u2014"_s, {PC::RenameAdapter{u"en5"_s, u"DONGLE"_s, u"Stage box"_s}}));
    const auto fresh = readStore();
    EXPECT_EQ(vlanTagged(*fresh, 1010).name, u"1010 - Control (Stage)"_s);
    EXPECT_EQ(vlanTagged(*fresh, 1050).name, u"1050 - Stage Left (Stage)"_s);
    EXPECT_EQ(vlanTagged(*fresh, 2010).name, u"2010 - Monitors (en6)"_s);
    EXPECT_EQ(serviceNamed(*fresh, u"Stage box"_s).interfaceBSD, u"en5"_s);
}

TEST_F(Transaction, RemovingAnAdaptersServiceRelabelsItsVLANs)
{
    openSynthetic(3);
    const auto store = writeStore();
    const QString dongle = serviceNamed(*store, u"DONGLE"_s).serviceID;
    store->execute(planOf(u"\u2014"_s, {PC::RemoveService{dongle, u"DONGLE"_s}}));
    EXPECT_EQ(vlanTagged(*readStore(), 2).name, u"2 - Net 2 (en5)"_s);
}

TEST_F(Transaction, RemovingAVLANsServiceRelabelsNothing)
{
    openSynthetic(3);
    const auto store = writeStore();
    const QString first = vlanTagged(*store, 1).serviceID.value();
    std::shared_ptr<CountingBackend> counter;
    const auto counted = countedStore(counter);
    counted->execute(planOf(u"\u2014"_s, {PC::RemoveService{first, u"1 - Net 1"_s}}));
    EXPECT_EQ(counter->calls(u"scVLANInterfaceSetLocalizedDisplayName"_s), 0);
    EXPECT_EQ(vlanTagged(*readStore(), 2).name, u"2 - Net 2 (DONGLE)"_s);
}

TEST_F(Transaction, ARefusedRenameInTheNameSyncFailsThePlan)
{
    openSynthetic(2);
    const QByteArray before = preferencesBytes();
    const Platform refusing =
        RefusingBackend::over(*platform, {u"SCVLANInterfaceSetLocalizedDisplayName"_s});
    NetworkAuthorization authorization(refusing);
    authorization.acquire();
    VLANStore store(refusing, authorization);
    EXPECT_EQ(sentenceOf([&] {
                  store.execute(
                      planOf(u"\u2014"_s, {PC::RenameAdapter{u"en5"_s, u"DONGLE"_s, u"Trunk"_s}}));
              }),
              u"Could not rename VLAN 1."_s);
    EXPECT_EQ(preferencesBytes(), before);
}

TEST_F(Transaction, EveryKindOfChangeStagesThroughItsOperation)
{
    const auto store = writeStore();
    const VLANRecord video = vlanTagged(*store, 1014);
    store->execute(planOf(
        u"en5"_s,
        {PC::CreateVLAN{1060, u"Press"_s, manual(u"192.168.60.5"_s), true},
         PC::Retag{1014, u"vlan2"_s, u"Video"_s, video.ip, IPConfig::dhcp()},
         PC::SetEnabled{1016, u"vlan3"_s, u"Lighting"_s, false},
         PC::Rename{1050, u"vlan7"_s, u"1050 - Stage Left (DONGLE)"_s, u"Stage L (DONGLE)"_s},
         PC::AddService{1040, u"vlan6"_s, u"Backstage"_s},
         PC::SetServiceIP{audioID, u"Audio"_s, IPConfig::dhcp(), manual(u"192.168.12.70"_s)},
         PC::SetServiceEnabled{audioID, u"Audio"_s, false},
         PC::SetIPv6{audioID, u"Audio"_s, IPv6Mode::linkLocal, IPv6Mode::off},
         PC::SetDNS{audioID, u"Audio"_s, {u"10.0.0.53"_s}, {u"audio.example"_s}},
         PC::SetHardware{audioID, u"Audio"_s, HardwareSettings{9000, {}, {}},
                         HardwareSettings{1500, {}, {}}},
         PC::RemoveVLAN{1030, u"Intercom"_s, u"vlan5"_s}}));
    const auto fresh = readStore();
    EXPECT_EQ(vlanTagged(*fresh, 1060).name, u"Press (DONGLE)"_s);
    EXPECT_EQ(vlanTagged(*fresh, 1014).ip.mode, IPMode::dhcp);
    EXPECT_FALSE(vlanTagged(*fresh, 1016).serviceEnabled);
    EXPECT_EQ(vlanTagged(*fresh, 1050).name, u"Stage L (DONGLE)"_s);
    EXPECT_TRUE(vlanTagged(*fresh, 1040).hasService());
    const VLANRecord audio = vlanTagged(*fresh, 1012);
    EXPECT_EQ(audio.ip.address, u"192.168.12.70"_s);
    EXPECT_FALSE(audio.serviceEnabled);
    EXPECT_EQ(audio.ipv6, IPv6Mode::off);
    EXPECT_EQ(audio.ip.dns, QStringList{u"10.0.0.53"_s});
    EXPECT_EQ(audio.searchDomains, QStringList{u"audio.example"_s});
    EXPECT_EQ(audio.hardware.mtu, 1500);
    EXPECT_EQ(fresh->vlans().size(), 12);
}

TEST_F(Transaction, AddingAndRemovingAnAdaptersServiceStage)
{
    const auto store = writeStore();
    store->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s); // Office
    store->execute(planOf(u"\u2014"_s, {PC::AddAdapterService{u"en6"_s, u"USB LAN"_s}}));
    const auto fresh = readStore();
    fresh->setSelectedSetID(u"919CE3C3-82F6-5D7F-955B-F6BC635AE251"_s);
    EXPECT_EQ(serviceNamed(*fresh, u"USB 10/100/1000 LAN"_s).interfaceBSD, u"en6"_s);
}

} // namespace
