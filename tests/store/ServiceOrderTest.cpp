#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"
#include "tests/support/CountingBackend.h"

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace {

QStringList namesOf(const QList<ServiceRecord> &records)
{
    QStringList names;
    for (const ServiceRecord &record : records)
        names.append(record.name);
    return names;
}

class ServiceOrder : public StoreTest
{
protected:
    QString idOf(const VLANStore &store, const QString &name)
    {
        return serviceNamed(store, name).serviceID;
    }
};

class ServiceOrderOnShowMac : public ServiceOrder
{
protected:
    void SetUp() override { openCopyOf(); }
};

TEST_F(ServiceOrderOnShowMac, ClosedVLANsAboveTheLowestAdapterOutrankTheInternet)
{
    const auto store = readStore();
    EXPECT_EQ(namesOf(store->vlansOutrankingInternet({})),
              (QStringList{u"1010 - Control (DONGLE)"_s, u"1020 - Internet (DONGLE)"_s}));
    EXPECT_EQ(namesOf(store->servicesOutrankedByVLANs({})),
              (QStringList{u"Ethernet"_s, u"Wi-Fi"_s, u"DONGLE"_s, u"USB 10/100/1000 LAN"_s,
                           u"TRUCK"_s}));
    const QSet<QString> ticked{idOf(*store, u"Wi-Fi"_s),
                               idOf(*store, u"1020 - Internet (DONGLE)"_s)};
    EXPECT_EQ(namesOf(store->vlansOutrankingInternet(ticked)),
              QStringList{u"1010 - Control (DONGLE)"_s});
}

TEST_F(ServiceOrderOnShowMac, RecommendedOrderPutsTickedThenOtherThenClosedVLANs)
{
    const auto store = readStore();
    const QSet<QString> ticked{idOf(*store, u"Wi-Fi"_s),
                               idOf(*store, u"1020 - Internet (DONGLE)"_s)};
    const QStringList names = namesOf(store->recommendedOrder(ticked));
    EXPECT_EQ(names.mid(0, 6),
              (QStringList{u"1020 - Internet (DONGLE)"_s, u"Wi-Fi"_s, u"Ethernet"_s, u"DONGLE"_s,
                           u"USB 10/100/1000 LAN"_s, u"TRUCK"_s}));
    EXPECT_EQ(names.at(6), u"1010 - Control (DONGLE)"_s);
    EXPECT_EQ(names.last(), u"100 - Management (en0)"_s);
    EXPECT_EQ(names.size(), 16);
}

TEST_F(ServiceOrderOnShowMac, ApplyingTheRecommendedOrderWritesItOnceAndThenNothing)
{
    const auto store = writeStore();
    const QSet<QString> ticked{idOf(*store, u"Wi-Fi"_s)};
    const auto applied = store->applyRecommendedOrder(ticked);
    ASSERT_TRUE(applied);
    EXPECT_EQ(namesOf(store->services()), namesOf(*applied));
    EXPECT_EQ(store->applyRecommendedOrder(ticked), std::nullopt);
    EXPECT_TRUE(store->vlansOutrankingInternet(ticked).isEmpty());
    store->commit();
    EXPECT_EQ(namesOf(readStore()->services()), namesOf(*applied));
}

TEST_F(ServiceOrderOnShowMac, AnOrderThatIsAlreadyRecommendedIsNotWritten)
{
    const auto counter = std::make_shared<CountingBackend>(platform->sharedBackend());
    NetworkAuthorization authorization{Platform(counter)};
    authorization.acquire();
    VLANStore store(Platform(counter), authorization);
    const QSet<QString> ticked{idOf(store, u"Wi-Fi"_s)};
    (void)store.applyRecommendedOrder(ticked);
    counter->reset();
    EXPECT_EQ(store.applyRecommendedOrder(ticked), std::nullopt);
    EXPECT_EQ(counter->calls(u"scNetworkSetSetServiceOrder"_s), 0);
}

TEST_F(ServiceOrderOnShowMac, CandidatesAndTheirGuesses)
{
    const auto store = readStore();
    const QList<InternetMarks::Candidate> candidates = store->internetCandidates();
    ASSERT_EQ(candidates.size(), 16);
    QHash<QString, InternetMarks::Candidate> byName;
    for (const ServiceRecord &record : store->services()) {
        for (const InternetMarks::Candidate &candidate : candidates) {
            if (candidate.serviceID == record.serviceID)
                byName.insert(record.name, candidate);
        }
    }
    const auto wifi = byName.value(u"Wi-Fi"_s);
    EXPECT_TRUE(wifi.guess);
    EXPECT_EQ(wifi.device, u"en1"_s);
    EXPECT_EQ(wifi.tag, std::nullopt);
    const auto internet = byName.value(u"1020 - Internet (DONGLE)"_s);
    EXPECT_TRUE(internet.guess);
    EXPECT_EQ(internet.device, u"en5"_s);
    EXPECT_EQ(internet.tag, 1020);
    EXPECT_FALSE(byName.value(u"DONGLE"_s).guess);
    EXPECT_EQ(byName.value(u"DONGLE"_s).device, u"en5"_s);
    EXPECT_FALSE(byName.value(u"1010 - Control (DONGLE)"_s).guess);
    EXPECT_EQ(store->defaultInternetServiceIDs(),
              (QSet<QString>{wifi.serviceID, internet.serviceID}));
}

TEST_F(ServiceOrderOnShowMac, InternetInAnAdaptersNameEarnsNoGuess)
{
    const auto store = writeStore();
    store->renameVLAN(1012, u"vlan1"_s, u"Show INTERNET feed"_s);
    store->renameAdapter(u"en6"_s, u"INTERNET uplink"_s);
    for (const InternetMarks::Candidate &candidate : store->internetCandidates()) {
        if (candidate.tag == 1012) {
            EXPECT_TRUE(candidate.guess);
        }
        if (candidate.device == u"en6"_s && !candidate.tag) {
            EXPECT_FALSE(candidate.guess);
        }
    }
}

// The show machine with one VLAN that the platform lists without its adapter.
class VLANWithoutParent : public CountingBackend
{
public:
    using CountingBackend::CountingBackend;
    InterfaceRef scVLANInterfaceGetPhysicalInterface(const InterfaceRef &vlan) override
    {
        if (scNetworkInterfaceGetBSDName(vlan) == u"vlan0"_s)
            return {};
        return CountingBackend::scVLANInterfaceGetPhysicalInterface(vlan);
    }
};

TEST_F(ServiceOrderOnShowMac, VLANWithoutAKnownAdapterHasNoDevice)
{
    const VLANStore store(Platform(std::make_shared<VLANWithoutParent>(platform->sharedBackend())));
    const QString control = idOf(store, u"1010 - Control (DONGLE)"_s);
    for (const InternetMarks::Candidate &candidate : store.internetCandidates()) {
        if (candidate.serviceID == control) {
            EXPECT_EQ(candidate.device, std::nullopt);
            EXPECT_EQ(candidate.tag, 1010);
        }
    }
}

TEST_F(ServiceOrder, SetServiceOrderWithoutLocationIsNoCurrentSet)
{
    openCopyOf();
    const auto store = writeStore();
    store->setSelectedSetID(u"GONE"_s);
    EXPECT_EQ(failureOf([&] { store->setServiceOrder({}); })->errorCase(),
              VLANError::Case::noCurrentSet);
    EXPECT_TRUE(store->recommendedOrder({}).isEmpty());
    EXPECT_TRUE(store->vlansOutrankingInternet({}).isEmpty());
}

class ServiceOrderOfThreeVLANs : public ServiceOrder
{
protected:
    void SetUp() override
    {
        openSynthetic(3);
        store = writeStore();
        dongle = idOf(*store, u"DONGLE"_s);
        for (int tag = 1; tag <= 3; ++tag)
            vlans.append(vlanTagged(*store, tag).serviceID.value());
    }
    std::unique_ptr<VLANStore> store;
    QString dongle;
    QStringList vlans;
};

TEST_F(ServiceOrderOfThreeVLANs, OnlyClosedVLANsKeepTheirOrderAndOutrankNothing)
{
    store->removeService(dongle, u"DONGLE"_s);
    EXPECT_EQ(namesOf(store->recommendedOrder({})), namesOf(store->services()));
    EXPECT_TRUE(store->vlansOutrankingInternet({}).isEmpty());
    EXPECT_TRUE(store->servicesOutrankedByVLANs({}).isEmpty());
}

TEST_F(ServiceOrderOfThreeVLANs, ClosedVLANAboveTheOnlyAdapter)
{
    store->setServiceOrder({vlans.at(0), dongle, vlans.at(1), vlans.at(2)});
    EXPECT_EQ(namesOf(store->vlansOutrankingInternet({})), QStringList{u"1 - Net 1 (DONGLE)"_s});
    EXPECT_EQ(namesOf(store->servicesOutrankedByVLANs({})), QStringList{u"DONGLE"_s});
    store->setEnabled(false, dongle, u"DONGLE"_s);
    EXPECT_TRUE(store->vlansOutrankingInternet({}).isEmpty());
    EXPECT_TRUE(store->servicesOutrankedByVLANs({}).isEmpty());
}

TEST_F(ServiceOrderOfThreeVLANs, TickedVLANOnTopAndClosedOnesBelowHarmNothing)
{
    store->removeService(dongle, u"DONGLE"_s);
    const QSet<QString> ticked{vlans.at(0)};
    EXPECT_TRUE(store->vlansOutrankingInternet(ticked).isEmpty());
    EXPECT_TRUE(store->servicesOutrankedByVLANs(ticked).isEmpty());
}

TEST_F(ServiceOrderOfThreeVLANs, TickedVLANRanksWithTheTickedAtItsPresentPlace)
{
    const QSet<QString> ticked{vlans.at(1), dongle};
    EXPECT_EQ(namesOf(store->recommendedOrder(ticked)),
              (QStringList{u"DONGLE"_s, u"2 - Net 2 (DONGLE)"_s, u"1 - Net 1 (DONGLE)"_s,
                           u"3 - Net 3 (DONGLE)"_s}));
}

TEST_F(ServiceOrderOfThreeVLANs, ServiceOrderNamingAGoneServiceSkipsIt)
{
    store->setServiceOrder({u"GONE"_s, vlans.at(2), dongle});
    const QStringList names = namesOf(store->services());
    ASSERT_EQ(names.size(), 4);
    EXPECT_EQ(names.mid(0, 2), (QStringList{u"3 - Net 3 (DONGLE)"_s, u"DONGLE"_s}));
}

} // namespace
