#include "wizards/ministores/MinistoreSelectionPage.h"

#include "shell/ErrorHandling.h"
#include "shell/frame/AbortQuestion.h"
#include "shell/frame/KeyedListView.h"
#include "shell/frame/NavigationButtons.h"
#include "shell/frame/PageHost.h"
#include "wizards/ministores/FreeStores.h"
#include "wizards/ministores/MinistoreAddition.h"

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

MinistoreSelectionPage::MinistoreSelectionPage(PageHost &parent, const QString &controlName,
                                               QWidget *widgetParent, SelectionTexts texts)
    : WizardPage(parent, controlName, widgetParent), m_texts(std::move(texts))
{
    auto *frame = new QGroupBox(QString::fromUtf8(m_texts.frame), this);
    frame->setObjectName("Frame1");
    auto *inside = new QVBoxLayout(frame);
    if (m_texts.title) {
        auto *title = new QLabel(QString::fromUtf8(m_texts.title), frame);
        title->setObjectName("Title");
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
        title->setWordWrap(true);
        inside->addWidget(title);
    }
    auto *chosen = new QGroupBox(QString::fromUtf8(m_texts.chosenFrame), frame);
    chosen->setObjectName("Frame2");
    m_label1 = new QLabel(chosen);
    m_label1->setObjectName("Label1");
    m_label2 = new QLabel(chosen);
    m_label2->setObjectName("Label2");
    for (QLabel *line : {m_label1, m_label2}) {
        line->setWordWrap(true);
        line->setTextFormat(Qt::PlainText);
    }
    auto *chosenLines = new QVBoxLayout(chosen);
    chosenLines->addWidget(m_label1);
    chosenLines->addWidget(m_label2);
    inside->addWidget(chosen);

    m_list = new KeyedListView("ListView1", m_texts.headers, frame);
    auto *listLabel = new QLabel(QString::fromUtf8(m_texts.listLabel), frame);
    listLabel->setObjectName("ListLabel");
    listLabel->setBuddy(m_list);
    inside->addWidget(listLabel);
    inside->addWidget(m_list, 1);

    m_buttons = new NavigationButtons(this);
    m_buttons->setAcceptEnabled(false);
    auto *page = new QVBoxLayout(this);
    page->addWidget(frame, 1);
    page->addWidget(m_buttons);

    onEvent(m_list, &QTreeWidget::currentItemChanged, "ListView1_ItemClick",
            [this] { m_buttons->setNextEnabled(true); });
    onEvent(m_list, &QTreeWidget::itemDoubleClicked, "ListView1_DblClick",
            [this] { DoAssociation(); });
    onEvent(m_buttons, &NavigationButtons::NextClick, "NavigationButtons1_NextClick",
            [this] { DoAssociation(); });
    onEvent(m_buttons, &NavigationButtons::BackClick, "NavigationButtons1_BackClick",
            [this] { Parent().SwitchPage("Show"); });
    onEvent(m_buttons, &NavigationButtons::CancelClick, "NavigationButtons1_CancelClick", [this] {
        if (!canStop())
            return;
        Parent().setOperation(nullptr);
        Parent().SwitchPage("Show");
    });
}

void MinistoreSelectionPage::Start()
{
    withHandler(handlerLabel("Start"), [&] {
        const auto addition = requiredOperation<MinistoreAddition>(Parent());
        const auto [first, second] = chosenHalf(*addition);
        m_label1->setText(QString::fromStdString(first));
        m_label2->setText(QString::fromStdString(second));
        m_list->clear();
        fillRows(*m_list);
        m_buttons->setNextEnabled(true);
        const std::string held = heldKey(*addition);
        if (held.empty())
            m_list->selectFirstRow();
        else
            m_list->selectRow(held);
        m_list->fitColumns();
        m_list->setFocus();
    });
}

bool MinistoreSelectionPage::canStop()
{
    return withHandler(handlerLabel("canStop Property Get"),
                       [&] { return userConfirmsAbort(m_texts.abortQuestion); });
}

void MinistoreSelectionPage::DoAssociation()
{
    if (!m_list->hasSelection())
        return;
    const auto addition = requiredOperation<MinistoreAddition>(Parent());
    choose(*addition, idOfRowKey(m_list->selectedKey()));
    Parent().SwitchPage("ConfirmMinistoreAssociation");
}
