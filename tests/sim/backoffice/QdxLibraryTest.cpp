#include "FeriaSimProcess.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"
#include "platform/connectors/ConnectorAbi.h"

#include <arpa/inet.h>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int32_t kReplySize = 65535;
constexpr const char *kLicense = "NUB-LIC-2026-0042";
constexpr const char *kKey2 = "QK-7F3A9C";
constexpr int32_t kClient = 4711;

/// The library as the assistant loads it: by path, with dlopen.
struct Qdx
{
    Qdx()
    {
        handle = dlopen(QDX_LIBRARY_PATH, RTLD_NOW);
        if (handle != nullptr) {
            open = reinterpret_cast<decltype(open)>(dlsym(handle, "IniciarSesionW"));
            close = reinterpret_cast<decltype(close)>(dlsym(handle, "CerrarSesionW"));
            execute = reinterpret_cast<decltype(execute)>(dlsym(handle, "EjecutarOperacionW"));
        }
    }
    ~Qdx()
    {
        if (handle != nullptr) {
            dlclose(handle);
        }
    }
    bool loaded() const { return open != nullptr && close != nullptr && execute != nullptr; }

    void *handle = nullptr;
    decltype(&IniciarSesionW) open = nullptr;
    decltype(&CerrarSesionW) close = nullptr;
    decltype(&EjecutarOperacionW) execute = nullptr;
};

/// A back-office reply: the connector's code and, when it is 0, the document.
struct Reply : MarketplaceReply
{
    int32_t connector = 0;
};

std::string catalogRequest(const std::string &operations, const char *store = "100",
                           const char *license = kLicense)
{
    return std::string("<CatalogOperation><SellerID>V1042</SellerID><ProductLicense>") + license +
           "</ProductLicense><StoreID>" + store +
           "</StoreID><MaxProducts>3</MaxProducts><Operations>" + operations +
           "</Operations></CatalogOperation>";
}

std::string operation(int publication, const char *word, const char *product,
                      const char *price = "12990.50")
{
    std::string text = "<Operation PublicationID='" + std::to_string(publication) +
                       "'><Operation>" + word + "</Operation><ZorvantaID>" + product +
                       "</ZorvantaID>";
    if (std::string(word) != "Despublicar") {
        text += std::string("<Properties><Field fieldID='Cy_List_Price'><![CDATA[") + price +
                "]]></Field><Field fieldID='TAXCONFIG'><![CDATA[<Taxes/>]]></Field></Properties>";
    }
    return text + "</Operation>";
}

class QdxLibraryTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(qdx.loaded()) << dlerror(); }

    void start(const std::string &faults = {}, int batchLimit = 5)
    {
        sim = FeriaSimProcess::withData(smallMarketplace(faults, batchLimit));
        ASSERT_FALSE(sim->url().empty()) << sim->error();
        useMarketplace(sim->url());
    }
    static void useMarketplace(const std::string &url)
    {
        setenv("ASISTENTE_MARKETPLACE_URL", url.c_str(), 1);
    }
    int32_t openSession()
    {
        int32_t session = 0;
        EXPECT_EQ(qdx.open(kLicense, kKey2, kClient, &session), 0);
        return session;
    }
    Reply run(int32_t operationId, int32_t session, const std::string &request)
    {
        Reply reply;
        std::vector<char> buffer(kReplySize, '\0');
        reply.connector =
            qdx.execute(operationId, session, request.c_str(), buffer.data(), kReplySize);
        reply.read(buffer.data());
        return reply;
    }
    int numberOfProducts(const char *store)
    {
        const std::string path = "//Store[StoreID='" + std::string(store) + "']/NumberOfProducts";
        const auto found = SoapTestClient(sim->url())
                               .call("GetSellerInformation", {{"SellerID", "V1042"}})
                               .values(path.c_str());
        return found.empty() ? -1 : std::stoi(found[0]);
    }

    Qdx qdx;
    std::unique_ptr<FeriaSimProcess> sim;
};

