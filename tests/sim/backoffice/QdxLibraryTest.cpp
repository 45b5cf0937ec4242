#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"
#include "platform/connectors/ConnectorAbi.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <tuple>

namespace {

using Texts = std::vector<std::string>;

constexpr int32_t kReplySize = 65535;
constexpr const char *kLicense = "NUB-LIC-2026-0042";
constexpr const char *kKey2 = "QK-7F3A9C";
constexpr int32_t kClient = 4711;
const std::string kSeller =
    "<SellerID>V1042</SellerID><ProductLicense>" + std::string(kLicense) + "</ProductLicense>";

/// A back-office reply: the connector's code and, when it is 0, the document.
struct Reply : MarketplaceReply
{
    int32_t connector = 0;
};

std::string catalogRequest(const std::string &operations, const char *store = "100")
{
    return "<CatalogOperation>" + kSeller + "<StoreID>" + store + "</StoreID><Operations>" +
           operations + "</Operations></CatalogOperation>";
}

std::string operation(int publication, const char *word, const char *product,
                      const char *price = "12990.50")
{
    return "<Operation PublicationID='" + std::to_string(publication) + "'><Operation>" + word +
           "</Operation><ZorvantaID>" + product +
           "</ZorvantaID><Properties><Field fieldID='Cy_List_Price'><![CDATA[" + price +
           "]]></Field></Properties></Operation>";
}

void useMarketplace(const std::string &url)
{
    setenv("ASISTENTE_MARKETPLACE_URL", url.c_str(), 1);
}

class QdxLibraryTest : public ::testing::Test
{
protected:
    void start(const std::string &faults = {}, int batchLimit = 5)
    {
        sim = FeriaSimProcess::withData(smallMarketplace(faults, batchLimit));
        ASSERT_FALSE(sim->url().empty()) << sim->error();
        useMarketplace(sim->url());
    }
    static int32_t openSession()
    {
        int32_t session = 0;
        EXPECT_EQ(IniciarSesionW(kLicense, kKey2, kClient, &session), 0);
        return session;
    }
    static Reply run(int32_t operationId, int32_t session, const std::string &request)
    {
        Reply reply;
        std::vector<char> buffer(kReplySize, '\0');
        reply.connector =
            EjecutarOperacionW(operationId, session, request.c_str(), buffer.data(), kReplySize);
        reply.read(buffer.data());
        return reply;
    }
    MarketplaceReply productInformation(const char *product, const char *store) const
    {
        return SoapTestClient(sim->url())
            .call("GetProductInformation", {{"ProductID", product}, {"StoreID", store}});
    }
    Texts numberOfProducts() const
    {
        return SoapTestClient(sim->url())
            .call("GetSellerInformation", {{"SellerID", "V1042"}})
            .values("//Store/NumberOfProducts");
    }

    std::unique_ptr<FeriaSimProcess> sim;
};

} // namespace

TEST_F(QdxLibraryTest, aSessionIsTheClientsOwnUntilClosedOrLost)
{
    start("<Fault operation='9' call='1' effect='loseSession'/>", 2);
    const std::tuple<const char *, const char *, const char *, int32_t, int32_t> keys[] = {
        {"the demo seller", kLicense, kKey2, kClient, 0},
        {"another license", "NUB-LIC-2026-0077", kKey2, kClient, -2005},
        {"another second key", kLicense, "QK-000000", kClient, -2005},
        {"another client number", kLicense, kKey2, 4712, -2005},
        {"keys with characters a URL must escape", "a&b=c d", "%20", kClient, -2005},
    };
    for (const auto &[who, license, key2, client, code] : keys) {
        int32_t session = -1;
        EXPECT_EQ(IniciarSesionW(license, key2, client, &session), code) << who;
        EXPECT_EQ(session > 0, code == 0) << who;
    }
    int32_t session = 0;
    EXPECT_EQ(IniciarSesionW(nullptr, kKey2, kClient, &session), -2042);
    EXPECT_EQ(IniciarSesionW(kLicense, kKey2, kClient, nullptr), -2042);

    session = openSession();
    EXPECT_NE(openSession(), session) << "two sessions, two ids";
    EXPECT_EQ(run(14, session, "")
                  .values("//Product[@ProductID='300']/Operation[@OperationID='9']/MaxOperations"),
              Texts{"2"})
        << "the batch limit is the data set's";
    // What the assistant does on a lost session: close it, open another, retry once.
    const std::string request = catalogRequest(operation(1, "Publicar", "ZP-1"));
    EXPECT_EQ(run(9, session, request).connector, -2005);
    EXPECT_EQ(CerrarSesionW(session), 0);
    EXPECT_EQ(CerrarSesionW(session), -2004);
    EXPECT_EQ(CerrarSesionW(424242), -2004);
    EXPECT_EQ(run(14, session, "").connector, -2005);
    EXPECT_EQ(run(14, 777, "").connector, -2005);
    EXPECT_EQ(run(9, openSession(), request).values("//Operation/RETURNCODE"), Texts{"0"});
}

