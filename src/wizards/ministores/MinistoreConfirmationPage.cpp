#include "wizards/ministores/MinistoreConfirmationPage.h"

#include "platform/core/RaisedError.h"
#include "platform/ui/Ui.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/ValidateUserForm.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kTries = 3;

// A frame of three captions, each with its value beside it; labels are numbered from `first`
// (caption Label<first>, value Label<first + 1>, and so on).
QGroupBox *captionedValues(const char *title, const char *const captions[3], int first,
                           QLabel **values, QWidget *parent)
{
    auto *frame = new QGroupBox(title, parent);
    auto *grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < 3; ++row) {
        auto *caption = new QLabel(captions[row], frame);
        caption->setObjectName(QString("Label%1").arg(first + 2 * row));
        values[row] = new QLabel(frame);
        values[row]->setObjectName(QString("Label%1").arg(first + 2 * row + 1));
        values[row]->setWordWrap(true);
        values[row]->setTextFormat(Qt::PlainText);
        grid->addWidget(caption, row, 0, Qt::AlignTop);
        grid->addWidget(values[row], row, 1);
    }
    return frame;
}

} // namespace

MinistoreConfirmationPage::MinistoreConfirmationPage(PageHost &parent, const QString &controlName,
                                                     QWidget *widgetParent, const char *title)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox(title, this);
    frame->setObjectName("Frame1");
    const char *const depositCaptions[3] = {"Código:", "Descripción:", "Dirección:"};
    const char *const ministoreCaptions[3] = {"Código:", "Nombre:", "Descripción:"};
    QGroupBox *depositFrame =
        captionedValues("Depósito Virtual", depositCaptions, 1, m_values, frame);
    depositFrame->setObjectName("Frame2");
    QGroupBox *ministoreFrame =
        captionedValues("Minitenda", ministoreCaptions, 7, m_values + 3, frame);
    ministoreFrame->setObjectName("Frame3");
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(depositFrame);
    inside->addWidget(ministoreFrame);
    inside->addStretch();

    m_buttons = new NavigationButtons(this);
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame, 1);
    page->addWidget(m_buttons);

    onEvent(m_buttons, &NavigationButtons::AcceptClick, "NavigationButtons1_AcceptClick",
            [this] { performWithCredentials(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage(previousPage()); });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick", [this] {
        if (!canStop())
            return;
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}

void MinistoreConfirmationPage::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_buttons->setNextEnabled(false);
        const auto shownDeposit = deposit();
        const auto shownMinistore = ministore();
        if (!shownDeposit || !shownMinistore)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        const std::string texts[6] = {shownDeposit->id(),      shownDeposit->Description(),
                                      shownDeposit->address(), shownMinistore->id(),
                                      shownMinistore->name(),  shownMinistore->Description()};
        for (int i = 0; i < 6; ++i)
            m_values[i]->setText(QString::fromStdString(texts[i]));
    });
}

bool MinistoreConfirmationPage::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("¿Desea abortar la operación?"); });
}

void MinistoreConfirmationPage::performWithCredentials()
{
    ValidateUserForm form(this);
    form.setMinistore(ministore());
    for (int attempt = 1; attempt <= kTries; ++attempt) {
        // The button's busy section stays open; the person gets the normal pointer meanwhile.
        SuspendWait();
        const std::int32_t result = form.showModal();
        ResumeWait();
        if (result == ValidateUserForm::Validated) {
            requiredOperation<Operation>(Parent())->Perform();
            // Perform reports its own failures; the wizard starts over either way.
            Parent().setOperation(nullptr);
            Parent().SwitchPage("Show");
            return;
        }
        if (result == ValidateUserForm::Cancelled) {
            ui().msgBox("Operación Cancelada", MessageStyle::Information, MessageButtons::Ok,
                        "Información");
            return;
        }
        if (result == ValidateUserForm::Refused && attempt < kTries)
            ui().msgBox("Usuario o Clave Erronea", MessageStyle::Exclamation, MessageButtons::Ok,
                        "Error de verificación");
    }
    ui().msgBox("Usuario o Clave Erronea. Demasiados Reintentos. Operación Cancelada",
                MessageStyle::Exclamation, MessageButtons::Ok, "Error de verificación");
    Parent().setOperation(nullptr);
    Parent().SwitchPage("Show");
}