int closedPort()
{
    const int probe = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(probe, reinterpret_cast<sockaddr *>(&address), sizeof address);
    socklen_t length = sizeof address;
    getsockname(probe, reinterpret_cast<sockaddr *>(&address), &length);
    ::close(probe);
    return ntohs(address.sin_port);
}

} // namespace

TEST_F(QdxLibraryTest, aSessionOpensOnlyForTheClientsOwnKeysAndNumber)
{
    start();
    struct Case
    {
        const char *who;
        const char *license;
        const char *key2;
        int32_t client;
        int32_t code;
    };
    const std::vector<Case> table{
        {"the demo seller", kLicense, kKey2, kClient, 0},
        {"another license", "NUB-LIC-2026-0077", kKey2, kClient, -2005},
        {"another second key", kLicense, "QK-000000", kClient, -2005},
        {"another client number", kLicense, kKey2, 4712, -2005},
        {"keys with characters a URL must escape", "a&b=c d", "%20", kClient, -2005},
    };
    for (const Case &row : table) {
        SCOPED_TRACE(row.who);
        int32_t session = -1;
        EXPECT_EQ(qdx.open(row.license, row.key2, row.client, &session), row.code);
        EXPECT_EQ(session > 0, row.code == 0);
    }
    int32_t session = 0;
    EXPECT_EQ(qdx.open(nullptr, kKey2, kClient, &session), -2042);
    EXPECT_EQ(qdx.open(kLicense, kKey2, kClient, nullptr), -2042);
    EXPECT_NE(openSession(), openSession()) << "two sessions, two ids";
}

TEST_F(QdxLibraryTest, aClosedSessionCanNeitherRunNorCloseAgain)
{
    start();
    const int32_t session = openSession();
    EXPECT_EQ(run(14, session, "").connector, 0);
    EXPECT_EQ(qdx.close(session), 0);
    EXPECT_EQ(qdx.close(session), -2004);
    EXPECT_EQ(qdx.close(424242), -2004);
    EXPECT_EQ(run(14, session, "").connector, -2005);
    EXPECT_EQ(run(14, 777, "").connector, -2005);
}

TEST_F(QdxLibraryTest, aMarketplaceThatCannotBeReachedGivesTheSocketCodes)
{
    useMarketplace("http://127.0.0.1:" + std::to_string(closedPort()));
    int32_t session = 0;
    char reply[16] = "sin tocar";
    EXPECT_EQ(qdx.open(kLicense, kKey2, kClient, &session), -2048);
    EXPECT_EQ(qdx.close(1001), -2048);
    EXPECT_EQ(qdx.execute(14, 1001, "", reply, sizeof reply), -2048);
    EXPECT_STREQ(reply, "sin tocar");

    useMarketplace("gopher+nada://feria");
    EXPECT_EQ(qdx.open(kLicense, kKey2, kClient, &session), -2035);
}

TEST_F(QdxLibraryTest, theDemoBackOfficeBatchesFiveCatalogueOperations)
{
    std::string url;
    std::ifstream(FERIA_DEMO_URL_FILE) >> url;
    ASSERT_FALSE(url.empty()) << "the feriaDemo fixture wrote no address";
    useMarketplace(url);
    const Reply limits = run(14, openSession(), "");
    ASSERT_EQ(limits.connector, 0);
    EXPECT_EQ(
        limits.values("//Product[@ProductID='300']/Operation[@OperationID='9']/MaxOperations"),
        std::vector<std::string>{"5"});
    EXPECT_EQ(
        limits.values("//Product[@ProductID='310']/Operation[@OperationID='9']/MaxOperations"),
        std::vector<std::string>{"10"});
    EXPECT_EQ(limits.values("//Product/*[not(@OperationID) or not(MaxOperations)]").size(), 0u);
}

