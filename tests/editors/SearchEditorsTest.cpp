#include "SearchEditorsTest.h"

#include "ErpSandbox.h"
#include "gateways/BackOfficeSession.h"
#include "gateways/CommerceServer.h"
#include "marketplace/FeriaServer.h"
#include "marketplace/MarketplaceData.h"
#include "platform/connectors/BackOfficeLibrary.h"
#include "shell/AppState.h"
#include "stores/Seller.h"

#include <QTest>

#include <cstdlib>

namespace {

std::string text(const char *buffer)
{
    return buffer == nullptr ? std::string() : std::string(buffer);
}

void appendNodes(const QTreeWidgetItem *item, int depth, Texts &lines)
{
    lines.push_back(std::string(2 * depth, ' ') + item->text(0).toStdString());
    for (int child = 0; child < item->childCount(); ++child)
        appendNodes(item->child(child), depth + 1, lines);
}

void resetAssistant()
{
    gSeller.reset();
    gStoreClient.reset();
    gCatalogOperationsClient.reset();
    gCatalogInfoClient.reset();
    setErpLibrary(nullptr);
    setBackOfficeLibrary(nullptr);
}

} // namespace

std::int32_t RecordingErp::ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                                     std::int32_t querySize, char *position,
                                                     std::int32_t direction,
                                                     const char *ministoreId,
                                                     std::int32_t *count, char *reply)
{
    calls.push_back("category " + text(categoryId) + " type " + std::to_string(productType) +
                    " store " + text(ministoreId));
    return LoadedErpLibrary::ObtenerContenidoCategoria(productType, categoryId, querySize,
                                                       position, direction, ministoreId, count,
                                                       reply);
}

std::int32_t RecordingErp::BusquedaProductosIndividual(std::int32_t productType,
                                                       std::int32_t queryType, char *searchText,
                                                       std::int32_t querySize, char *lastId,
                                                       std::int32_t direction,
                                                       const char *ministoreId,
                                                       std::int32_t *count, char *reply)
{
    calls.push_back("search " + std::to_string(queryType) + " '" + text(searchText) +
                    "' type " + std::to_string(productType) + " store " + text(ministoreId));
    return LoadedErpLibrary::BusquedaProductosIndividual(productType, queryType, searchText,
                                                         querySize, lastId, direction,
                                                         ministoreId, count, reply);
}

void SearchEditorsTest::SetUp()
{
    ShellTest::SetUp();
    resetAssistant();
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    setenv("ASISTENTE_BACKOFFICE_LIBRARY", QDX_PATH, 1);
    unsetenv("ASISTENTE_SQL_DRIVER");
    erp = std::make_unique<ErpSandbox>();
    erp->createSellerTables();
    erpCalls = std::make_shared<RecordingErp>();
    setErpLibrary(erpCalls);
    setBackOfficeSession([]() -> BackOfficeSession & { return *gSeller; });
}

void SearchEditorsTest::TearDown()
{
    if (gSeller.exists() && m_marketplace)
        gSeller->closeSession();
    resetAssistant();
    if (m_marketplace) {
        m_marketplace->stop();
        m_serving.join();
        m_marketplace.reset();
        unsetenv("ASISTENTE_MARKETPLACE_URL");
    }
    erpCalls.reset();
    erp.reset();
    ShellTest::TearDown();
}

void SearchEditorsTest::startMarketplace(std::unique_ptr<MarketplaceData> data)
{
    if (data == nullptr)
        data = MarketplaceData::load(DEMO_DATA_DIR);
    m_marketplace = std::make_unique<FeriaServer>(std::move(data));
    const int port = m_marketplace->bind(0);
    ASSERT_GT(port, 0);
    // A bound socket queues the first requests until the loop starts.
    m_serving = std::thread([this] { m_marketplace->run(); });
    const std::string url = "http://127.0.0.1:" + std::to_string(port);
    setenv("ASISTENTE_MARKETPLACE_URL", url.c_str(), 1);
    ASSERT_TRUE(CommerceServerInit()) << url;
}

Texts SearchEditorsTest::loggedErrors() const
{
    Texts errors;
    for (const std::string &line : logLines()) {
        std::string error = line.substr(line.find("Error: "));
        error.pop_back(); // the record's closing quote
        errors.push_back(error);
    }
    return errors;
}

Texts SearchEditorsTest::treeText(const QTreeWidget &tree)
{
    Texts lines;
    for (int top = 0; top < tree.topLevelItemCount(); ++top)
        appendNodes(tree.topLevelItem(top), 0, lines);
    return lines;
}

QTreeWidgetItem *SearchEditorsTest::node(const QTreeWidget &tree, const std::string &text)
{
    const auto found = tree.findItems(QString::fromStdString(text),
                                      Qt::MatchExactly | Qt::MatchRecursive);
    EXPECT_FALSE(found.isEmpty()) << "no node " << text;
    return found.isEmpty() ? nullptr : found.first();
}

void SearchEditorsTest::click(QTreeWidget &tree, QTreeWidgetItem *item)
{
    tree.scrollToItem(item);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
}
