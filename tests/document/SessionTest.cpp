// Preferences sessions: snapshots, commits under the lock, the stale check, and files that
// can't be read.
#include "VLANKit/core/TextRules.h"
#include "VLANKit/formats/PropertyList.h"
#include "VLANKit/platform/PlatformConstants.h"
#include "tests/document/DocumentTestSupport.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

class Sessions : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }

    QString currentSetName(const SessionRef &session) const
    {
        return backend->scNetworkSetGetName(backend->scNetworkSetCopyCurrent(session))
            .value_or(u"?"_s);
    }
    void renameCurrentSet(const SessionRef &session, const QString &name) const
    {
        ASSERT_TRUE(backend->scNetworkSetSetName(backend->scNetworkSetCopyCurrent(session), name));
    }
};

TEST_F(Sessions, MissingPreferencesReadAsAnEmptyDocument)
{
    QFile::remove(path(u"preferences.plist"_s));
    const SessionRef session = readSession();
    ASSERT_TRUE(session);
    EXPECT_EQ(backend->scError(), kSCStatusNoConfigFile);
    EXPECT_TRUE(backend->scNetworkSetCopyAll(session)->isEmpty());
    EXPECT_FALSE(backend->scNetworkSetCopyCurrent(session));
    EXPECT_TRUE(backend->scVLANInterfaceCopyAll(session)->isEmpty());
}

TEST_F(Sessions, ACommitOverAMissingFileCreatesIt)
{
    QFile::remove(path(u"preferences.plist"_s));
    const SessionRef session = writeSession();
    ASSERT_TRUE(backend->scNetworkSetSetName(backend->scNetworkSetCreate(session), u"New"_s));
    ASSERT_TRUE(backend->scPreferencesCommitChanges(session));
    reopen();
    EXPECT_EQ(setNames(readSession()), QStringList{u"New"_s});
}

TEST_F(Sessions, UnparsablePreferencesAreRefusedWithASentenceNamingTheFile)
{
    const QByteArray damaged = "<?xml version=\"1.0\"?><plist><dict><key>Sets</key>";
    write(u"preferences.plist"_s, damaged);
    EXPECT_FALSE(readSession());
    EXPECT_FALSE(writeSession());
    const PlatformError error = backend->scCopyLastError();
    EXPECT_EQ(error.code, kSCStatusFailed);
    EXPECT_TRUE(
        error.description.contains(u"\u201c"_s + path(u"preferences.plist"_s) + u"\u201d"_s))
        << error.description.toStdString();
    EXPECT_TRUE(error.description.contains(u"can\u2019t be read"_s));
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), damaged);
}

TEST_F(Sessions, PreferencesWhoseTopIsNoDictionaryAreRefused)
{
    const QByteArray list = *xmlPropertyList(QVariantList{u"Sets"_s});
    write(u"preferences.plist"_s, list);
    EXPECT_FALSE(readSession());
    EXPECT_TRUE(backend->scCopyLastError().description.contains(u"preferences.plist"_s));
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), list);
}

TEST_F(Sessions, AStagedChangeIsInvisibleToANewSessionUntilCommitted)
{
    const SessionRef writer = writeSession();
    renameCurrentSet(writer, u"Renamed"_s);
    EXPECT_EQ(currentSetName(writer), u"Renamed"_s);
    const SessionRef before = readSession();
    EXPECT_EQ(currentSetName(before), u"KVRT Shows 2"_s);

    ASSERT_TRUE(backend->scPreferencesCommitChanges(writer));
    EXPECT_EQ(currentSetName(readSession()), u"Renamed"_s);
    // A snapshot is never refreshed.
    EXPECT_EQ(currentSetName(before), u"KVRT Shows 2"_s);
}

TEST_F(Sessions, DroppingASessionThrowsItsChangesAway)
{
    const QByteArray before = bytesOf(u"preferences.plist"_s);
    {
        const SessionRef writer = writeSession();
        renameCurrentSet(writer, u"Renamed"_s);
    }
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), before);
    EXPECT_EQ(currentSetName(readSession()), u"KVRT Shows 2"_s);
}

TEST_F(Sessions, ACommitOverAStaleSnapshotFailsWith3005AndLeavesTheFile)
{
    const SessionRef first = writeSession();
    const SessionRef second = writeSession();
    renameCurrentSet(first, u"First"_s);
    renameCurrentSet(second, u"Second"_s);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(first));
    const QByteArray committed = bytesOf(u"preferences.plist"_s);

    EXPECT_FALSE(backend->scPreferencesCommitChanges(second));
    EXPECT_EQ(backend->scError(), kSCStatusStale);
    EXPECT_EQ(backend->scErrorString(backend->scError()),
              u"Write attempted on stale version of object"_s);
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), committed);
    EXPECT_FALSE(QFileInfo::exists(path(u"preferences.plist-lock"_s)));
}

TEST_F(Sessions, AStaleCheckSeesACommitOfAnotherProcess)
{
    const SessionRef mine = writeSession();
    const auto other = another();
    const SessionRef theirs = writeSession(*other);
    ASSERT_TRUE(other->scNetworkSetSetName(other->scNetworkSetCopyCurrent(theirs), u"Theirs"_s));
    ASSERT_TRUE(other->scPreferencesCommitChanges(theirs));
    renameCurrentSet(mine, u"Mine"_s);
    EXPECT_FALSE(backend->scPreferencesCommitChanges(mine));
    EXPECT_EQ(backend->scError(), kSCStatusStale);
}

