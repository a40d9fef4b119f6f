#include "VLANKit/platform/document/PreferencesLock.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VLANKit {

namespace {

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

} // namespace

bool PreferencesLock::acquire(const QString &lockPath, int *errorCode)
{
    release();
    const QByteArray path = QFile::encodeName(lockPath);
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
        int locked = 0;
        do {
            locked = ::flock(fd, LOCK_EX);
        } while (locked != 0 && errno == EINTR);
        if (locked != 0) {
            if (errorCode)
                *errorCode = errno;
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
