#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <sys/types.h>

/// A feria-sim of a test's own, on a free loopback port, stopped with SIGTERM at the end.
class FeriaSimProcess
{
public:
    /// Starts it on a data directory and waits for its "listening on" line; on failure url()
    /// is empty and error() says why.
    explicit FeriaSimProcess(const std::filesystem::path &dataDir);
    /// Starts it on a temporary data directory holding this marketplace.xml.
    static std::unique_ptr<FeriaSimProcess> withData(const std::string &marketplaceXml);
    ~FeriaSimProcess();

    FeriaSimProcess(const FeriaSimProcess &) = delete;
    FeriaSimProcess &operator=(const FeriaSimProcess &) = delete;

    /// "http://127.0.0.1:N", as the program printed it.
    const std::string &url() const { return m_url; }
    const std::string &error() const { return m_error; }
    /// Sends SIGTERM and waits: the exit status, 0 for a clean stop, -1 when it did not run.
    int stop();

private:
    FeriaSimProcess() = default;
    void start();

    pid_t m_pid = -1;
    int m_output = -1;
    std::string m_url;
    std::string m_error;
    std::filesystem::path m_dataDir;
    bool m_ownsDataDir = false;
};
