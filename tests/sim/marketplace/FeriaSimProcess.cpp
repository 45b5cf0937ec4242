#include "FeriaSimProcess.h"

#include <cstdlib>
#include <fstream>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace {
constexpr int kStartTimeoutMs = 30000;
constexpr const char *kListening = "listening on ";
} // namespace

FeriaSimProcess::FeriaSimProcess(const std::filesystem::path &dataDir) : m_dataDir(dataDir)
{
    start();
}

std::unique_ptr<FeriaSimProcess> FeriaSimProcess::withData(const std::string &marketplaceXml)
{
    std::unique_ptr<FeriaSimProcess> process(new FeriaSimProcess());
    std::string pattern = (std::filesystem::temp_directory_path() / "feria-sim-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        process->m_error = "mkdtemp failed";
        return process;
    }
    process->m_dataDir = pattern;
    process->m_ownsDataDir = true;
    std::ofstream(process->m_dataDir / "marketplace.xml") << marketplaceXml;
    process->start();
    return process;
}

FeriaSimProcess::~FeriaSimProcess()
{
    stop();
    if (m_ownsDataDir) {
        std::error_code ignored;
        std::filesystem::remove_all(m_dataDir, ignored);
    }
}

void FeriaSimProcess::start()
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        m_error = "pipe failed";
        return;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[1]);
    std::string path = FERIA_SIM_PATH, port = "--port", any = "0", data = "--data",
                dir = m_dataDir.string();
    char *argv[] = {path.data(), port.data(), any.data(), data.data(), dir.data(), nullptr};
    const int spawned = posix_spawn(&m_pid, path.c_str(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    m_output = pipeEnds[0];
    if (spawned != 0) {
        m_pid = -1;
        m_error = "cannot start " + path;
        return;
    }

    std::string printed;
    pollfd waiting{m_output, POLLIN, 0};
    while (printed.find('\n') == std::string::npos) {
        if (poll(&waiting, 1, kStartTimeoutMs) <= 0) {
            m_error = "feria-sim printed nothing within the time allowed";
            return;
        }
        char buffer[256];
        const ssize_t got = read(m_output, buffer, sizeof buffer);
        if (got <= 0) {
            m_error = "feria-sim ended before listening";
            return;
        }
        printed.append(buffer, static_cast<size_t>(got));
    }
    const std::string line = printed.substr(0, printed.find('\n'));
    if (line.rfind(kListening, 0) != 0) {
        m_error = "unexpected first line: " + line;
        return;
    }
    m_url = line.substr(std::char_traits<char>::length(kListening));
}

int FeriaSimProcess::stop()
{
    if (m_pid <= 0) {
        return -1;
    }
    kill(m_pid, SIGTERM);
    int status = 0;
    waitpid(m_pid, &status, 0);
    m_pid = -1;
    if (m_output >= 0) {
        close(m_output);
        m_output = -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
