#include "shell/Logger.h"

#include "platform/ui/Ui.h"
#include "shell/AppState.h"
#include "shell/ErrorHandling.h"

#include <QDateTime>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

Logger gLogger;

namespace {

constexpr const char *kLogFile = "bitacora.log";
constexpr const char *kGenericText = "Error de la aplicación. Contacte al administrador del sistema";

bool within(std::int32_t number, std::int32_t low, std::int32_t high)
{
    return number >= low && number <= high;
}

} // namespace

void Logger::WriteLogEntry(const std::string &text)
{
    std::ofstream log(kLogFile, std::ios::app | std::ios::binary);
    if (!log)
        raiseError(RuntimeErrorNumber::PathFileAccess,
                   runtimeErrorText(RuntimeErrorNumber::PathFileAccess) + ": " + kLogFile + ": "
                       + std::strerror(errno));
    const std::string stamp =
        QDateTime::currentDateTime().toString("dd/MM/yyyy HH:mm:ss").toStdString();
    // A quoted record: nothing inside is escaped, not even a double quote.
    log << '"' << stamp << ' ' << text << "\"\r\n";
    log.flush();
    if (!log)
        raiseError(RuntimeErrorNumber::PathFileAccess,
                   runtimeErrorText(RuntimeErrorNumber::PathFileAccess) + ": " + kLogFile);
}

void Logger::ProcessError()
{
    const CurrentError error = Err();
    if (gAppRunning) {
        WriteLogEntry("Error: " + std::to_string(error.number) + " (" + error.source
                      + "): " + error.description);
        ShowError(error.number, error.description);
    }
    const int type = getTypeError(error.number);
    if (type != errorTypeFatal && type != errorTypeUnknown)
        return;
    closeApplication();
}

void Logger::closeApplication()
{
    if (gAppRunning)
        ui().msgBox("La aplicación será cerrada");
    gAppRunning = false;
    try {
        ui().unloadAllWindows();
    } catch (...) {
        // A window that refuses to close must not keep the others open.
    }
    if (gMainWindow) {
        HostWindow *window = gMainWindow;
        gMainWindow = nullptr;
        try {
            window->unload();
        } catch (...) {
        }
    }
}

void Logger::closeApplicationAfterUnloggedError()
{
    const CurrentError error = Err();
    // Worded as the runtime's own box would word it, since no log line will tell it. Standard
    // error keeps a trace for whoever started the program.
    const std::string text = "Error: " + std::to_string(error.number) + ": " + error.description;
    std::cerr << text << std::endl;
    if (gAppRunning)
        ui().msgBox(text, MessageStyle::Critical, MessageButtons::Ok, "Error Fatal");
    closeApplication();
}

int Logger::getTypeError(std::int32_t number) const
{
    if (number == 0)
        return errorTypeNone;
    if (within(number, -10499, -10000) || within(number, -8499, -8000)
        || within(number, -6499, -6000))
        return errorTypeUser;
    if (within(number, -10999, -10500) || within(number, -8999, -8500)
        || within(number, -6999, -6500))
        return errorTypeApplication;
    if (within(number, -11999, -11000) || within(number, -9999, -9000)
        || within(number, -7999, -7000))
        return errorTypeFatal;
    return errorTypeUnknown;
}

int Logger::getSourceError(std::int32_t number) const
{
    if (within(number, -3999, -2000))
        return errorSourceConnector;
    if (within(number, -11999, -10000))
        return errorSourceSystem;
    if (within(number, -9999, -8000))
        return errorSourceBand2;
    if (within(number, -7999, -6000))
        return errorSourceBand3;
    if (within(number, -5999, -4000))
        return errorSourceBand4;
    return errorSourceUnknown;
}

void Logger::ShowError(std::int32_t number, const std::string &description)
{
    const std::string prefix = "Error: " + std::to_string(number) + ": ";
    const int type = getTypeError(number);
    if (number == -11000)
        ui().msgBox("Error de base de datos: Verifique que la base de datos esté ejecutándose.");
    else if (type == errorTypeUser)
        ui().msgBox(prefix + description);
    else if (getSourceError(number) == errorSourceConnector || type == errorTypeApplication)
        ui().msgBox(prefix + kGenericText);
    else if (type == errorTypeFatal)
        ui().msgBox("Error Fatal: " + std::to_string(number) + ": " + kGenericText + ".",
                    MessageStyle::Critical, MessageButtons::Ok, "Error Fatal");
    else
        ui().msgBox(prefix + kGenericText, MessageStyle::Critical, MessageButtons::Ok,
                    "Error Fatal");
}
