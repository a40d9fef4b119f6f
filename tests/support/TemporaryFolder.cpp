#include "tests/support/TemporaryFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

QString parentFolder(TemporaryFolder::Medium medium)
{
    const QString memory = QStringLiteral("/dev/shm");
    if (medium == TemporaryFolder::Medium::memory && QFileInfo(memory).isDir())
        return memory;
    return QDir::tempPath();
}

} // namespace

TemporaryFolder::TemporaryFolder(Medium medium)
    : m_dir(parentFolder(medium) + QStringLiteral("/orvane-test-XXXXXX"))
{}

QString TemporaryFolder::copyOf(const QString &repositoryFolder, const QString &name) const
{
    const QString source = repositoryPath(repositoryFolder);
    const QString target = filePath(name);
    QDir().mkpath(target);
    QDirIterator walk(source, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString from = walk.next();
        const QString to = target + QDir(source).relativeFilePath(from).prepend(u'/');
        if (QFileInfo(from).isDir())
            QDir().mkpath(to);
        else
            QFile::copy(from, to);
    }
    return target;
}

QString TemporaryFolder::write(const QString &name, const QByteArray &bytes) const
{
    const QString path = filePath(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

QString TemporaryFolder::repositoryPath(const QString &relative)
{
    return QStringLiteral(ORVANE_SOURCE_DIR "/") + relative;
}
