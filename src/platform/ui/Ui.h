#pragma once

#include <memory>
#include <string>

class QDialog;

/// Styles and buttons of a message box, with the answers numbered as the system's callers
/// compare them.
enum class MessageStyle { Plain, Critical, Question, Exclamation, Information };
enum class MessageButtons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class MessageAnswer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// The mouse pointer values the busy cursor uses.
inline constexpr int kDefaultCursor = 0;
inline constexpr int kHourglassCursor = 11;

/// Everything the program asks of the person at the screen: message boxes, the mouse
/// pointer, modal dialogs, the file-open dialog and the browser. The program installs the Qt
/// implementation; tests install a scripted one that records and answers.
class Ui
{
public:
    virtual ~Ui() = default;

    /// Shows a modal box and returns the button pressed. An empty title shows the program's name.
    /// `defaultButton` is 1-based among the buttons of `buttons`.
    virtual MessageAnswer msgBox(const std::string &text, MessageStyle style = MessageStyle::Plain,
                                 MessageButtons buttons = MessageButtons::Ok,
                                 const std::string &title = {}, int defaultButton = 1) = 0;

    /// 0 (kDefaultCursor) or 11 (kHourglassCursor).
    virtual void setCursor(int pointer) = 0;
    virtual int cursor() const = 0;

    /// Runs `dialog` modally; true when it was accepted.
    virtual bool runModal(QDialog &dialog) = 0;

    /// The file-open dialog; empty when the person cancels.
    virtual std::string getOpenFileName(const std::string &caption, const std::string &filter) = 0;

    /// Opens a page in the person's browser.
    virtual void openUrl(const std::string &url) = 0;

    /// Closes every loaded window, the last loaded first, hidden ones too, ignoring any that
    /// refuses.
    virtual void unloadAllWindows() = 0;
};

/// The answer of the `defaultButton`-th (1-based) button of `buttons`; the first one when out
/// of range.
MessageAnswer defaultAnswer(MessageButtons buttons, int defaultButton);

/// The installed service. Until one is installed, a silent one answers the default button,
/// so code that runs without a screen (tools, simulators) never blocks.
Ui &ui();

/// Installs `service` and returns the one it replaces.
std::unique_ptr<Ui> setUi(std::unique_ptr<Ui> service);