TEST_F(QdxLibraryTest, theBatchLimitIsTheDataSets)
{
    start({}, 2);
    EXPECT_EQ(run(14, openSession(), "")
                  .values("//Product[@ProductID='300']/Operation[@OperationID='9']/MaxOperations"),
              std::vector<std::string>{"2"});
}

TEST_F(QdxLibraryTest, storeInfoGivesThePlanTheLimitAndTheStatusOfEachStore)
{
    start();
    const int32_t session = openSession();
    const Reply stores = run(13, session,
                             "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>" +
                                 std::string(kLicense) + "</ProductLicense></GetStoreInfo>");
    ASSERT_EQ(stores.connector, 0);
    EXPECT_EQ(stores.code(), 0);
    EXPECT_EQ(stores.values("//Store/@StoreID"),
              (std::vector<std::string>{"100", "200", "300"}));
    EXPECT_EQ(stores.values("//Store/ProductID"), (std::vector<std::string>{"300", "310", "300"}));
    EXPECT_EQ(stores.values("//Store/MaxProducts"), (std::vector<std::string>{"3", "10", "10"}));
    EXPECT_EQ(stores.values("//Store/Status"), (std::vector<std::string>{"A", "A", "I"}));

    EXPECT_EQ(run(13, session,
                  "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>X</ProductLicense>"
                  "</GetStoreInfo>")
                  .code(),
              -8003);
    EXPECT_EQ(run(13, session,
                  "<GetStoreInfo><SellerID>V2001</SellerID><ProductLicense>" +
                      std::string(kLicense) + "</ProductLicense></GetStoreInfo>")
                  .code(),
              -8002);
}

TEST_F(QdxLibraryTest, aStoreUserIsCheckedAgainstTheStoresOwnUsers)
{
    start();
    const int32_t session = openSession();
    struct Case
    {
        const char *who;
        const char *user;
        const char *password;
        const char *store;
        int result;
    };
    const std::vector<Case> table{
        {"the store's user", "carmen", "andina2026", "100", 0},
        {"a wrong password", "carmen", "andina2025", "100", -8000},
        {"a user of no store", "pedro", "andina2026", "100", -8000},
        {"a user of another seller's store", "puerto", "libros1", "900", -8001},
    };
    for (const Case &row : table) {
        SCOPED_TRACE(row.who);
        const Reply reply = run(
            8, session,
            std::string("<ValidateUser><UserName>") + row.user + "</UserName><Password>" +
                row.password + "</Password><Store StoreID='" + row.store + "'/></ValidateUser>");
        ASSERT_EQ(reply.connector, 0);
        EXPECT_EQ(std::string(reply.doc->document_element().name()), "ValidateUser");
        EXPECT_EQ(reply.code(), row.result);
        EXPECT_FALSE(reply.values("/*/RESULT/DESCRIPTION")[0].empty());
    }
    EXPECT_EQ(run(8, session, "<ValidateUser><UserName>").code(), -8500);
    EXPECT_EQ(run(8, session, "").connector, -2044);
}