// Two programs commit one after the other; the first applies after the second committed. Its
// commit landed, and the second's document holds it: the apply follows the file as it stands,
// as the system's does, instead of failing a change that was stored.
TEST_F(Sessions, ApplyAfterAnotherCommitFollowsTheStoredFile)
{
    const SessionRef first = writeSession();
    renameCurrentSet(first, u"First"_s);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(first));
    const auto other = another();
    const SessionRef second = writeSession(*other);
    ASSERT_TRUE(other->scNetworkSetSetName(other->scNetworkSetCopyCurrent(second), u"Second"_s));
    ASSERT_TRUE(other->scPreferencesCommitChanges(second));
    EXPECT_TRUE(backend->scPreferencesApplyChanges(first));
    EXPECT_EQ(backend->scError(), kSCStatusOK);
    EXPECT_TRUE(other->scPreferencesApplyChanges(second));
}

TEST_F(Sessions, ASessionCommitsAgainAfterItsOwnCommit)
{
    const SessionRef writer = writeSession();
    renameCurrentSet(writer, u"Once"_s);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(writer));
    renameCurrentSet(writer, u"Twice"_s);
    EXPECT_TRUE(backend->scPreferencesCommitChanges(writer));
    EXPECT_EQ(currentSetName(readSession()), u"Twice"_s);
}

TEST_F(Sessions, ASessionWithoutTheRightCannotCommitOrApply)
{
    const QByteArray before = bytesOf(u"preferences.plist"_s);
    const SessionRef reader = readSession();
    renameCurrentSet(reader, u"Renamed"_s);
    EXPECT_FALSE(backend->scPreferencesCommitChanges(reader));
    EXPECT_EQ(backend->scError(), kSCStatusAccessError);
    EXPECT_EQ(backend->scErrorString(kSCStatusAccessError), u"Permission denied"_s);
    EXPECT_FALSE(backend->scPreferencesApplyChanges(reader));
    EXPECT_EQ(bytesOf(u"preferences.plist"_s), before);
}

TEST_F(Sessions, ACommitWritesTheSystemsXMLWithSortedKeysAndTabs)
{
    const SessionRef writer = writeSession();
    renameCurrentSet(writer, u"Renamed"_s);
    ASSERT_TRUE(backend->scPreferencesCommitChanges(writer));
    const QByteArray written = bytesOf(u"preferences.plist"_s);
    EXPECT_TRUE(written.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist"));
    EXPECT_TRUE(written.contains("\n\t<key>CurrentSet</key>\n"));
    EXPECT_LT(written.indexOf("<key>VirtualNetworkInterfaces</key>"),
              written.indexOf("<key>__VERSION__</key>"));
}

TEST_F(Sessions, AnUnknownSessionIsRefused)
{
    EXPECT_FALSE(backend->scPreferencesCommitChanges(SessionRef()));
    EXPECT_EQ(backend->scError(), kSCStatusNoPrefsSession);
    EXPECT_FALSE(backend->scNetworkSetCopyAll(another()->scPreferencesCreate(u"Orvane"_s)));
}

TEST_F(Sessions, ErrorStringsAreTheSystemsWords)
{
    EXPECT_EQ(backend->scErrorString(kSCStatusOK), u"Success!"_s);
    EXPECT_EQ(backend->scErrorString(kSCStatusFailed), u"Failed!"_s);
    EXPECT_EQ(backend->scErrorString(kSCStatusKeyExists), u"Key already defined"_s);
    EXPECT_EQ(backend->scErrorString(kSCStatusNoConfigFile), u"Configuration file not found"_s);
    EXPECT_EQ(backend->scErrorString(kSCStatusMaxLink), u"Maximum link count exceeded"_s);
}

/// Holds the preferences lock as another process would, until released.
class HeldLock
{
public:
    explicit HeldLock(const QString &path)
        : m_path(QFile::encodeName(path))
        , m_fd(::open(m_path.constData(), O_RDWR | O_CREAT, 0644))
    {
        EXPECT_EQ(::flock(m_fd, LOCK_EX), 0);
    }
    /// A forked child shares the lock through the descriptor it inherited: it lets go of it.
    void forget() { ::close(m_fd); }
    void release()
    {
        ::unlink(m_path.constData());
        ::close(m_fd);
    }

private:
    QByteArray m_path;
    int m_fd;
};

TEST_F(Sessions, ACommitWaitsForTheLockThatAnotherProcessHolds)
{
    HeldLock lock(path(u"preferences.plist-lock"_s));
    const SessionRef writer = writeSession();
    renameCurrentSet(writer, u"Waited"_s);
    const pid_t child = ::fork();
    if (child == 0) {
        lock.forget();
        ::_exit(backend->scPreferencesCommitChanges(writer) ? 0 : 1);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, WNOHANG), 0) << "the commit did not wait for the lock";
    EXPECT_EQ(currentSetName(readSession()), u"KVRT Shows 2"_s);

    lock.release();
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(currentSetName(readSession()), u"Waited"_s);
}

TEST_F(Sessions, TwoProcessesCommittingAtOnceLoseNoChange)
{
    constexpr int rounds = 25;
    const auto count = [](const auto &on) {
        for (int done = 0; done < rounds;) {
            const SessionRef session = writeSession(*on);
            const SetRef current = on->scNetworkSetCopyCurrent(session);
            const QString name = on->scNetworkSetGetName(current).value_or(QString());
            const qint64 counted = parseInteger(name.mid(6)).value_or(0);
            on->scNetworkSetSetName(current, u"Count %1"_s.arg(counted + 1));
            if (on->scPreferencesCommitChanges(session))
                ++done;
            else if (on->scError() != kSCStatusStale)
                return false;
        }
        return true;
    };
    pid_t children[2];
    for (pid_t &child : children) {
        child = ::fork();
        if (child == 0)
            ::_exit(count(another()) ? 0 : 1);
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    reopen();
    EXPECT_EQ(currentSetName(readSession()), u"Count %1"_s.arg(2 * rounds));
}

} // namespace
