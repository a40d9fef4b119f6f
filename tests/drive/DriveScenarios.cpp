// The drive's endings end to end, each scenario inside a private mount namespace of its own,
// mounting only on a fresh temporary folder. It prints what it saw as "fact: NAME VALUE" and
// the proof's lines as "line: TEXT", and the test program judges them. Status 77 says that the
// machine refused a namespace, a mount or a loop device: the test is then skipped.
#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/DriveWaiter.h"
#include "OrvaneApp/drive/LinuxVolume.h"
#include "OrvaneApp/drive/MountTableScan.h"
#include "tests/drive/ScenarioChild.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <sched.h>
#include <string>
#include <sys/mman.h>
#include <sys/mount.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr int skipped = 77;

/// What every scenario is given.
struct Stage
{
    fs::path place;
    std::string orvane;
    std::string example;
};

/// The watched file of the forked bodies, and the file that stands for its disk's node, set
/// before the fork.
std::string watchedFile;
std::string diskNode;

void fact(const std::string &name, const std::string &value)
{
    std::printf("fact: %s %s\n", name.c_str(), value.c_str());
    std::fflush(stdout);
}

int skip(const std::string &why)
{
    std::fprintf(stderr, "%s: %s\n", why.c_str(), std::strerror(errno));
    return skipped;
}

bool mountTmpfs(const fs::path &where)
{
    fs::create_directories(where);
    return mount("tmpfs", where.c_str(), "tmpfs", 0, "size=256m") == 0;
}

void say(int output, const std::string &text)
{
    const std::string line = text + "\n";
    (void)write(output, line.data(), line.size());
}

/// Arms the watch, then answers the parent's one question once the waiter has read the table
/// again, and waits for its end.
int armAndWait(int output, int input)
{
    const int armed = orvane_end_when_taken_away(watchedFile.c_str());
    const unsigned readsWhenArmed = DriveWaiter::tableReads();
    say(output, "armed " + std::to_string(armed));
    char command = 0;
    if (read(input, &command, 1) != 1)
        return 2;
    // Every read of the table after arming follows the parent's unmount; count, don't wait.
    while (DriveWaiter::tableReads() == readsWhenArmed)
        sched_yield();
    say(output, "alive");
    (void)read(input, &command, 1);
    return 3;
}

/// Arms the waiter on the watched file's mount with a disk node of the scenario's own, then
/// waits for its end.
int armOnNodeAndWait(int output, int input)
{
    const std::optional<LinuxVolume> volume =
        LinuxVolume::read(QString::fromStdString(fs::canonical(watchedFile).string()),
                          QStringLiteral("/proc"), QStringLiteral("/sys"));
    if (!volume)
        return 2;
    const int armed = DriveWaiter::arm(
        volume->mount.id, volume->mount.deviceNumbers.toLatin1().constData(), diskNode.c_str());
    say(output, "armed " + std::to_string(armed));
    char command = 0;
    (void)read(input, &command, 1);
    return 3;
}

/// A page of a file that has been cut short: touching it raises a bus error.
volatile const char *truncatedPage()
{
    const int file = open(watchedFile.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    const long page = sysconf(_SC_PAGESIZE);
    if (file < 0 || ftruncate(file, 2 * page) != 0)
        return nullptr;
    void *mapped = mmap(nullptr, size_t(2 * page), PROT_READ, MAP_SHARED, file, 0);
    if (mapped == MAP_FAILED || ftruncate(file, 0) != 0)
        return nullptr;
    return static_cast<volatile const char *>(mapped);
}

int touchUnderCare(int, int)
{
    volatile const char *page = truncatedPage();
    if (page == nullptr)
        return 2;
    orvane_end_on_bus_error();
    return page[0];
}

int touchWithoutCare(int, int)
{
    volatile const char *page = truncatedPage();
    if (page == nullptr)
        return 2;
    return page[0];
}

int tmpfsPull(const Stage &stage)
{
    const fs::path drive = stage.place / "drive";
    const fs::path other = stage.place / "other";
    if (!mountTmpfs(drive) || !mountTmpfs(other))
        return skip("mounting a tmpfs");
    watchedFile = (drive / "watched").string();
    std::ofstream(watchedFile) << "program";
    ScenarioChild child(armAndWait);
    fact("armed", child.nextLine().value_or("nothing"));
    fact("other-unmounted", umount(other.c_str()) == 0 ? "yes" : "no");
    child.send('c');
    fact("after-other-unmount", child.nextLine().value_or("gone"));
    umount2(drive.c_str(), MNT_DETACH);
    fact("end-after-pull", child.waitForEnd());
    return 0;
}

/// A disk whose node goes while its mount stays, as when a stick is pulled before the system
/// has unmounted it.
int diskNodeGone(const Stage &stage)
{
    const fs::path drive = stage.place / "drive";
    if (!mountTmpfs(drive))
        return skip("mounting a tmpfs");
    watchedFile = (drive / "watched").string();
    std::ofstream(watchedFile) << "program";
    diskNode = (stage.place / "node").string();
    std::ofstream(diskNode) << "disk";
    ScenarioChild child(armOnNodeAndWait);
    fact("armed", child.nextLine().value_or("nothing"));
    fs::remove(diskNode);
    fact("end-after-node-gone", child.waitForEnd());
    return 0;
}

int busError(const Stage &stage, int (*body)(int, int))
{
    watchedFile = (stage.place / "mapped").string();
    ScenarioChild child(body);
    fact("end-on-touch", child.waitForEnd());
    return 0;
}

/// The program's arguments, on a copy of the example machine inside the stage.
std::vector<std::string> programArguments(const Stage &stage, const std::string &program,
                                          std::vector<std::string> options)
{
    const fs::path machine = stage.place / "mac";
    if (!fs::exists(machine))
        fs::copy(stage.example, machine, fs::copy_options::recursive);
    std::vector<std::string> arguments{program};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), {"--prefs", machine.string()});
    return arguments;
}

