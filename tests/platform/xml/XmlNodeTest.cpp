#include "platform/core/RaisedError.h"
#include "platform/xml/XmlDocument.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Property;
using testing::Throws;

constexpr const char *kDatatypes = "urn:schemas-microsoft-com:datatypes";

auto raises(std::int32_t number)
{
    return Throws<RaisedError>(Property(&RaisedError::number, number));
}

XmlDocument loaded(const std::string &text)
{
    XmlDocument document;
    EXPECT_TRUE(document.loadXML(text)) << text;
    return document;
}

TEST(XmlNodeTest, aNodeAppendedElsewhereInItsDocumentLeavesItsOldPlace)
{
    XmlDocument document = loaded("<A><B/><C/></A>");
    XmlNode root = document.documentElement();
    const XmlNode b = document.selectSingleNode("//B");
    EXPECT_EQ(root.appendChild(b), b);
    EXPECT_EQ(document.xml(), "<A><C/><B/></A>");
    document.selectSingleNode("//C").appendChild(b);
    EXPECT_EQ(document.xml(), "<A><C><B/></C></A>");
}

TEST(XmlNodeTest, aNodeAppendedIntoAnotherDocumentLeavesTheOneItCameFrom)
{
    XmlDocument stored = loaded(
        "<AtributosNoCaracteristicos><Properties><Field fieldID='Precio'>10</Field></Properties>"
        "<VariantProperties><Field fieldID='Color'><![CDATA[Rojo]]></Field></VariantProperties>"
        "</AtributosNoCaracteristicos>");
    XmlDocument merged;
    XmlNode properties = merged.createElement("Properties");
    XmlNode variants = merged.createElement("VariantProperties");
    XmlNode inHand;
    for (const XmlNode &field : stored.selectNodes("descendant::Properties/Field"))
        properties.appendChild(inHand = field);
    for (const XmlNode &field : stored.selectNodes("descendant::VariantProperties/Field"))
        variants.appendChild(inHand = field);
    EXPECT_EQ(stored.xml(), "<AtributosNoCaracteristicos><Properties/><VariantProperties/>"
                            "</AtributosNoCaracteristicos>");
    EXPECT_EQ(properties.xml(), R"(<Properties><Field fieldID="Precio">10</Field></Properties>)");

    // The handle in hand follows its node, so appending it again takes it on from there.
    merged.appendChild(inHand);
    EXPECT_EQ(variants.xml(), "<VariantProperties/>");
    EXPECT_EQ(merged.xml(), R"(<Field fieldID="Color"><![CDATA[Rojo]]></Field>)");
}

XmlNode storeOfAReplyNowGone()
{
    XmlDocument reply = loaded("<Stores><Store><StoreID>5</StoreID></Store></Stores>");
    return reply.selectSingleNode("//Store");
}

TEST(XmlNodeTest, aNodeOutlivesTheDocumentVariableThatLoadedIt)
{
    const XmlNode store = storeOfAReplyNowGone();
    EXPECT_EQ(store.selectSingleNode("descendant::StoreID").text(), "5");

    XmlDocument reply = loaded("<A>old<B/></A>");
    XmlNode root = reply.documentElement();
    const XmlNode old = root.firstChild();
    root.setText("new");
    EXPECT_EQ(old.nodeValue(), "old");
    EXPECT_EQ(reply.xml(), "<A>new</A>");
    ASSERT_TRUE(reply.loadXML("<Other/>"));
    EXPECT_EQ(root.xml(), "<A>new</A>");
}

TEST(XmlNodeTest, requestsTheDomRefusesRaiseFatalErrors)
{
    XmlDocument document = loaded("<A><B>text</B></A>");
    const XmlNode a = document.documentElement();
    const XmlNode b = document.selectSingleNode("//B");
    const XmlNode missing = document.selectNodes("//Operations").item(0);
    struct Row
    {
        const char *name;
        std::function<void()> call;
        std::int32_t number;
    };
    const Row rows[] = {
        {"a node into its own child", [&] { XmlNode(b).appendChild(a); },
         RuntimeErrorNumber::AutomationError},
        {"a second root", [&] { document.appendChild(document.createElement("C")); },
         RuntimeErrorNumber::AutomationError},
        {"an element named with a blank", [&] { document.createElement("Mi Tienda"); },
         RuntimeErrorNumber::AutomationError},
        {"the value of an element", [&] { a.nodeValue(); }, RuntimeErrorNumber::TypeMismatch},
        {"nothing appended", [&] { XmlNode(a).appendChild(missing); },
         RuntimeErrorNumber::ObjectNotSet},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT(row.call, raises(row.number));
    }
    EXPECT_EQ(document.xml(), "<A><B>text</B></A>");
}

TEST(XmlNodeTest, textJoinsAllTextBelowWhileNodeValueIsTheFirstChildsOwn)
{
    XmlDocument reply = loaded("<Field fieldID='Description' readOnly=''>Mesa <b>de</b>"
                               "<![CDATA[ <roble>]]></Field>");
    const XmlNode field = reply.documentElement();
    EXPECT_EQ(field.text(), "Mesa de <roble>");
    EXPECT_EQ(field.firstChild().nodeValue(), "Mesa ");
    EXPECT_EQ(field.attributes(), 2);
    EXPECT_EQ(field.getAttribute("readOnly"), "");
    EXPECT_EQ(field.getAttribute("type"), std::nullopt);
    EXPECT_TRUE(loaded("<Field fieldID='x'/>").documentElement().firstChild().isNull());
}

std::vector<std::uint8_t> someBytes(std::size_t count)
{
    std::vector<std::uint8_t> bytes(count);
    for (std::size_t i = 0; i < count; ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 37 + 11);
    return bytes;
}

TEST(XmlNodeTest, bytesSetOnABase64ElementTravelAsTextAndComeBackWhole)
{
    for (std::size_t size : {0, 1, 2, 3, 58, 1000}) {
        SCOPED_TRACE(size);
        XmlDocument request;
        XmlNode image = request.appendChild(request.createElement("Image"));
        image.setDataType("bin.base64");
        image.setNodeTypedValue(someBytes(size));

        XmlDocument wire = loaded(request.xml());
        const XmlNode received = wire.documentElement();
        EXPECT_EQ(received.nodeTypedValue(), someBytes(size));
        const std::string text = received.text();
        std::size_t lineStart = 0;
        for (std::size_t end; (end = text.find('\n', lineStart)) != std::string::npos;
             lineStart = end + 1)
            EXPECT_EQ(end - lineStart, 76u);
        EXPECT_LE(text.size() - lineStart, 76u);
    }
}

TEST(XmlNodeTest, theBase64TypeIsWrittenWithItsNamespaceAndOnlyTypedNodesHaveBytes)
{
    XmlDocument request;
    XmlNode image = request.appendChild(request.createElement("Image"));
    image.setDataType("bin.base64");
    image.setNodeTypedValue({'M', 'a', 'n'});
    EXPECT_EQ(request.xml(), std::string("<Image xmlns:dt=\"") + kDatatypes +
                                 "\" dt:dt=\"bin.base64\">TWFu</Image>");

    XmlNode plain = request.documentElement().appendChild(request.createElement("ImageType"));
    EXPECT_THAT([&] { plain.nodeTypedValue(); }, raises(RuntimeErrorNumber::TypeMismatch));
    XmlDocument garbled =
        loaded(std::string("<Image xmlns:dt='") + kDatatypes + "' dt:dt='bin.base64'>T*</Image>");
    EXPECT_THAT([&] { garbled.documentElement().nodeTypedValue(); },
                raises(RuntimeErrorNumber::AutomationError));
}

} // namespace
