#pragma once

#include "FakeConnectors.h"
#include "FakeStoreService.h"
#include "SellerDatabaseSandbox.h"
#include "ShellTest.h"
#include "gateways/CommerceServer.h"
#include "shell/AppState.h"
#include "stores/Seller.h"

#include <memory>
#include <string>

/// The demo seller against fakes of its three outside parties and a database of its own.
class StoresTest : public ShellTest
{
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        erp = std::make_shared<FakeErp>();
        backOffice = std::make_shared<FakeBackOffice>();
        setErpLibrary(erp);
        setBackOfficeLibrary(backOffice);
        setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
        store.bindStoreClient();
        database = std::make_unique<SellerDatabaseSandbox>();
        gSeller.reset();
    }
    void TearDown() override
    {
        gSeller.reset();
        gStoreClient.reset();
        database.reset();
        setErpLibrary(nullptr);
        setBackOfficeLibrary(nullptr);
        ShellTest::TearDown();
    }

    /// The two replies that describe the demo's stores 100 and 200, each store as given.
    void answerStores(const std::string &storeNodes, const std::string &backOfficeNodes)
    {
        store.answer("<GetSellerInformation>" + kSuccess + "<SellerID>V1042</SellerID><Stores>" +
                     storeNodes + "</Stores></GetSellerInformation>");
        backOffice->queue(0, "<GetStoreInfo>" + kSuccess + "<Stores>" + backOfficeNodes +
                                 "</Stores></GetStoreInfo>");
    }
    void answerDemoStores()
    {
        answerStores(storeNode("100", "Andina Hogar y Cocina") +
                         storeNode("200", "Andina Deportes"),
                     backOfficeNode("100", "A") + backOfficeNode("200", "I"));
    }
    static std::string storeNode(const std::string &id, const std::string &name)
    {
        return "<Store><StoreID>" + id + "</StoreID><Name>" + name + "</Name><Description>Tienda " +
               id + "</Description><NumberOfProducts>3</NumberOfProducts></Store>";
    }
    static std::string backOfficeNode(const std::string &id, const std::string &status)
    {
        return "<Store StoreID=\"" + id +
               "\"><ProductID>300</ProductID><MaxProducts>150"
               "</MaxProducts><Status>" +
               status + "</Status></Store>";
    }
    /// The demo's store 100, read through the seller.
    std::shared_ptr<ZorvantaMinistore> ministore100()
    {
        answerDemoStores();
        return gSeller->ministores()->item("100");
    }

    inline static const std::string kSuccess =
        "<RESULT><RETURNCODE>0</RETURNCODE><DESCRIPTION>Operación exitosa</DESCRIPTION></RESULT>";
    /// The text every box of a database failure shows.
    inline static const std::string kDatabaseBox =
        "Error de base de datos: Verifique que la base de datos esté ejecutándose.";

    std::shared_ptr<FakeErp> erp;
    std::shared_ptr<FakeBackOffice> backOffice;
    FakeStoreService store;
    std::unique_ptr<SellerDatabaseSandbox> database;
};