/// The drive proof's arguments.
std::vector<std::string> proofArguments(const Stage &stage, const std::string &program,
                                        std::vector<std::string> options)
{
    options.insert(options.begin(), "--drive-proof");
    return programArguments(stage, program, options);
}

/// Whether any of the process's descriptors or threads is named `name`.
bool holds(int pid, const std::string &where, const std::string &name)
{
    std::error_code problem;
    const fs::path folder = "/proc/" + std::to_string(pid) + "/" + where;
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, problem)) {
        std::string seen;
        if (where == "fd") {
            seen = fs::read_symlink(entry.path(), problem).string();
        } else {
            std::ifstream comm(entry.path() / "comm");
            std::getline(comm, seen);
        }
        if (seen == name)
            return true;
    }
    return false;
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

/// Reads the proof's lines up to "drive-proof: ready".
bool untilReady(ScenarioChild &proof)
{
    return proof.lineStartingWith("drive-proof: ready").has_value();
}

/// Every line the proof printed, once it has ended.
void reportLines(ScenarioChild &proof)
{
    while (proof.nextLine()) {
    }
    for (const std::string &line : proof.lines())
        fact("line", line);
}

/// Whether SIGUSR1 waits, undelivered, for the process.
bool signalPending(int pid)
{
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    unsigned long long pending = 0;
    while (std::getline(status, line)) {
        if (line.rfind("SigPnd:", 0) == 0 || line.rfind("ShdPnd:", 0) == 0)
            pending |= std::stoull(line.substr(7), nullptr, 16);
    }
    return (pending & (1ULL << (SIGUSR1 - 1))) != 0;
}

int proofWithoutCare(const Stage &stage)
{
    ScenarioChild proof(proofArguments(stage, stage.orvane, {"--no-care"}));
    fact("ready", untilReady(proof) ? "yes" : "no");
    proof.signal(SIGBUS);
    fact("end-on-bus-error", proof.waitForEnd());
    reportLines(proof);
    return 0;
}

int proofWithWorkLast(const Stage &stage)
{
    ScenarioChild proof(proofArguments(stage, stage.orvane, {"--no-care", "--work"}));
    fact("ready", untilReady(proof) ? "yes" : "no");
    proof.signal(SIGUSR1);
    // The proof takes the signal from its descriptor; count reads of its state until it has.
    long checks = 0;
    while (signalPending(proof.pid()) && ++checks < 1000000)
        sched_yield();
    fact("signal-taken", signalPending(proof.pid()) ? "no" : "yes");
    proof.signal(SIGBUS);
    fact("end-on-bus-error", proof.waitForEnd());
    reportLines(proof);
    return 0;
}

int proofWorkingThrice(const Stage &stage)
{
    const std::string picture = (stage.place / "current.png").string();
    ScenarioChild proof(proofArguments(stage, stage.orvane, {"--no-care", "--work", picture}));
    fact("ready", untilReady(proof) ? "yes" : "no");
    for (int round = 0; round < 3; ++round) {
        proof.signal(SIGUSR1);
        fact("work", proof.lineStartingWith("drive-proof: work done").value_or("none"));
    }
    fact("picture", fs::exists(picture) ? "written" : "missing");
    proof.signal(SIGBUS);
    fact("end-on-bus-error", proof.waitForEnd());
    reportLines(proof);
    return 0;
}

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

/// The window as a person starts it from the loop drive, with care or without.
int windowFromLoopDrive(const Stage &stage, bool care)
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

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s SCENARIO ORVANE EXAMPLE-MACHINE\n", argv[0]);
        return 1;
    }
    if (unshare(CLONE_NEWNS) != 0)
        return skip("a private mount namespace");
    // Nothing mounted here may reach the machine's own namespace.
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return skip("making / private");
    std::string pattern = (fs::temp_directory_path() / "orvane-drive-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        return skip("a temporary folder");
    const Stage stage{pattern, argv[2], argv[3]};
    if (!mountTmpfs(stage.place))
        return skip("mounting a tmpfs on a temporary folder");
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("XDG_CONFIG_HOME", (stage.place / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (stage.place / "data").c_str(), 1);

    const std::map<std::string, int (*)(const Stage &)> scenarios{
        {"tmpfs-pull", tmpfsPull},
        {"disk-node-gone", diskNodeGone},
        {"bus-error", [](const Stage &s) { return busError(s, touchUnderCare); }},
        {"bus-error-without-care", [](const Stage &s) { return busError(s, touchWithoutCare); }},
        {"proof-without-care", proofWithoutCare},
        {"proof-work-last", proofWithWorkLast},
        {"proof-working-thrice", proofWorkingThrice},
        {"loop-pull", loopPull},
        {"loop-pull-without-care", loopPullWithoutCare},
        {"window-from-loop", [](const Stage &s) { return windowFromLoopDrive(s, true); }},
        {"window-from-loop-without-care",
         [](const Stage &s) { return windowFromLoopDrive(s, false); }},
    };
    const auto scenario = scenarios.find(argv[1]);
    int status = 1;
    if (scenario != scenarios.end())
        status = scenario->second(stage);
    umount2(stage.place.c_str(), MNT_DETACH);
    rmdir(stage.place.c_str());
    return status;
}