TEST_F(QdxLibraryTest, aMarketplaceThatCannotBeReachedGivesTheSocketCodes)
{
    useMarketplace("http://127.0.0.1:1");
    int32_t session = 0;
    char reply[16] = "sin tocar";
    EXPECT_EQ(IniciarSesionW(kLicense, kKey2, kClient, &session), -2048);
    EXPECT_EQ(CerrarSesionW(1001), -2048);
    EXPECT_EQ(EjecutarOperacionW(14, 1001, "", reply, sizeof reply), -2048);
    EXPECT_STREQ(reply, "sin tocar");

    useMarketplace("gopher+nada://feria");
    EXPECT_EQ(IniciarSesionW(kLicense, kKey2, kClient, &session), -2035);
}

TEST_F(QdxLibraryTest, requestsTheMarketplaceRefusesAnswerTheirCodeInTheResult)
{
    start();
    const int32_t session = openSession();
    const auto user = [](const char *name, const char *password, const char *store) {
        return std::string("<ValidateUser><UserName>") + name + "</UserName><Password>" + password +
               "</Password><Store StoreID='" + store + "'/></ValidateUser>";
    };
    const std::tuple<const char *, int32_t, std::string, int> requests[] = {
        {"a wrong password", 8, user("carmen", "andina2025", "100"), -8000},
        {"a user of another seller's store", 8, user("puerto", "libros1", "900"), -8001},
        {"a request cut short", 8, "<ValidateUser><UserName>", -8500},
        {"store information under another license", 13,
         "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>X</ProductLicense>"
         "</GetStoreInfo>",
         -8003},
        {"store information of another seller", 13,
         "<GetStoreInfo><SellerID>V2001</SellerID><ProductLicense>" + std::string(kLicense) +
             "</ProductLicense></GetStoreInfo>",
         -8002},
        {"a batch for another seller's store", 9, catalogRequest("", "900"), -8001},
        {"a batch without operations", 9,
         "<CatalogOperation>" + kSeller + "<StoreID>100</StoreID></CatalogOperation>", -8500},
    };
    for (const auto &[what, operationId, request, code] : requests) {
        SCOPED_TRACE(what);
        const Reply reply = run(operationId, session, request);
        ASSERT_EQ(reply.connector, 0);
        EXPECT_EQ(reply.code(), code) << reply.text;
        EXPECT_FALSE(reply.description().empty());
    }
}

