#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/internet/InternetMemory.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/CountingBackend.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Reload : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
    }

    std::unique_ptr<AppModel> model;
};

TEST_F(Reload, ReadsTheShownLocationWhole)
{
    model->reload();
    EXPECT_EQ(model->loadError(), std::nullopt);
    EXPECT_FALSE(model->isReloading());
    EXPECT_EQ(model->selectedLocation(), u"Show"_s);
    EXPECT_EQ(model->locations().size(), 3);
    EXPECT_EQ(model->existing().size(), 12);
    EXPECT_EQ(model->serviceOrder().size(), 16);
    // Five adapter services, then every VLAN.
    EXPECT_EQ(model->rows().size(), 5 + 12);
    EXPECT_FALSE(model->rows().first()->source().isVLAN());
    EXPECT_TRUE(model->rows().last()->source().isVLAN());
    EXPECT_FALSE(model->live().ipv4.isEmpty());
    EXPECT_EQ(reads, 1);
}

TEST_F(Reload, SetsAndClearsIsReloading)
{
    QSignalSpy spy(model.get(), &AppModel::isReloadingChanged);
    model->reload();
    EXPECT_EQ(spy.count(), 2);
    EXPECT_FALSE(model->isReloading());
}

TEST_F(Reload, EmptyReadWithNothingShownIsTakenAtOnce)
{
    removeAllVLANs();
    model->reload();
    EXPECT_TRUE(model->existing().isEmpty());
    EXPECT_FALSE(model->isRetryPending());
    model->reload();
    EXPECT_TRUE(model->existing().isEmpty());
    EXPECT_FALSE(model->isRetryPending());
    EXPECT_EQ(reads, 2);
}

TEST_F(Reload, UnreadablePreferencesKeepRowsEditsTicksAndSelection)
{
    model->reload();
    const QList<AppModel::Row> rows = model->rows();
    const AppModel::Row row = vlanRow(*model, 1010);
    row->setName(u"Desk"_s);
    model->setSelectedIDs({row->source().id});
    const QSet<QString> ticks = model->internetServiceIDs();
    ASSERT_FALSE(ticks.isEmpty());

    temporary.write(u"machine/preferences.plist"_s, "this is no property list");
    QString sentence;
    try {
        VLANStore refused(another());
    } catch (const std::exception &failure) {
        sentence = localizedDescription(failure);
    }
    ASSERT_FALSE(sentence.isEmpty());

    model->reload();
    EXPECT_EQ(model->loadError(), sentence);
    EXPECT_FALSE(model->isReloading());
    EXPECT_EQ(model->rows(), rows);
    EXPECT_EQ(row->name(), u"Desk"_s);
    EXPECT_EQ(model->selectedIDs(), QSet<QString>{row->source().id});
    EXPECT_EQ(model->internetServiceIDs(), ticks);
    EXPECT_EQ(model->existing().size(), 12);
    EXPECT_FALSE(model->isRetryPending());
    EXPECT_FALSE(model->isRefreshPending());
}

TEST_F(Reload, CompleteReadClearsTheLoadError)
{
    const QByteArray good = preferencesBytes();
    temporary.write(u"machine/preferences.plist"_s, "this is no property list");
    model->reload();
    ASSERT_TRUE(model->loadError());
    temporary.write(u"machine/preferences.plist"_s, good);
    model->reload();
    EXPECT_EQ(model->loadError(), std::nullopt);
}

TEST_F(Reload, PinnedLocationThatDoesNotExistIsIgnored)
{
    model->setPinnedLocation(u"Nowhere"_s);
    model->reload();
    EXPECT_EQ(model->selectedLocation(), u"Show"_s);
}

TEST_F(Reload, PinnedLocationIsShown)
{
    model->setPinnedLocation(u"Rehearsal"_s);
    model->reload();
    EXPECT_EQ(model->selectedLocation(), u"Rehearsal"_s);
    EXPECT_EQ(model->serviceOrder().size(), 7);
}

TEST_F(Reload, EmptyAdapterChoiceTakesTheFirstPresentAdapter)
{
    model->reload();
    EXPECT_EQ(model->selectedAdapter(), AppModel::adapterToBuildOn(QString(), model->adapters()));
    EXPECT_FALSE(model->selectedAdapter().isEmpty());
}

TEST_F(Reload, AdapterThatWentAwayStaysSelected)
{
    model->setSelectedAdapter(u"en9"_s);
    model->reload();
    model->reload();
    EXPECT_EQ(model->selectedAdapter(), u"en9"_s);
}

TEST(AdapterToBuildOn, NoAdapterLeavesTheChoiceEmpty)
{
    EXPECT_EQ(AppModel::adapterToBuildOn(QString(), {}), QString());
}

TEST(AdapterToBuildOn, NonePresentChoosesTheFirst)
{
    const QList<AdapterRecord> adapters{{u"en5"_s, u"USB"_s, std::nullopt, false},
                                        {u"en6"_s, u"USB"_s, std::nullopt, false}};
    EXPECT_EQ(AppModel::adapterToBuildOn(QString(), adapters), u"en5"_s);
}

TEST(AdapterToBuildOn, FirstPresentIsChosen)
{
    const QList<AdapterRecord> adapters{{u"en5"_s, u"USB"_s, std::nullopt, false},
                                        {u"en6"_s, u"USB"_s, std::nullopt, true}};
    EXPECT_EQ(AppModel::adapterToBuildOn(QString(), adapters), u"en6"_s);
}

