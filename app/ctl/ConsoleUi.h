#pragma once

#include "platform/ui/Ui.h"

#include <ostream>

/// The Ui of an unattended run: no one is at a screen, so every box is written as a line
/// "[title] text" to the error stream and to the log, and gets its default button.
class ConsoleUi final : public Ui
{
public:
    explicit ConsoleUi(std::ostream &errors) : m_errors(errors) {}

    MessageAnswer msgBox(const std::string &text, MessageStyle style, MessageButtons buttons,
                         const std::string &title, int defaultButton) override;
    void setCursor(int pointer) override { m_cursor = pointer; }
    int cursor() const override { return m_cursor; }
    bool runModal(QDialog &) override { return false; }
    std::string getOpenFileName(const std::string &, const std::string &) override { return {}; }
    void openUrl(const std::string &) override {}
    void unloadAllWindows() override {}

private:
    std::ostream &m_errors;
    int m_cursor = kDefaultCursor;
};
