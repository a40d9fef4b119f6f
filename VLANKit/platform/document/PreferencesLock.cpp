#include "VLANKit/platform/document/PreferencesLock.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VLANKit {

namespace {

std::function<void()> &waitingNotice()
{
    static std::function<void()> notice;
    return notice;
}

bool sameFile(int fd, const QByteArray &path)
{
    struct stat held
    {};
    struct stat named
    {};
    if (::fstat(fd, &held) != 0 || ::stat(path.constData(), &named) != 0)
        return false;
    return held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

// Takes the flock on `fd`, waiting as long as it takes. While another program holds it, asks
// again every few milliseconds for the first second, then says so once and waits in the kernel.
// Answers 0 or the errno of the failure.
int lockWaiting(int fd, bool &noticeGiven)
{
    const auto noticeAt = std::chrono::steady_clock::now()
                          + std::chrono::milliseconds(PreferencesLock::noticeAfterMilliseconds);
    while (!noticeGiven) {
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
            return 0;
        if (errno != EWOULDBLOCK && errno != EINTR)
            return errno;
        if (std::chrono::steady_clock::now() >= noticeAt) {
            noticeGiven = true;
            if (waitingNotice())
                waitingNotice()();
            break;
        }
        const timespec pause{0, 20 * 1000 * 1000};
        ::nanosleep(&pause, nullptr);
    }
    while (::flock(fd, LOCK_EX) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

} // namespace

void PreferencesLock::setWaitingNotice(std::function<void()> notice)
{
    waitingNotice() = std::move(notice);
}

bool PreferencesLock::acquire(const QString &lockPath, int *errorCode)
{
    release();
    const QByteArray path = QFile::encodeName(lockPath);
    bool noticeGiven = false;
    for (;;) {
        const int fd = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
        if (fd < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EROFS)
                return true;
            if (errorCode)
                *errorCode = errno;
            return false;
        }
        if (const int code = lockWaiting(fd, noticeGiven); code != 0) {
            if (errorCode)
                *errorCode = code;
            ::close(fd);
            return false;
        }
        // The holder before us deletes the file as it lets go: a lock on a deleted or replaced
        // file guards nothing, so take the one that stands at the path now.
        if (!sameFile(fd, path)) {
            ::close(fd);
            continue;
        }
        const QByteArray pid = QByteArray::number(static_cast<qint64>(::getpid())) + '\n';
        if (::ftruncate(fd, 0) == 0)
            (void)!::write(fd, pid.constData(), static_cast<size_t>(pid.size()));
        m_path = lockPath;
        m_fd = fd;
        return true;
    }
}

void PreferencesLock::release()
{
    if (m_fd < 0)
        return;
    ::unlink(QFile::encodeName(m_path).constData());
    ::close(m_fd);
    m_fd = -1;
    m_path.clear();
}

} // namespace VLANKit