TEST(LocationToShow, NoLocationIsTheEmptyString)
{
    EXPECT_EQ(AppModel::locationToShow({}, u"Show"_s), QString());
}

TEST(LocationToShow, CurrentElseFirst)
{
    const QList<LocationRecord> locations{{u"A"_s, u"1"_s, false}, {u"B"_s, u"2"_s, true}};
    EXPECT_EQ(AppModel::locationToShow(locations, std::nullopt), u"B"_s);
    EXPECT_EQ(AppModel::locationToShow(locations.mid(0, 1), std::nullopt), u"A"_s);
    EXPECT_EQ(AppModel::locationToShow(locations, u"a"_s), u"B"_s);
}

TEST_F(Reload, AdapterNamesSeenAnswersForAnAdapterGoneFromTheList)
{
    model->reload();
    EXPECT_EQ(model->adapterNamesSeen().value(u"en5"_s), u"DONGLE"_s);
    model->setAdapters({});
    EXPECT_EQ(model->adapterNamesSeen().value(u"en5"_s), u"DONGLE"_s);
}

// Wi-Fi's interface reports "—" as its kernel name, and every name asked of the kernel is noted.
class DashForWiFi : public CountingBackend
{
public:
    using CountingBackend::CountingBackend;

    std::optional<QString> scNetworkInterfaceGetBSDName(const InterfaceRef &interface) override
    {
        const std::optional<QString> name =
            CountingBackend::scNetworkInterfaceGetBSDName(interface);
        return name == u"en1"_s ? notReported() : name;
    }
    std::uint32_t ifNameToIndex(const QString &bsdName) override
    {
        asked.append(bsdName);
        return CountingBackend::ifNameToIndex(bsdName);
    }

    QStringList asked;
};

TEST_F(Reload, DashAdapterRowIsNotAttachedAndTheKernelIsNotAsked)
{
    const auto backend = std::make_shared<DashForWiFi>(platform->sharedBackend());
    AppModel dashed(Platform(backend), defaults, false, clock);
    dashed.reload();
    const AppModel::Row row = adapterRow(dashed, u"Wi-Fi"_s);
    EXPECT_EQ(row->source().device, notReported());
    EXPECT_FALSE(row->source().attached);
    EXPECT_FALSE(backend->asked.isEmpty());
    EXPECT_FALSE(backend->asked.contains(notReported()));
}

TEST_F(Reload, TickedRowsThatDisappearFallOutOfTheSelection)
{
    model->reload();
    const QString kept = vlanRow(*model, 1010)->source().id;
    const QString gone = vlanRow(*model, 1012)->source().id;
    model->setSelectedIDs({kept, gone});
    changeElsewhere(
        [](VLANStore &store) { store.removeVLAN(1012, vlanTagged(store, 1012).bsdName); });
    model->reload();
    EXPECT_EQ(model->selectedIDs(), QSet<QString>{kept});
}

TEST_F(Reload, SecondIdenticalReloadRedrawsNothing)
{
    model->reload();
    const AppModel::Row kept = vlanRow(*model, 1010);
    kept->setName(u"Desk"_s);
    QSignalSpy live(model.get(), &AppModel::liveChanged);
    QSignalSpy width(model.get(), &AppModel::nameColumnWidthChanged);
    QSignalSpy row(kept.get(), &ServiceEdit::changed);
    QSignalSpy existing(model.get(), &AppModel::existingChanged);
    model->reload();
    EXPECT_EQ(vlanRow(*model, 1010), kept);
    EXPECT_EQ(live.count(), 0);
    EXPECT_EQ(width.count(), 0);
    EXPECT_EQ(row.count(), 0);
    EXPECT_EQ(existing.count(), 0);
}

TEST_F(Reload, RowEditsAreForwarded)
{
    model->reload();
    QSignalSpy edited(model.get(), &AppModel::rowEdited);
    vlanRow(*model, 1010)->setName(u"Desk"_s);
    EXPECT_EQ(edited.count(), 1);
}

TEST_F(Reload, OvertakenSwitchQuestionIsCleared)
{
    model->setSwitchingTo(u"Show"_s);
    model->reload();
    EXPECT_EQ(model->switchingTo(), std::nullopt);
    model->setSwitchingTo(u"Gone"_s);
    model->reload();
    EXPECT_EQ(model->switchingTo(), std::nullopt);
    model->setSwitchingTo(u"Office"_s);
    model->reload();
    EXPECT_EQ(model->switchingTo(), u"Office"_s);
}

TEST_F(Reload, RemembersTheTicksOfTheShownLocation)
{
    model->reload();
    EXPECT_TRUE(defaults.value(InternetMemory::marksKey(u"Show"_s)));
}

TEST_F(Reload, PictureRemembersNothing)
{
    const auto picture = makeModel(true);
    picture->reload();
    EXPECT_FALSE(picture->internetServiceIDs().isEmpty());
    EXPECT_FALSE(defaults.value(InternetMemory::marksKey(u"Show"_s)));
}

TEST_F(Reload, FramesOffersAndLiveAddressesReachTheRows)
{
    model->reload();
    const AppModel::Row row = vlanRow(*model, 1010);
    EXPECT_TRUE(row->offers());
    ASSERT_TRUE(row->holds());
    EXPECT_EQ(row->holds()->address, u"192.168.10.69"_s);
    EXPECT_TRUE(row->parentFrameRanges().contains(u"en6"_s));
    EXPECT_FALSE(vlanRow(*model, 1040)->offers());
}

} // namespace
