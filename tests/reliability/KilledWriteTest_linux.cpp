// A process that saves a project file, or changes the defaults file, in a loop, killed with
// SIGKILL at a moment chosen by counting its system calls, a thousand times each: the file is
// always the old version or the new one, whole, and no temporary file outlives the next write.
#include "VLANKit/core/TextRules.h"
#include "VLANKit/files/Defaults.h"
#include "VLANKit/project/ProfileIO.h"
#include "tests/support/KilledChild_linux.h"
#include "tests/support/TemporaryFolder.h"

#include <QDir>
#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int kills = 1000;
constexpr int writesPerChild = 4;
// Long enough that a write takes several calls, as a real project's does.
constexpr int entriesPerProject = 200;

class KilledWrite : public ::testing::Test
{
protected:
    QStringList temporaries() const
    {
        return QDir(temporary.path()).entryList({u"*.new-*"_s}, QDir::Files | QDir::Hidden);
    }

    /// Kills a child running `write` (which makes the next version of the file) a thousand
    /// times; after each kill `check` must find a whole version, the parent's own next write
    /// must leave no temporary file, and the versions must only move forward.
    void killWhileWriting(const std::function<void()> &write, const std::function<int()> &check)
    {
        const auto work = [&] {
            for (int i = 0; i < writesPerChild; ++i)
                write();
        };
        const int span = killAtSyscall(work, std::numeric_limits<int>::max()).syscalls;
        ASSERT_GT(span, 20);
        QRandomGenerator random(20261125);
        int killed = 0;
        int killedMidWrite = 0;
        int version = check();
        for (int round = 0; killed < kills && round < 2 * kills; ++round) {
            killed += killAtSyscall(work, random.bounded(1, span)).killed ? 1 : 0;
            killedMidWrite += temporaries().isEmpty() ? 0 : 1;
            const int now = check();
            ASSERT_GE(now, version) << "round " << round;
            write();
            ASSERT_TRUE(temporaries().isEmpty()) << "round " << round;
            version = check();
            ASSERT_EQ(version, now + 1) << "round " << round;
        }
        EXPECT_EQ(killed, kills);
        EXPECT_GT(killedMidWrite, kills / 100);
        RecordProperty("kills", killed);
        RecordProperty("killsDuringAWrite", killedMidWrite);
        std::printf("%d kills, %d during a write, %d versions\n", killed, killedMidWrite, version);
    }

    TemporaryFolder temporary{TemporaryFolder::Medium::memory};
};

Profile projectOfVersion(int version)
{
    Profile profile;
    profile.name = u"Version "_s + QString::number(version);
    for (int tag = 1; tag <= entriesPerProject; ++tag)
        profile.entries.append({tag, u"v"_s + QString::number(version), IPConfig::dhcp(), true});
    return profile;
}

TEST_F(KilledWrite, AKilledSaveOfAProjectLeavesOneWholeVersion)
{
    const QString path = temporary.filePath(u"show.json"_s);
    ProfileIO::write(projectOfVersion(0), path);
    const auto versionOf = [&] {
        const Profile read = ProfileIO::read(path);
        const int version = static_cast<int>(
            parseInteger(read.name.mid(QStringLiteral("Version ").size())).value_or(-1));
        EXPECT_EQ(read, projectOfVersion(version));
        return version;
    };
    killWhileWriting([&] { ProfileIO::write(projectOfVersion(versionOf() + 1), path); }, versionOf);
}

TEST_F(KilledWrite, AKilledChangeOfTheDefaultsLeavesOneWholeVersion)
{
    const QString path = temporary.filePath(u"defaults.plist"_s);
    const QString key = u"Orvane.version"_s;
    const auto versionOf = [&] {
        const Defaults defaults = Defaults::inFile(path);
        const std::optional<QStringList> marks = defaults.stringList(key);
        if (!marks)
            return 0;
        // Every element of one version carries that version: a mix would be half a write.
        for (const QString &mark : *marks)
            EXPECT_EQ(mark, marks->first());
        EXPECT_EQ(marks->size(), entriesPerProject);
        return static_cast<int>(parseInteger(marks->first()).value_or(-1));
    };
    killWhileWriting(
        [&] {
            Defaults defaults = Defaults::inFile(path);
            defaults.setStringList(
                key, QStringList(entriesPerProject, QString::number(versionOf() + 1)));
        },
        versionOf);
}

} // namespace
