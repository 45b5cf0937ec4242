#pragma once

#include "ErpSandbox.h"
#include "FeriaSimProcess.h"
#include "SellerDatabaseSandbox.h"
#include "ShellTest.h"
#include "SmallMarketplace.h"
#include "SoapTestClient.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "gateways/QDX.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "platform/connectors/ErpLibrary.h"
#include "publication/PublicationProgress.h"
#include "publication/SendPendingPublications.h"
#include "shell/AppState.h"
#include "stores/Seller.h"
#include "stores/ZorvantaMinistore.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

/// What the progress window would have been told, in order.
class RecordedProgress : public PublicationProgress
{
public:
    void setMaxProducts(std::int16_t total) override
    {
        events.push_back("max " + std::to_string(total));
    }
    std::int16_t products() const override { return m_products; }
    void setProducts(std::int16_t handled) override
    {
        m_products = handled;
        events.push_back("products " + std::to_string(handled));
    }

    Texts events;

private:
    std::int16_t m_products = 0;
};

/// The demo seller V1042 sending to a feria-sim of the test's own: stores 100 (room for 50), 200
/// and 300 (room for 10 each), all active; products ZP-1 to ZP-7. The ERP knows E-1 (tax IVA),
/// E-2 (taxes ISE and ECO) and E-3 (no tax). The test writes the seller's rows with SQL.
class SendPipelineTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        erp = std::make_unique<ErpSandbox>();
        const auto product = [](const char *id, const char *taxes) {
            return std::string("<Producto id='") + id +
                   "' descripcion='Sartén' precioLista='10.00' precioPromocion='9.00' "
                   "precioMayorista='8.00' impuestos='" +
                   taxes + "'/>";
        };
        erp->writeData("<Categoria id='C-1' nombre='Cocina'>" + product("E-1", "IVA") +
                       product("E-2", "ISE ECO") + product("E-3", "") + "</Categoria>");
        setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
        setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
        resetAssistant();
        setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
        database = std::make_unique<SellerDatabaseSandbox>();
    }
    void TearDown() override
    {
        closeMarketplace();
        database.reset();
        erp.reset();
        unsetenv("ASISTENTE_ERP_LIBRARY");
        unsetenv("ASISTENTE_BACKOFFICE_LIBRARY");
        ShellTest::TearDown();
    }

    /// Starts the marketplace with these faults and batch limit, and the assistant on it: SOAP
    /// clients, operation limits, session. `data` may rewrite the marketplace's data first.
    void openMarketplace(const std::string &faults = {}, int batchLimit = 5,
                         const std::function<void(std::string &)> &data = {})
    {
        startMarketplace(faults, batchLimit, data);
        ASSERT_TRUE(QDXGetOperationConfiguration());
    }
    /// The same marketplace and SOAP clients, leaving the limits and the session to the test.
    void startMarketplace(const std::string &faults = {}, int batchLimit = 5,
                          const std::function<void(std::string &)> &data = {})
    {
        std::string text = smallMarketplace(faults, batchLimit);
        replace(text, "maxProducts=\"3\"", "maxProducts=\"50\"");
        replace(text, "maxProducts=\"10\" status=\"I\"", "maxProducts=\"10\" status=\"A\"");
        if (data)
            data(text);
        sim = FeriaSimProcess::withData(text);
        ASSERT_FALSE(sim->url().empty()) << sim->error();
        setenv("ASISTENTE_MARKETPLACE_URL", sim->url().c_str(), 1);
        ASSERT_TRUE(CommerceServerInit());
    }
    void closeMarketplace()
    {
        if (gSeller.exists() && gAppRunning)
            gSeller->closeSession();
        resetAssistant();
        sim.reset();
        unsetenv("ASISTENTE_MARKETPLACE_URL");
    }

    /// Runs the send for one store, as the progress window does.
    void send(const char *storeId = "100")
    {
        SendPendingPublications(*gSeller->ministores()->item(storeId), progress);
    }

    /// An association with its characteristic attribute text.
    void associate(int id, const char *dovel, const char *product,
                   const std::string &attributes = kNoFields)
    {
        database->execute(Sql() << "INSERT INTO WIPRODASOC (IdPrdAsociado, IdPrdDovel, "
                                   "IdPrdZorvanta, Atributos, FechaAsociado) VALUES ("
                                << sqlNumber(id) << ", '" << sqlText(dovel) << "', '"
                                << sqlText(product) << "', '" << sqlText(attributes)
                                << "', '2026-01-01 09:00:00')");
    }
    /// A publication of an association in a store, in state L, P or K.
    void publication(int number, int association, const char *store, const char *state,
                     const std::string &attributes = kNoFields)
    {
        database->execute(Sql() << "INSERT INTO WIPRODPUBL (IdPrdPublicado, IdPrdAsociado, "
                                   "IdTienda, Estado, Atributos, FechaPublicado) VALUES ("
                                << sqlNumber(number) << ", " << sqlNumber(association) << ", '"
                                << sqlText(store) << "', '" << sqlText(state) << "', '"
                                << sqlText(attributes) << "', '2026-01-02 09:00:00')");
    }
    /// A pending operation (I, A or E) of a publication, the `order`-th of the day; an E row
    /// carries no attributes.
    void pending(int number, int association, const char *store, const char *letter,
                 const std::string &attributes, int order, int tries = 0)
    {
        char date[32];
        std::snprintf(date, sizeof date, "2026-03-01 10:%02d:%02d", order / 60, order % 60);
        Sql insert;
        insert << "INSERT INTO WIPRODPEND (IdPrdPublicado, IdPrdAsociado, IdTienda, Estado, "
                  "Atributos, FechaPublicado, NumInt) VALUES ("
               << sqlNumber(number) << ", " << sqlNumber(association) << ", '" << sqlText(store)
               << "', '" << sqlText(letter) << "', ";
        if (std::string(letter) == "E")
            insert << "NULL";
        else
            insert << "'" << sqlText(attributes) << "'";
        insert << ", '" << sqlText(date) << "', " << sqlNumber(tries) << ")";
        database->execute(insert);
    }
    /// The common case: an association of `dovel` with `product` and its publication in store
    /// 100, in state `state`, with one pending row.
    void waiting(int number, const char *dovel, const char *product, const char *state,
                 const char *letter, const std::string &attributes, int order)
    {
        associate(number, dovel, product);
        publication(number, number, "100", state);
        pending(number, number, "100", letter, attributes, order);
    }

    /// WIPRODPUBL as "number|state".
    Texts publications()
    {
        return database->rows(
            Sql("SELECT IdPrdPublicado, Estado FROM WIPRODPUBL ORDER BY IdPrdPublicado"));
    }
    /// WIPRODPEND as "number|letter|tries|error|message".
    Texts pendings()
    {
        return database->rows(Sql("SELECT IdPrdPublicado, Estado, NumInt, Error, MsgErr FROM "
                                  "WIPRODPEND ORDER BY IdPrdPublicado, Estado"));
    }

    /// The CatalogOperation bodies as feria-sim received them.
    Texts wire() const
    {
        MarketplaceReply received;
        received.read(SoapTestClient(sim->url()).get("/sim/catalog-operations"));
        return received.values("//Request");
    }
    /// Values of the marketplace's state document.
    Texts marketplace(const char *xpath) const
    {
        MarketplaceReply state;
        state.read(SoapTestClient(sim->url()).get("/sim/state"));
        return state.values(xpath);
    }
    /// The log's texts, without their date and quotes.
    Texts logged() const
    {
        Texts texts;
        for (const std::string &line : logLines())
            texts.push_back(line.substr(21, line.size() - 22));
        return texts;
    }
    Texts boxes() const
    {
        Texts texts;
        for (const RecordedBox &box : ui->boxes())
            texts.push_back(box.text);
        return texts;
    }

    // Documents as the marketplace must receive them and answer them, written by hand.

    /// A request for a store; `maxProducts` is the store's room.
    static std::string request(const std::string &operations, const char *store = "100",
                               const char *maxProducts = "50")
    {
        return std::string("<CatalogOperation><SellerID>V1042</SellerID><ProductLicense>"
                           "NUB-LIC-2026-0042</ProductLicense><StoreID>") +
               store + "</StoreID><MaxProducts>" + maxProducts + "</MaxProducts><Operations>" +
               operations + "</Operations></CatalogOperation>";
    }
    static std::string operation(int number, const char *word, const char *product,
                                 const std::string &fields = {})
    {
        return "<Operation PublicationID='" + std::to_string(number) + "'><Operation>" + word +
               "</Operation><ZorvantaID>" + product + "</ZorvantaID>" + fields + "</Operation>";
    }
    /// A field as the attribute texts hold it.
    static std::string field(const char *id, const char *value)
    {
        return std::string("<Field fieldID=\"") + id + "\"><![CDATA[" + value + "]]></Field>";
    }
    /// A publication's own attributes: its price.
    static std::string price(const char *value)
    {
        return "<Properties>" + field("Cy_List_Price", value) + "</Properties><VariantProperties/>";
    }
    static std::string taxConfig(const std::string &taxes)
    {
        return "<Field fieldID=\"TAXCONFIG\"><![CDATA[<Taxes>" + taxes + "</Taxes>]]></Field>";
    }
    static std::string reply(const std::string &answers)
    {
        return "<CatalogOperation><RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Exito"
               "</DESCRIPTION></RESULT><Operations>" +
               answers + "</Operations></CatalogOperation>";
    }
    static std::string answer(int number, const char *word, const char *product, const char *code,
                              const std::string &description)
    {
        return "<Operation PublicationID=\"" + std::to_string(number) + "\"><Operation>" + word +
               "</Operation><ZorvantaID>" + product + "</ZorvantaID><RETURNCODE>" + code +
               "</RETURNCODE><DESCRIPTION>" + description + "</DESCRIPTION></Operation>";
    }

    inline static const std::string kNoFields = "<Properties/><VariantProperties/>";
    inline static const std::string kIva =
        "<Tax><TaxID>IVA</TaxID><AmountType>0</AmountType></Tax>";
    inline static const std::string kIseEco =
        "<Tax><TaxID>ISE</TaxID><AmountType>1</AmountType><Amount>5</Amount></Tax>"
        "<Tax><TaxID>ECO</TaxID><AmountType>2</AmountType><Amount>1.50</Amount></Tax>";
    inline static const std::string kLog = "(ZorvantaMinistore:SendPendingPublications) ";
    inline static const std::string kGenericBox =
        "Error de la aplicación. Contacte al administrador del sistema";

    std::unique_ptr<ErpSandbox> erp;
    std::unique_ptr<SellerDatabaseSandbox> database;
    std::unique_ptr<FeriaSimProcess> sim;
    RecordedProgress progress;

private:
    static void replace(std::string &text, const std::string &from, const std::string &to)
    {
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    }
    static void resetAssistant()
    {
        gSeller.reset();
        gStoreClient.reset();
        gCatalogOperationsClient.reset();
        gCatalogInfoClient.reset();
        setErpLibrary(nullptr);
        setBackOfficeLibrary(nullptr);
    }
};
