#include "wizards/publications/PublishSelectMinistore.h"

#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"
#include "wizards/publications/PublicationAddition.h"

#include <QGroupBox>
#include <QVBoxLayout>

PublishSelectMinistore::PublishSelectMinistore(PageHost &parent, const QString &controlName,
                                               QWidget *widgetParent)
    : WizardPage(parent, controlName, widgetParent)
{
    auto *frame = new QGroupBox(
        QString::fromUtf8("Seleccione la Minitienda donde va a publicar su producto"), this);
    frame->setObjectName("Frame1");
    m_list = new KeyedListView("ListView1",
                               {QString::fromUtf8("Código"), "Nombre",
                                QString::fromUtf8("Descripción"), "Publicaciones", "Max. Pub."},
                               frame);
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(m_list);

    m_buttons = new NavigationButtons(this);
    m_buttons->setObjectName("NavigationButtons1");
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame, 1);
    page->addWidget(m_buttons);

    onEvent(m_list, &QTreeWidget::itemClicked, "ListView1_ItemClick",
            [this] { m_buttons->setNextEnabled(true); });
    onEvent(m_list, &QTreeWidget::itemDoubleClicked, "ListView1_DblClick",
            [this] { DoPublication(); });
    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoPublication(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage("PublishAssociationNC"); });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick",
            [this] { Parent().SwitchPage("Show"); });
}

void PublishSelectMinistore::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        m_buttons->setAcceptEnabled(false);
        m_buttons->setNextEnabled(false);
        m_ministores = Ministores();
        m_list->clear();
        const auto deposits = gSeller->virtualDeposits();
        if (deposits == nullptr)
            return;
        for (const auto &deposit : *deposits) {
            const auto &ministore = deposit->ministore();
            if (ministore == nullptr)
                continue;
            const std::string key = "un" + ministore->id();
            const std::int16_t total = ministore->totalPublishedBySeller();
            m_list->addRow(key, {ministore->id(), ministore->name(), ministore->Description(),
                                 std::to_string(total),
                                 std::to_string(ministore->maxPublishedProducts())});
            // Only a warning: the limit is dealt with, by asking, when the publication is made.
            if (total >= ministore->maxPublishedProducts())
                m_list->setRowColor(key, QColor(255, 0, 0));
            m_ministores.add(ministore, key);
        }
        m_list->fitColumns();
    });
}

bool PublishSelectMinistore::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort("Desea abortar la operación?"); });
}

void PublishSelectMinistore::DoPublication()
{
    withHandler(handlerLabel("DoPublication"), [&] {
        if (!m_list->hasSelection())
            return;
        const auto addition = requiredOperation<PublicationAddition>(Parent());
        addition->setMinistore(m_ministores.item(m_list->selectedKey()));
        Parent().SwitchPage("ConfirmPublication");
    });
}
