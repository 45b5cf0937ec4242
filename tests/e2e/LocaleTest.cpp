#include "AssistantSandbox.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaValue.h"
#include "gateways/QDX.h"
#include "platform/xml/XmlNode.h"
#include "shell/Constants.h"

#include <QLocale>

namespace {

using LocaleTest = AssistantSandbox;

} // namespace

// make test runs the whole flows once more under es_ES.UTF-8; elsewhere there is nothing to see.
TEST_F(LocaleTest, aDecimalFromTheMarketplaceShowsTheSellersCommaAndTravelsBackWithAPoint)
{
    if (QLocale::system().decimalPoint() != ",")
        GTEST_SKIP() << "the locale writes " << QLocale::system().decimalPoint().toStdString();
    ASSERT_TRUE(CommerceServerInit());
    ASSERT_TRUE(QDXGetOperationConfiguration());
    ASSERT_TRUE(gSeller->ministores());
    EXPECT_EQ(gDecimalSeparator, ",");

    // The demo's laptop weighs 2.1 kg on the wire.
    ZorvantaProduct laptop;
    laptop.setId("ZP-00088");
    const auto weight = laptop.values()->item("PesoKg");
    EXPECT_EQ(weight->value(), "2,1");
    EXPECT_EQ(weight->xml().xml(), "<Field fieldID=\"PesoKg\"><![CDATA[2.1]]></Field>");
    EXPECT_TRUE(logLines().empty());
}
