#include "catalogue/ZorvantaProperty.h"

#include "CatalogueTest.h"
#include "platform/xml/XmlDocument.h"
#include "shell/AppState.h"

namespace {

class ZorvantaPropertyTest : public CatalogueTest
{
protected:
    std::shared_ptr<ZorvantaProperty> read(const std::string &xml)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(xml)) << xml;
        auto property = std::make_shared<ZorvantaProperty>();
        property->setXml(document.documentElement());
        return property;
    }
};

std::vector<std::string> texts(const std::shared_ptr<ZorvantaProperty::Texts> &values)
{
    std::vector<std::string> result;
    for (const std::string &text : *values)
        result.push_back(text);
    return result;
}

} // namespace

TEST_F(ZorvantaPropertyTest, aDefinitionGivesEveryAttributeAsTheMarketplaceSentIt)
{
    const auto property = read("<Property name='Peso (kg)' id='PesoKg' dataType='Float' "
                               "MaxValue='500' required='yes' readOnly='no'/>");
    EXPECT_EQ(property->id(), "PesoKg");
    EXPECT_EQ(property->name(), "Peso (kg)");
    EXPECT_EQ(property->dataType(), "Float");
    EXPECT_EQ(property->maxValue(), "500");
    EXPECT_TRUE(property->required());
    EXPECT_FALSE(property->readOnly());
    EXPECT_TRUE(property->characteristic());
    EXPECT_EQ(property->possibleValues(), nullptr);
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaPropertyTest, onlyTheAbsenceOfTypeMakesAPropertyCharacteristic)
{
    struct Row
    {
        const char *what;
        const char *attributes;
        bool characteristic;
        bool required;
        bool readOnly;
    };
    const Row rows[] = {
        {"no type at all", "", true, false, false},
        {"type NC, as prices have", "type='NC'", false, false, false},
        {"type C is not characteristic either", "type='C'", false, false, false},
        {"an empty type", "type=''", false, false, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const auto property = read(std::string("<Property name='n' id='x' dataType='String' "
                                               "required='Yes' readOnly='si' ") +
                                   row.attributes + "/>");
        EXPECT_EQ(property->characteristic(), row.characteristic);
        // Only "yes" exactly is yes.
        EXPECT_EQ(property->required(), row.required);
        EXPECT_EQ(property->readOnly(), row.readOnly);
        EXPECT_EQ(property->maxValue(), "");
    }
}

TEST_F(ZorvantaPropertyTest, anEnumerationListsItsDisplayNamesInOrder)
{
    const auto property =
        read("<Property name='Color' id='Color' dataType='Enumeration' required='yes' "
             "readOnly='no'><PropertyValues displayName='Negro'/><PropertyValues "
             "displayName='Azul'/><PropertyValues displayName='Rojo'/></Property>");
    ASSERT_NE(property->possibleValues(), nullptr);
    EXPECT_EQ(texts(property->possibleValues()),
              (std::vector<std::string>{"Negro", "Azul", "Rojo"}));
}

TEST_F(ZorvantaPropertyTest, enumerationInLowerCaseIsNotAnEnumeration)
{
    const auto property =
        read("<Property name='C' id='C' dataType='enumeration' required='no' readOnly='no'>"
             "<PropertyValues displayName='Negro'/></Property>");
    EXPECT_EQ(property->possibleValues(), nullptr);
    EXPECT_TRUE(loggedErrors().empty());
}

TEST_F(ZorvantaPropertyTest, everyMalformedDefinitionIsReportedAndTheProgramGoesOn)
{
    struct Row
    {
        const char *what;
        const char *xml;
        const char *description;
    };
    const Row rows[] = {
        {"no id", "<Property name='n' dataType='String' required='no' readOnly='no'/>",
         "El XML no tiene el atributo id para la propiedad: <Property name=\"n\" "
         "dataType=\"String\" required=\"no\" readOnly=\"no\"/>"},
        {"no name", "<Property id='x' dataType='String' required='no' readOnly='no'/>",
         "El XML no tiene el atributo name para la propiedad: <Property id=\"x\" "
         "dataType=\"String\" required=\"no\" readOnly=\"no\"/>"},
        {"no dataType", "<Property id='x' name='n' required='no' readOnly='no'/>",
         "El XML no tiene el atributo dataType para la propiedad: <Property id=\"x\" "
         "name=\"n\" required=\"no\" readOnly=\"no\"/>"},
        {"no required", "<Property id='x' name='n' dataType='String' readOnly='no'/>",
         "El XML no tiene el atributo required para la propiedad: <Property id=\"x\" "
         "name=\"n\" dataType=\"String\" readOnly=\"no\"/>"},
        {"no readOnly", "<Property id='x' name='n' dataType='String' required='no'/>",
         "El XML no tiene el atributo readOnly para la propiedad: <Property id=\"x\" "
         "name=\"n\" dataType=\"String\" required=\"no\"/>"},
        {"an enumeration without values",
         "<Property id='Talla' name='n' dataType='Enumeration' required='no' readOnly='no'/>",
         "No existen valores para la enumeración Talla"},
        {"a value without displayName",
         "<Property id='T' name='n' dataType='Enumeration' required='no' readOnly='no'>"
         "<PropertyValues name='S'/></Property>",
         "El XML no tiene el atributo displayName para un valor de la enumeración <Property "
         "id=\"T\" name=\"n\" dataType=\"Enumeration\" required=\"no\" readOnly=\"no\">"
         "<PropertyValues name=\"S\"/></Property>"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(workDir / "bitacora.log");
        ui->clearBoxes();
        read(row.xml);
        EXPECT_EQ(loggedError(),
                  std::string("Error: -10503 (ZorvantaProperty:Let xml): ") + row.description);
        EXPECT_EQ(ui->boxTexts(), std::vector<std::string>{"Error: -10503: Error de la "
                                                           "aplicación. Contacte al "
                                                           "administrador del sistema"});
        EXPECT_TRUE(gAppRunning);
    }
}

TEST_F(ZorvantaPropertyTest, anEnumerationWithoutValuesKeepsNone)
{
    const auto property =
        read("<Property id='T' name='n' dataType='Enumeration' required='no' readOnly='no'/>");
    EXPECT_EQ(property->possibleValues(), nullptr);
    EXPECT_EQ(property->id(), "T");
}

TEST_F(ZorvantaPropertyTest, aNodeThatCannotHoldAttributesIsReported)
{
    XmlDocument document;
    ASSERT_TRUE(document.loadXML("<Property>texto</Property>"));
    ZorvantaProperty property;
    property.setXml(document.documentElement().firstChild());
    EXPECT_EQ(loggedError(), "Error: -10503 (ZorvantaProperty:Let xml): El xml pasado como "
                             "parámetro no tiene atributos para la propiedad: texto");
}
