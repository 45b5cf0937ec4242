#pragma once

#include "platform/ui/QtUi.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// A message box as the program asked for it.
struct RecordedBox
{
    std::string text;
    std::string title;
    MessageStyle style = MessageStyle::Plain;
    MessageButtons buttons = MessageButtons::Ok;
    int defaultButton = 1;
};

/// The Ui of the tests: records every box, pointer change, dialog and browser page, and answers
/// from queues filled by the test. Windows are real, so closing them still goes through Qt.
/// What the test queued and nobody used, or an answer a box had no button for, is a mistake of
/// the test that `scriptMistakes` reports.
class ScriptedUi : public QtUi
{
public:
    /// Installs a fresh scripted service and returns it; it lives until another is installed.
    static ScriptedUi &install();

    /// Answers for the next boxes, in order; with none queued a box gets its default button.
    void queueAnswer(MessageAnswer answer) { m_answers.push_back(answer); }
    /// Plays the person in the next modal dialog: fill its fields, return true to accept.
    /// With none queued a dialog is cancelled.
    void queueDialog(std::function<bool(QDialog &)> person) { m_dialogs.push_back(std::move(person)); }
    void queueFileName(std::string path) { m_fileNames.push_back(std::move(path)); }

    const std::vector<RecordedBox> &boxes() const { return m_boxes; }
    std::vector<std::string> boxTexts() const;
    /// Forgets the boxes shown so far, and what was seen.
    void clearBoxes()
    {
        m_boxes.clear();
        m_seen.clear();
    }
    const std::vector<int> &cursorHistory() const { return m_cursorHistory; }
    const std::vector<std::string> &dialogsShown() const { return m_dialogsShown; }
    /// What the person saw, in order: each box by its text, each dialog as "[objectName]".
    const std::vector<std::string> &seen() const { return m_seen; }
    /// Answers, dialogs and file names still queued, and answers given to a box that had no
    /// such button, each in words; empty when the script was played as written.
    std::vector<std::string> scriptMistakes() const;
    const std::vector<std::string> &openedUrls() const { return m_openedUrls; }

    MessageAnswer msgBox(const std::string &text, MessageStyle style, MessageButtons buttons,
                         const std::string &title, int defaultButton) override;
    void setCursor(int pointer) override;
    int cursor() const override { return m_cursor; }
    std::string getOpenFileName(const std::string &caption, const std::string &filter) override;
    void openUrl(const std::string &url) override { m_openedUrls.push_back(url); }

protected:
    bool execModal(QDialog &dialog) override;

private:
    std::deque<MessageAnswer> m_answers;
    std::deque<std::function<bool(QDialog &)>> m_dialogs;
    std::deque<std::string> m_fileNames;
    std::vector<RecordedBox> m_boxes;
    std::vector<int> m_cursorHistory;
    std::vector<std::string> m_dialogsShown;
    std::vector<std::string> m_seen;
    std::vector<std::string> m_misplacedAnswers;
    std::vector<std::string> m_openedUrls;
    int m_cursor = kDefaultCursor;
};