TEST_F(QdxLibraryTest, publishingTwiceWithdrawingWhatIsNotThereAndTheStoresCount)
{
    start();
    const int32_t session = openSession();
    ASSERT_EQ(numberOfProducts("100"), 0);

    const Reply first = run(9, session, catalogRequest(operation(1, "Publicar", "ZP-1")));
    ASSERT_EQ(first.connector, 0);
    EXPECT_EQ(first.doc->document_element().first_child().name(), std::string("RESULT"));
    EXPECT_EQ(first.values("//Operations/Operation/RETURNCODE"), std::vector<std::string>{"0"});
    EXPECT_EQ(numberOfProducts("100"), 1);

    const Reply batch =
        run(9, session,
            catalogRequest(
                operation(1, "Publicar", "ZP-1") + operation(1, "Actualizar", "ZP-1", "9990") +
                operation(99, "Despublicar", "ZP-5") + operation(98, "Actualizar", "ZP-6")));
    ASSERT_EQ(batch.connector, 0);
    EXPECT_EQ(batch.code(), 0);
    EXPECT_EQ(batch.values("//Operations/Operation/@PublicationID"),
              (std::vector<std::string>{"1", "1", "99", "98"}));
    EXPECT_EQ(batch.values("//Operations/Operation/Operation"),
              (std::vector<std::string>{"Publicar", "Actualizar", "Despublicar", "Actualizar"}));
    EXPECT_EQ(batch.values("//Operations/Operation/ZorvantaID"),
              (std::vector<std::string>{"ZP-1", "ZP-1", "ZP-5", "ZP-6"}));
    EXPECT_EQ(batch.values("//Operations/Operation/RETURNCODE"),
              (std::vector<std::string>{"-8005", "0", "-8004", "-8004"}));
    for (const std::string &description : batch.values("//Operations/Operation/DESCRIPTION")) {
        EXPECT_FALSE(description.empty());
    }
    EXPECT_EQ(numberOfProducts("100"), 1);

    EXPECT_EQ(run(9, session, catalogRequest(operation(1, "Despublicar", "ZP-1")))
                  .values("//Operation/RETURNCODE"),
              std::vector<std::string>{"0"});
    EXPECT_EQ(numberOfProducts("100"), 0);
}

TEST_F(QdxLibraryTest, operationsTheMarketplaceRefusesAnswerTheirOwnCode)
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
    EXPECT_EQ(
        batch.values("//Operations/Operation/RETURNCODE"),
        (std::vector<std::string>{"-8501", "-8503", "-8502", "-9001", "0", "0", "0", "-8006"}));
    EXPECT_EQ(batch.values("//Operation[@PublicationID='4']/DESCRIPTION"),
              std::vector<std::string>{"Catálogo bloqueado"});
    EXPECT_EQ(run(9, session, catalogRequest(operation(1, "Publicar", "ZP-1"), "300"))
                  .values("//Operation/RETURNCODE"),
              std::vector<std::string>{"-8007"});

    EXPECT_EQ(run(9, session, catalogRequest("", "900")).code(), -8001);
    EXPECT_EQ(run(9, session, catalogRequest("", "100", "NUB-LIC-1999-0001")).code(), -8003);
    EXPECT_EQ(run(9, session,
                  "<CatalogOperation><SellerID>V1042</SellerID><ProductLicense>" +
                      std::string(kLicense) +
                      "</ProductLicense><StoreID>100</StoreID></CatalogOperation>")
                  .code(),
              -8500);
}

TEST_F(QdxLibraryTest, taxesAreAnsweredOneByOneAndTheAcceptedOnesKept)
{
    start("<Fault operation='16' tax='ICE' code='-8101' description='Impuesto no admitido'/>");
    const int32_t session = openSession();
    const Reply taxes =
        run(16, session,
            "<SetTaxes><StoreID>100</StoreID><SellerID>V1042</SellerID><Taxes>"
            "<Tax><TaxID>IVA</TaxID><AmountType>1</AmountType><Amount>19</Amount></Tax>"
            "<Tax><TaxID>ILA</TaxID><AmountType>2</AmountType><Amount>350.5</Amount></Tax>"
            "<Tax><TaxID>ICE</TaxID><AmountType>1</AmountType><Amount>5</Amount></Tax>"
            "<Tax><TaxID>OTRO</TaxID><AmountType></AmountType><Amount>5</Amount></Tax>"
            "</Taxes></SetTaxes>");
    ASSERT_EQ(taxes.connector, 0);
    EXPECT_EQ(taxes.code(), 0);
    EXPECT_EQ(taxes.values("//Taxes/Tax/TaxID"),
              (std::vector<std::string>{"IVA", "ILA", "ICE", "OTRO"}));
    EXPECT_EQ(taxes.values("//Taxes/Tax/RETURNCODE"),
              (std::vector<std::string>{"0", "0", "-8101", "-8504"}));

    const Reply none = run(16, session,
                           "<SetTaxes><StoreID>200</StoreID><SellerID>V1042</SellerID>"
                           "<Taxes/></SetTaxes>");
    ASSERT_EQ(none.values("//Taxes").size(), 1u);
    EXPECT_EQ(none.values("//Taxes/*").size(), 0u);

    pugi::xml_document state;
    ASSERT_TRUE(state.load_string(SoapTestClient(sim->url()).get("/sim/state").c_str()));
    EXPECT_EQ(state.select_nodes("//Taxes/Store[@StoreID='100']/Tax").size(), 2u);
}

