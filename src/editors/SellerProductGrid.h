#pragma once

#include <QWidget>

#include <memory>

class QTreeWidget;
class SellerProduct;

/// The read-only detail of one ERP product: code, description, reference and its three
/// prices, as rows of "Nombre" and "Valor" in ListView1, which fills the control.
class SellerProductGrid : public QWidget
{
    Q_OBJECT
public:
    explicit SellerProductGrid(QWidget *parent = nullptr);

    const std::shared_ptr<SellerProduct> &Product() const { return m_product; }
    /// Shows `product`, reading its prices from the ERP the first time; nullptr empties the
    /// list. A failed read is reported and the rows read so far stay.
    void setProduct(std::shared_ptr<SellerProduct> product);

private:
    void fillGrid();

    QTreeWidget *m_list;
    std::shared_ptr<SellerProduct> m_product;
};
