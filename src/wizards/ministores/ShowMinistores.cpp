#include "wizards/ministores/ShowMinistores.h"

#include "platform/ui/Ui.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/PageHost.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreAddition.h"
#include "wizards/ministores/MinistoreRemove.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

std::string statusText(const ZorvantaMinistore &ministore)
{
    return ministore.status() == "A" ? "Activa" : "Inactiva";
}

} // namespace

ShowMinistores::ShowMinistores(PageHost &parent, const QString &controlName, QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox(QString::fromUtf8("Depósitos y Minitiendas Actuales"), this);
    frame->setObjectName("Frame1");
    m_list = new KeyedListView("ListView1",
                               {QString::fromUtf8("Depósitos Virtuales"), "Minitiendas",
                                QString::fromUtf8("¿Minitienda Activa?")},
                               frame);
    m_associate = new QPushButton("&Asociar", frame);
    m_associate->setObjectName("Asociar");
    m_deassociate = new QPushButton("&Desasociar", frame);
    m_deassociate->setObjectName("Desasociar");

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_associate);
    buttons->addWidget(m_deassociate);
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(m_list);
    inside->addLayout(buttons);
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame);

    onEvent(m_list, &QTreeWidget::currentItemChanged, "ListView1_ItemClick",
            [this] { enableButtons(); });
    onEvent(m_list, &QTreeWidget::itemDoubleClicked, "ListView1_DblClick",
            [this] { DoAssociation(); });
    onEvent(m_associate, &QPushButton::clicked, "Asociar_Click", [this] { DoAssociation(); });
    onEvent(m_deassociate, &QPushButton::clicked, "Desasociar_Click",
            [this] { DoDeassociation(); });
}

void ShowMinistores::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_list->clear();
        if (sellerMinistores().empty()) {
            ui().msgBox("No hay minitiendas. Consulte al Administrador.");
            Parent().SwitchPage("Stop");
            return;
        }
        if (sellerDeposits().empty()) {
            ui().msgBox("No hay depósitos virtuales. Consulte al Administrador.");
            Parent().SwitchPage("Stop");
            return;
        }
        m_freeMinistores = ministoresWithoutDeposit();
        m_freeDeposits = depositsWithoutMinistore();
        for (const auto &deposit : sellerDeposits())
            addDepositRow(*deposit);
        for (const auto &ministore : m_freeMinistores)
            addFreeMinistoreRow(*ministore);
        selectOperationRow();
        enableButtons();
        m_list->fitColumns();
        m_list->setFocus();
    });
}

void ShowMinistores::addDepositRow(const VirtualDeposit &deposit)
{
    const ZorvantaMinistore *ministore = deposit.ministore().get();
    m_list->addRow("id" + deposit.id(),
                   {deposit.Description(), ministore ? ministore->name() : std::string(),
                    ministore ? statusText(*ministore) : std::string()});
}

void ShowMinistores::addFreeMinistoreRow(const ZorvantaMinistore &ministore)
{
    m_list->addRow("un" + ministore.id(), {std::string(), ministore.name(), statusText(ministore)});
}

void ShowMinistores::selectOperationRow()
{
    // A wizard entered again, or a page left with Back, finds the row where the user began.
    const std::shared_ptr<Operation> operation = Parent().operation();
    std::string key;
    if (const auto addition = std::dynamic_pointer_cast<MinistoreAddition>(operation)) {
        if (addition->ministore() && !addition->startedWithMinistore())
            key = "un" + addition->ministore()->id();
        else if (addition->deposit() && addition->startedWithMinistore())
            key = "id" + addition->deposit()->id();
    } else if (const auto removal = std::dynamic_pointer_cast<MinistoreRemove>(operation)) {
        if (removal->deposit())
            key = "id" + removal->deposit()->id();
    }
    if (key.empty())
        m_list->selectFirstRow();
    else
        m_list->selectRow(key);
}

bool ShowMinistores::mayAssociate() const
{
    const bool linked = !m_list->selectedText(0).empty() && !m_list->selectedText(1).empty();
    return m_list->hasSelection() && !linked && !m_freeDeposits.empty() &&
           !m_freeMinistores.empty();
}

void ShowMinistores::enableButtons()
{
    m_associate->setEnabled(mayAssociate());
    m_deassociate->setEnabled(!m_list->selectedText(0).empty() && !m_list->selectedText(1).empty());
}

void ShowMinistores::DoAssociation()
{
    if (!mayAssociate())
        return;
    auto addition = std::dynamic_pointer_cast<MinistoreAddition>(Parent().operation());
    if (!addition) {
        addition = std::make_shared<MinistoreAddition>();
        Parent().setOperation(addition);
    }
    const std::string id = idOfRowKey(m_list->selectedKey());
    if (!m_list->selectedText(1).empty()) {
        // A free ministore: its deposit is still to be chosen.
        addition->setMinistore(sellerMinistores().item(id));
        addition->setStartedWithMinistore(false);
        Parent().SwitchPage("AssociateDeposit");
    } else {
        addition->setDeposit(sellerDeposits().item(id));
        addition->setStartedWithMinistore(true);
        Parent().SwitchPage("AssociateMinistore");
    }
}

void ShowMinistores::DoDeassociation()
{
    if (m_list->selectedText(0).empty() || m_list->selectedText(1).empty())
        return;
    // Every removal starts with an operation of its own, whatever the wizard held.
    auto removal = std::make_shared<MinistoreRemove>();
    Parent().setOperation(removal);
    removal->setDeposit(sellerDeposits().item(idOfRowKey(m_list->selectedKey())));
    Parent().SwitchPage("ConfirmMinistoreRemoval");
}
