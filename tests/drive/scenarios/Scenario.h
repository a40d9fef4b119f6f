#pragma once

#include "tests/drive/scenarios/ScenarioChild.h"

#include <filesystem>
#include <string>
#include <vector>

/// What every drive scenario is given, and the helpers they share. A scenario prints what it
/// saw as "fact: NAME VALUE" and the program's lines as "fact: line TEXT"; the test program
/// judges them.
namespace Scenario {

namespace fs = std::filesystem;

/// The exit status by which a scenario says that the machine refused what it needs.
inline constexpr int skipped = 77;

/// A fresh temporary folder with a tmpfs of its own, in the scenario's private namespace.
struct Stage
{
    fs::path place;
    std::string orvane;
    std::string example;
};

void fact(const std::string &name, const std::string &value);
/// Says on standard error what was refused, with the system's reason, and answers `skipped`.
int skip(const std::string &why);
bool mountTmpfs(const fs::path &where);

/// The program's arguments, on a copy of the example machine inside the stage.
std::vector<std::string> programArguments(const Stage &stage, const std::string &program,
                                          std::vector<std::string> options);
/// The drive proof's arguments.
std::vector<std::string> proofArguments(const Stage &stage, const std::string &program,
                                        std::vector<std::string> options);

/// Whether any of the process's descriptors ("fd") or threads ("task") is named `name`.
bool holds(int pid, const std::string &where, const std::string &name);
/// Reads the proof's lines up to "drive-proof: ready".
bool untilReady(ScenarioChild &proof);
/// Every line the program printed, once it has ended.
void reportLines(ScenarioChild &proof);

int tmpfsPull(const Stage &stage);
int diskNodeGone(const Stage &stage);
int busErrorUnderCare(const Stage &stage);
int busErrorWithoutCare(const Stage &stage);
int proofWithoutCare(const Stage &stage);
int proofWithWorkLast(const Stage &stage);
int proofWorkingThrice(const Stage &stage);
int loopPull(const Stage &stage);
int loopPullWithoutCare(const Stage &stage);
int windowFromLoopDrive(const Stage &stage);
int windowFromLoopDriveWithoutCare(const Stage &stage);

} // namespace Scenario
