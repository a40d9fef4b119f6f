// Input that must give one sentence and status 1, never a crash, a hang or a write.
#include "tests/cli/CliTestSupport.h"

#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

using BadInput = CliTest;

TEST_F(BadInput, NulInsideAServiceNameGivesStatusOneAndWritesNothing)
{
    QByteArray bytes = bytesOf(folder + u"/preferences.plist"_s);
    const qsizetype at = bytes.indexOf("<key>UserDefinedName</key>");
    ASSERT_GE(at, 0);
    const qsizetype text = bytes.indexOf("<string>", at) + 8;
    bytes.insert(text + 2, '\0');
    QFile file(folder + u"/preferences.plist"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
    file.close();
    const auto before = machineFiles();
    for (const QStringList &command :
         {QStringList{u"list"_s}, QStringList{u"order"_s, u"--fix"_s, u"--yes"_s}}) {
        const CliRun run = orvanectl(command);
        EXPECT_EQ(run.status, 1) << command.join(u' ').toStdString();
        EXPECT_TRUE(run.lastErrorLine().endsWith(
            u"preferences.plist\u201d can\u2019t be read: it holds a NUL character inside a "
            "text. The file was left as it is."_s))
            << run.err.toStdString();
        EXPECT_EQ(machineFiles(), before);
    }
}

// Opening a pipe for reading would wait for a writer for ever.
TEST_F(BadInput, AProjectThatIsAPipeIsRefusedAtOnce)
{
    const QString pipe = temporary.filePath(u"show.json"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const auto before = machineFiles();
    const QString sentence =
        u"\u201cshow.json\u201d can\u2019t be read: it is a pipe, not a file."_s;
    for (const QStringList &command :
         {QStringList{u"plan"_s, pipe, u"--on"_s, u"en5"_s},
          QStringList{u"apply"_s, pipe, u"--on"_s, u"en5"_s, u"--yes"_s}}) {
        const CliRun run = orvanectl(command);
        EXPECT_EQ(run.status, 1) << command.join(u' ').toStdString();
        EXPECT_EQ(run.lastErrorLine(), sentence) << run.err.toStdString();
    }
    // A capture keeps the claims of the project it replaces: it reads the pipe first, and
    // refuses to write over what holds no project.
    const CliRun capture = orvanectl({u"capture"_s, pipe});
    EXPECT_EQ(capture.status, 1);
    EXPECT_EQ(capture.lastErrorLine(),
              u"Nothing was written: \u201cshow.json\u201d is there already and holds no project "
              "that can be read, so name another file."_s);
    struct stat info
    {};
    ASSERT_EQ(::stat(QFile::encodeName(pipe).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(machineFiles(), before);
}

TEST_F(BadInput, AProjectThatIsADeviceOrAFolderIsRefused)
{
    const CliRun device = orvanectl({u"plan"_s, u"/dev/zero"_s, u"--on"_s, u"en5"_s});
    EXPECT_EQ(device.status, 1);
    EXPECT_EQ(device.lastErrorLine(),
              u"\u201czero\u201d can\u2019t be read: it is a device, not a file."_s);
    const CliRun folderRun = orvanectl({u"plan"_s, temporary.path(), u"--on"_s, u"en5"_s});
    EXPECT_EQ(folderRun.status, 1);
    EXPECT_TRUE(
        folderRun.lastErrorLine().endsWith(u"can\u2019t be read: it is a folder, not a file."_s))
        << folderRun.err.toStdString();
}

} // namespace
