#include "platform/ui/Ui.h"

#include <vector>

namespace {

class SilentUi final : public Ui
{
public:
    MessageAnswer msgBox(const std::string &, MessageStyle, MessageButtons buttons,
                         const std::string &, int defaultButton) override
    {
        return defaultAnswer(buttons, defaultButton);
    }
    void setCursor(int pointer) override { m_cursor = pointer; }
    int cursor() const override { return m_cursor; }
    bool runModal(QDialog &) override { return false; }
    std::string getOpenFileName(const std::string &, const std::string &) override { return {}; }
    void openUrl(const std::string &) override {}
    void unloadAllWindows() override {}

private:
    int m_cursor = kDefaultCursor;
};

std::unique_ptr<Ui> &installed()
{
    static std::unique_ptr<Ui> service = std::make_unique<SilentUi>();
    return service;
}

} // namespace

MessageAnswer defaultAnswer(MessageButtons buttons, int defaultButton)
{
    using A = MessageAnswer;
    std::vector<A> answers;
    switch (buttons) {
    case MessageButtons::Ok: answers = {A::Ok}; break;
    case MessageButtons::OkCancel: answers = {A::Ok, A::Cancel}; break;
    case MessageButtons::AbortRetryIgnore: answers = {A::Abort, A::Retry, A::Ignore}; break;
    case MessageButtons::YesNoCancel: answers = {A::Yes, A::No, A::Cancel}; break;
    case MessageButtons::YesNo: answers = {A::Yes, A::No}; break;
    case MessageButtons::RetryCancel: answers = {A::Retry, A::Cancel}; break;
    }
    if (defaultButton < 1 || defaultButton > static_cast<int>(answers.size()))
        defaultButton = 1;
    return answers[static_cast<std::size_t>(defaultButton - 1)];
}

Ui &ui()
{
    return *installed();
}

std::unique_ptr<Ui> setUi(std::unique_ptr<Ui> service)
{
    installed().swap(service);
    return service;
}
