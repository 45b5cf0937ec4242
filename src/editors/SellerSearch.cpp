#include "editors/SellerSearch.h"

#include "catalogue/DovelCategory.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerCatalogue.h"
#include "editors/KeyedTreeView.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"
#include "shell/frame/EventProcedure.h"
#include "shell/frame/Twips.h"
#include "stores/Seller.h"
#include "stores/VirtualDeposit.h"
#include "stores/ZorvantaMinistore.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

namespace {

const int kGap = twipsToPixels(50);
const int kTreeHeight = twipsToPixels(2400);
// Between the search part and the column of options.
const int kColumnGap = twipsToPixels(120);

bool showsStoreFilter(std::int16_t searchType)
{
    return searchType == 2 || searchType == 3;
}

} // namespace

SellerSearch::SellerSearch(QWidget *parent) : QWidget(parent)
{
    const auto option = [this](const char *name, const char *text) {
        auto *button = new QRadioButton(QString::fromUtf8(text), this);
        button->setObjectName(name);
        return button;
    };
    m_category = option("Category", "Por ca&tegoría");
    m_code = option("Code", "Por códi&go");
    m_description = option("Description", "Por descri&pción");
    m_reference = option("Reference", "Por &referencia");
    m_tree = new KeyedTreeView(this);
    m_label1 = new QLabel(QString::fromUtf8("Texto a buscar:"), this);
    m_label1->setObjectName("Label1");
    m_searchText = new QLineEdit(this);
    m_searchText->setObjectName("SearchText");
    m_label1->setBuddy(m_searchText);
    m_label2 = new QLabel("Minitienda:", this);
    m_label2->setObjectName("Label2");
    m_combo = new QComboBox(this);
    m_combo->setObjectName("Combo1");
    // Wide enough for the longest store name it holds.
    m_combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_label2->setBuddy(m_combo);
    m_label2->hide();
    m_combo->hide();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    // An option fires when it becomes the selected one, by a click or by the program.
    const std::pair<QRadioButton *, const char *> options[] = {
        {m_category, "SellerSearch:Category_Click"},
        {m_code, "SellerSearch:Code_Click"},
        {m_description, "SellerSearch:Description_Click"},
        {m_reference, "SellerSearch:Reference_Click"}};
    for (const auto &[button, label] : options) {
        const auto click = eventProcedure(label, [this, button = button] {
            if (button == m_category)
                Category_Click();
            else
                textOption_Click();
        });
        connect(button, &QRadioButton::toggled, this, [click](bool on) {
            if (on)
                click();
        });
    }
    // Every key runs the search: no timer, no minimum length.
    connect(m_searchText, &QLineEdit::textChanged, this,
            eventProcedure("SellerSearch:SearchText_Change", [this] { fillTextResults(); }));
    connect(m_tree, &QTreeWidget::itemClicked, this,
            eventProcedure("SellerSearch:TreeView1_NodeClick", [this] { fillCategoryResults(); }));
    connect(m_tree, &QTreeWidget::itemExpanded, this,
            eventProcedure("SellerSearch:TreeView1_Expand", [this] { fillCategoryResults(); }));
    connect(m_tree, &QTreeWidget::itemCollapsed, this,
            eventProcedure("SellerSearch:TreeView1_Collapse", [this] { fillCategoryResults(); }));
    connect(m_combo, &QComboBox::activated, this,
            eventProcedure("SellerSearch:Combo1_Click", [this] { Combo1_Click(); }));

    start();
}

void SellerSearch::start()
{
    withHandler("SellerSearch:UserControl_ReadProperties", [&] {
        const auto root = sellerRootCategory();
        root->StartQuery();
        if (root->children() == nullptr || root->children()->empty()) {
            // An ERP without categories can only be searched by text.
            m_category->setEnabled(false);
            m_code->setChecked(true);
        } else {
            m_category->setChecked(true);
        }
    });
}

void SellerSearch::Category_Click()
{
    const auto root = sellerRootCategory();
    root->StartQuery();
    if (root->children() == nullptr || root->children()->empty()) {
        m_code->setChecked(true);
        return;
    }
    m_tree->show();
    m_label1->hide();
    m_searchText->hide();
    adjustHeight();
    fillCategoryResults();
}

void SellerSearch::textOption_Click()
{
    m_tree->hide();
    m_label1->show();
    // Emptying the text runs the search by itself as well; nothing depends on that.
    m_searchText->clear();
    m_searchText->show();
    adjustHeight();
    fillTextResults();
}

void SellerSearch::Combo1_Click()
{
    m_selectedMinistore = m_ministores->item(m_combo->currentIndex() + 1);
    refresh();
}

void SellerSearch::setSearchType(std::int16_t searchType)
{
    withHandler("SellerSearch:searchType Property Let", [&] {
        if (showsStoreFilter(searchType)) {
            m_label2->show();
            m_combo->show();
            if (searchType != m_searchType) {
                m_searchType = searchType;
                fillMinistores();
            }
        } else {
            m_label2->hide();
            m_combo->hide();
            // The other lists go on sending the store last chosen, if any.
            m_searchType = searchType;
        }
        adjustHeight();
        refresh();
    });
}

