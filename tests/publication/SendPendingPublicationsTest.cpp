// What the send puts on the wire and what the marketplace's answers leave in the two tables.

#include "SendPipelineTest.h"

using ::testing::ElementsAre;
using SendPendingPublicationsTest = SendPipelineTest;

TEST_F(SendPendingPublicationsTest, nothingPendingStillSynchronisesTaxesAndSendsNothing)
{
    openMarketplace();
    // A row whose association was removed is neither counted nor sent.
    publication(1, 7, "100", "L");
    pending(1, 7, "100", "I", price("12.50"), 1);

    send();

    EXPECT_THAT(progress.events, ElementsAre("max 0", "products 0"));
    EXPECT_TRUE(wire().empty());
    EXPECT_THAT(marketplace("//Taxes/Store[@StoreID='100']/Tax/@TaxID"),
                ElementsAre("IVA", "ISE", "ECO"));
    EXPECT_THAT(publications(), ElementsAre("1|L"));
    EXPECT_THAT(pendings(), ElementsAre("1|I|0|0|"));
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(SendPendingPublicationsTest, aLimitOfTwoSendsFiveRowsInBatchesOfTwoTwoAndOne)
{
    openMarketplace({}, 2);
    for (int n = 1; n <= 4; ++n) {
        const std::string product = "ZP-" + std::to_string(n);
        waiting(n, "E-3", product.c_str(), "L", "I", price((std::to_string(n) + "0.00").c_str()),
                n);
    }
    // A withdrawal of something the marketplace never had: it is where we want it.
    waiting(5, "E-3", "ZP-5", "K", "E", {}, 5);

    send();

    const auto publish = [](int n) {
        const std::string number = std::to_string(n);
        return operation(n, "Publicar", ("ZP-" + number).c_str(),
                         "<Properties>" + field("Cy_List_Price", (number + "0.00").c_str()) +
                             "</Properties>");
    };
    EXPECT_THAT(wire(),
                ElementsAre(request(publish(1) + publish(2)), request(publish(3) + publish(4)),
                            request(operation(5, "Despublicar", "ZP-5"))));
    EXPECT_THAT(progress.events, ElementsAre("max 5", "products 2", "products 4", "products 5"));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K", "3|K", "4|K"));
    EXPECT_TRUE(pendings().empty());
    EXPECT_THAT(marketplace("//Store[@StoreID='100']/Publication/@ZorvantaID"),
                ElementsAre("ZP-1", "ZP-2", "ZP-3", "ZP-4"));
    EXPECT_THAT(logged(),
                ElementsAre(kLog + "Error -8004: publicación no existe. " +
                            reply(answer(5, "Despublicar", "ZP-5", "-8004",
                                         "La publicación 5 no existe en la minitienda"))));
    EXPECT_TRUE(ui->boxes().empty());
}

TEST_F(SendPendingPublicationsTest, eachRowCarriesTheCharacteristicFieldsOfTheRowBeforeIt)
{
    openMarketplace();
    associate(1, "E-1", "ZP-1",
              "<Properties>" + field("Marca", "Fortex") + "</Properties><VariantProperties/>");
    publication(1, 1, "100", "L");
    pending(1, 1, "100", "I", price("12.50"), 1);
    associate(2, "E-2", "ZP-2",
              "<Properties>" + field("Marca", "Voltia") + "</Properties><VariantProperties/>");
    publication(2, 2, "100", "L");
    pending(2, 2, "100", "I", price("20.00"), 2);

    send();

    EXPECT_THAT(wire(),
                ElementsAre(request(operation(1, "Publicar", "ZP-1",
                                              "<Properties>" + field("Cy_List_Price", "12.50") +
                                                  taxConfig(kIva) + "</Properties>") +
                                    operation(2, "Publicar", "ZP-2",
                                              "<Properties>" + field("Cy_List_Price", "20.00") +
                                                  field("Marca", "Fortex") + taxConfig(kIseEco) +
                                                  "</Properties>"))));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K"));
    EXPECT_TRUE(pendings().empty());
    EXPECT_THAT(progress.events, ElementsAre("max 2", "products 2"));
}

TEST_F(SendPendingPublicationsTest, variantPropertiesLeaveTaxConfigOrTheLastFieldOut)
{
    openMarketplace();
    const std::string sized = "<Properties/><VariantProperties>" + field("Cy_List_Price", "9.90") +
                              field("Talla", "M") + "</VariantProperties>";
    waiting(1, "E-1", "ZP-1", "L", "I", sized, 1);
    // With no taxes it is the last field moved that leaves the variant list.
    waiting(2, "E-3", "ZP-2", "L", "I", sized, 2);

    send();

    const std::string sizedOnWire = "<VariantProperties>" + field("Cy_List_Price", "9.90") +
                                    field("Talla", "M") + "</VariantProperties><Properties/>";
    EXPECT_THAT(wire(), ElementsAre(request(operation(1, "Publicar", "ZP-1", sizedOnWire) +
                                            operation(2, "Publicar", "ZP-2",
                                                      "<VariantProperties>" +
                                                          field("Cy_List_Price", "9.90") +
                                                          "</VariantProperties><Properties/>"))));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K"));
}

TEST_F(SendPendingPublicationsTest, whatTheReplyLeavesOutStaysPending)
{
    openMarketplace("<Fault operation='9' publication='2' effect='omit'/>");
    waiting(1, "E-3", "ZP-1", "L", "I", price("1.00"), 1);
    waiting(2, "E-3", "ZP-2", "L", "I", price("2.00"), 2);
    waiting(3, "E-3", "ZP-3", "L", "I", price("3.00"), 3);

    send();

    EXPECT_THAT(progress.events, ElementsAre("max 3", "products 2"));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|P", "3|K"));
    EXPECT_THAT(pendings(), ElementsAre("2|I|0|0|"));
    EXPECT_TRUE(logged().empty());
}

// Each publication meets one outcome of the marketplace, all in one batch.
TEST_F(SendPendingPublicationsTest, eachAnswerLeavesItsOwnRowsBehind)
{
    openMarketplace(
        "<Fault operation='9' publication='2' word='Actualizar' code='-8005' "
        "description='Publicación duplicada'/>"
        "<Fault operation='9' publication='4' code='-8006' description='Sin cupo'/>"
        "<Fault operation='9' publication='5' code='-9001' description='Catálogo bloqueado'/>"
        "<Fault operation='9' publication='7' code='7' description='Sin memoria'/>",
        10, [](std::string &data) {
            // 1 and 3 reached the marketplace in an earlier run whose answer never came back.
            const std::string user = "<User name=\"carmen\" password=\"andina2026\"/>";
            data.replace(data.find(user), user.size(),
                         user + "<Publication id=\"1\" product=\"ZP-1\"/>"
                                "<Publication id=\"3\" product=\"ZP-3\"/>");
        });
    struct Row
    {
        const char *situation;
        int number;
        const char *product;
        const char *state;
        const char *letter;
        int tries;
    };
    const Row rows[] = {
        {"a publication sent before and answered -8005 is confirmed", 1, "ZP-1", "P", "I", 0},
        {"-8005 on an update counts as a retry", 2, "ZP-2", "K", "A", 3},
        {"an accepted update copies its attributes", 3, "ZP-3", "K", "A", 0},
        {"the 100th failure removes the row", 4, "ZP-4", "K", "A", 99},
        {"a fatal-band code counts as a retry", 5, "ZP-5", "P", "I", 0},
        {"a product the marketplace will never take loses every pending row", 6, "ZP-404", "P", "I",
         0},
        {"a code of no known kind changes nothing", 7, "ZP-7", "K", "E", 0},
    };
    for (const Row &row : rows) {
        associate(row.number, "E-3", row.product);
        publication(row.number, row.number, "100", row.state, price("0.01"));
        pending(row.number, row.number, "100", row.letter, price("5.00"), row.number, row.tries);
    }
    pending(6, 6, "100", "A", price("6.00"), 8);

    send();

    EXPECT_THAT(progress.events, ElementsAre("max 8", "products 8"));
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|K", "3|K", "4|K", "5|P", "6|P", "7|K"));
    EXPECT_THAT(pendings(), ElementsAre("2|A|4|-8005|Publicación duplicada",
                                        "5|I|1|-9001|Catálogo bloqueado", "7|E|0|0|"));
    EXPECT_THAT(database->rows(Sql("SELECT Atributos FROM WIPRODPUBL WHERE IdPrdPublicado = 3")),
                ElementsAre(price("5.00")));
    EXPECT_THAT(database->rows(Sql("SELECT Atributos FROM WIPRODPUBL WHERE IdPrdPublicado = 2")),
                ElementsAre(price("0.01")));

    const std::string sent = wire().at(0);
    const std::string answered = reply(
        answer(1, "Publicar", "ZP-1", "-8005", "La publicación 1 ya existe en la minitienda") +
        answer(2, "Actualizar", "ZP-2", "-8005", "Publicación duplicada") +
        answer(3, "Actualizar", "ZP-3", "0", "Publicación actualizada") +
        answer(4, "Actualizar", "ZP-4", "-8006", "Sin cupo") +
        answer(5, "Publicar", "ZP-5", "-9001", "Catálogo bloqueado") +
        answer(6, "Publicar", "ZP-404", "-8501", "El producto ZP-404 no existe en el catálogo") +
        answer(7, "Despublicar", "ZP-7", "7", "Sin memoria") +
        answer(6, "Actualizar", "ZP-404", "-8501", "El producto ZP-404 no existe en el catálogo"));
    const auto refused = [&](int n, const char *code, const char *description) {
        return kLog + "Error en publicationID: " + std::to_string(n) + ". Código Error: " + code +
               ". Descripción: " + description + ". XML Entrada: " + sent +
               ". XML Salida: " + answered;
    };
    EXPECT_THAT(
        logged(),
        ElementsAre(kLog + "Error -8005: publicación existente. " + answered,
                    refused(2, "-8005", "Publicación duplicada"), refused(4, "-8006", "Sin cupo"),
                    kLog + "La operación para el publicationID: 4 de tipo Actualizar alcanzó el "
                           "máximo de reintentos: 100 y será borrada de la base de datos",
                    refused(5, "-9001", "Catálogo bloqueado"),
                    refused(6, "-8501", "El producto ZP-404 no existe en el catálogo"),
                    refused(7, "7", "Sin memoria"),
                    refused(6, "-8501", "El producto ZP-404 no existe en el catálogo")));
    EXPECT_TRUE(ui->boxes().empty()) << "codes in a reply are answers, not errors";
    EXPECT_TRUE(gAppRunning);
}

TEST_F(SendPendingPublicationsTest, aFailingStoreDoesNotStopTheNextOne)
{
    openMarketplace("<Fault operation='9' call='2' effect='malformed'/>");
    const char *stores[] = {"100", "200", "300"};
    for (int n = 1; n <= 3; ++n) {
        const std::string product = "ZP-" + std::to_string(n);
        associate(n, "E-3", product.c_str());
        publication(n, n, stores[n - 1], "L");
        pending(n, n, stores[n - 1], "I", price("1.00"), n);
    }

    // The progress window's loop: every store in turn, unless the application is closing.
    for (const char *store : stores) {
        send(store);
        ASSERT_TRUE(gAppRunning);
    }

    EXPECT_EQ(wire().size(), 3u);
    EXPECT_THAT(publications(), ElementsAre("1|K", "2|P", "3|K"));
    EXPECT_THAT(pendings(), ElementsAre("2|I|0|0|"));
    EXPECT_THAT(boxes(), ElementsAre("Error: -10502: " + kGenericBox));
    EXPECT_THAT(marketplace("//Store[@StoreID='300']/Publication/@ZorvantaID"),
                ElementsAre("ZP-3"));
}
