#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/model/ModelTestSupport.h"

#include <QCoreApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace VLANKit;

namespace {

class RefreshLoop : public ModelTest
{
protected:
    void SetUp() override
    {
        ModelTest::SetUp();
        model = makeModel();
        model->reload();
        ASSERT_EQ(model->existing().size(), 12);
        reads = 0;
    }

    std::unique_ptr<AppModel> model;
};

TEST_F(RefreshLoop, BurstGivesOneReadAfterItsLastEvent)
{
    model->networkChanged();
    clock->advance(300ms);
    model->networkChanged();
    clock->advance(500ms);
    model->networkChanged();
    clock->advance(599ms);
    EXPECT_EQ(reads, 0);
    clock->advance(1ms);
    EXPECT_EQ(reads, 1);
    clock->advance(5s);
    EXPECT_EQ(reads, 1);
}

TEST_F(RefreshLoop, SixEmptyReadsThenASeventhAtOnceIsBelieved)
{
    removeAllVLANs();
    model->networkChanged();
    clock->advance(600ms);
    EXPECT_EQ(reads, 1);
    EXPECT_TRUE(model->isRetryPending());
    // Read at 0.6, 1.0, 1.4, 1.8 and 2.2 s: the sixth, at 2.6 s, is the last distrusted.
    clock->advance(1999ms);
    EXPECT_EQ(reads, 5);
    EXPECT_EQ(model->existing().size(), 12);
    clock->advance(1ms);
    EXPECT_EQ(reads, 7);
    EXPECT_TRUE(model->existing().isEmpty());
    EXPECT_EQ(model->rows().size(), 5);
    EXPECT_FALSE(model->isRetryPending());
    EXPECT_EQ(model->emptyReadRetries(), 0);
    EXPECT_FALSE(model->isReloading());
}

TEST_F(RefreshLoop, EmptyReadLeavesTheLoadErrorAndTheRowsAlone)
{
    const QList<AppModel::Row> rows = model->rows();
    removeAllVLANs();
    model->reload();
    EXPECT_EQ(model->rows(), rows);
    EXPECT_EQ(model->loadError(), std::nullopt);
    EXPECT_FALSE(model->isReloading());
}

TEST_F(RefreshLoop, NonEmptyReadEndsTheRunOfRetries)
{
    changeElsewhere(
        [](VLANStore &store) { store.removeVLAN(1010, vlanTagged(store, 1010).bsdName); });
    const QByteArray fewer = preferencesBytes();
    removeAllVLANs();
    model->reload();
    clock->advance(400ms);
    EXPECT_EQ(model->emptyReadRetries(), 2);
    temporary.write(u"machine/preferences.plist"_s, fewer);
    clock->advance(400ms);
    EXPECT_EQ(model->existing().size(), 11);
    EXPECT_EQ(model->emptyReadRetries(), 0);
    EXPECT_FALSE(model->isRetryPending());
}

TEST_F(RefreshLoop, EventDuringARetryStartsItsOwnDebounceAndTheCountDoesNotRise)
{
    removeAllVLANs();
    model->reload();
    EXPECT_EQ(model->emptyReadRetries(), 1);
    clock->advance(100ms);
    model->networkChanged();
    clock->advance(300ms);
    EXPECT_EQ(reads, 2);
    EXPECT_EQ(model->emptyReadRetries(), 2);
    clock->advance(300ms);
    // The debounced read at 0.7 s came back empty while the retry of 0.8 s was on its way.
    EXPECT_EQ(reads, 3);
    EXPECT_EQ(model->emptyReadRetries(), 2);
    EXPECT_TRUE(model->isRetryPending());
    clock->advance(100ms);
    EXPECT_EQ(reads, 4);
    EXPECT_EQ(model->emptyReadRetries(), 3);
}

TEST_F(RefreshLoop, TwoSettlingWaitsReadWithTheirOwnFlags)
{
    removeAllVLANs();
    model->reloadAfterSettling(false);
    clock->advance(100ms);
    model->reloadAfterSettling(true);
    clock->advance(599ms);
    EXPECT_EQ(reads, 0);
    clock->advance(1ms);
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(model->existing().size(), 12);
    EXPECT_TRUE(model->isRetryPending());
    clock->advance(100ms);
    EXPECT_EQ(reads, 2);
    EXPECT_TRUE(model->existing().isEmpty());
    EXPECT_FALSE(model->isRetryPending());
}

TEST_F(RefreshLoop, NothingFiresOnceTheModelIsGone)
{
    model->startWatching();
    model->networkChanged();
    model->reloadAfterSettling(false);
    removeAllVLANs();
    model.reset();
    QCoreApplication::processEvents();
    clock->advance(10s);
    EXPECT_EQ(reads, 0);
}

TEST_F(RefreshLoop, WatchingSubscribesOnce)
{
    model->startWatching();
    EXPECT_TRUE(model->isWatching());
    model->startWatching();
    EXPECT_TRUE(model->isWatching());
}

TEST_F(RefreshLoop, PictureDoesNotWatch)
{
    const auto picture = makeModel(true);
    picture->startWatching();
    EXPECT_FALSE(picture->isWatching());
}

TEST_F(RefreshLoop, CommitElsewhereStartsTheDebounce)
{
    model->startWatching();
    ASSERT_TRUE(model->isWatching());
    QSignalSpy started(clock.get(), &ManualClock::waitStarted);
    changeElsewhere(
        [](VLANStore &store) { store.removeVLAN(1010, vlanTagged(store, 1010).bsdName); });
    ASSERT_TRUE(started.wait(10000));
    EXPECT_TRUE(model->isRefreshPending());
    EXPECT_EQ(reads, 0);
    clock->advance(600ms);
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(model->existing().size(), 11);
}

} // namespace
