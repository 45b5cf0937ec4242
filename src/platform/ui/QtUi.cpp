#include "platform/ui/QtUi.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QUrl>

namespace {

QMessageBox::Icon iconOf(MessageStyle style)
{
    switch (style) {
    case MessageStyle::Critical: return QMessageBox::Critical;
    case MessageStyle::Question: return QMessageBox::Question;
    case MessageStyle::Exclamation: return QMessageBox::Warning;
    case MessageStyle::Information: return QMessageBox::Information;
    case MessageStyle::Plain: break;
    }
    return QMessageBox::NoIcon;
}

struct ButtonSpec
{
    QMessageBox::StandardButton button;
    MessageAnswer answer;
};

std::vector<ButtonSpec> buttonsOf(MessageButtons buttons)
{
    using B = QMessageBox;
    using A = MessageAnswer;
    switch (buttons) {
    case MessageButtons::Ok: return {{B::Ok, A::Ok}};
    case MessageButtons::OkCancel: return {{B::Ok, A::Ok}, {B::Cancel, A::Cancel}};
    case MessageButtons::AbortRetryIgnore:
        return {{B::Abort, A::Abort}, {B::Retry, A::Retry}, {B::Ignore, A::Ignore}};
    case MessageButtons::YesNoCancel:
        return {{B::Yes, A::Yes}, {B::No, A::No}, {B::Cancel, A::Cancel}};
    case MessageButtons::YesNo: return {{B::Yes, A::Yes}, {B::No, A::No}};
    case MessageButtons::RetryCancel: return {{B::Retry, A::Retry}, {B::Cancel, A::Cancel}};
    }
    return {{B::Ok, A::Ok}};
}

} // namespace

MessageAnswer QtUi::msgBox(const std::string &text, MessageStyle style, MessageButtons buttons,
                           const std::string &title, int defaultButton)
{
    QMessageBox box(iconOf(style),
                    title.empty() ? QApplication::applicationDisplayName()
                                  : QString::fromStdString(title),
                    QString::fromStdString(text));
    const auto specs = buttonsOf(buttons);
    for (const auto &spec : specs)
        box.addButton(spec.button);
    const auto fallback = defaultAnswer(buttons, defaultButton);
    for (const auto &spec : specs) {
        if (spec.answer == fallback)
            box.setDefaultButton(spec.button);
    }
    // A box must show the normal pointer even inside a busy section.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    const int pressed = box.exec();
    QApplication::restoreOverrideCursor();
    for (const auto &spec : specs) {
        if (spec.button == pressed)
            return spec.answer;
    }
    // Closed with Esc or the close box: the box's escape button, else its default.
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok
           : buttons == MessageButtons::YesNo ? MessageAnswer::No
                                              : MessageAnswer::Cancel;
}

void QtUi::setCursor(int pointer)
{
    if (pointer == kHourglassCursor && m_cursor != kHourglassCursor)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (pointer != kHourglassCursor && m_cursor == kHourglassCursor)
        QApplication::restoreOverrideCursor();
    m_cursor = pointer == kHourglassCursor ? kHourglassCursor : kDefaultCursor;
}

bool QtUi::runModal(QDialog &dialog)
{
    return dialog.exec() == QDialog::Accepted;
}

std::string QtUi::getOpenFileName(const std::string &caption, const std::string &filter)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(),
                                        QString::fromStdString(caption), QString(),
                                        QString::fromStdString(filter))
        .toStdString();
}

void QtUi::openUrl(const std::string &url)
{
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

void QtUi::unloadAllWindows()
{
    const auto windows = QApplication::topLevelWidgets();
    for (auto it = windows.crbegin(); it != windows.crend(); ++it) {
        if ((*it)->isVisible())
            (*it)->close();
    }
}