TEST_F(QdxLibraryTest, publishingTwiceWithdrawingWhatIsNotThereAndTheStoresCount)
{
    start();
    const int32_t session = openSession();

    const Reply first = run(9, session, catalogRequest(operation(1, "Publicar", "ZP-1")));
    ASSERT_EQ(first.connector, 0);
    EXPECT_EQ(first.values("//Operations/Operation/RETURNCODE"), Texts{"0"});
    EXPECT_EQ(numberOfProducts(), (Texts{"1", "0", "0"}));
    // What a store published is what the catalogue shows in that store, and only there.
    const char *price = "//Product/Field[@fieldID='Cy_List_Price']";
    EXPECT_EQ(productInformation("ZP-1", "100").values(price), Texts{"12990.50"});
    EXPECT_EQ(productInformation("ZP-1", "200").values(price), Texts{""});

    const Reply batch =
        run(9, session,
            catalogRequest(
                operation(1, "Publicar", "ZP-1") + operation(1, "Actualizar", "ZP-1", "9990") +
                operation(99, "Despublicar", "ZP-5") + operation(98, "Actualizar", "ZP-6")));
    ASSERT_EQ(batch.connector, 0);
    EXPECT_EQ(batch.code(), 0);
    EXPECT_EQ(batch.values("//Operations/Operation/@PublicationID"), (Texts{"1", "1", "99", "98"}));
    EXPECT_EQ(batch.values("//Operations/Operation/RETURNCODE"),
              (Texts{"-8005", "0", "-8004", "-8004"}));
    EXPECT_EQ(productInformation("ZP-1", "100").values(price), Texts{"9990"});
    EXPECT_EQ(numberOfProducts(), (Texts{"1", "0", "0"}));

    EXPECT_EQ(run(9, session, catalogRequest(operation(1, "Despublicar", "ZP-1")))
                  .values("//Operation/RETURNCODE"),
              Texts{"0"});
    EXPECT_EQ(numberOfProducts(), (Texts{"0", "0", "0"}));
}

TEST_F(QdxLibraryTest, eachOperationOfABatchTheMarketplaceRefusesAnswersItsOwnCode)
{
    start("<Fault operation='9' product='ZP-7' code='-9001' description='Catálogo bloqueado'/>");
    const int32_t session = openSession();
    const Reply batch =
        run(9, session,
            catalogRequest(operation(1, "Publicar", "ZP-404") +
                           operation(2, "Publicar", "ZP-2", "12,5") +
                           operation(3, "Vender", "ZP-3") + operation(4, "Publicar", "ZP-7") +
                           operation(5, "Publicar", "ZP-1") + operation(6, "Publicar", "ZP-2") +
                           operation(7, "Publicar", "ZP-3") + operation(8, "Publicar", "ZP-4")));
    ASSERT_EQ(batch.connector, 0);
    // Unknown product, bad price, unknown word, injected, three that fit, one past the limit.
    EXPECT_EQ(batch.values("//Operations/Operation/RETURNCODE"),
              (Texts{"-8501", "-8503", "-8502", "-9001", "0", "0", "0", "-8006"}));
    EXPECT_EQ(batch.values("//Operation[@PublicationID='4']/DESCRIPTION"),
              Texts{"Catálogo bloqueado"});
    EXPECT_EQ(run(9, session, catalogRequest(operation(1, "Publicar", "ZP-1"), "300"))
                  .values("//Operation/RETURNCODE"),
              Texts{"-8007"})
        << "an inactive store";
}

TEST_F(QdxLibraryTest, faultsPickOperationsOfABatchAndEveryBatchIsKeptAsItArrived)
{
    start("<Fault operation='9' publication='2' word='Publicar' code='-8005' "
          "description='Ya existe'/>"
          "<Fault operation='9' publication='3' effect='omit'/>"
          "<Fault operation='9' word='Despublicar' effect='emptyDescription'/>"
          "<Fault operation='9' call='2' effect='noOperations'/>");
    const int32_t session = openSession();
    const std::string first = catalogRequest(
        operation(1, "Publicar", "ZP-1") + operation(2, "Publicar", "ZP-2") +
        operation(3, "Publicar", "ZP-3") + operation(2, "Actualizar", "ZP-2") +
        "<Operation PublicationID='1'><Operation>Despublicar</Operation>"
        "<ZorvantaID>ZP-1</ZorvantaID></Operation>");
    const Reply batch = run(9, session, first);
    ASSERT_EQ(batch.connector, 0);
    // 3 is left out and never applied; 2 is refused as published, so its update finds nothing.
    EXPECT_EQ(batch.values("//Operations/Operation/@PublicationID"),
              (Texts{"1", "2", "2", "1"}));
    EXPECT_EQ(batch.values("//Operations/Operation/RETURNCODE"),
              (Texts{"0", "-8005", "-8004", "0"}));
    EXPECT_EQ(batch.values("//Operations/Operation/DESCRIPTION"),
              (Texts{"Publicación realizada", "Ya existe",
                     "La publicación 2 no existe en la minitienda", ""}));
    EXPECT_EQ(numberOfProducts(), (Texts{"0", "0", "0"}));

    const std::string second = catalogRequest(operation(4, "Publicar", "ZP-4"));
    const Reply bare = run(9, session, second);
    ASSERT_EQ(bare.connector, 0);
    EXPECT_EQ(bare.code(), 0);
    EXPECT_TRUE(bare.values("//Operations").empty()) << bare.text;
    EXPECT_EQ(numberOfProducts(), (Texts{"0", "0", "0"})) << "a batch answered bare is not run";

    MarketplaceReply received;
    received.read(SoapTestClient(sim->url()).get("/sim/catalog-operations"));
    EXPECT_EQ(received.values("//Request"), (Texts{first, second}));
}

