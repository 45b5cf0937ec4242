#include "ShellTest.h"

#include "gateways/CommerceServer.h"
#include "gateways/CommerceServerStub.h"
#include "gateways/QDX.h"
#include "platform/xml/XmlDocument.h"

namespace {

struct Reply
{
    const char *name;
    const char *text;
    bool isResult;
    bool isError;
    std::int32_t number;
    const char *description;
};

// Both gateways read the same convention; each row is checked through both.
const Reply kReplies[] = {
    {"no RESULT is plain data", "<Stores><RETURNCODE>7</RETURNCODE></Stores>", false, false, 0,
     "Sin errores"},
    {"RESULT as a grandchild is not seen",
     "<R><Inner><RESULT><RETURNCODE>5</RETURNCODE></RESULT></Inner></R>", false, false, 0,
     "Sin errores"},
    {"success", "<R><RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Exito</DESCRIPTION></RESULT></R>",
     true, false, 0, "Exito"},
    {"an error code with its text",
     "<R><RESULT><RETURNCODE>-8005</RETURNCODE><DESCRIPTION>Ya publicado</DESCRIPTION>"
     "</RESULT></R>",
     true, true, -8005, "Ya publicado"},
    {"RETURNCODE found at any depth once RESULT is there",
     "<R><RESULT/><Deep><Deeper><RETURNCODE>-10</RETURNCODE></Deeper></Deep></R>", true, true, -10,
     "Error desconocido"},
    {"the first RETURNCODE counts",
     "<R><RESULT><RETURNCODE>3</RETURNCODE></RESULT><RETURNCODE>0</RETURNCODE></R>", true, true, 3,
     "Error desconocido"},
    {"RESULT without RETURNCODE is a success", "<R><RESULT><DESCRIPTION>x</DESCRIPTION></RESULT></R>",
     true, false, 0, "x"},
    {"an empty RETURNCODE is no error", "<R><RESULT><RETURNCODE/><DESCRIPTION/></RESULT></R>", true,
     false, 0, ""},
    {"abc reads as 0", "<R><RESULT><RETURNCODE>abc</RETURNCODE></RESULT></R>", true, false, 0,
     "Error desconocido"},
    {"a leading number is read", "<R><RESULT><RETURNCODE> -12abc</RETURNCODE></RESULT></R>", true,
     true, -12, "Error desconocido"},
    {"decimals round half to even", "<R><RESULT><RETURNCODE>2.5</RETURNCODE></RESULT></R>", true,
     true, 2, "Error desconocido"},
};

} // namespace

class ReplyConventionTest : public ShellTest
{
};

TEST_F(ReplyConventionTest, bothGatewaysReadEveryReplyAlike)
{
    for (const Reply &reply : kReplies) {
        SCOPED_TRACE(reply.name);
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(reply.text));
        EXPECT_EQ(Commerce_IsResult(document), reply.isResult);
        EXPECT_EQ(Commerce_IsError(document), reply.isError);
        EXPECT_EQ(Commerce_ErrorNumber(document), reply.number);
        EXPECT_EQ(Commerce_ErrorDescription(document), reply.description);
        EXPECT_EQ(isResult(document), reply.isResult);
        EXPECT_EQ(isError(document), reply.isError);
        EXPECT_EQ(ErrorNumber(document), reply.number);
        EXPECT_EQ(errorDescription(document), reply.description);
    }
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(ReplyConventionTest, theStubsRepliesAreWellFormedAndCarryTheirOperationsName)
{
    CommerceServerStub stub;
    const std::pair<const char *, std::string> replies[] = {
        {"GetCategoryContent", stub.GetCategoryContent("", 1, 50)},
        {"GetProductDefinition", stub.GetProductDefinition("c")},
        {"RequestNewProduct", stub.RequestNewProduct("s", "c", "<r/>")},
        {"RequestNewProductDef", stub.RequestNewProductDef("s", "c", "<r/>")},
        {"RequestNewCategory", stub.RequestNewCategory("s", "c", "n")},
        {"GetSellerInformation", stub.GetSellerInformation("V1")},
        {"GetProductInformation", stub.GetProductInformation("p", "s")},
    };
    for (const auto &[operation, text] : replies) {
        SCOPED_TRACE(operation);
        EXPECT_EQ(text.rfind("<?xml version='1.0'?>", 0), 0u);
        XmlDocument document;
        ASSERT_TRUE(document.loadXML(text));
        EXPECT_EQ(document.documentElement().nodeName(), operation);
        EXPECT_FALSE(Commerce_IsError(document));
    }
}
