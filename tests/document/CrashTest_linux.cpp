// A commit that dies between writing its new document and renaming it into place.
#include "VLANKit/formats/AnyValue.h"
#include "VLANKit/formats/PropertyList.h"
#include "tests/document/DocumentTestSupport.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

bool isRename(unsigned long long call)
{
    return call == SYS_rename || call == SYS_renameat || call == SYS_renameat2;
}

/// Runs the child under ptrace until it enters its first rename, and leaves it stopped there.
bool stopAtFirstRename(pid_t child)
{
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        return false;
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    int pending = 0;
    for (;;) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, reinterpret_cast<void *>(intptr_t(pending)));
        pending = 0;
        if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
            return false;
        if (WSTOPSIG(status) != (SIGTRAP | 0x80)) {
            pending = WSTOPSIG(status);
            continue;
        }
        __ptrace_syscall_info info{};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, child, reinterpret_cast<void *>(sizeof info), &info);
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY && isRename(info.entry.nr))
            return true;
    }
}

class Crash : public DocumentTest
{
protected:
    void SetUp() override { openFixture(); }
};

TEST_F(Crash, ACrashBetweenWritingAndRenamingLeavesTheOldFileWhole)
{
    const QByteArray before = bytesOf(u"preferences.plist"_s);
    const SessionRef writer = writeSession();
    ASSERT_TRUE(
        backend->scNetworkSetSetName(backend->scNetworkSetCopyCurrent(writer), u"Never stored"_s));
    const pid_t child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        ::_exit(backend->scPreferencesCommitChanges(writer) ? 0 : 1);
    }
    const bool stopped = stopAtFirstRename(child);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ASSERT_TRUE(stopped) << "the commit never reached its rename";

    EXPECT_EQ(bytesOf(u"preferences.plist"_s), before);
    // The new document was written whole beside the old one, and never took its place.
    const QStringList left = QDir(folder).entryList({u"preferences.plist.new-*"_s}, QDir::Files);
    ASSERT_EQ(left.size(), 1);
    const auto written = parsePropertyList(bytesOf(left.first()));
    ASSERT_TRUE(written);
    EXPECT_TRUE(bytesOf(left.first()).contains("Never stored"));

    reopen();
    const SessionRef after = readSession();
    EXPECT_EQ(backend->scNetworkSetGetName(backend->scNetworkSetCopyCurrent(after)),
              u"KVRT Shows 2"_s);
    EXPECT_TRUE(backend->scPreferencesCommitChanges(writeSession()));
}

} // namespace
