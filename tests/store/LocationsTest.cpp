// Locations: listing, selecting, creating, copying, renaming, removing and switching, on the
// show machine of the examples.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "VLANKit/store/PlatformLists.h"
#include "tests/store/RefusingBackend.h"
#include "tests/store/SeamLookups.h"
#include "tests/store/StoreTestSupport.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace VLANKit;
using namespace StoreLookups;

namespace {

using OrvaneTestRows::PrintTo;

class LocationsOnShowMac : public StoreTest
{
protected:
    void SetUp() override { openCopyOf(); }

    /// A new backend over the same folder, as the next process would have.
    void reopen() { platform = another(); }

    [[nodiscard]] static QString serviceID(const VLANStore &store, const QString &name)
    {
        return serviceNamed(store, name).serviceID;
    }

    /// Adds a set beside the others through the seam, bypassing the store's own rules (the
    /// system allows names that differ only in case), and commits it.
    void addSetNamed(const QString &name)
    {
        auto store = writeStore();
        PlatformBackend &seam = store->platform();
        const SetRef set = seam.scNetworkSetCreate(store->prefs());
        ASSERT_TRUE(set);
        ASSERT_TRUE(seam.scNetworkSetSetName(set, name));
        store->commit();
    }

    [[nodiscard]] QString setIDOf(const QString &name) const
    {
        const auto record = locationNamed(*readStore(), name);
        return record ? record->setID : QString();
    }
};

struct ProtocolState
{
    std::optional<QVariantMap> configuration;
    bool enabled = false;
    friend bool operator==(const ProtocolState &, const ProtocolState &) = default;
};

/// Each protocol of a service by its type: its settings and whether it is on.
QMap<QString, ProtocolState> protocolsOf(const VLANStore &store, const ServiceRef &service)
{
    PlatformBackend &seam = store.platform();
    QMap<QString, ProtocolState> protocols;
    for (const ProtocolRef &protocol :
         presentHandles(seam.scNetworkServiceCopyProtocols(service))) {
        protocols.insert(seam.scNetworkProtocolGetProtocolType(protocol).value_or(u"?"_s),
                         {seam.scNetworkProtocolGetConfiguration(protocol),
                          seam.scNetworkProtocolGetEnabled(protocol)});
    }
    return protocols;
}

// What a person compares between a Location and its copy: everything but the identifier.
void expectSameServices(const QList<ServiceRecord> &copy, const QList<ServiceRecord> &source)
{
    ASSERT_EQ(copy.size(), source.size());
    for (qsizetype at = 0; at < copy.size(); ++at) {
        SCOPED_TRACE(source.at(at).name.toStdString());
        ServiceRecord expected = source.at(at);
        expected.serviceID = copy.at(at).serviceID;
        EXPECT_EQ(copy.at(at), expected);
        EXPECT_NE(copy.at(at).serviceID, source.at(at).serviceID);
    }
}

// Listing.

TEST_F(LocationsOnShowMac, ListsEveryLocationByNameWithItsCounts)
{
    const auto store = readStore();
    const QList<LocationRecord> records = store->locations();
    ASSERT_EQ(locationNames(*store), (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s}));
    EXPECT_FALSE(records.at(0).isCurrent);
    EXPECT_EQ(records.at(0).serviceCount, 2);
    EXPECT_EQ(records.at(0).vlanServiceCount, 0);
    EXPECT_FALSE(records.at(1).isCurrent);
    EXPECT_EQ(records.at(1).serviceCount, 7);
    EXPECT_EQ(records.at(1).vlanServiceCount, 4);
    EXPECT_TRUE(records.at(2).isCurrent);
    EXPECT_EQ(records.at(2).serviceCount, 16);
    EXPECT_EQ(records.at(2).vlanServiceCount, 11);
}

TEST_F(LocationsOnShowMac, NamesSortByCodePointNotByCase)
{
    addSetNamed(u"apron"_s);
    addSetNamed(u"Zone"_s);
    EXPECT_EQ(locationNames(*readStore()),
              (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s, u"Zone"_s, u"apron"_s}));
}

