#include "ConsoleUi.h"

#include "shell/Logger.h"

MessageAnswer ConsoleUi::msgBox(const std::string &text, MessageStyle, MessageButtons buttons,
                                const std::string &title, int defaultButton)
{
    const std::string line =
        "[" + (title.empty() ? std::string("asistentectl") : title) + "] " + text;
    m_errors << line << std::endl;
    try {
        gLogger.WriteLogEntry(line);
    } catch (...) {
        // The line is on the error stream already; a log that cannot be written must not
        // turn a box into a crash.
    }
    return defaultAnswer(buttons, defaultButton);
}
