#pragma once

#include "ShellTest.h"
#include "shell/AppState.h"

#include <gmock/gmock.h>

using Texts = std::vector<std::string>;

/// A catalogue test: the shell as the assistant runs it, with the log read back as
/// "Error: <number> (<source>): <description>" lines.
class CatalogueTest : public ShellTest
{
protected:
    Texts loggedErrors() const
    {
        Texts errors;
        for (const std::string &line : logLines())
            errors.push_back(line.substr(line.find("Error: "), std::string::npos));
        for (std::string &error : errors)
            error.pop_back(); // the record's closing quote
        return errors;
    }
    /// Forgets what was logged and shown, and lets the application run again.
    void restart()
    {
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        gAppRunning = true;
    }
};

/// The ids of a collection's items, in order.
template <class Items> Texts idsOf(const Items &items)
{
    Texts ids;
    for (const auto &item : *items)
        ids.push_back(item->id());
    return ids;
}
