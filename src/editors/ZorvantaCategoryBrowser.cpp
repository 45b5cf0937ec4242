#include "editors/ZorvantaCategoryBrowser.h"

#include "catalogue/ZorvantaCategory.h"
#include "catalogue/ZorvantaService.h"
#include "editors/KeyedTreeView.h"
#include "shell/BusyCursor.h"
#include "shell/ErrorHandling.h"

#include <QVBoxLayout>

ZorvantaCategoryBrowser::ZorvantaCategoryBrowser(QWidget *parent)
    : QWidget(parent), m_categories(std::make_shared<Categories>())
{
    m_tree = new KeyedTreeView(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);

    const auto visit = [this] { guardEvent([this] { fillCategoryResults(); }); };
    connect(m_tree, &QTreeWidget::itemClicked, this, visit);
    connect(m_tree, &QTreeWidget::itemExpanded, this, visit);
    connect(m_tree, &QTreeWidget::itemCollapsed, this, visit);
}

void ZorvantaCategoryBrowser::Reset()
{
    withHandler("ZorvantaCategoryBrowser:Reset", [&] {
        m_tree->clearNodes();
        m_categories = std::make_shared<Categories>();
        fillCategoryResults();
    });
}

void ZorvantaCategoryBrowser::fillCategoryResults()
{
    withHandler(
        "ZorvantaCategoryBrowser:fillCategoryResults",
        [&] {
            BeginWait();
            std::string parentKey;
            if (m_categories->empty()) {
                // The root is a node of its own, drawn with its children at once.
                m_currentCategory = ZorvantaService().RootCategory();
                m_currentCategory->StartQuery();
                m_categories->add(m_currentCategory, m_currentCategory->id());
                parentKey = KeyedTreeView::categoryKey(m_currentCategory->id());
                m_tree->addTopNode(parentKey, m_currentCategory->Description());
                m_tree->selectFirstNode();
            } else {
                parentKey = m_tree->selectedKey();
                m_currentCategory = m_categories->item(KeyedTreeView::categoryIdOf(parentKey));
                m_currentCategory->StartQuery();
            }
            if (const auto &children = m_currentCategory->children())
                m_tree->drawChildren(
                    *m_categories, parentKey, *children,
                    [](const ZorvantaCategory &child) { return child.Description(); });
            emit Changed();
            EndWait();
        },
        [] { EndWait(); });
}

std::shared_ptr<ZorvantaCategory> ZorvantaCategoryBrowser::selectCurrent()
{
    m_currentCategory = m_categories->item(KeyedTreeView::categoryIdOf(m_tree->selectedKey()));
    return m_currentCategory;
}

std::shared_ptr<ZorvantaCategoryBrowser::Products> ZorvantaCategoryBrowser::products()
{
    return withHandler("ZorvantaCategoryBrowser:products Property Get",
                       [&] { return selectCurrent()->products(); });
}

void ZorvantaCategoryBrowser::GetMore()
{
    withHandler("ZorvantaCategoryBrowser:GetMore Method", [&] { selectCurrent()->GetMore(); });
}

bool ZorvantaCategoryBrowser::allRead()
{
    return withHandler("ZorvantaCategoryBrowser:allRead Property Get",
                       [&] { return selectCurrent()->allRead(); });
}
