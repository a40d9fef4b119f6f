#include "OrvaneApp/drive/ProofSignal.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

sigset_t onlyTheProofSignal()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGUSR1);
    return set;
}

} // namespace

namespace ProofSignal {

void block()
{
    const sigset_t set = onlyTheProofSignal();
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

void unblock()
{
    const sigset_t set = onlyTheProofSignal();
    pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace ProofSignal

struct ProofSignalSource::Handle
{
    int descriptor = -1;
    QSocketNotifier *notifier = nullptr;
};

ProofSignalSource::ProofSignalSource(QObject *parent)
    : QObject(parent)
    , m_handle(new Handle)
{
    // The signal stays blocked: a blocked signal waits for the descriptor, where an ignored
    // one would be dropped when sent.
    ProofSignal::block();
    const sigset_t set = onlyTheProofSignal();
    m_handle->descriptor = signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (m_handle->descriptor < 0)
        return;
    m_handle->notifier = new QSocketNotifier(m_handle->descriptor, QSocketNotifier::Read, this);
    connect(m_handle->notifier, &QSocketNotifier::activated, this, [this] {
        // Everything pending is taken at once, so signals that came together count as one.
        signalfd_siginfo info;
        while (read(m_handle->descriptor, &info, sizeof info) == ssize_t(sizeof info)) {
        }
        Q_EMIT arrived();
    });
}

ProofSignalSource::~ProofSignalSource()
{
    delete m_handle->notifier;
    if (m_handle->descriptor >= 0)
        close(m_handle->descriptor);
    delete m_handle;
}

bool ProofSignalSource::isReady() const
{
    return m_handle->notifier != nullptr;
}

void ProofSignalSource::setEnabled(bool enabled)
{
    if (m_handle->notifier != nullptr)
        m_handle->notifier->setEnabled(enabled);
}
