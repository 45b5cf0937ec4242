#pragma once

#include <cstdint>
#include <string>

/// The single error reporter: writes the log line, shows the box, and closes the application
/// when the error is fatal.
class Logger
{
public:
    // The two classifications' values, as the callers compare them.
    const int errorTypeUser = 0;
    const int errorTypeApplication = 1;
    const int errorTypeFatal = 2;
    const int errorTypeNone = 5;
    const int errorTypeUnknown = -1;
    const int errorSourceConnector = 0;
    const int errorSourceSystem = 1;
    const int errorSourceBand2 = 2;
    const int errorSourceBand3 = 3;
    const int errorSourceBand4 = 4;
    const int errorSourceUnknown = -1;

    /// Appends one quoted record to "bitacora.log" in the current directory. Raises
    /// PathFileAccess when the file cannot be opened or written.
    void WriteLogEntry(const std::string &text);
    /// Logs and shows the current error, then closes everything when it is fatal.
    void ProcessError();
    int getTypeError(std::int32_t number) const;
    int getSourceError(std::int32_t number) const;
    void ShowError(std::int32_t number, const std::string &description);

    /// The closing steps of a fatal error when the error could not even be logged: the error is
    /// shown as it is and written to standard error, then the application closes. The host
    /// program takes this path too for an error that leaves the start.
    void closeApplicationAfterUnloggedError();

private:
    void closeApplication();
};

extern Logger gLogger;
