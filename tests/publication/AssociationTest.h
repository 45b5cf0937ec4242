#pragma once

#include "CatalogueTest.h"
#include "FakeConnectors.h"
#include "SellerDatabaseSandbox.h"
#include "catalogue/SellerProduct.h"
#include "catalogue/ZorvantaProduct.h"
#include "catalogue/ZorvantaProperty.h"
#include "catalogue/ZorvantaValue.h"
#include "platform/xml/XmlDocument.h"
#include "publication/AssociatedProduct.h"
#include "shell/Constants.h"
#include "stores/Seller.h"

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The demo seller's ERP, whose detail of an association is the reply the test gives.
class DetailErp : public FakeErp
{
public:
    std::int32_t ObtenerDefinicionProducto(std::int32_t type, const char *key, const char *store,
                                           char *reply) override
    {
        calls.push_back(std::to_string(type) + "|" + key + "|" + store);
        std::strcpy(reply, detailReply.c_str());
        return detailCode;
    }

    std::vector<std::string> calls;
    std::string detailReply;
    std::int32_t detailCode = 0;
};

/// Associations of the ERP's shirt ERP-0001 with the marketplace's shirt ZP-00191 on a machine
/// that writes 12,5: Marca and Peso (a decimal) are fixed, Color and Talla variant. The
/// marketplace side is a product template, which never calls the service; the seller's
/// database is an embedded one of the test's own.
class AssociationTest : public CatalogueTest
{
protected:
    using Pairs = std::vector<std::pair<std::string, std::string>>;

    void SetUp() override
    {
        CatalogueTest::SetUp();
        m_separator = gDecimalSeparator;
        gDecimalSeparator = ",";
        erp = std::make_shared<DetailErp>();
        setErpLibrary(erp);
        database = std::make_unique<SellerDatabaseSandbox>();
        gSeller.reset();
        shirt = std::make_shared<ZorvantaProduct>();
        shirt->setIsDefinition(true);
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(kShirt));
        shirt->setXml(document.documentElement());
        shirt->setId("ZP-00191");
    }
    void TearDown() override
    {
        gSeller.reset();
        database.reset();
        setErpLibrary(nullptr);
        gDecimalSeparator = m_separator;
        CatalogueTest::TearDown();
    }

    /// Values of the shirt's properties, as a page gives them: keyed by property id, in the
    /// display form.
    std::shared_ptr<AssociatedProduct::Values> values(const Pairs &pairs)
    {
        auto result = std::make_shared<AssociatedProduct::Values>();
        for (const auto &[id, text] : pairs) {
            auto value = std::make_shared<ZorvantaValue>();
            value->setDefinition(shirt->properties()->item(id));
            value->setValue(text);
            result->add(value, id);
        }
        return result;
    }
    /// A new association of `dovelID` with the shirt, as the wizard builds it.
    std::shared_ptr<AssociatedProduct> association(const Pairs &pairs,
                                                   const std::string &dovelID = "ERP-0001")
    {
        auto product = std::make_shared<SellerProduct>();
        product->setDovelID(dovelID);
        auto association = std::make_shared<AssociatedProduct>();
        association->setSellerProd(product);
        association->setZorvantaProd(shirt);
        association->setVariantattributes(values(pairs));
        return association;
    }
    /// The display text of each value, "id=value", in the collection's order.
    static Texts shown(const std::shared_ptr<AssociatedProduct::Values> &values)
    {
        Texts texts;
        for (const auto &value : *values)
            texts.push_back(value->definition()->id() + "=" + value->value());
        return texts;
    }

    static constexpr const char *kShirt =
        "<ProductDefinition><PropertiesDefinition>"
        "<Property name='Marca' id='Marca' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Peso' id='Peso' dataType='Float' required='no' readOnly='no'/>"
        "<Property name='Color' id='Color' dataType='String' required='yes' readOnly='no'/>"
        "<Property name='Talla' id='Talla' dataType='String' required='yes' readOnly='no'/>"
        "</PropertiesDefinition><Definition name='pdRopa'>"
        "<Properties><Property id='Marca'/><Property id='Peso'/></Properties>"
        "<VariantProperties><Property id='Color'/><Property id='Talla'/></VariantProperties>"
        "</Definition></ProductDefinition>";

    std::shared_ptr<DetailErp> erp;
    std::unique_ptr<SellerDatabaseSandbox> database;
    std::shared_ptr<ZorvantaProduct> shirt;

private:
    std::string m_separator;
};
