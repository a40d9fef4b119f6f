#include "VLANKit/files/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
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

    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        return fail(errno);
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
    if (::close(fd) != 0) {
        const int code = errno;
        ::unlink(temporary.constData());
        return fail(code);
    }
    if (::rename(temporary.constData(), target.constData()) != 0) {
        const int code = errno;
        ::unlink(temporary.constData());
        return fail(code);
    }
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
        if (name.size() == prefix.size() + temporaryRandomLength)
            (void)folder.remove(name);
    }
}

} // namespace VLANKit
