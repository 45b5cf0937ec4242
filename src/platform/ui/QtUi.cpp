#include "platform/ui/QtUi.h"

#include "platform/ui/LoadedWindows.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QUrl>

namespace {

// Callers write filters as "Imagen GIF (*.gif)|*.gif|Imagen JPEG (*.jpeg;*.jpg)|*.jpeg;*.jpg";
// Qt's dialog reads "Imagen GIF (*.gif);;Imagen JPEG (*.jpeg *.jpg)".
QString dialogFilter(const std::string &filter)
{
    const QStringList parts = QString::fromStdString(filter).split('|');
    if (parts.size() < 2)
        return QString::fromStdString(filter);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i];
        if (const qsizetype open = description.lastIndexOf('('); open > 0)
            description = description.left(open).trimmed();
        filters << description + " (" + parts[i + 1].split(';', Qt::SkipEmptyParts).join(' ') +
                       ")";
    }
    return filters.join(";;");
}

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

// The buttons carry the texts of the system's language, whatever Qt's own translation is.
struct ButtonSpec
{
    const char *caption;
    QMessageBox::ButtonRole role;
    MessageAnswer answer;
};

std::vector<ButtonSpec> buttonsOf(MessageButtons buttons)
{
    using B = QMessageBox;
    using A = MessageAnswer;
    const ButtonSpec ok{"Aceptar", B::AcceptRole, A::Ok};
    const ButtonSpec cancel{"Cancelar", B::RejectRole, A::Cancel};
    const ButtonSpec yes{"Sí", B::YesRole, A::Yes};
    const ButtonSpec no{"No", B::NoRole, A::No};
    const ButtonSpec retry{"Reintentar", B::AcceptRole, A::Retry};
    switch (buttons) {
    case MessageButtons::Ok: return {ok};
    case MessageButtons::OkCancel: return {ok, cancel};
    case MessageButtons::AbortRetryIgnore:
        return {{"Anular", B::RejectRole, A::Abort}, retry, {"Omitir", B::AcceptRole, A::Ignore}};
    case MessageButtons::YesNoCancel: return {yes, no, cancel};
    case MessageButtons::YesNo: return {yes, no};
    case MessageButtons::RetryCancel: return {retry, cancel};
    }
    return {ok};
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
    const MessageAnswer preferred = defaultAnswer(buttons, defaultButton);
    std::vector<QAbstractButton *> added;
    for (const auto &spec : specs) {
        QPushButton *button = box.addButton(QString::fromUtf8(spec.caption), spec.role);
        added.push_back(button);
        if (spec.answer == preferred)
            box.setDefaultButton(button);
    }
    // A box must show the normal pointer even inside a busy section.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    box.exec();
    QApplication::restoreOverrideCursor();
    for (std::size_t i = 0; i < specs.size(); ++i) {
        if (box.clickedButton() == added[i])
            return specs[i].answer;
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
    // Loaded while it runs, so that a fatal error raised from inside it closes it too.
    struct Loaded
    {
        explicit Loaded(QDialog &window) : dialog(&window)
        {
            LoadedWindows::instance().load(window);
        }
        ~Loaded()
        {
            if (dialog)
                LoadedWindows::instance().unload(*dialog);
        }
        QPointer<QDialog> dialog;
    } loaded(dialog);
    return execModal(dialog);
}

bool QtUi::execModal(QDialog &dialog)
{
    return dialog.exec() == QDialog::Accepted;
}

std::string QtUi::getOpenFileName(const std::string &caption, const std::string &filter)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(),
                                        QString::fromStdString(caption), QString(),
                                        dialogFilter(filter))
        .toStdString();
}

void QtUi::openUrl(const std::string &url)
{
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

void QtUi::unloadAllWindows()
{
    LoadedWindows::instance().unloadAll();
}
