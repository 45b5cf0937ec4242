#include "ShellTest.h"

#include "shell/AppState.h"
#include "shell/BusyCursor.h"

#include <QApplication>
#include <QWidget>

#include <fstream>
#include <random>

void ShellTest::SetUp()
{
    ui = &ScriptedUi::install();
    gAppRunning = true;
    gWaitCount = 0;
    gWaitSuspended = false;
    gMainWindow = nullptr;
    m_previousDir = std::filesystem::current_path();
    workDir = std::filesystem::temp_directory_path()
              / ("asistente-test-" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(workDir);
    std::filesystem::current_path(workDir);
}

void ShellTest::TearDown()
{
    // A script the test wrote and the program never played means the test proved nothing.
    for (const std::string &mistake : ui->scriptMistakes())
        ADD_FAILURE() << "scripted Ui: " << mistake;
    for (QWidget *widget : QApplication::topLevelWidgets())
        EXPECT_FALSE(widget->isVisible()) << "window left open: "
                                          << widget->objectName().toStdString();
    // Windows closed with delete-on-close go now, before the next test looks.
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    std::filesystem::current_path(m_previousDir);
    std::error_code ignored;
    std::filesystem::remove_all(workDir, ignored);
    gAppRunning = false;
}

std::vector<std::string> ShellTest::logLines() const
{
    std::vector<std::string> lines;
    std::ifstream log(workDir / "bitacora.log", std::ios::binary);
    std::string line;
    while (std::getline(log, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}
