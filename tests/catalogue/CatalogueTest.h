#pragma once

#include "ShellTest.h"

#include <string>
#include <vector>

/// A catalogue test: the shell as the assistant runs it, with the errors of the log read back
/// as "Error: <number> (<source>): <description>".
class CatalogueTest : public ShellTest
{
protected:
    std::vector<std::string> loggedErrors() const
    {
        std::vector<std::string> errors;
        for (std::string line : logLines()) {
            const std::size_t at = line.find("Error: ");
            if (at == std::string::npos)
                continue;
            line = line.substr(at);
            if (!line.empty() && line.back() == '"')
                line.pop_back();
            errors.push_back(line);
        }
        return errors;
    }
    /// The only error logged; fails the test when there is not exactly one.
    std::string loggedError() const
    {
        const std::vector<std::string> errors = loggedErrors();
        EXPECT_EQ(errors.size(), 1u);
        return errors.empty() ? std::string() : errors.back();
    }
};
