#include "ErpSandbox.h"
#include "SearchEditorsTest.h"
#include "catalogue/ProductLine.h"
#include "catalogue/ProductBrowser.h"
#include "catalogue/SellerProduct.h"
#include "editors/SellerProductGrid.h"
#include "shell/Constants.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The detail on a machine that writes decimals with the parameter's separator.
class SellerProductGridTest : public SearchEditorsTest,
                              public testing::WithParamInterface<const char *>
{
protected:
    void SetUp() override
    {
        SearchEditorsTest::SetUp();
        m_separator = gDecimalSeparator;
        gDecimalSeparator = GetParam();
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        SearchEditorsTest::TearDown();
    }

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

private:
    std::string m_separator;
};

TEST_P(SellerProductGridTest, showsTheListedProductWithThePricesReadFromTheErpInTheLocalesForm)
{
    erp->writeData(ErpSandbox::products(1, "P-", "Olla"));
    grid.setProduct(listed("P-0001"));
    const std::string separator = GetParam();
    EXPECT_THAT(rows(),
                ElementsAre("Código|P-0001", "Descripción|Olla 1", "Referencia|R1",
                            "Precio 1|10" + separator + "00", "Precio 2|9" + separator + "00",
                            "Precio 3|8" + separator + "00"));

    grid.setProduct(nullptr);
    EXPECT_THAT(rows(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Separators, SellerProductGridTest, testing::Values(",", "."),
                         [](const testing::TestParamInfo<const char *> &row) {
                             return std::string(*row.param == ',' ? "comma" : "point");
                         });

} // namespace
