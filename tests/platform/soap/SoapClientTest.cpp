#include "platform/soap/SoapClient.h"

#include "FakeSoapService.h"
#include "ServiceDescriptions.h"
#include "platform/core/RaisedError.h"
#include "platform/soap/MarketplaceUrl.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <string>
#include <tuple>
#include <vector>

using testing::HasSubstr;

namespace {

const std::string kProducts = R"(<Products><Product id="P&amp;1">Té</Product></Products>)";

std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    return text.replace(text.find(from), from.size(), to);
}

const std::string kRpcEncodedWsdl =
    replaced(kRpcLiteralWsdl, R"(use="literal")",
             R"(use="encoded" encodingStyle="http://schemas.xmlsoap.org/soap/encoding/")");

std::string escaped(const std::string &text)
{
    std::string result;
    for (const char c : text)
        result += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    return result;
}

std::string replyEnvelope(const std::string &bodyContent)
{
    return R"(<?xml version="1.0" encoding="utf-8"?><S:Envelope )"
           R"(xmlns:S="http://schemas.xmlsoap.org/soap/envelope/"><S:Body>)" +
           bodyContent + "</S:Body></S:Envelope>";
}

// "{namespace}local" for a prefixed name, resolved where `scope` stands.
std::string expanded(pugi::xml_node scope, const std::string &name)
{
    const auto colon = name.find(':');
    const auto prefix = colon == std::string::npos ? "xmlns" : "xmlns:" + name.substr(0, colon);
    std::string uri;
    for (auto node = scope; node && uri.empty(); node = node.parent())
        uri = node.attribute(prefix.c_str()).value();
    return "{" + uri + "}" + name.substr(colon == std::string::npos ? 0 : colon + 1);
}

std::string attribute(pugi::xml_node element, const std::string &expandedName)
{
    for (const auto attribute : element.attributes()) {
        if (expanded(element, attribute.name()) == expandedName)
            return attribute.value();
    }
    return {};
}

std::string schemaType(const std::string &expandedName)
{
    const std::string xsd = "{http://www.w3.org/2001/XMLSchema}";
    return expandedName.starts_with(xsd) ? "xsd:" + expandedName.substr(xsd.size()) : expandedName;
}

// The call a request makes, as "[style] {ns}Operation: {ns}argument[xsd:type]=value ...".
std::string describeRequest(const std::string &envelope)
{
    pugi::xml_document document;
    document.load_string(envelope.c_str());
    const auto root = document.document_element();
    const auto wrapper = root.first_child().first_child();
    std::string text = attribute(root, "{http://schemas.xmlsoap.org/soap/envelope/}encodingStyle");
    text += (text.empty() ? "" : " ") + expanded(wrapper, wrapper.name()) + ":";
    for (const auto argument : wrapper.children()) {
        const auto type = attribute(argument, "{http://www.w3.org/2001/XMLSchema-instance}type");
        text += " " + expanded(argument, argument.name()) +
                (type.empty() ? "" : "[" + schemaType(expanded(argument, type)) + "]") + "=" +
                argument.text().get();
    }
    return text;
}

template <typename Call> RaisedError raisedBy(Call &&call)
{
    try {
        call();
    } catch (const RaisedError &e) {
        return e;
    }
    ADD_FAILURE() << "no error was raised";
    return RaisedError(0, "");
}

struct ServiceStyle
{
    const char *situation;
    std::string wsdl;
    const char *service;
    std::string replyBody;
    std::string expectedRequest;
    std::string expectedAction;
};

TEST(SoapClientTest, eachStyleOfServiceGetsTheArgumentsInOrderAndGivesBackTheDocument)
{
    const std::string feria = "{http://feria.example/servicios}";
    const std::vector<ServiceStyle> rows = {
        {"an rpc/literal service answering with an unqualified, escaped return", kRpcLiteralWsdl,
         "catalogo",
         R"(<m:R xmlns:m="urn:catalogo"><return>)" + escaped(kProducts) + "</return></m:R>",
         "{urn:catalogo}GetCategoryContent: {}categoryId=cat-17 & <otros> {}page=-32768 "
         "{}pageSize=2147483647", R"("urn:catalogo#GetCategoryContent")"},
        {"an rpc/encoded service answering with a qualified, typed return in CDATA",
         kRpcEncodedWsdl, "catalogo",
         R"(<m:R xmlns:m="urn:catalogo"><m:return xsi:type="xsd:string")"
         R"( xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"><![CDATA[)" +
             kProducts + "]]></m:return></m:R>",
         "http://schemas.xmlsoap.org/soap/encoding/ {urn:catalogo}GetCategoryContent: "
         "{}categoryId[xsd:string]=cat-17 & <otros> {}page[xsd:short]=-32768 "
         "{}pageSize[xsd:int]=2147483647",
         R"("urn:catalogo#GetCategoryContent")"},
        {"a document/literal service answering with a qualified, escaped result",
         kDocumentLiteralWsdl, "servicios",
         R"(<R xmlns="http://feria.example/servicios"><GetCategoryContentResult>)" +
             escaped(kProducts) + "</GetCategoryContentResult></R>",
         feria + "GetCategoryContent: " + feria + "categoryId=cat-17 & <otros> " + feria +
             "page=-32768 " + feria + "pageSize=2147483647",
         R"("http://feria.example/servicios/GetCategoryContent")"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.situation);
        FakeSoapService service(row.wsdl);
        service.answer(200, replyEnvelope(row.replyBody));
        SoapClient client;
        client.init(service.url(), row.service, "CatalogInfoSoapPort");

        // The short at the bottom of its range, the int at the top of its own, given as text.
        EXPECT_EQ(client.call("GetCategoryContent",
                              {"cat-17 & <otros>", std::int16_t{-32768}, "2147483647"}),
                  kProducts);
        const auto request = service.lastRequest();
        EXPECT_EQ(describeRequest(request.body), row.expectedRequest);
        EXPECT_EQ(request.get_header_value("SOAPAction"), row.expectedAction);
    }
}

struct RefusedCall
{
    const char *situation;
    const char *operation;
    std::vector<SoapArgument> arguments;
    std::int32_t number;
    const char *described;
};

TEST(SoapClientTest, aCallTheServiceCantTakeFailsBeforeAnythingIsSent)
{
    const char *op = "GetCategoryContent";
    const std::int32_t overflow = RuntimeErrorNumber::Overflow;
    const std::int32_t mismatch = RuntimeErrorNumber::TypeMismatch;
    const std::int32_t soap = RuntimeErrorNumber::AutomationError;
    const std::vector<RefusedCall> rows = {
        {"a page number beyond 16 bits", op, {"c", 32768, 50}, overflow, "32768"},
        {"a page size beyond 32 bits", op, {"c", 1, std::int64_t{1} << 32}, overflow, "pageSize"},
        {"a page number in words", op, {"c", "dos", 50}, mismatch, "dos"},
        {"an operation the service lacks", "GetCategory", {"c", 1, 50}, soap, "GetCategory"},
        {"an argument missing", op, {"c", 1}, soap, "takes 3 arguments, not 2"},
    };
    FakeSoapService service(kRpcLiteralWsdl);
    SoapClient client;
    client.init(service.url(), "catalogo", "CatalogInfoSoapPort");
    for (const auto &row : rows) {
        SCOPED_TRACE(row.situation);
        const auto error = raisedBy([&] { client.call(row.operation, row.arguments); });
        EXPECT_EQ(error.number(), row.number);
        EXPECT_THAT(error.description(), HasSubstr(row.described));
    }
    EXPECT_EQ(service.lastRequest().body, "");
}

TEST(SoapClientTest, aFaultOrAReplyThatIsNoAnswerRaisesAPlatformErrorSayingWhatCame)
{
    const std::vector<std::tuple<const char *, int, std::string, std::string>> rows = {
        {"a SOAP fault", 500,
         replyEnvelope("<S:Fault><faultcode>S:Server</faultcode>"
                       "<faultstring>Categoría inexistente</faultstring></S:Fault>"),
         "S:Server: Categoría inexistente"},
        {"an error page instead of a reply", 404, "<html>no está</html>",
         "HTTP status 404: <html>no está</html>"},
        {"a reply that is not a SOAP envelope", 200, "<Products/>", "not a SOAP envelope"},
    };
    for (const auto &[situation, status, reply, described] : rows) {
        SCOPED_TRACE(situation);
        FakeSoapService service(kRpcLiteralWsdl);
        service.answer(status, reply);
        SoapClient client;
        client.init(service.url(), "catalogo", "CatalogInfoSoapPort");
        const auto error = raisedBy([&] { client.call("GetCategoryContent", {"c", 1, 50}); });
        EXPECT_EQ(error.number(), RuntimeErrorNumber::AutomationError);
        EXPECT_THAT(error.description(), HasSubstr(described));
    }
}

TEST(SoapClientTest, aDescriptionThatCantBeUsedFailsTheInitNamingTheProblem)
{
    const std::vector<std::tuple<const char *, std::string, std::string, std::string>> rows = {
        {"a description that is not XML", "<definitions><service>", "catalogo", "does not parse"},
        {"an XML document that is not a WSDL", "<html/>", "catalogo", "not a WSDL 1.1"},
        {"a service the description lacks", kRpcLiteralWsdl, "tienda", "no service tienda"},
        {"a port the service lacks", replaced(kRpcLiteralWsdl, "CatalogInfoSoapPort", "Otro"),
         "catalogo", "no port CatalogInfoSoapPort"},
    };
    for (const auto &[situation, wsdl, serviceName, described] : rows) {
        SCOPED_TRACE(situation);
        FakeSoapService service(wsdl);
        const auto error = raisedBy(
            [&] { SoapClient().init(service.url(), serviceName, "CatalogInfoSoapPort"); });
        EXPECT_EQ(error.number(), RuntimeErrorNumber::AutomationError);
        EXPECT_THAT(error.description(), HasSubstr(service.url()));
        EXPECT_THAT(error.description(), HasSubstr(described));
    }
}

TEST(SoapClientTest, aServiceThatIsNotListeningFailsWithCurlsMessage)
{
    std::string deadEndpoint;
    {
        FakeSoapService gone(kRpcLiteralWsdl);
        deadEndpoint = gone.url("/soap");
    }
    FakeSoapService describer(replaced(kRpcLiteralWsdl, "@ADDRESS@", deadEndpoint));
    SoapClient client;
    client.init(describer.url(), "catalogo", "CatalogInfoSoapPort");

    for (const auto &error :
         {raisedBy([&] {
              client.call("GetCategoryContent", {"c", 1, 50});
          }),
          raisedBy([&] { client.init(deadEndpoint, "catalogo", "CatalogInfoSoapPort"); })}) {
        EXPECT_EQ(error.number(), RuntimeErrorNumber::AutomationError);
        EXPECT_THAT(error.description(), HasSubstr(deadEndpoint));
        EXPECT_THAT(error.description(), HasSubstr("Couldn't connect"));
    }
}

TEST(SoapClientTest, theMarketplaceAddressComesFromTheEnvironmentOrTheLocalDefault)
{
    unsetenv("ASISTENTE_MARKETPLACE_URL");
    EXPECT_EQ(marketplaceUrl(), "http://127.0.0.1:8642");
    setenv("ASISTENTE_MARKETPLACE_URL", "http://feria.example:8080/", 1);
    EXPECT_EQ(marketplaceUrl(), "http://feria.example:8080");
}

} // namespace
