#pragma once

#include <QString>

#include <functional>

namespace VLANKit {

/// The exclusive lock on "<preferences>-lock" that commit and apply hold, as the system's own
/// sessions do: a flock that waits, taken again when the lock file was replaced meanwhile, with
/// the holder's process number written into it. Letting go deletes the lock file, then releases
/// the lock; a waiter that wakes on the deleted file sees that and takes the new one.
class PreferencesLock
{
public:
    /// Waits for the lock on `lockPath`. On a read-only file system it goes ahead without one, as
    /// the system does. False with the errno in `errorCode` when the lock file can't be had.
    [[nodiscard]] bool acquire(const QString &lockPath, int *errorCode);
    void release();

    /// How long `acquire` waits for another holder before it calls the waiting notice.
    static constexpr int noticeAfterMilliseconds = 1000;
    /// What the process does, once per `acquire`, when another program has held the lock for
    /// `noticeAfterMilliseconds`: a command line says that it waits. None by default.
    static void setWaitingNotice(std::function<void()> notice);

    PreferencesLock() = default;
    PreferencesLock(const PreferencesLock &) = delete;
    PreferencesLock &operator=(const PreferencesLock &) = delete;
    ~PreferencesLock() { release(); }

private:
    QString m_path;
    int m_fd = -1;
};

} // namespace VLANKit
