#include "platform/ui/ScriptedUi.h"

#include <QDialog>

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
    if (m_answers.empty())
        return defaultAnswer(buttons, defaultButton);
    const MessageAnswer answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

void ScriptedUi::setCursor(int pointer)
{
    m_cursor = pointer;
    m_cursorHistory.push_back(pointer);
}

bool ScriptedUi::runModal(QDialog &dialog)
{
    m_dialogsShown.push_back(dialog.objectName().toStdString());
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
