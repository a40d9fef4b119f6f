#pragma once

#include <optional>
#include <string>
#include <vector>

/// A child process of a drive scenario, its standard output read line by line. Every wait on
/// it is bounded: a child that keeps a scenario waiting longer is killed and the wait fails.
class ScenarioChild
{
public:
    /// How long any one wait on a child may last.
    static constexpr int boundMilliseconds = 10000;

    /// Starts `arguments` (the program first) with its standard error discarded.
    explicit ScenarioChild(const std::vector<std::string> &arguments);
    /// Runs `body` in a forked child and ends it with `body`'s answer; what it writes to the
    /// descriptor it is given comes back as lines.
    explicit ScenarioChild(int (*body)(int output, int input));
    ~ScenarioChild();
    ScenarioChild(const ScenarioChild &) = delete;
    ScenarioChild &operator=(const ScenarioChild &) = delete;

    [[nodiscard]] bool started() const { return m_pid > 0; }
    [[nodiscard]] int pid() const { return m_pid; }

    /// The next line of its output; absent at its end or when the bound passed.
    [[nodiscard]] std::optional<std::string> nextLine();
    /// Lines until one that starts with `start`, that one included; the lines are kept.
    [[nodiscard]] std::optional<std::string> lineStartingWith(const std::string &start);
    [[nodiscard]] const std::vector<std::string> &lines() const { return m_lines; }

    /// Writes to the child's input (forked bodies only).
    void send(char command) const;
    void signal(int number) const;

    /// How it ended: "exit N", "signal N", or "still running" (then it was killed).
    [[nodiscard]] std::string waitForEnd();

private:
    void watchOutput(int output);

    int m_pid = -1;
    int m_output = -1;
    int m_input = -1;
    int m_exitWatch = -1;
    bool m_ended = false;
    std::string m_pending;
    std::vector<std::string> m_lines;
};
