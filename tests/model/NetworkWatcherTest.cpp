#include "OrvaneApp/model/NetworkWatcher.h"

#include "OrvaneApp/model/AppModel.h"
#include "tests/model/ModelTestSupport.h"
#include "tests/support/CountingBackend.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

// Notes what the watcher asks of the dynamic store, and refuses the step it is told to.
class WatchedBackend : public CountingBackend
{
public:
    using CountingBackend::CountingBackend;

    DynamicStoreRef scDynamicStoreCreate(const QString &name,
                                         std::function<void()> changed) override
    {
        sessionName = name;
        notify = changed;
        return refuseCreate ? DynamicStoreRef()
                            : CountingBackend::scDynamicStoreCreate(name, std::move(changed));
    }
    bool scDynamicStoreSetNotificationKeys(const DynamicStoreRef &store, const QStringList &keys,
                                           const QStringList &patterns) override
    {
        subscribedKeys = keys;
        subscribedPatterns = patterns;
        return !refuseKeys
               && CountingBackend::scDynamicStoreSetNotificationKeys(store, keys, patterns);
    }
    bool scDynamicStoreAddToMainRunLoop(const DynamicStoreRef &store) override
    {
        return !refuseRunLoop && CountingBackend::scDynamicStoreAddToMainRunLoop(store);
    }

    bool refuseCreate = false;
    bool refuseKeys = false;
    bool refuseRunLoop = false;
    QString sessionName;
    /// What the platform calls for each notification.
    std::function<void()> notify;
    QStringList subscribedKeys;
    QStringList subscribedPatterns;
};

class Watcher : public ModelTest
{
protected:
    std::shared_ptr<WatchedBackend> backend() const
    {
        return std::make_shared<WatchedBackend>(platform->sharedBackend());
    }
};

TEST_F(Watcher, SubscribesToInterfacesLinksServicesAndTheSetup)
{
    const auto watched = backend();
    EXPECT_TRUE(NetworkWatcher::make(*watched, [] {}));
    EXPECT_EQ(watched->sessionName, u"Orvane-watch"_s);
    EXPECT_EQ(watched->subscribedKeys,
              (QStringList{u"State:/Network/Interface"_s, u"Setup:/Network/Global/IPv4"_s}));
    EXPECT_EQ(watched->subscribedPatterns,
              (QStringList{u"State:/Network/Interface/[^/]+/Link"_s,
                           u"State:/Network/Service/[^/]+/IPv4"_s, u"Setup:/Network/Service/.*"_s,
                           u"Setup:/Network/Interface/.*"_s}));
    EXPECT_EQ(watched->calls(u"scDynamicStoreAddToMainRunLoop"_s), 1);
}

TEST_F(Watcher, RefusedSessionGivesNoWatcher)
{
    const auto watched = backend();
    watched->refuseCreate = true;
    EXPECT_FALSE(NetworkWatcher::make(*watched, [] {}));
}

TEST_F(Watcher, RefusedSubscriptionGivesNoWatcher)
{
    const auto watched = backend();
    watched->refuseKeys = true;
    EXPECT_FALSE(NetworkWatcher::make(*watched, [] {}));
}

TEST_F(Watcher, RefusedRunLoopGivesNoWatcherAndTheModelGoesOn)
{
    const auto watched = backend();
    watched->refuseRunLoop = true;
    EXPECT_FALSE(NetworkWatcher::make(*watched, [] {}));
    AppModel model(Platform(watched), defaults, false, clock);
    model.startWatching();
    EXPECT_FALSE(model.isWatching());
    model.reload();
    EXPECT_EQ(model.loadError(), std::nullopt);
}

TEST_F(Watcher, NotificationQueuesTheDebounce)
{
    const auto watched = backend();
    AppModel model(Platform(watched), defaults, false, clock);
    model.startWatching();
    ASSERT_TRUE(watched->notify);
    watched->notify();
    // Queued, not called inside the platform's callback.
    EXPECT_FALSE(model.isRefreshPending());
    QCoreApplication::processEvents();
    EXPECT_TRUE(model.isRefreshPending());
}

TEST_F(Watcher, NotificationAfterTheModelIsGoneDoesNothing)
{
    const auto watched = backend();
    auto model = std::make_unique<AppModel>(Platform(watched), defaults, false, clock);
    model->startWatching();
    ASSERT_TRUE(watched->notify);
    const std::function<void()> notify = watched->notify;
    notify();
    model.reset();
    notify();
    QCoreApplication::processEvents();
    clock->advance(std::chrono::seconds(10));
    EXPECT_EQ(clock->pending(), 0);
    EXPECT_EQ(watched->calls(u"scPreferencesCreate"_s), 0);
}

} // namespace
