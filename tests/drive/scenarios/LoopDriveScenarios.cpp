// The program copied onto an ext2 image on a loop device, pulled with a lazy unmount.
#include "tests/drive/scenarios/Scenario.h"

#include <cerrno>
#include <csignal>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace Scenario {

namespace {

std::string mke2fs()
{
    for (const char *candidate : {"/usr/sbin/mke2fs", "/sbin/mke2fs", "/usr/bin/mke2fs"}) {
        if (access(candidate, X_OK) == 0)
            return candidate;
    }
    return {};
}

/// Puts a copy of the program on an ext2 image on a loop device, mounted in the stage;
/// answers its path, or empty with the reason on standard error.
std::string programOnLoopDrive(const Stage &stage, int &refusal)
{
    refusal = 0;
    if (access("/dev/loop-control", F_OK) != 0) {
        refusal = skip("no loop devices on this machine");
        return {};
    }
    const std::string format = mke2fs();
    if (format.empty()) {
        errno = ENOENT;
        refusal = skip("no mke2fs (e2fsprogs)");
        return {};
    }
    const fs::path image = stage.place / "drive.img";
    const fs::path drive = stage.place / "drive";
    fs::create_directories(drive);
    std::ofstream(image.string()).close();
    fs::resize_file(image, fs::file_size(stage.orvane) + 32 * 1024 * 1024);
    ScenarioChild formatting({format, "-q", "-F", "-t", "ext2", image.string()});
    fact("formatted", formatting.waitForEnd());
    ScenarioChild mounting({"/bin/mount", "-o", "loop", image.string(), drive.string()});
    if (mounting.waitForEnd() != "exit 0") {
        errno = EPERM;
        refusal = skip("mounting an image on a loop device");
        return {};
    }
    const fs::path program = drive / "orvane";
    fs::copy_file(stage.orvane, program);
    fs::permissions(program, fs::perms::owner_all, fs::perm_options::add);
    return program.string();
}

/// Counts looks at the window's process until it watches its configuration, which it starts
/// on its first show; false when it ended or never did.
bool windowIsUp(const ScenarioChild &window)
{
    for (long checks = 0; checks < 1000000; ++checks) {
        if (holds(window.pid(), "fd", "anon_inode:inotify"))
            return true;
        if (!fs::exists("/proc/" + std::to_string(window.pid()) + "/fd"))
            return false;
        sched_yield();
    }
    return false;
}

/// The window as a person starts it from the loop drive, with care or without.
int windowFrom(const Stage &stage, bool care)
{
    int refusal = 0;
    const std::string program = programOnLoopDrive(stage, refusal);
    if (program.empty())
        return refusal;
    ScenarioChild window(programArguments(
        stage, program, care ? std::vector<std::string>{} : std::vector<std::string>{"--no-care"}));
    fact("window-up", windowIsUp(window) ? "yes" : "no");
    fact("waiter", holds(window.pid(), "task", "orvane-drive") ? "yes" : "no");
    umount2((stage.place / "drive").c_str(), MNT_DETACH);
    if (care) {
        fact("end-after-pull", window.waitForEnd());
        return 0;
    }
    window.signal(SIGBUS);
    fact("end-on-bus-error", window.waitForEnd());
    return 0;
}

} // namespace

int loopPull(const Stage &stage)
{
    int refusal = 0;
    const std::string program = programOnLoopDrive(stage, refusal);
    if (program.empty())
        return refusal;
    const std::string picture = (stage.place / "current.png").string();
    ScenarioChild proof(proofArguments(stage, program, {"--work", picture}));
    fact("ready", untilReady(proof) ? "yes" : "no");
    proof.signal(SIGUSR1);
    fact("work", proof.lineStartingWith("drive-proof: work done").value_or("none"));
    umount2((stage.place / "drive").c_str(), MNT_DETACH);
    fact("end-after-pull", proof.waitForEnd());
    reportLines(proof);
    return 0;
}

/// Without care nothing watches the drive: the proof lives on after the pull and still works
/// while its pages are in memory, and a bus error ends it with 10.
int loopPullWithoutCare(const Stage &stage)
{
    int refusal = 0;
    const std::string program = programOnLoopDrive(stage, refusal);
    if (program.empty())
        return refusal;
    const std::string picture = (stage.place / "current.png").string();
    ScenarioChild proof(proofArguments(stage, program, {"--no-care", "--work", picture}));
    fact("ready", untilReady(proof) ? "yes" : "no");
    umount2((stage.place / "drive").c_str(), MNT_DETACH);
    proof.signal(SIGUSR1);
    fact("work-after-pull", proof.lineStartingWith("drive-proof: work done").value_or("none"));
    proof.signal(SIGBUS);
    fact("end-on-bus-error", proof.waitForEnd());
    reportLines(proof);
    return 0;
}

int windowFromLoopDrive(const Stage &stage)
{
    return windowFrom(stage, true);
}

int windowFromLoopDriveWithoutCare(const Stage &stage)
{
    return windowFrom(stage, false);
}

} // namespace Scenario
