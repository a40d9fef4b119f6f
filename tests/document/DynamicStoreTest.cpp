// The source of network events: the folder's files, watched on the main loop.
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

const QStringList watcherKeys{u"State:/Network/Interface"_s, u"Setup:/Network/Global/IPv4"_s};
const QStringList watcherPatterns{u"State:/Network/Interface/[^/]+/Link"_s,
                                  u"State:/Network/Service/[^/]+/IPv4"_s,
                                  u"Setup:/Network/Service/.*"_s, u"Setup:/Network/Interface/.*"_s};

class Events : public DocumentTest
{
protected:
    void SetUp() override { openCopyOf(u"examples/show-mac"_s); }

    /// A watch as the application sets one up, counting its notifications.
    DynamicStoreRef watch(const QStringList &keys, const QStringList &patterns)
    {
        const DynamicStoreRef store =
            backend->scDynamicStoreCreate(u"Orvane-watch"_s, [this] { ++heard; });
        EXPECT_TRUE(store);
        EXPECT_TRUE(backend->scDynamicStoreSetNotificationKeys(store, keys, patterns));
        EXPECT_TRUE(backend->scDynamicStoreAddToMainRunLoop(store));
        return store;
    }
    /// A change made by another process: a new name for the Show, committed and maybe applied.
    void changeElsewhere(bool apply)
    {
        const auto other = another();
        const SessionRef session = writeSession(*other);
        ASSERT_TRUE(other->scNetworkSetSetName(other->scNetworkSetCopyCurrent(session),
                                               u"Show %1"_s.arg(++changes)));
        ASSERT_TRUE(other->scPreferencesCommitChanges(session));
        if (apply) {
            ASSERT_TRUE(other->scPreferencesApplyChanges(session));
        }
    }

    int heard = 0;
    int changes = 0;
};

TEST_F(Events, AWatchHearsACommitOfAnotherProcess)
{
    const DynamicStoreRef store = watch(watcherKeys, watcherPatterns);
    changeElsewhere(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return heard > 0; }, 5000));
}

TEST_F(Events, AWatchHearsAnApply)
{
    const DynamicStoreRef store = watch({}, {u"State:/Network/Service/[^/]+/IPv4"_s});
    changeElsewhere(true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return heard > 0; }, 5000));
    const int afterApply = heard;
    changeElsewhere(false);
    QTest::qWait(300);
    EXPECT_EQ(heard, afterApply) << "a commit alone changes no live state";
}

TEST_F(Events, AWatchThatAsksForNothingHearsNothing)
{
    const DynamicStoreRef store = watch({}, {});
    changeElsewhere(true);
    QTest::qWait(300);
    EXPECT_EQ(heard, 0);
}

TEST_F(Events, AWatchEndsWithItsLastHandle)
{
    {
        const DynamicStoreRef store = watch(watcherKeys, watcherPatterns);
    }
    changeElsewhere(true);
    QTest::qWait(300);
    EXPECT_EQ(heard, 0);
}

TEST_F(Events, AWatchOverAFolderThatIsGoneCannotStart)
{
    const DynamicStoreRef store = backend->scDynamicStoreCreate(u"Orvane-watch"_s, [] {});
    ASSERT_TRUE(backend->scDynamicStoreSetNotificationKeys(store, watcherKeys, watcherPatterns));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_FALSE(backend->scDynamicStoreAddToMainRunLoop(store));
    EXPECT_FALSE(backend->scDynamicStoreAddToMainRunLoop(DynamicStoreRef()));
    EXPECT_FALSE(backend->scDynamicStoreSetNotificationKeys(DynamicStoreRef(), {}, {}));
}

} // namespace
