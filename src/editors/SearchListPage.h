#pragma once

#include "editors/ProductList.h"
#include "editors/SellerProductGrid.h"
#include "editors/SellerSearch.h"
#include "editors/ZorvantaPropertiesGrid.h"
#include "shell/frame/WizardPage.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStringList>
#include <QVBoxLayout>
#include <initializer_list>

/// Which detail controls a search page shows under its list.
enum class SearchListDetail { SellerProduct, SellerAndZorvantaProduct };

/// A wizard page built on the ERP search and the product list it fills: the search
/// (`SellerSearch1`) in its frame (`Frame2`), the list (`MSFlexGrid1`) with the page's columns,
/// and the detail of the selected line (`SellerProductGrid1`, and `ZorvantaPropertiesGrid1`
/// when asked for). The search's and the list's events are wired here under the page's own
/// labels; the page says what a new search and a selected line show, and places every control
/// in its layout, which gives it its parent: the page's own frames come first in its tree, as
/// the controls are found in it.
/// `Page` is the page's own base: WizardPage or one that derives from it.
template <class Entry, class Page = WizardPage> class SearchListPage : public Page
{
protected:
    using Lines = ProductList<Entry>;

    SearchListPage(PageHost &parent, const QString &controlName, QWidget *widgetParent,
                   const QStringList &headings, typename Lines::KeyOf keyOf,
                   typename Lines::LineOf lineOf, SearchListDetail detail,
                   const QString &searchTitle = QString::fromUtf8("&Búsqueda"))
        : Page(parent, controlName, widgetParent), m_searchFrame(new QGroupBox(searchTitle)),
          m_search(new SellerSearch(m_searchFrame)), m_grid(new ProductListGrid(headings, nullptr)),
          m_list(*m_grid, std::move(keyOf), std::move(lineOf)),
          m_sellerProduct(new SellerProductGrid)
    {
        m_searchFrame->setObjectName("Frame2");
        m_search->setObjectName("SellerSearch1");
        (new QVBoxLayout(m_searchFrame))->addWidget(m_search);
        m_sellerProduct->setObjectName("SellerProductGrid1");
        if (detail == SearchListDetail::SellerAndZorvantaProduct) {
            m_properties = new ZorvantaPropertiesGrid;
            m_properties->setObjectName("ZorvantaPropertiesGrid1");
        }

        this->onEvent(m_search, &SellerSearch::Changed, "SellerSearch1_Changed",
                      [this] { SellerSearch1_Changed(); });
        this->onEvent(m_grid, &ProductListGrid::SelChange, "MSFlexGrid1_SelChange",
                      [this] { ShowProduct(); });
        this->onEvent(m_grid, &ProductListGrid::Scroll, "MSFlexGrid1_Scroll",
                      [this] { GetMoreProducts(); });
        this->onEvent(m_grid, &ProductListGrid::Resized, "MSFlexGrid1_Resize",
                      [this] { GetMoreProducts(); });
    }

    /// The search has new results: the page refills the list and shows what it selects.
    virtual void SellerSearch1_Changed() = 0;
    /// The person chose another line: the page shows its entry in the detail.
    virtual void ShowProduct() = 0;

    /// Empties the list, then fills it with the search's present page and as many more as the
    /// list can show.
    void refill()
    {
        m_list.clear();
        if (const auto products = m_search->products())
            m_list.addPage(*products);
        GetMoreProducts();
    }

    /// Empties the detail controls.
    void clearDetail()
    {
        m_sellerProduct->setProduct(nullptr);
        if (m_properties != nullptr) {
            m_properties->setZorvantaProperties(nullptr);
            m_properties->setValues(nullptr);
        }
    }

    /// The page's frame around the list (`Frame1`): `above` (the search, on pages that hold it
    /// there) over the list, and `buttons` at its foot on the right, in the order given.
    QGroupBox *listFrame(const QString &title, std::initializer_list<QPushButton *> buttons,
                         QWidget *above = nullptr)
    {
        auto *frame = new QGroupBox(title, this);
        frame->setObjectName("Frame1");
        auto *foot = new QHBoxLayout;
        foot->addStretch();
        for (QPushButton *button : buttons)
            foot->addWidget(button);
        auto *inside = new QVBoxLayout(frame);
        if (above != nullptr)
            inside->addWidget(above);
        inside->addWidget(m_grid, 1);
        inside->addLayout(foot);
        return frame;
    }

    /// The ERP product beside the marketplace product, with the widths' shares given.
    QHBoxLayout *detailRow(int sellerShare, int propertiesShare)
    {
        auto *row = new QHBoxLayout;
        row->addWidget(m_sellerProduct, sellerShare);
        row->addWidget(m_properties, propertiesShare);
        return row;
    }

    /// Reads further pages while the list would show a gap at its foot.
    void GetMoreProducts()
    {
        withHandler(this->handlerLabel("GetMoreProducts"),
                    [&] { m_list.GetMoreProducts(*m_search); });
    }

    QGroupBox *m_searchFrame;
    SellerSearch *m_search;
    ProductListGrid *m_grid;
    Lines m_list;
    SellerProductGrid *m_sellerProduct;
    /// nullptr on a page that shows the ERP product alone.
    ZorvantaPropertiesGrid *m_properties = nullptr;
};