void SellerSearch::setMinistore(int index)
{
    withHandler("SellerSearch:ministore Property Let", [&] {
        if (m_ministores == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_selectedMinistore = m_ministores->item(index + 1);
        m_combo->setCurrentIndex(index);
    });
}

void SellerSearch::fillMinistores()
{
    withHandler("SellerSearch:fillMinistores", [&] {
        m_combo->clear();
        m_ministores = std::make_shared<Ministores>();
        if (const auto deposits = gSeller->virtualDeposits()) {
            for (const auto &deposit : *deposits) {
                if (const auto &ministore = deposit->ministore()) {
                    m_combo->addItem(QString::fromStdString(ministore->name()));
                    m_ministores->add(ministore, ministore->id());
                }
            }
        }
        // The list cannot point at a first store it does not have.
        if (m_combo->count() == 0)
            raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
        m_combo->setCurrentIndex(0);
        m_selectedMinistore = m_ministores->item(1);
    });
}

void SellerSearch::refresh()
{
    if (categoryMode())
        fillCategoryResults();
    else
        fillTextResults();
}

bool SellerSearch::categoryMode() const
{
    return m_category->isChecked();
}

void SellerSearch::fillTextResults()
{
    withHandler(
        "SellerSearch:fillTextResults",
        [&] {
            BeginWait();
            m_textBrowser = sellerBrowser();
            m_textBrowser->setProductType(m_searchType);
            m_textBrowser->setMinistore(m_selectedMinistore);
            m_textBrowser->setQueryType(m_code->isChecked() ? 1 : m_description->isChecked() ? 2
                                                                                             : 3);
            m_textBrowser->setSearchString(m_searchText->text().toStdString());
            m_textBrowser->StartQuery();
            emit Changed();
            EndWait();
        },
        [] { EndWait(); });
}

void SellerSearch::fillCategoryResults()
{
    withHandler(
        "SellerSearch:fillCategoryResults",
        [&] {
            BeginWait();
            if (m_categories.empty()) {
                const auto root = sellerRootCategory();
                root->StartQuery();
                if (const auto &children = root->children()) {
                    for (const auto &child : *children) {
                        m_categories.add(child, child->id());
                        m_tree->addTopNode(KeyedTreeView::categoryKey(child->id()),
                                           child->name());
                    }
                }
                m_tree->selectFirstNode();
            }
            const std::string key = m_tree->selectedKey();
            const auto category = m_categories.item(KeyedTreeView::categoryIdOf(key));
            category->setProductType(m_searchType);
            category->setMinistore(m_selectedMinistore);
            category->StartQuery();
            if (const auto &children = category->children())
                m_tree->drawChildren(m_categories, key, *children,
                                     [](const DovelCategory &child) { return child.name(); });
            emit Changed();
            EndWait();
        },
        [] { EndWait(); });
}

std::shared_ptr<DovelCategory> SellerSearch::selectedCategory() const
{
    return m_categories.item(KeyedTreeView::categoryIdOf(m_tree->selectedKey()));
}

void SellerSearch::Reset()
{
    withHandler("SellerSearch:Reset Method", [&] {
        adjustHeight();
        refresh();
    });
}

std::shared_ptr<SellerSearch::Products> SellerSearch::products()
{
    return withHandler("SellerSearch:products Property Get", [&] {
        if (categoryMode())
            return selectedCategory()->products();
        if (m_textBrowser == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        return m_textBrowser->products();
    });
}

void SellerSearch::GetMore()
{
    withHandler("SellerSearch:GetMore Method", [&] {
        if (categoryMode()) {
            selectedCategory()->GetMore();
            return;
        }
        if (m_textBrowser == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        m_textBrowser->GetMore();
    });
}

bool SellerSearch::allRead()
{
    return withHandler("SellerSearch:allRead Property Get", [&] {
        // The category says it as text.
        if (categoryMode())
            return selectedCategory()->allRead() == "True";
        if (m_textBrowser == nullptr)
            raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
        return m_textBrowser->allRead() != 0;
    });
}

void SellerSearch::adjustHeight()
{
    withHandler("SellerSearch:adjustHeight", [&] {
        const int part = categoryMode() ? kTreeHeight
                                        : m_label1->sizeHint().height() + kGap +
                                              m_searchText->sizeHint().height();
        int options = 0;
        for (const QRadioButton *button : {m_category, m_code, m_description, m_reference})
            options += button->sizeHint().height();
        int height = std::max(part, options);
        // The store filter takes the whole width under both columns, so the control is never
        // narrower than its longest store name.
        if (showsStoreFilter(m_searchType)) {
            height += kGap + m_label2->sizeHint().height() + m_combo->sizeHint().height();
            setMinimumWidth(m_combo->sizeHint().width());
        } else {
            setMinimumWidth(0);
        }
        setFixedHeight(height);
        layoutControls();
        emit SizeChanged();
    });
}

void SellerSearch::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layoutControls();
}

void SellerSearch::layoutControls()
{
    const QRadioButton *options[] = {m_category, m_code, m_description, m_reference};
    int optionsWidth = 0;
    for (const QRadioButton *button : options)
        optionsWidth = std::max(optionsWidth, button->sizeHint().width());
    const int partWidth = std::max(0, width() - optionsWidth - kColumnGap);

    int y = 0;
    if (categoryMode()) {
        m_tree->setGeometry(0, 0, partWidth, kTreeHeight);
        y = kTreeHeight;
    } else {
        m_label1->setGeometry(0, 0, partWidth, m_label1->sizeHint().height());
        y = m_label1->height() + kGap;
        m_searchText->setGeometry(0, y, partWidth, m_searchText->sizeHint().height());
        y += m_searchText->height();
    }
    int optionY = 0;
    for (QRadioButton *button : {m_category, m_code, m_description, m_reference}) {
        button->setGeometry(partWidth + kColumnGap, optionY, optionsWidth,
                            button->sizeHint().height());
        optionY += button->height();
    }
    if (showsStoreFilter(m_searchType)) {
        y = std::max(y, optionY) + kGap;
        m_label2->setGeometry(0, y, width(), m_label2->sizeHint().height());
        y += m_label2->height();
        m_combo->setGeometry(0, y, width(), m_combo->sizeHint().height());
    }
}
