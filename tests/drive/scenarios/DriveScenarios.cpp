// The drive's endings end to end, each scenario inside a private mount namespace of its own,
// mounting only on a fresh temporary folder: run as DriveScenarios SCENARIO ORVANE EXAMPLE.
// Status 77 says that the machine refused a namespace, a mount or a loop device: the test is
// then skipped, never passed.
#include "tests/drive/scenarios/Scenario.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Scenario;

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
        {"bus-error", busErrorUnderCare},
        {"bus-error-without-care", busErrorWithoutCare},
        {"proof-without-care", proofWithoutCare},
        {"proof-work-last", proofWithWorkLast},
        {"proof-working-thrice", proofWorkingThrice},
        {"loop-pull", loopPull},
        {"loop-pull-without-care", loopPullWithoutCare},
        {"window-from-loop", windowFromLoopDrive},
        {"window-from-loop-without-care", windowFromLoopDriveWithoutCare},
    };
    const auto scenario = scenarios.find(argv[1]);
    int status = 1;
    if (scenario != scenarios.end())
        status = scenario->second(stage);
    umount2(stage.place.c_str(), MNT_DETACH);
    rmdir(stage.place.c_str());
    return status;
}
