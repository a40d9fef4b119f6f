#include "VLANKit/files/AtomicFile.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(AtomicFile, WritesANewFile)
{
    TemporaryFolder folder;
    const QString path = folder.filePath(u"a.json"_s);
    ASSERT_TRUE(writeFileAtomically(path, "hello"));
    EXPECT_EQ(contents(path), "hello");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"a.json"_s});
}

TEST(AtomicFile, ReplacesAndKeepsTheMode)
{
    TemporaryFolder folder;
    const QString path = folder.write(u"a.json"_s, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0600), 0);
    ASSERT_TRUE(writeFileAtomically(path, "new"));
    EXPECT_EQ(contents(path), "new");
    struct stat info
    {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST(AtomicFile, MissingFolderFailsWithTheSystemsWords)
{
    TemporaryFolder folder;
    QString error;
    EXPECT_FALSE(writeFileAtomically(folder.filePath(u"no/such/a.json"_s), "x", &error));
    EXPECT_FALSE(error.isEmpty());
}

// A write cut short by the file-size limit (as a full disk would cut it) leaves the old file
// byte for byte, and no temporary file beside it.
TEST(AtomicFile, FailedWriteLeavesTheOldFileWhole)
{
    TemporaryFolder folder;
    const QByteArray old(4096, 'o');
    const QString path = folder.write(u"show.json"_s, old);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{8192, 8192};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const bool written = writeFileAtomically(path, QByteArray(1 << 20, 'n'));
        ::_exit(written ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the write should have failed";
    EXPECT_EQ(contents(path), old);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"show.json"_s});
}

} // namespace
