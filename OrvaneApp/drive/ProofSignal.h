#pragma once

#include <QObject>

/// SIGUSR1, the drive proof's call to work. On Linux it is blocked for the whole process
/// before any thread starts and read by the proof alone; signals sent while one is pending
/// merge into one, on every system.
namespace ProofSignal {

/// Blocks the signal on the calling thread, and so on every thread started after it.
void block();
/// Lets the signal act as usual again on the calling thread (the window's and the render's
/// lives).
void unblock();

} // namespace ProofSignal

/// Tells the main loop of each arrival of the signal (or of several merged), for as long as it
/// lives. Holds its own descriptor or source.
class ProofSignalSource : public QObject
{
    Q_OBJECT
public:
    explicit ProofSignalSource(QObject *parent = nullptr);
    ~ProofSignalSource() override;
    ProofSignalSource(const ProofSignalSource &) = delete;
    ProofSignalSource &operator=(const ProofSignalSource &) = delete;

    /// False when the system refused the source: the signal then can't be received.
    [[nodiscard]] bool isReady() const;
    /// While disabled, arrivals wait; they are told once enabled again.
    void setEnabled(bool enabled);

Q_SIGNALS:
    void arrived();

private:
    struct Handle;
    Handle *m_handle = nullptr;
};
