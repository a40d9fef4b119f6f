// The endings alone, in forked children: the watch on a tmpfs and on a disk node, and the
// bus-error ending.
#include "OrvaneApp/drive/DriveEndings.h"
#include "OrvaneApp/drive/DriveWaiter.h"
#include "OrvaneApp/drive/LinuxVolume.h"
#include "tests/drive/scenarios/Scenario.h"

#include <fcntl.h>
#include <fstream>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <unistd.h>

namespace Scenario {

namespace {

/// The watched file of the forked bodies, and the file that stands for its disk's node, set
/// before the fork.
std::string watchedFile;
std::string diskNode;

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

int busError(const Stage &stage, int (*body)(int, int))
{
    watchedFile = (stage.place / "mapped").string();
    ScenarioChild child(body);
    fact("end-on-touch", child.waitForEnd());
    return 0;
}

} // namespace

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

int busErrorUnderCare(const Stage &stage)
{
    return busError(stage, touchUnderCare);
}

int busErrorWithoutCare(const Stage &stage)
{
    return busError(stage, touchWithoutCare);
}

} // namespace Scenario
