#include "tests/drive/scenarios/Scenario.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sys/mount.h>

namespace Scenario {

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

std::vector<std::string> proofArguments(const Stage &stage, const std::string &program,
                                        std::vector<std::string> options)
{
    options.insert(options.begin(), "--drive-proof");
    return programArguments(stage, program, options);
}

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

bool untilReady(ScenarioChild &proof)
{
    return proof.lineStartingWith("drive-proof: ready").has_value();
}

void reportLines(ScenarioChild &proof)
{
    while (proof.nextLine()) {
    }
    for (const std::string &line : proof.lines())
        fact("line", line);
}

} // namespace Scenario
