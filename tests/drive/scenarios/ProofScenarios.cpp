// The drive proof run from the build folder, without care: its lines, SIGUSR1 and SIGBUS.
#include "tests/drive/scenarios/Scenario.h"

#include <csignal>
#include <fstream>
#include <sched.h>

namespace Scenario {

namespace {

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

} // namespace

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

} // namespace Scenario
