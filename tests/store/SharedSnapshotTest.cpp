#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/machine/MachineIdentity.h"
#include "VLANKit/platform/document/DocumentBackend.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace {

// Stores opened on one version of preferences.plist share its one parse; each still behaves as
// a private snapshot of its own.
class SharedSnapshot : public StoreTest
{
protected:
    SharedSnapshot() { openCopyOf(); }

    [[nodiscard]] static int parsesOf(const Platform &on)
    {
        const auto *document = dynamic_cast<const DocumentBackend *>(&on.backend());
        EXPECT_NE(document, nullptr);
        return document ? document->preferencesParses() : -1;
    }
    [[nodiscard]] int parses() const { return parsesOf(*platform); }

    static QStringList vlanNames(const VLANStore &store)
    {
        QStringList names;
        for (const VLANRecord &vlan : store.vlans())
            names.append(vlan.name);
        return names;
    }
};

TEST_F(SharedSnapshot, OpeningTheFolderParsesThePreferencesOnce)
{
    EXPECT_EQ(parses(), 1);
}

TEST_F(SharedSnapshot, ASecondStoreOnAnUnchangedDocumentSharesTheParse)
{
    const auto first = readStore();
    const auto second = readStore();
    const auto writer = writeStore();
    EXPECT_EQ(parses(), 1);
    EXPECT_EQ(second->vlans(), first->vlans());
    EXPECT_EQ(writer->services(), first->services());
    EXPECT_EQ(parses(), 1);
}

// What a command of the command line does: the machine's name, a read, and a transaction.
TEST_F(SharedSnapshot, ACommandParsesThePreferencesOnce)
{
    (void)MachineIdentity::current(platform->machineFacts());
    const auto reader = readStore();
    (void)reader->locations();
    const Plan plan = reader->planDelete({1012}, std::nullopt);
    ASSERT_EQ(plan.changes.size(), 1);
    const auto writer = writeStore();
    writer->execute(plan);
    EXPECT_EQ(parses(), 1);
}

TEST_F(SharedSnapshot, AStoreThatStagesLeavesAnotherStoresSnapshotAlone)
{
    const auto reader = readStore();
    const QStringList before = vlanNames(*reader);
    const auto writer = writeStore();
    writer->renameVLAN(1012, u"vlan1"_s, u"Audio Renamed"_s);
    EXPECT_TRUE(vlanNames(*writer).contains(u"Audio Renamed"_s));
    EXPECT_EQ(vlanNames(*reader), before);
    EXPECT_EQ(vlanNames(*readStore()), before);
}

TEST_F(SharedSnapshot, AStoreThatCommitsLeavesAnotherStoresSnapshotAlone)
{
    const auto reader = readStore();
    const QStringList before = vlanNames(*reader);
    const auto writer = writeStore();
    writer->removeVLAN(1012, u"vlan1"_s);
    writer->commit();
    EXPECT_EQ(vlanNames(*reader), before);
    const QStringList after = vlanNames(*readStore());
    EXPECT_EQ(after.size(), before.size() - 1);
    EXPECT_EQ(parses(), 2);
}

TEST_F(SharedSnapshot, AStoreOpenedAfterAnotherProcessCommittedSeesTheNewDocument)
{
    const auto early = writeStore();
    const QStringList before = vlanNames(*early);
    {
        const Platform other = another();
        NetworkAuthorization authorization(other);
        authorization.acquire();
        VLANStore elsewhere(other, authorization);
        elsewhere.renameVLAN(1012, u"vlan1"_s, u"Audio Elsewhere"_s);
        elsewhere.commit();
    }
    EXPECT_TRUE(vlanNames(*readStore()).contains(u"Audio Elsewhere"_s));
    EXPECT_EQ(parses(), 2);
    // The store opened before still holds the old document, and may not write over the new.
    EXPECT_EQ(vlanNames(*early), before);
    early->renameVLAN(1014, u"vlan2"_s, u"Video Early"_s);
    try {
        early->commit();
        FAIL() << "no failure";
    } catch (const VLANError &error) {
        EXPECT_EQ(error.errorCase(), VLANError::Case::commitFailed);
    }
}

TEST_F(SharedSnapshot, AFileEditedByHandIsParsedAgain)
{
    ASSERT_FALSE(readStore()->vlans().isEmpty());
    QVariantMap preferences = parsePropertyList(preferencesBytes()).value_or(QVariant()).toMap();
    preferences.remove(u"VirtualNetworkInterfaces"_s);
    temporary.write(u"machine/preferences.plist"_s, *xmlPropertyList(preferences));
    EXPECT_TRUE(readStore()->vlans().isEmpty());
    EXPECT_TRUE(readStore()->vlans().isEmpty());
    EXPECT_EQ(parses(), 2);
}

// A change made through the store's own backend, past its operations, is seen by the next read.
TEST_F(SharedSnapshot, ReadsAfterAChangeThroughTheBackendSeeIt)
{
    const auto store = writeStore();
    const ServiceRecord audio = serviceNamed(*store, u"1012 - Audio (DONGLE)"_s);
    PlatformBackend &seam = store->platform();
    const ServiceRef service = seam.scNetworkServiceCopy(store->prefs(), audio.serviceID);
    ASSERT_TRUE(seam.scNetworkServiceSetName(service, u"Audio by hand"_s));
    EXPECT_EQ(serviceNamed(*store, u"Audio by hand"_s).serviceID, audio.serviceID);
    EXPECT_EQ(vlanTagged(*store, 1012).serviceName, u"Audio by hand"_s);
}

TEST_F(SharedSnapshot, EveryServicesOffersInOneWalkAgreeWithEachOnItsOwn)
{
    const auto store = readStore();
    const QHash<QString, HardwareCapabilities> all = store->hardwareCapabilitiesByService();
    int offered = 0;
    for (const ServiceRecord &service : store->services()) {
        const auto own = store->hardwareCapabilities(service.serviceID);
        EXPECT_EQ(all.contains(service.serviceID), own.has_value()) << service.name.toStdString();
        if (own) {
            EXPECT_EQ(all.value(service.serviceID), *own) << service.name.toStdString();
            ++offered;
        }
    }
    EXPECT_EQ(all.size(), offered);
    EXPECT_GT(offered, 3);
}

TEST_F(SharedSnapshot, EveryServicesOffersAskEachDriverOnce)
{
    const auto store = readStore();
    QHash<QString, int> asked;
    const VLANStore::DriverQuestion driver = store->driverCapabilities;
    store->driverCapabilities = [&](const InterfaceRef &interface) {
        ++asked[store->platform().scNetworkInterfaceGetBSDName(interface).value_or(QString())];
        return driver(interface);
    };
    (void)store->hardwareCapabilitiesByService();
    ASSERT_FALSE(asked.isEmpty());
    for (auto it = asked.cbegin(); it != asked.cend(); ++it)
        EXPECT_EQ(it.value(), 1) << it.key().toStdString();
}

} // namespace
