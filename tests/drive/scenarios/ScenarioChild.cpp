#include "tests/drive/scenarios/ScenarioChild.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

int openExitWatch(int pid)
{
    return int(syscall(SYS_pidfd_open, pid, 0));
}

bool waitReadable(int descriptor)
{
    pollfd event{descriptor, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&event, 1, ScenarioChild::boundMilliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace

ScenarioChild::ScenarioChild(const std::vector<std::string> &arguments)
{
    int output[2];
    if (pipe2(output, O_CLOEXEC) != 0)
        return;
    std::vector<char *> argv;
    for (const std::string &argument : arguments)
        argv.push_back(const_cast<char *>(argument.c_str()));
    argv.push_back(nullptr);
    m_pid = fork();
    if (m_pid == 0) {
        dup2(output[1], STDOUT_FILENO);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDERR_FILENO);
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(output[1]);
    watchOutput(output[0]);
}

ScenarioChild::ScenarioChild(int (*body)(int output, int input))
{
    int output[2];
    int input[2];
    if (pipe2(output, O_CLOEXEC) != 0 || pipe2(input, O_CLOEXEC) != 0)
        return;
    m_pid = fork();
    if (m_pid == 0) {
        close(output[0]);
        close(input[1]);
        _exit(body(output[1], input[0]));
    }
    close(output[1]);
    close(input[0]);
    m_input = input[1];
    watchOutput(output[0]);
}

void ScenarioChild::watchOutput(int output)
{
    m_output = output;
    if (m_pid > 0)
        m_exitWatch = openExitWatch(m_pid);
}

ScenarioChild::~ScenarioChild()
{
    if (m_pid > 0 && !m_ended) {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    for (int descriptor : {m_output, m_input, m_exitWatch}) {
        if (descriptor >= 0)
            close(descriptor);
    }
}

std::optional<std::string> ScenarioChild::nextLine()
{
    for (;;) {
        const std::size_t end = m_pending.find('\n');
        if (end != std::string::npos) {
            std::string line = m_pending.substr(0, end);
            m_pending.erase(0, end + 1);
            m_lines.push_back(line);
            return line;
        }
        if (m_output < 0 || !waitReadable(m_output))
            return std::nullopt;
        char chunk[4096];
        const ssize_t got = read(m_output, chunk, sizeof chunk);
        if (got <= 0)
            return std::nullopt;
        m_pending.append(chunk, std::size_t(got));
    }
}

std::optional<std::string> ScenarioChild::lineStartingWith(const std::string &start)
{
    while (std::optional<std::string> line = nextLine()) {
        if (line->rfind(start, 0) == 0)
            return line;
    }
    return std::nullopt;
}

void ScenarioChild::send(char command) const
{
    if (m_input >= 0)
        (void)write(m_input, &command, 1);
}

void ScenarioChild::signal(int number) const
{
    if (m_pid > 0)
        kill(m_pid, number);
}

std::string ScenarioChild::waitForEnd()
{
    if (m_pid <= 0)
        return "not started";
    if (m_exitWatch < 0 || !waitReadable(m_exitWatch)) {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
        m_ended = true;
        return "still running";
    }
    int status = 0;
    waitpid(m_pid, &status, 0);
    m_ended = true;
    if (WIFEXITED(status))
        return "exit " + std::to_string(WEXITSTATUS(status));
    return "signal " + std::to_string(WTERMSIG(status));
}
