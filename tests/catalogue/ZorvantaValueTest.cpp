#include "catalogue/ZorvantaValue.h"

#include "CatalogueTest.h"
#include "catalogue/ZorvantaProperty.h"
#include "platform/xml/XmlDocument.h"
#include "shell/Constants.h"

namespace {

class ZorvantaValueTest : public CatalogueTest
{
protected:
    void SetUp() override
    {
        CatalogueTest::SetUp();
        m_separator = gDecimalSeparator;
    }
    void TearDown() override
    {
        gDecimalSeparator = m_separator;
        CatalogueTest::TearDown();
    }

    static std::shared_ptr<ZorvantaProperty> propertyOf(const std::string &dataType)
    {
        XmlDocument document;
        document.loadXML("<Property id='Precio' name='Precio' dataType='" + dataType +
                         "' required='no' readOnly='no'/>");
        auto property = std::make_shared<ZorvantaProperty>();
        property->setXml(document.documentElement());
        return property;
    }

    static ZorvantaValue valueOf(const std::string &dataType, const std::string &field)
    {
        XmlDocument document;
        EXPECT_TRUE(document.loadXML(field));
        ZorvantaValue value;
        value.setDefinition(propertyOf(dataType));
        value.setXml(document.documentElement());
        return value;
    }

private:
    std::string m_separator;
};

} // namespace

TEST_F(ZorvantaValueTest, aDecimalFromTheWireTakesTheMachinesSeparator)
{
    struct Row
    {
        const char *what;
        const char *separator;
        const char *dataType;
        const char *wire;
        const char *shown;
    };
    const Row rows[] = {
        {"a price on a comma machine", ",", "Currency", "12.5", "12,5"},
        {"only the first point changes", ",", "Float", "1.234.5", "1,234.5"},
        {"a double", ",", "Double", "0.75", "0,75"},
        {"an integer is never touched", ",", "Integer", "1.5", "1.5"},
        {"a text is never touched", ",", "String", "v1.2", "v1.2"},
        {"a point machine keeps the text", ".", "Float", "1.5", "1.5"},
        {"a whole number has no point to change", ",", "Currency", "34990", "34990"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        gDecimalSeparator = row.separator;
        EXPECT_EQ(
            valueOf(row.dataType, std::string("<Field fieldID='Precio'>") + row.wire + "</Field>")
                .value(),
            row.shown);
    }
}

TEST_F(ZorvantaValueTest, aFieldGivesItsTextOrCdataOrNothing)
{
    gDecimalSeparator = ",";
    EXPECT_EQ(valueOf("String", "<Field fieldID='x'><![CDATA[<b>Hola</b>]]></Field>").value(),
              "<b>Hola</b>");
    EXPECT_EQ(valueOf("Currency", "<Field fieldID='x'><![CDATA[9.90]]></Field>").value(), "9,90");
    EXPECT_EQ(valueOf("String", "<Field fieldID='x'/>").value(), "");
}

TEST_F(ZorvantaValueTest, aDecimalGoesOutWithAPointWhateverTheMachine)
{
    struct Row
    {
        const char *what;
        const char *separator;
        const char *dataType;
        const char *typed;
        const char *wire;
    };
    const Row rows[] = {
        {"a comma machine's price", ",", "Currency", "12,5", "12.5"},
        {"a typed comma on a point machine", ".", "Float", "1,5", "1.5"},
        {"a point stays a point", ".", "Double", "1.5", "1.5"},
        {"only the first comma changes", ".", "Float", "1,234,5", "1.234,5"},
        {"an integer goes as typed", ",", "Integer", "1,5", "1,5"},
        {"a text goes as typed", ",", "String", "rojo, azul", "rojo, azul"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        gDecimalSeparator = row.separator;
        ZorvantaValue value;
        value.setDefinition(propertyOf(row.dataType));
        value.setValue(row.typed);
        EXPECT_EQ(value.xml().xml(),
                  std::string("<Field fieldID=\"Precio\"><![CDATA[") + row.wire + "]]></Field>");
    }
}

TEST_F(ZorvantaValueTest, theFieldBuiltCanBeMovedIntoAnotherDocument)
{
    ZorvantaValue value;
    value.setDefinition(propertyOf("String"));
    value.setValue("Rojo");
    XmlDocument target;
    target.appendChild(target.createElement("Properties"));
    target.documentElement().appendChild(value.xml());
    EXPECT_EQ(target.xml(),
              "<Properties><Field fieldID=\"Precio\"><![CDATA[Rojo]]></Field></Properties>");
}

TEST_F(ZorvantaValueTest, aValueWithoutDefinitionCannotBeRead)
{
    XmlDocument document;
    document.loadXML("<Field fieldID='x'>1</Field>");
    ZorvantaValue value;
    try {
        value.setXml(document.documentElement());
        FAIL() << "no error";
    } catch (const RaisedError &error) {
        EXPECT_EQ(error.number(), RuntimeErrorNumber::ObjectNotSet);
    }
}
