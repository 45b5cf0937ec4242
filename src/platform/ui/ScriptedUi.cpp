#include "platform/ui/ScriptedUi.h"

#include <QDialog>

namespace {

bool hasButton(MessageButtons buttons, MessageAnswer answer)
{
    for (int button = 1; button <= 3; ++button) {
        if (defaultAnswer(buttons, button) == answer)
            return true;
    }
    return false;
}

const char *nameOf(MessageAnswer answer)
{
    switch (answer) {
    case MessageAnswer::Ok: return "Ok";
    case MessageAnswer::Cancel: return "Cancel";
    case MessageAnswer::Abort: return "Abort";
    case MessageAnswer::Retry: return "Retry";
    case MessageAnswer::Ignore: return "Ignore";
    case MessageAnswer::Yes: return "Yes";
    case MessageAnswer::No: return "No";
    }
    return "?";
}

} // namespace

ScriptedUi &ScriptedUi::install()
{
    auto service = std::make_unique<ScriptedUi>();
    ScriptedUi &installed = *service;
    setUi(std::move(service));
    return installed;
}

std::vector<std::string> ScriptedUi::boxTexts() const
{
    std::vector<std::string> texts;
    for (const auto &box : m_boxes)
        texts.push_back(box.text);
    return texts;
}

MessageAnswer ScriptedUi::msgBox(const std::string &text, MessageStyle style,
                                 MessageButtons buttons, const std::string &title,
                                 int defaultButton)
{
    m_boxes.push_back({text, title, style, buttons, defaultButton});
    m_seen.push_back(text);
    if (m_answers.empty())
        return defaultAnswer(buttons, defaultButton);
    const MessageAnswer answer = m_answers.front();
    m_answers.pop_front();
    if (!hasButton(buttons, answer))
        m_misplacedAnswers.push_back(std::string("answer ") + nameOf(answer) +
                                     " given to a box without that button: " + text);
    return answer;
}

std::vector<std::string> ScriptedUi::scriptMistakes() const
{
    std::vector<std::string> mistakes = m_misplacedAnswers;
    for (const MessageAnswer answer : m_answers)
        mistakes.push_back(std::string("answer ") + nameOf(answer) +
                           " queued for a box that never came");
    if (!m_dialogs.empty())
        mistakes.push_back(std::to_string(m_dialogs.size()) + " dialog(s) queued and never shown");
    for (const std::string &path : m_fileNames)
        mistakes.push_back("file name queued and never asked for: " + path);
    return mistakes;
}

void ScriptedUi::setCursor(int pointer)
{
    m_cursor = pointer;
    m_cursorHistory.push_back(pointer);
}

bool ScriptedUi::execModal(QDialog &dialog)
{
    m_dialogsShown.push_back(dialog.objectName().toStdString());
    m_seen.push_back("[" + m_dialogsShown.back() + "]");
    if (m_dialogs.empty())
        return false;
    auto person = std::move(m_dialogs.front());
    m_dialogs.pop_front();
    return person(dialog);
}

std::string ScriptedUi::getOpenFileName(const std::string &, const std::string &)
{
    if (m_fileNames.empty())
        return {};
    std::string path = std::move(m_fileNames.front());
    m_fileNames.pop_front();
    return path;
}
