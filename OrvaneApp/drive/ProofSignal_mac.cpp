#include "OrvaneApp/drive/ProofSignal.h"

#include <QMetaObject>

#include <dispatch/dispatch.h>
#include <signal.h>

// On macOS the signal is ignored by default disposition and seen by a dispatch source on the
// main queue, which kqueue tells of even while ignored; the mask is left alone.
namespace ProofSignal {

void block() {}

void unblock() {}

} // namespace ProofSignal

struct ProofSignalSource::Handle
{
    dispatch_source_t source = nullptr;
    bool enabled = true;
};

namespace {

void tell(void *context)
{
    QMetaObject::invokeMethod(static_cast<ProofSignalSource *>(context), "arrived",
                              Qt::DirectConnection);
}

} // namespace

ProofSignalSource::ProofSignalSource(QObject *parent)
    : QObject(parent)
    , m_handle(new Handle)
{
    signal(SIGUSR1, SIG_IGN);
    m_handle->source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_SIGNAL, SIGUSR1, 0, dispatch_get_main_queue());
    if (m_handle->source == nullptr)
        return;
    dispatch_set_context(m_handle->source, this);
    dispatch_source_set_event_handler_f(m_handle->source, tell);
    dispatch_resume(m_handle->source);
}

ProofSignalSource::~ProofSignalSource()
{
    if (m_handle->source != nullptr) {
        if (!m_handle->enabled)
            dispatch_resume(m_handle->source);
        dispatch_source_cancel(m_handle->source);
        dispatch_release(m_handle->source);
    }
    delete m_handle;
}

bool ProofSignalSource::isReady() const
{
    return m_handle->source != nullptr;
}

void ProofSignalSource::setEnabled(bool enabled)
{
    if (m_handle->source == nullptr || enabled == m_handle->enabled)
        return;
    m_handle->enabled = enabled;
    if (enabled)
        dispatch_resume(m_handle->source);
    else
        dispatch_suspend(m_handle->source);
}
