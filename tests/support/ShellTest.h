#pragma once

#include "platform/ui/ScriptedUi.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

/// A test that runs like the assistant: the application running, no busy section open, the
/// scripted Ui answering, and a working directory of its own (where bitacora.log goes).
/// At the end no top-level window may be left open, and every answer and dialog the test
/// queued must have been used.
class ShellTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// The lines of bitacora.log, without their CR LF.
    std::vector<std::string> logLines() const;

    ScriptedUi *ui = nullptr;
    std::filesystem::path workDir;

private:
    std::filesystem::path m_previousDir;
};