TEST_F(QdxLibraryTest, eachTaxIsAnsweredWithItsOwnCode)
{
    start("<Fault operation='16' tax='ICE' code='-8101' description='Impuesto no admitido'/>");
    const Reply taxes =
        run(16, openSession(),
            "<SetTaxes><StoreID>100</StoreID><SellerID>V1042</SellerID><Taxes>"
            "<Tax><TaxID>IVA</TaxID><AmountType>1</AmountType><Amount>19</Amount></Tax>"
            "<Tax><TaxID>ILA</TaxID><AmountType>2</AmountType><Amount>350.5</Amount></Tax>"
            "<Tax><TaxID>ICE</TaxID><AmountType>1</AmountType><Amount>5</Amount></Tax>"
            "<Tax><TaxID>OTRO</TaxID><AmountType></AmountType><Amount>5</Amount></Tax>"
            "</Taxes></SetTaxes>");
    ASSERT_EQ(taxes.connector, 0);
    EXPECT_EQ(taxes.code(), 0);
    EXPECT_EQ(taxes.values("//Taxes/Tax/TaxID | //Taxes/Tax/RETURNCODE"),
              (Texts{"IVA", "0", "ILA", "0", "ICE", "-8101", "OTRO", "-8504"}));
}

TEST_F(QdxLibraryTest, transportFaultsAndBadBuffersGiveTheConnectorsCodes)
{
    start("<Fault operation='13' call='1' effect='cut'/>"
          "<Fault operation='13' call='2' effect='wrongOperation'/>"
          "<Fault operation='13' call='3' code='-2039'/>"
          "<Fault operation='13' call='4' code='-9001' description='Servicio suspendido'/>"
          "<Fault operation='IniciarSesion' call='2' code='-2035'/>");
    const int32_t session = openSession();
    const std::string request = "<GetStoreInfo>" + kSeller + "</GetStoreInfo>";
    EXPECT_EQ(run(13, session, request).connector, -2045) << "connection dropped halfway";
    EXPECT_EQ(run(13, session, request).connector, -2043) << "reply for another operation";
    EXPECT_EQ(run(13, session, request).connector, -2039);
    const Reply suspended = run(13, session, request);
    EXPECT_EQ(suspended.connector, 0);
    EXPECT_EQ(suspended.code(), -9001);
    EXPECT_EQ(run(13, session, request).code(), 0);
    EXPECT_EQ(run(99, session, request).connector, -2042) << "an unknown operation";
    EXPECT_EQ(run(8, session, "").connector, -2044) << "an empty request";

    // A reply longer than the caller's buffer is cut at its size, and nothing goes past it.
    char buffer[64];
    std::memset(buffer, '#', sizeof buffer);
    ASSERT_EQ(EjecutarOperacionW(14, session, "", buffer, 20), 0);
    EXPECT_EQ(std::strlen(buffer), 19u);
    EXPECT_EQ(std::string(buffer + 20, buffer + 64), std::string(44, '#'));
    ASSERT_EQ(EjecutarOperacionW(14, session, "", buffer, 1), 0);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(EjecutarOperacionW(14, session, "", buffer, 0), -2042);

    int32_t second = 0;
    EXPECT_EQ(IniciarSesionW(kLicense, kKey2, kClient, &second), -2035);
}
