#include "platform/xml/XmlDocument.h"

#include "platform/core/RaisedError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Property;
using testing::Throws;

struct LoadRow
{
    const char *name;
    std::string text;
    bool loads;
    const char *xmlAfter;
};

const LoadRow kLoadRows[] = {
    {"blanks between elements are dropped, blanks inside text are kept",
     "<A>\n  <B x='1'/>\n  <C> t </C>\n</A>", true, R"(<A><B x="1"/><C> t </C></A>)"},
    {"an empty element is written short", "<Properties></Properties>", true, "<Properties/>"},
    {"a declaration is written back when the text had one",
     "<?xml version='1.0' encoding='ISO-8859-1'?> <A/>", true,
     R"(<?xml version="1.0" encoding="ISO-8859-1"?><A/>)"},
    {"escapes are written back as markup needs them",
     "<A x='&quot;&apos;&lt;&amp;>'>&lt;&amp;&gt;&#65;&#x42;\"'</A>", true,
     R"(<A x="&quot;'&lt;&amp;>">&lt;&amp;&gt;AB"'</A>)"},
    {"a reply in a buffer is read up to its first NUL", std::string("<A>x</A>\0\0<B", 13), true,
     "<A>x</A>"},
    {"a NUL inside the element cuts it short", std::string("<A>x\0</A>", 9), false, ""},
    {"an empty text", "", false, ""},
    {"unbalanced tags", "<A><B></A>", false, ""},
    {"a bare ampersand in a value", "<ZorvantaID>a & b</ZorvantaID>", false, ""},
    {"an apostrophe in a name quoted with apostrophes", "<CurrentCategory name='O'Brien' id=''/>",
     false, ""},
    {"two root elements", "<A/><B/>", false, ""},
    {"an accent written in Latin-1", "<DESCRIPTION>Sin cupo en la categor\xED" "a</DESCRIPTION>",
     false, ""},
    {"an accent cut in the middle of its UTF-8 bytes", "<A>categor\xC3</A>", false, ""},
    {"a character past the last plane", "<A>\xF4\x90\x80\x80</A>", false, ""},
    {"accents and signs in UTF-8", "<A>Categoría € 𝄞</A>", true, "<A>Categoría € 𝄞</A>"},
    {"a declaration after blanks", " <?xml version='1.0'?><A/>", false, ""},
};

TEST(XmlDocumentTest, loadXmlTakesOneWellFormedDocumentAndLeavesTheDocumentEmptyOtherwise)
{
    for (const LoadRow &row : kLoadRows) {
        SCOPED_TRACE(row.name);
        XmlDocument document;
        ASSERT_TRUE(document.loadXML("<Previous/>"));
        EXPECT_EQ(document.loadXML(row.text), row.loads);
        EXPECT_EQ(document.xml(), row.xmlAfter);
        EXPECT_EQ(document.documentElement().isNull(), !row.loads);
    }
}

TEST(XmlDocumentTest, aBuiltRequestEscapesItsValuesAndReadsBackTheSameValues)
{
    const std::string user = "Ana & <Beto>";
    const std::string password = "a\"b'c";
    const std::string note = "a ]]> b & <c>";
    XmlDocument request;
    XmlNode root = request.appendChild(request.createElement("ValidateUser"));
    root.appendChild(request.createElement("UserName")).setText(user);
    root.appendChild(request.createElement("Password")).setText(password);
    root.appendChild(request.createElement("Store")).setAttribute("StoreID", password + "&<");
    // A CDATA section holding its own closing mark still travels whole.
    root.appendChild(request.createElement("Field")).appendChild(request.createCDATASection(note));

    XmlDocument reread;
    ASSERT_TRUE(reread.loadXML(request.xml()));
    EXPECT_EQ(reread.selectSingleNode("//UserName").text(), user);
    EXPECT_EQ(reread.selectSingleNode("//Password").text(), password);
    EXPECT_EQ(reread.selectSingleNode("//Store").getAttribute("StoreID"), password + "&<");
    EXPECT_EQ(reread.selectSingleNode("//Field").text(), note);
}

