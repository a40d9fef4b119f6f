// The refresh loop: network events, the debounce, the retries of an empty read and the
// settling waits after a change.
#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/NetworkWatcher.h"

#include <QMetaObject>
#include <QPointer>

using namespace std::chrono_literals;

namespace {

// A burst of events gives one read, this long after its last event.
constexpr auto debounce = 600ms;
// An empty read after a non-empty one is read again this often, and once the retries spent
// exceed the budget the next read is believed whatever it says: what is on show stays for
// about 2 s.
constexpr auto retryInterval = 400ms;
constexpr int retryBudget = 4;
// What the system needs to settle after a change before it is read back.
constexpr auto settling = 700ms;

} // namespace

void AppModel::startWatching()
{
    if (m_watcher || m_isPicture)
        return;
    // The notification is queued with the model as its context: once the model is gone,
    // nothing runs.
    QPointer<AppModel> model(this);
    m_watcher = NetworkWatcher::make(m_platform.backend(), [model] {
        if (model)
            QMetaObject::invokeMethod(model, &AppModel::networkChanged, Qt::QueuedConnection);
    });
}

void AppModel::networkChanged()
{
    m_pendingRefresh->start(debounce);
}

void AppModel::scheduleRetry()
{
    // A retry is on its way: this read doesn't count.
    if (m_pendingRetry->isPending())
        return;
    if (m_emptyReadRetries > retryBudget) {
        m_emptyReadRetries = 0;
        reload(true);
        return;
    }
    ++m_emptyReadRetries;
    m_pendingRetry->start(retryInterval);
}

void AppModel::reloadAfterSettling(bool acceptEmpty)
{
    m_clock->after(settling, this, [this, acceptEmpty] {
        m_emptyReadRetries = 0;
        reload(acceptEmpty);
    });
}
