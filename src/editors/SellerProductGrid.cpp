#include "editors/SellerProductGrid.h"

#include "catalogue/SellerProduct.h"
#include "shell/Constants.h"
#include "shell/ErrorHandling.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The ERP writes its prices as the wire does, with "."; the seller reads them with the
// locale's separator, digits as written. A text that is not a number is shown as it came.
std::string shownPrice(const std::string &wire)
{
    std::string shown = wire;
    if (const auto dot = shown.find('.'); dot != std::string::npos && wireNumber(wire))
        shown.replace(dot, 1, gDecimalSeparator);
    return shown;
}

} // namespace

SellerProductGrid::SellerProductGrid(QWidget *parent) : QWidget(parent)
{
    m_list = new QTreeWidget(this);
    m_list->setObjectName("ListView1");
    m_list->setHeaderLabels({"Nombre", "Valor"});
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_list->header()->setStretchLastSection(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
}

void SellerProductGrid::setProduct(std::shared_ptr<SellerProduct> product)
{
    m_product = std::move(product);
    fillGrid();
}

void SellerProductGrid::fillGrid()
{
    withHandler("SellerProductGrid:fillGrid", [&] {
        m_list->clear();
        if (m_product == nullptr)
            return;
        const auto addRow = [this](const char *name, const std::string &value) {
            m_list->addTopLevelItem(new QTreeWidgetItem(
                {QString::fromUtf8(name), QString::fromStdString(value)}));
        };
        addRow("Código", m_product->dovelID());
        addRow("Descripción", m_product->Description());
        addRow("Referencia", m_product->Reference());
        addRow("Precio 1", shownPrice(m_product->price1()));
        addRow("Precio 2", shownPrice(m_product->price2()));
        addRow("Precio 3", shownPrice(m_product->price3()));
    });
}
