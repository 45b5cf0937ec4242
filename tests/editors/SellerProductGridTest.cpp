#include "ErpSandbox.h"
#include "SearchEditorsTest.h"
#include "catalogue/ProductLine.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerProduct.h"
#include "editors/SellerProductGrid.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SellerProductGridTest : public SearchEditorsTest
{
protected:
    /// The first product a code search for `code` lists, with no detail read yet.
    std::shared_ptr<SellerProduct> listed(const std::string &code)
    {
        ProductBrowser browser;
        browser.setSearchString(code);
        browser.StartQuery();
        EXPECT_EQ(browser.products()->count(), 1);
        return browser.products()->item(1)->sellerProduct();
    }
    Texts rows() const
    {
        Texts texts;
        const auto *list = grid.findChild<QTreeWidget *>("ListView1");
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            texts.push_back(list->topLevelItem(row)->text(0).toStdString() + "|" +
                            list->topLevelItem(row)->text(1).toStdString());
        return texts;
    }

    SellerProductGrid grid;
};

TEST_F(SellerProductGridTest, showsTheListedProductWithThePricesReadFromTheErp)
{
    erp->writeData(ErpSandbox::products(1, "P-", "Olla"));
    grid.setProduct(listed("P-0001"));
    EXPECT_THAT(rows(), ElementsAre("Código|P-0001", "Descripción|Olla 1", "Referencia|R1",
                                    "Precio 1|10.00", "Precio 2|9.00", "Precio 3|8.00"));

    grid.setProduct(nullptr);
    EXPECT_THAT(rows(), IsEmpty());
}

} // namespace
