#include "VLANKit/files/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VLANKit {

namespace {

// The name a temporary file takes beside its target: mkstemp fills in the six characters.
const QString temporarySuffix = QStringLiteral(".new-");
constexpr qsizetype temporaryRandomLength = 6;

struct Failure
{
    QString *text;
    int *code;

    bool operator()(int errorNumber) const
    {
        if (text)
            *text = QString::fromLocal8Bit(std::strerror(errorNumber));
        if (code)
            *code = errorNumber;
        return false;
    }
};

bool writeAll(int fd, const QByteArray &bytes)
{
    const char *data = bytes.constData();
    qsizetype left = bytes.size();
    while (left > 0) {
        const ssize_t written = ::write(fd, data, static_cast<size_t>(left));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += written;
        left -= written;
    }
    return true;
}

// A new temporary file, locked for as long as it is written: the lock tells a live write from
// what a killed one left. A cleaner may take the file in the moment before the lock; then it
// is made anew.
int lockedTemporary(QByteArray &name)
{
    const QByteArray pattern = name;
    for (int attempt = 0; attempt < 8; ++attempt) {
        name = pattern;
        const int fd = ::mkstemp(name.data());
        if (fd < 0)
            return -1;
        struct stat made
        {};
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0 && ::fstat(fd, &made) == 0 && made.st_nlink > 0)
            return fd;
        ::close(fd);
    }
    errno = EAGAIN;
    return -1;
}

} // namespace

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *errorText,
                         int *errorCode)
{
    const Failure fail{errorText, errorCode};
    const QByteArray target = QFile::encodeName(path);
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray folder = slash < 0    ? QByteArray(".")
                              : slash == 0 ? QByteArray("/")
                                           : target.left(slash);
    QByteArray temporary =
        target + QFile::encodeName(temporarySuffix) + QByteArray(temporaryRandomLength, 'X');

    struct stat existing
    {};
    const bool hadFile = ::stat(target.constData(), &existing) == 0;

    const int fd = lockedTemporary(temporary);
    if (fd < 0)
        return fail(errno);
    // What killed writers left behind goes now; this write's own file is locked, and stays.
    removeLeftoverTemporaries(path);
    const auto abandon = [&](int code) {
        ::close(fd);
        ::unlink(temporary.constData());
        return fail(code);
    };
    // An existing file keeps its mode; a new one is readable by everybody, as the system's.
    if (::fchmod(fd, hadFile ? (existing.st_mode & 07777) : 0644) != 0)
        return abandon(errno);
    if (!writeAll(fd, bytes))
        return abandon(errno);
    if (const int code = flushToDisk(fd); code != 0)
        return abandon(code);
    // A second descriptor keeps the lock on the temporary file until it has its final name.
    const int lockFd = ::dup(fd);
    if (::close(fd) != 0) {
        const int code = errno;
        ::unlink(temporary.constData());
        ::close(lockFd);
        return fail(code);
    }
    if (::rename(temporary.constData(), target.constData()) != 0) {
        const int code = errno;
        ::unlink(temporary.constData());
        ::close(lockFd);
        return fail(code);
    }
    ::close(lockFd);
    // The rename itself lives in the folder: flush it too, or a crash may bring back the old name.
    const int folderFd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folderFd >= 0) {
        (void)::fsync(folderFd);
        ::close(folderFd);
    }
    return true;
}

void removeLeftoverTemporaries(const QString &path)
{
    const QFileInfo target(path);
    const QString prefix = target.fileName() + temporarySuffix;
    QDir folder = target.absoluteDir();
    const QStringList names =
        folder.entryList({prefix + u'*'}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        if (name.size() != prefix.size() + temporaryRandomLength)
            continue;
        // A file whose lock can be had has no writer any more.
        const QByteArray leftover = QFile::encodeName(folder.filePath(name));
        const int fd = ::open(leftover.constData(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            continue;
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
            (void)::unlink(leftover.constData());
        ::close(fd);
    }
}

} // namespace VLANKit
