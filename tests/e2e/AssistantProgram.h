#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

/// How a run of a whole program ended, as the person who started it sees it.
struct ProgramRun
{
    bool exited = false; // false: killed, aborted or timed out
    int status = -1;
    /// The boxes of a scripted run, in order, each as "[title] text".
    std::vector<std::string> boxes;
    std::string standardError;
};

/// The real `asistente` (ASISTENTE_PROGRAM) in a scripted run: a working folder of its own
/// (where bitacora.log goes), the connector libraries and the marketplace of the test's
/// environment, and every box answered by default and echoed (ASISTENTE_SCRIPTED_UI).
class AssistantProgram
{
public:
    AssistantProgram()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "asistente-run-XXXXXX").string();
        workDir = mkdtemp(pattern.data());
        environment = QProcessEnvironment::systemEnvironment();
        environment.insert("ASISTENTE_SCRIPTED_UI", "");
        if (const char *file = std::getenv("ASISTENTE_TEST_URL_FILE")) {
            std::string url;
            std::ifstream(file) >> url;
            environment.insert("ASISTENTE_MARKETPLACE_URL", QString::fromStdString(url));
        }
    }
    ~AssistantProgram()
    {
        std::error_code ignored;
        std::filesystem::permissions(workDir, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(workDir, ignored);
    }
    AssistantProgram(const AssistantProgram &) = delete;
    AssistantProgram &operator=(const AssistantProgram &) = delete;

    void set(const char *name, const std::string &value)
    {
        environment.insert(name, QString::fromStdString(value));
    }
    void unset(const char *name) { environment.remove(name); }

    /// Runs as the unprivileged user "nobody" when the test runs as root, who writes through
    /// any folder's permissions. What that user must reach has to be open to others.
    void runUnprivileged() { m_unprivileged = geteuid() == 0; }

    /// Runs `program` (the assistant by default) with `arguments` and waits for it.
    ProgramRun run(const QStringList &arguments = {}, QString program = {})
    {
        if (program.isEmpty())
            program = QString::fromLocal8Bit(std::getenv("ASISTENTE_PROGRAM"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(QString::fromStdString(workDir.string()));
        if (m_unprivileged) {
            process.setChildProcessModifier([] {
                if (setgid(65534) != 0 || setuid(65534) != 0)
                    _exit(126);
            });
        }
        process.start(program, arguments);
        ProgramRun run;
        if (!process.waitForFinished(120000)) {
            process.kill();
            process.waitForFinished();
            ADD_FAILURE() << program.toStdString() << " did not end";
        }
        run.exited = process.exitStatus() == QProcess::NormalExit;
        run.status = process.exitCode();
        run.standardError = process.readAllStandardError().toStdString();
        const QString out = QString::fromUtf8(process.readAllStandardOutput());
        for (const QString &line : out.split('\n', Qt::SkipEmptyParts)) {
            if (line.startsWith('['))
                run.boxes.push_back(line.toStdString());
        }
        return run;
    }

    /// The names in the working folder, after the run.
    std::vector<std::string> workDirEntries() const
    {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(workDir))
            names.push_back(entry.path().filename().string());
        return names;
    }

    std::filesystem::path workDir;
    QProcessEnvironment environment;

private:
    bool m_unprivileged = false;
};
