#include "shell/frame/AbortQuestion.h"

#include "platform/ui/Ui.h"

bool userConfirmsAbort(const std::string &question)
{
    return ui().msgBox(question, MessageStyle::Question, MessageButtons::YesNo, "Confirmación",
                       2) == MessageAnswer::Yes;
}