TEST_F(QdxLibraryTest, aLostSessionAnswers2005UntilClosedAndReopened)
{
    start("<Fault operation='9' call='1' effect='loseSession'/>");
    const int32_t session = openSession();
    const std::string request = catalogRequest(operation(1, "Publicar", "ZP-1"));
    // What the assistant does on a connector code: close, open again, retry once.
    EXPECT_EQ(run(9, session, request).connector, -2005);
    EXPECT_EQ(qdx.close(session), 0);
    const int32_t reopened = openSession();
    EXPECT_NE(reopened, session);
    const Reply retried = run(9, reopened, request);
    EXPECT_EQ(retried.connector, 0);
    EXPECT_EQ(retried.values("//Operation/RETURNCODE"), std::vector<std::string>{"0"});
}

TEST_F(QdxLibraryTest, aReplyLongerThanTheBufferIsCutAtItsSize)
{
    start("<Fault operation='13' effect='overlong' size='70000'/>");
    const int32_t session = openSession();
    char buffer[64];
    std::memset(buffer, '#', sizeof buffer);
    ASSERT_EQ(qdx.execute(14, session, "", buffer, 20), 0);
    EXPECT_EQ(std::strlen(buffer), 19u);
    EXPECT_EQ(std::string(buffer + 20, buffer + 64), std::string(44, '#'));

    ASSERT_EQ(qdx.execute(14, session, "", buffer, 1), 0);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(qdx.execute(14, session, "", buffer, 0), -2042);

    const Reply overlong = run(13, session, "<GetStoreInfo/>");
    EXPECT_EQ(overlong.connector, 0);
    EXPECT_EQ(overlong.text.size(), static_cast<size_t>(kReplySize - 1));
    EXPECT_FALSE(overlong.wellFormed) << "a cut reply does not parse";
}

TEST_F(QdxLibraryTest, transportFaultsGiveTheConnectorsCodes)
{
    start("<Fault operation='13' call='1' effect='cut'/>"
          "<Fault operation='13' call='2' effect='wrongOperation'/>"
          "<Fault operation='13' call='3' code='-2039'/>"
          "<Fault operation='13' call='4' code='-9001' description='Servicio suspendido'/>"
          "<Fault operation='IniciarSesion' call='2' code='-2035'/>");
    const int32_t session = openSession();
    const std::string request = "<GetStoreInfo><SellerID>V1042</SellerID><ProductLicense>" +
                                std::string(kLicense) + "</ProductLicense></GetStoreInfo>";
    EXPECT_EQ(run(13, session, request).connector, -2045) << "connection dropped halfway";
    EXPECT_EQ(run(13, session, request).connector, -2043) << "reply for another operation";
    EXPECT_EQ(run(13, session, request).connector, -2039);
    const Reply suspended = run(13, session, request);
    EXPECT_EQ(suspended.connector, 0);
    EXPECT_EQ(suspended.code(), -9001);
    EXPECT_EQ(run(13, session, request).code(), 0);
    EXPECT_EQ(run(99, session, request).connector, -2042);

    int32_t second = 0;
    EXPECT_EQ(qdx.open(kLicense, kKey2, kClient, &second), -2035);
}