TEST(XmlDocumentTest, selectionsWrittenWithBlanksAfterTheAxisFindWhatTheyName)
{
    XmlDocument reply;
    ASSERT_TRUE(reply.loadXML(R"(<Reply>
        <Product id='P1'>
          <Field fieldID='Name'>Mesa</Field>
          <Field fieldID='Description'><![CDATA[Mesa & silla]]></Field>
        </Product>
        <PropertiesDefinition>
          <Property id='Color' dataType='Enumeration'>
            <PropertyValues displayName='Rojo'/><PropertyValues displayName='Azul'/>
          </Property>
        </PropertiesDefinition>
      </Reply>)"));
    struct Row
    {
        const char *expression;
        int count;
        const char *firstText;
    };
    const Row rows[] = {
        {"descendant:: Field [@fieldID='Name']", 1, "Mesa"},
        {"descendant:: Field [@fieldID='Description']", 1, "Mesa & silla"},
        {"descendant-or-self::PropertyValues", 2, ""},
        {"descendant-or-self::Product/Field", 2, "Mesa"},
        {"//Field[@fieldID='Precio']", 0, nullptr},
    };
    const XmlNode root = reply.documentElement();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.expression);
        const XmlNodeList found = root.selectNodes(row.expression);
        EXPECT_EQ(found.length(), row.count);
        EXPECT_EQ(found.item(0), root.selectSingleNode(row.expression));
        if (row.firstText != nullptr)
            EXPECT_EQ(found.item(0).text(), row.firstText);
        else
            EXPECT_TRUE(found.item(0).isNull());
    }
}

TEST(XmlDocumentTest, resultCountsOnlyAsADirectChildWhileReturnCodeIsFoundAtAnyDepth)
{
    XmlDocument nested;
    ASSERT_TRUE(nested.loadXML(
        "<GetSellerInformation><Data><RESULT><RETURNCODE>-1</RETURNCODE></RESULT></Data>"
        "</GetSellerInformation>"));
    EXPECT_EQ(nested.documentElement().selectNodes("RESULT").length(), 0);
    EXPECT_EQ(nested.documentElement().selectNodes("descendant::RETURNCODE").length(), 1);

    XmlDocument twoCodes;
    ASSERT_TRUE(twoCodes.loadXML("<R><RESULT><Deep><RETURNCODE>7</RETURNCODE></Deep></RESULT>"
                                 "<RETURNCODE>8</RETURNCODE></R>"));
    const XmlNode root = twoCodes.documentElement();
    EXPECT_EQ(root.selectNodes("RESULT").length(), 1);
    EXPECT_EQ(root.selectNodes("descendant::RETURNCODE").length(), 2);
    EXPECT_EQ(root.selectSingleNode("descendant::RETURNCODE").text(), "7");
}

TEST(XmlDocumentTest, anXPathThatDoesNotCompileRaisesAFatalErrorNamingTheExpression)
{
    XmlDocument reply;
    ASSERT_TRUE(reply.loadXML("<Stores><Store StoreID='5'/></Stores>"));
    const std::string expressions[] = {
        "descendant::Store[@StoreID='O'Brien']", // an id with an apostrophe, concatenated in
        "//Store[",
    };
    for (const std::string &expression : expressions) {
        SCOPED_TRACE(expression);
        const auto raisesNamingIt = Throws<RaisedError>(
            AllOf(Property(&RaisedError::number, RuntimeErrorNumber::AutomationError),
                  Property(&RaisedError::description, HasSubstr(expression))));
        EXPECT_THAT([&] { reply.selectNodes(expression); }, raisesNamingIt);
        EXPECT_THAT([&] { reply.documentElement().selectSingleNode(expression); }, raisesNamingIt);
    }
}

} // namespace
