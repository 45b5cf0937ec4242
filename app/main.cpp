#include "platform/ui/QtUi.h"
#include "platform/ui/ScriptedUi.h"
#include "shell/AppState.h"
#include "shell/ErrorHandling.h"
#include "shell/window/StartupClass.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

constexpr const char *kScriptVariable = "ASISTENTE_SCRIPTED_UI";

// The person of a scripted run: once the main window is on show, releases the keys of the
// script in it, in order, then presses its close box, so the run never waits for anybody.
void playScriptOnceTheWindowIsShown(const QStringList &keys)
{
    QTimer::singleShot(0, [keys] {
        for (const QString &name : keys) {
            auto *window = dynamic_cast<QWidget *>(gMainWindow);
            if (!window)
                return;
            const QKeySequence sequence(name);
            if (sequence.isEmpty()) {
                std::cerr << "asistente: tecla desconocida en " << kScriptVariable << ": "
                          << name.toStdString() << std::endl;
                continue;
            }
            QKeyEvent release(QEvent::KeyRelease, sequence[0].key(), Qt::NoModifier);
            QApplication::sendEvent(window, &release);
        }
        if (gMainWindow)
            gMainWindow->unload();
    });
}

// Every box of a scripted run, one line each, as "[title] text".
void echoBoxes(const ScriptedUi &scripted)
{
    for (const RecordedBox &box : scripted.boxes())
        std::cout << '[' << box.title << "] " << box.text << '\n';
    std::cout.flush();
}

} // namespace

/// Runs the assistant. The exit status is 0 when the person left the main window, 1 when the
/// start failed or an error closed the assistant.
///
/// With ASISTENTE_SCRIPTED_UI set (tests, unattended checks) no box waits for an answer: each
/// gets its default button and is echoed on standard output, and the variable's keys
/// ("F2 F10", possibly none) are released in the main window before its close box is pressed.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QString::fromUtf8("Asistente de Publicación"));

    ScriptedUi *scripted = nullptr;
    if (const char *script = std::getenv(kScriptVariable)) {
        scripted = &ScriptedUi::install();
        playScriptOnceTheWindowIsShown(QString::fromUtf8(script).split(' ', Qt::SkipEmptyParts));
    } else {
        setUi(std::make_unique<QtUi>());
    }

    bool freePriceEntry = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--free-price-entry") == 0)
            freePriceEntry = true;
    }
    int status = EXIT_SUCCESS;
    try {
        StartupClass startup;
        startup.StartWizard(freePriceEntry);
        if (!gAppRunning)
            status = EXIT_FAILURE;
    } catch (...) {
        // Only an error that could not be logged gets here (the log file cannot be written):
        // it is shown and closes the assistant as it would once the window is open.
        reportEscapedError(toRaisedError(std::current_exception()));
        status = EXIT_FAILURE;
    }
    if (scripted)
        echoBoxes(*scripted);
    return status;
}