TEST_F(LocationsOnShowMac, ActiveLocationFollowsTheSelection)
{
    const auto store = readStore();
    ASSERT_TRUE(store->activeLocation());
    EXPECT_EQ(store->activeLocation()->name, u"Show"_s);
    store->selectLocation(u"Office"_s);
    ASSERT_TRUE(store->activeLocation());
    EXPECT_EQ(store->activeLocation()->name, u"Office"_s);
    EXPECT_FALSE(store->activeLocation()->isCurrent);
}

TEST_F(LocationsOnShowMac, NoActiveLocationWhenTheSelectedOneIsGone)
{
    const auto store = readStore();
    store->setSelectedSetID(u"5A0E0B1C-0000-4000-8000-000000000000"_s);
    EXPECT_EQ(store->activeLocation(), std::nullopt);
}

// Selecting.

TEST_F(LocationsOnShowMac, SelectTakesTheExactNameBeforeACaseBlindOne)
{
    addSetNamed(u"office"_s);
    const auto store = readStore();
    store->selectLocation(u"office"_s);
    EXPECT_EQ(store->selectedSetID(), setIDOf(u"office"_s));
    store->selectLocation(u"Office"_s);
    EXPECT_EQ(store->selectedSetID(), setIDOf(u"Office"_s));
}

TEST_F(LocationsOnShowMac, SelectFallsBackOnTheOneCaseBlindMatch)
{
    const auto store = readStore();
    store->selectLocation(u"rEHEARSAL"_s);
    EXPECT_EQ(store->selectedSetID(), setIDOf(u"Rehearsal"_s));
}

TEST_F(LocationsOnShowMac, SelectMatchesANameWrittenInAnotherNormalForm)
{
    addSetNamed(u"Caf\u00e9"_s);
    const auto store = readStore();
    store->selectLocation(u"Cafe\u0301"_s);
    EXPECT_EQ(store->selectedSetID(), setIDOf(u"Caf\u00e9"_s));
}

