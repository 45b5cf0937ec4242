#pragma once

#include "platform/ui/Ui.h"

/// The service the program runs with: Qt message boxes, the application's override cursor,
/// QFileDialog and the desktop's browser.
class QtUi : public Ui
{
public:
    MessageAnswer msgBox(const std::string &text, MessageStyle style, MessageButtons buttons,
                         const std::string &title, int defaultButton) override;
    void setCursor(int pointer) override;
    int cursor() const override { return m_cursor; }
    /// Runs `dialog` through execModal, loaded (LoadedWindows) while it runs.
    bool runModal(QDialog &dialog) final;
    std::string getOpenFileName(const std::string &caption, const std::string &filter) override;
    void openUrl(const std::string &url) override;
    void unloadAllWindows() override;

protected:
    /// Shows `dialog` modally and returns whether it was accepted.
    virtual bool execModal(QDialog &dialog);

private:
    int m_cursor = kDefaultCursor;
};