TEST_F(LocationsOnShowMac, TwoNamesDifferingInCaseAskedInAThirdSpellingNameBoth)
{
    addSetNamed(u"Home"_s);
    addSetNamed(u"HOME"_s);
    const auto store = readStore();
    const auto failure = failureOf([&] { store->selectLocation(u"home"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::operationFailed);
    EXPECT_EQ(failure->localizedDescription(),
              u"'home' could be 'HOME' and 'Home'. Give the name exactly as it is written."_s);
    EXPECT_EQ(store->selectedSetID(), std::nullopt);
}

TEST_F(LocationsOnShowMac, SelectingAnUnknownNameNamesTheKnownOnes)
{
    const auto store = readStore();
    const auto failure = failureOf([&] { store->selectLocation(u"Tour"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::locationNotFound);
    EXPECT_EQ(failure->localizedDescription(),
              u"No network Location named 'Tour'. Known Locations: Office, Rehearsal, Show."_s);
    EXPECT_EQ(store->selectedSetID(), std::nullopt);
}

// Creating.

TEST_F(LocationsOnShowMac, CreatingWithoutPopulateMakesNoService)
{
    auto store = writeStore();
    const qsizetype before = serviceCount(*store);
    const QString setID = store->createLocation(u"Tour"_s, false);
    EXPECT_EQ(store->selectedSetID(), setID);
    EXPECT_EQ(serviceCount(*store), before);
    EXPECT_TRUE(store->services().isEmpty());
    store->commit();

    reopen();
    const auto tour = locationNamed(*readStore(), u"Tour"_s);
    ASSERT_TRUE(tour);
    EXPECT_EQ(tour->setID, setID);
    EXPECT_EQ(tour->serviceCount, 0);
    EXPECT_FALSE(tour->isCurrent);
}

TEST_F(LocationsOnShowMac, CreatingWithPopulateGivesEachAdapterAServiceUnderItsKnownName)
{
    auto store = writeStore();
    store->createLocation(u"Tour"_s, true);
    store->commit();

    reopen();
    const auto reader = readStore();
    reader->selectLocation(u"Tour"_s);
    QSet<QString> names;
    QSet<QString> devices;
    const QList<ServiceRecord> services = reader->services();
    for (const ServiceRecord &service : services) {
        names.insert(service.name);
        devices.insert(service.interfaceBSD);
        EXPECT_FALSE(service.isVLAN);
        EXPECT_TRUE(service.enabled);
        EXPECT_EQ(service.ip.mode, IPMode::dhcp);
    }
    EXPECT_EQ(services.size(), 4);
    EXPECT_EQ(devices, (QSet<QString>{u"en0"_s, u"en1"_s, u"en5"_s, u"en6"_s}));
    EXPECT_EQ(names,
              (QSet<QString>{u"DONGLE"_s, u"Ethernet"_s, u"USB 10/100/1000 LAN"_s, u"Wi-Fi"_s}));
}

TEST_F(LocationsOnShowMac, PopulateSkipsTheSecondInterfaceOfOneName)
{
    auto store = writeStore();
    const auto attached = store->attachedInterfaces;
    store->attachedInterfaces = [attached] { return attached() + attached(); };
    store->createLocation(u"Tour"_s, true);
    EXPECT_EQ(store->services().size(), 4);
}

TEST_F(LocationsOnShowMac, BlankNamesAreRefusedInCreatingAndRenaming)
{
    auto store = writeStore();
    EXPECT_EQ(sentenceOf([&] { store->createLocation(u" \t\n\u00a0"_s, false); }),
              u"A Location needs a name."_s);
    EXPECT_EQ(sentenceOf([&] { store->renameLocation(u"Office"_s, u"  "_s); }),
              u"A Location needs a name."_s);
    EXPECT_EQ(locationNames(*store), (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s}));
}

TEST_F(LocationsOnShowMac, LeadingAndTrailingBlanksNeverReachTheSystem)
{
    auto store = writeStore();
    store->createLocation(u"  Tour \n"_s, false);
    store->renameLocation(u"Office"_s, u"\tBack Office  "_s);
    store->commit();

    reopen();
    EXPECT_EQ(locationNames(*readStore()),
              (QStringList{u"Back Office"_s, u"Rehearsal"_s, u"Show"_s, u"Tour"_s}));
}

TEST_F(LocationsOnShowMac, CreatingANameThatDiffersOnlyInCaseIsRefused)
{
    auto store = writeStore();
    const auto failure = failureOf([&] { store->createLocation(u"show"_s, false); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::operationFailed);
    EXPECT_EQ(failure->localizedDescription(), u"A Location named 'show' already exists."_s);
    EXPECT_EQ(store->locations().size(), 3);
}

// Renaming.

TEST_F(LocationsOnShowMac, RenamingALocationToAnotherCaseOfItsOwnNameWorks)
{
    auto store = writeStore();
    store->renameLocation(u"Show"_s, u"SHOW"_s);
    store->commit();

    reopen();
    const auto reader = readStore();
    EXPECT_EQ(locationNames(*reader), (QStringList{u"Office"_s, u"Rehearsal"_s, u"SHOW"_s}));
    const auto show = locationNamed(*reader, u"SHOW"_s);
    ASSERT_TRUE(show);
    EXPECT_TRUE(show->isCurrent);
}

TEST_F(LocationsOnShowMac, RenamingOntoAnotherLocationsNameIsRefused)
{
    auto store = writeStore();
    EXPECT_EQ(sentenceOf([&] { store->renameLocation(u"Office"_s, u"rehearsal"_s); }),
              u"A Location named 'rehearsal' already exists."_s);
}

TEST_F(LocationsOnShowMac, RenamingAnUnknownLocationNamesTheKnownOnes)
{
    auto store = writeStore();
    const auto failure = failureOf([&] { store->renameLocation(u"Tour"_s, u"Tour 2"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::locationNotFound);
    EXPECT_EQ(failure->known(), (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s}));
}

TEST_F(LocationsOnShowMac, RenamingFindsTheLocationWithoutRegardToCase)
{
    auto store = writeStore();
    store->renameLocation(u"office"_s, u"Studio"_s);
    EXPECT_EQ(locationNames(*store), (QStringList{u"Rehearsal"_s, u"Show"_s, u"Studio"_s}));
}

// Names that the system keeps as they are written.

struct NameCase
{
    const char *name;
    QString location;
};

class LocationNames : public LocationsOnShowMac, public ::testing::WithParamInterface<NameCase>
{};

TEST_P(LocationNames, SurviveCreatingRenamingAndSelecting)
{
    const QString name = GetParam().location;
    auto store = writeStore();
    const QString setID = store->createLocation(name, false);
    store->renameLocation(u"Office"_s, name + u" (old)"_s);
    store->commit();

    reopen();
    const auto reader = readStore();
    const QStringList names = locationNames(*reader);
    EXPECT_EQ(names.size(), 4);
    EXPECT_TRUE(names.contains(name));
    EXPECT_TRUE(names.contains(name + u" (old)"_s));
    reader->selectLocation(name);
    EXPECT_EQ(reader->selectedSetID(), setID);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LocationNames,
    ::testing::Values(NameCase{"Slash", u"Tour/2025"_s}, NameCase{"Backslash", u"A\\B"_s},
                      NameCase{"StraightQuotes", u"Dave's \"Big\" Night"_s},
                      NameCase{"CurlyQuotes", u"\u201cMain\u201d \u2018Stage\u2019"_s},
                      NameCase{"Emoji", u"Festival \U0001F3B8\U0001F3A4"_s},
                      NameCase{"TrailingDot", u"Venue."_s}),
    [](const auto &row) { return std::string(row.param.name); });

// Copying.

TEST_F(LocationsOnShowMac, ACopyKeepsOrderEnabledStatesProtocolsAndInterfaceSettings)
{
    auto store = writeStore();
    PlatformBackend &seam = store->platform();
    const SetRef show = setNamed(*store, u"Show"_s);
    // A protocol that is off on a service that is on, beside the service that is off.
    const ServiceRef dongle = serviceIn(*store, show, u"DONGLE"_s);
    ASSERT_TRUE(seam.scNetworkProtocolSetEnabled(
        seam.scNetworkServiceCopyProtocol(dongle, kSCNetworkProtocolTypeIPv6), false));
    const QList<ServiceRecord> source = store->services();
    const LocationCopy copy = store->duplicateLocation(u"Show"_s, u"Show Copy"_s);
    EXPECT_EQ(store->selectedSetID(), copy.setID);
    store->commit();

    reopen();
    const auto reader = readStore();
    reader->selectLocation(u"Show Copy"_s);
    const QList<ServiceRecord> copied = reader->services();
    expectSameServices(copied, source);
    EXPECT_TRUE(std::any_of(copied.cbegin(), copied.cend(),
                            [](const ServiceRecord &service) { return !service.enabled; }));
    EXPECT_TRUE(std::any_of(copied.cbegin(), copied.cend(), [](const ServiceRecord &service) {
        return service.hardware.mtu == 9000;
    }));
    ASSERT_EQ(copy.serviceIDs.size(), source.size());
    for (qsizetype at = 0; at < source.size(); ++at)
        EXPECT_EQ(copy.serviceIDs.value(source.at(at).serviceID), copied.at(at).serviceID);

    const SetRef showAgain = setNamed(*reader, u"Show"_s);
    const SetRef copySet = setNamed(*reader, u"Show Copy"_s);
    for (const ServiceRecord &service : source) {
        SCOPED_TRACE(service.name.toStdString());
        EXPECT_EQ(protocolsOf(*reader, serviceIn(*reader, copySet, service.name)),
                  protocolsOf(*reader, serviceIn(*reader, showAgain, service.name)));
    }
    EXPECT_FALSE(protocolsOf(*reader, serviceIn(*reader, copySet, u"DONGLE"_s))
                     .value(kSCNetworkProtocolTypeIPv6)
                     .enabled);
}

TEST_F(LocationsOnShowMac, ACopyLeavesOutAVPN)
{
    // A VPN between the two services of the Office, as its app would have added it.
    const QString vpnID = u"7D3F61C2-6A1B-4E55-9C4D-2B8E0F9A1C33"_s;
    const QString officeID = setIDOf(u"Office"_s);
    editPreferences([&](QVariantMap &document) {
        QVariantMap services = mapIn(document, u"NetworkServices"_s).value_or(QVariantMap());
        services.insert(vpnID,
                        QVariantMap{{u"Interface"_s,
                                     QVariantMap{{u"Type"_s, u"VPN"_s}, {u"SubType"_s, u"L2TP"_s}}},
                                    {u"UserDefinedName"_s, u"Crew VPN"_s},
                                    {u"IPv4"_s, QVariantMap{{u"ConfigMethod"_s, u"PPP"_s}}}});
        document.insert(u"NetworkServices"_s, services);
        QVariantMap sets = mapIn(document, u"Sets"_s).value_or(QVariantMap());
        QVariantMap office = mapIn(sets, officeID).value_or(QVariantMap());
        QVariantMap network = mapIn(office, u"Network"_s).value_or(QVariantMap());
        QVariantMap links = mapIn(network, u"Service"_s).value_or(QVariantMap());
        links.insert(vpnID, QVariantMap{{u"__LINK__"_s, u"/NetworkServices/"_s + vpnID}});
        network.insert(u"Service"_s, links);
        QVariantMap global = mapIn(network, u"Global"_s).value_or(QVariantMap());
        QVariantMap ipv4 = mapIn(global, u"IPv4"_s).value_or(QVariantMap());
        QVariantList order = listIn(ipv4, u"ServiceOrder"_s).value_or(QVariantList());
        order.insert(1, vpnID);
        ipv4.insert(u"ServiceOrder"_s, order);
        global.insert(u"IPv4"_s, ipv4);
        network.insert(u"Global"_s, global);
        office.insert(u"Network"_s, network);
        sets.insert(officeID, office);
        document.insert(u"Sets"_s, sets);
    });

    auto store = writeStore();
    store->selectLocation(u"Office"_s);
    const QList<ServiceRecord> source = store->services();
    ASSERT_EQ(source.size(), 3);
    ASSERT_EQ(source.at(1).name, u"Crew VPN"_s);
    ASSERT_FALSE(source.at(1).hasDevice);
    const LocationCopy copy = store->duplicateLocation(u"Office"_s, u"Office Copy"_s);
    store->commit();

    reopen();
    const auto reader = readStore();
    reader->selectLocation(u"Office Copy"_s);
    expectSameServices(reader->services(), {source.at(0), source.at(2)});
    EXPECT_FALSE(copy.serviceIDs.contains(vpnID));
    EXPECT_EQ(copy.serviceIDs.size(), 2);
}

TEST_F(LocationsOnShowMac, ACopyLeavesOutAServiceWhoseVLANIsGone)
{
    auto store = writeStore();
    const QString lighting = serviceID(*store, u"1016 - Lighting (DONGLE)"_s);
    ASSERT_TRUE(store->platform().scVLANInterfaceRemove(vlanNamed(*store, u"vlan3"_s)));
    const QList<ServiceRecord> source = store->services();
    const LocationCopy copy = store->duplicateLocation(u"Show"_s, u"Show Copy"_s);

    QList<ServiceRecord> expected;
    for (const ServiceRecord &service : source) {
        if (service.interfaceBSD != u"vlan3"_s)
            expected.append(service);
    }
    ASSERT_EQ(expected.size(), source.size() - 1);
    expectSameServices(store->services(), expected);
    EXPECT_FALSE(copy.serviceIDs.contains(lighting));
}

TEST_F(LocationsOnShowMac, TwoServicesOfTheSourceOnOneInterfaceBothGetCopies)
{
    auto store = writeStore();
    PlatformBackend &seam = store->platform();
    const SetRef office = setNamed(*store, u"Office"_s);
    const ServiceRef ethernet = serviceIn(*store, office, u"Ethernet"_s);
    const ServiceRef spare =
        seam.scNetworkServiceCreate(store->prefs(), seam.scNetworkServiceGetInterface(ethernet));
    ASSERT_TRUE(spare);
    ASSERT_TRUE(seam.scNetworkServiceEstablishDefaultConfiguration(spare));
    ASSERT_TRUE(seam.scNetworkServiceSetName(spare, u"Ethernet Spare"_s));
    ASSERT_TRUE(seam.scNetworkSetAddService(office, spare));
    store->selectLocation(u"Office"_s);
    const QList<ServiceRecord> source = store->services();
    ASSERT_EQ(source.size(), 3);

    const LocationCopy copy = store->duplicateLocation(u"Office"_s, u"Office Copy"_s);
    const QList<ServiceRecord> copied = store->services();
    expectSameServices(copied, source);
    EXPECT_EQ(std::count_if(
                  copied.cbegin(), copied.cend(),
                  [](const ServiceRecord &service) { return service.interfaceBSD == u"en0"_s; }),
              2);
    EXPECT_EQ(copy.serviceIDs.size(), 3);
}

TEST_F(LocationsOnShowMac, ACopyIsSeparateFromItsSource)
{
    auto store = writeStore();
    const QString ethernet = serviceID(*store, u"Ethernet"_s);
    const LocationCopy copy = store->duplicateLocation(u"Show"_s, u"Show Copy"_s);
    PlatformBackend &seam = store->platform();
    ASSERT_TRUE(seam.scNetworkServiceSetEnabled(
        seam.scNetworkServiceCopy(store->prefs(), copy.serviceIDs.value(ethernet)), false));
    store->selectLocation(u"Show"_s);
    const auto services = store->services();
    EXPECT_TRUE(std::all_of(services.cbegin(), services.cend(), [&](const ServiceRecord &s) {
        return s.serviceID != ethernet || s.enabled;
    }));
}

TEST_F(LocationsOnShowMac, CopyingAnUnknownLocationMakesNothing)
{
    auto store = writeStore();
    const auto failure =
        failureOf([&] { (void)store->duplicateLocation(u"Tour"_s, u"Tour Copy"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::locationNotFound);
    EXPECT_EQ(failure->localizedDescription(),
              u"No network Location named 'Tour'. Known Locations: Office, Rehearsal, Show."_s);
    EXPECT_EQ(store->locations().size(), 3);
}

TEST_F(LocationsOnShowMac, CopyingOntoATakenNameIsRefused)
{
    auto store = writeStore();
    EXPECT_EQ(sentenceOf([&] { (void)store->duplicateLocation(u"Office"_s, u" SHOW "_s); }),
              u"A Location named 'SHOW' already exists."_s);
    EXPECT_EQ(store->locations().size(), 3);
}

// Removing.

TEST_F(LocationsOnShowMac, RemovingTheLocationInUseIsRefusedWhateverIsSelected)
{
    auto store = writeStore();
    store->selectLocation(u"Office"_s);
    const auto failure = failureOf([&] { store->removeLocation(u"show"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::operationFailed);
    EXPECT_EQ(failure->localizedDescription(),
              u"'show' is the active Location \u2014 switch away before deleting it."_s);
    EXPECT_EQ(store->locations().size(), 3);
}

TEST_F(LocationsOnShowMac, RemovingTheSelectedLocationClearsTheSelection)
{
    auto store = writeStore();
    store->selectLocation(u"Rehearsal"_s);
    store->removeLocation(u"Rehearsal"_s);
    EXPECT_EQ(store->selectedSetID(), std::nullopt);
    ASSERT_TRUE(store->activeLocation());
    EXPECT_EQ(store->activeLocation()->name, u"Show"_s);
}

TEST_F(LocationsOnShowMac, RemovingAnotherLocationKeepsTheSelection)
{
    auto store = writeStore();
    store->selectLocation(u"Office"_s);
    const auto office = store->selectedSetID();
    store->removeLocation(u"Rehearsal"_s);
    EXPECT_EQ(store->selectedSetID(), office);
}

TEST_F(LocationsOnShowMac, RemovingALocationTakesItsOwnServicesAlong)
{
    auto store = writeStore();
    const qsizetype before = serviceCount(*store);
    store->selectLocation(u"Rehearsal"_s);
    QStringList removed;
    for (const ServiceRecord &service : store->services())
        removed.append(service.serviceID);
    store->setSelectedSetID(std::nullopt);
    store->removeLocation(u"Rehearsal"_s);
    store->commit();

    reopen();
    const auto reader = readStore();
    EXPECT_EQ(locationNames(*reader), (QStringList{u"Office"_s, u"Show"_s}));
    EXPECT_EQ(serviceCount(*reader), before - removed.size());
    for (const QString &id : std::as_const(removed))
        EXPECT_FALSE(reader->platform().scNetworkServiceCopy(reader->prefs(), id))
            << id.toStdString();
}

TEST_F(LocationsOnShowMac, AServiceThatAnotherLocationHoldsStays)
{
    auto store = writeStore();
    PlatformBackend &seam = store->platform();
    const ServiceRef officeEthernet =
        serviceIn(*store, setNamed(*store, u"Office"_s), u"Ethernet"_s);
    const QString sharedID = *seam.scNetworkServiceGetServiceID(officeEthernet);
    // The system lets one service stand in two sets; the copy in Rehearsal is taken out first so
    // that the names stay apart.
    const SetRef rehearsal = setNamed(*store, u"Rehearsal"_s);
    ASSERT_TRUE(
        seam.scNetworkSetRemoveService(rehearsal, serviceIn(*store, rehearsal, u"Ethernet"_s)));
    ASSERT_TRUE(seam.scNetworkSetAddService(rehearsal, officeEthernet));
    store->removeLocation(u"Rehearsal"_s);
    store->commit();

    reopen();
    const auto reader = readStore();
    reader->selectLocation(u"Office"_s);
    EXPECT_EQ(serviceID(*reader, u"Ethernet"_s), sharedID);
}

TEST_F(LocationsOnShowMac, RemovingAnUnknownLocationNamesTheKnownOnes)
{
    auto store = writeStore();
    const auto failure = failureOf([&] { store->removeLocation(u"Tour"_s); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::locationNotFound);
    EXPECT_EQ(failure->known(), (QStringList{u"Office"_s, u"Rehearsal"_s, u"Show"_s}));
}

// Switching.

TEST_F(LocationsOnShowMac, MakingTheSelectedLocationCurrentSwitchesTheMachine)
{
    auto store = writeStore();
    store->selectLocation(u"Office"_s);
    store->makeSelectedLocationCurrent();
    store->commit();

    reopen();
    const auto reader = readStore();
    EXPECT_EQ(locationNamed(*reader, u"Office"_s).value_or(LocationRecord()).isCurrent, true);
    EXPECT_EQ(locationNamed(*reader, u"Show"_s).value_or(LocationRecord()).isCurrent, false);
    EXPECT_EQ(reader->activeLocation().value_or(LocationRecord()).name, u"Office"_s);
}

TEST_F(LocationsOnShowMac, MakingCurrentWithoutATargetFailsWithNoCurrentSet)
{
    auto store = writeStore();
    store->setSelectedSetID(u"5A0E0B1C-0000-4000-8000-000000000000"_s);
    const auto failure = failureOf([&] { store->makeSelectedLocationCurrent(); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->errorCase(), VLANError::Case::noCurrentSet);
}

TEST_F(LocationsOnShowMac, ANewLocationCanBeMadeCurrentInTheSameSession)
{
    auto store = writeStore();
    store->createLocation(u"Tour"_s, true);
    store->makeSelectedLocationCurrent();
    store->commit();

    reopen();
    EXPECT_EQ(readStore()->activeLocation().value_or(LocationRecord()).name, u"Tour"_s);
}

// What the system refuses.

class LocationsRefused : public LocationsOnShowMac
{
protected:
    /// A store whose backend refuses the named operations.
    [[nodiscard]] std::unique_ptr<VLANStore> storeRefusing(QSet<QString> operations) const
    {
        return std::make_unique<VLANStore>(RefusingBackend::over(*platform, std::move(operations)));
    }
};

TEST_F(LocationsRefused, ANewSetTheSystemWontMake)
{
    const auto store = storeRefusing({u"SCNetworkSetCreate"_s});
    EXPECT_EQ(sentenceOf([&] { store->createLocation(u"Tour"_s, false); }),
              u"Could not create the Location."_s);
}

TEST_F(LocationsRefused, ANewSetWhoseIdentifierCantBeRead)
{
    const auto store = storeRefusing({u"SCNetworkSetGetSetID"_s});
    EXPECT_EQ(sentenceOf([&] { store->createLocation(u"Tour"_s, false); }),
              u"Created the Location but could not read its ID."_s);
    EXPECT_EQ(store->selectedSetID(), std::nullopt);
}

TEST_F(LocationsRefused, ANameTheSystemWontGive)
{
    const auto store = storeRefusing({u"SCNetworkSetSetName"_s});
    EXPECT_EQ(sentenceOf([&] { store->createLocation(u" Tour "_s, false); }),
              u"Could not name the Location 'Tour'."_s);
    EXPECT_EQ(sentenceOf([&] { store->renameLocation(u"office"_s, u"Studio"_s); }),
              u"Could not rename Location 'Office'."_s);
}

TEST_F(LocationsRefused, ACopyTheSystemWontMakeNamesTheService)
{
    const auto store = storeRefusing({u"SCNetworkServiceCreate"_s});
    EXPECT_EQ(sentenceOf([&] { (void)store->duplicateLocation(u"Office"_s, u"Copy"_s); }),
              u"Could not copy 'Wi-Fi' into the new Location."_s);
}

TEST_F(LocationsRefused, ACopyTheSystemWontAddNamesTheService)
{
    const auto store = storeRefusing({u"SCNetworkSetAddService"_s});
    EXPECT_EQ(sentenceOf([&] { (void)store->duplicateLocation(u"Office"_s, u"Copy"_s); }),
              u"Could not copy 'Wi-Fi' into the new Location."_s);
}

TEST_F(LocationsRefused, AdaptersThatTakeNoServiceAreLeftOutOfANewLocation)
{
    const auto store = storeRefusing({u"SCNetworkServiceCreate"_s});
    store->createLocation(u"Tour"_s, true);
    EXPECT_TRUE(store->services().isEmpty());
}

TEST_F(LocationsRefused, ARemovalTheSystemWontMake)
{
    const auto store = storeRefusing({u"SCNetworkSetRemove"_s});
    store->selectLocation(u"Rehearsal"_s);
    EXPECT_EQ(sentenceOf([&] { store->removeLocation(u"rehearsal"_s); }),
              u"Could not remove Location 'rehearsal'."_s);
    EXPECT_TRUE(store->selectedSetID());
}

TEST_F(LocationsRefused, ASwitchTheSystemWontMake)
{
    const auto store = storeRefusing({u"SCNetworkSetSetCurrent"_s});
    store->selectLocation(u"Office"_s);
    EXPECT_EQ(sentenceOf([&] { store->makeSelectedLocationCurrent(); }),
              u"Could not switch to that Location."_s);
}

} // namespace
