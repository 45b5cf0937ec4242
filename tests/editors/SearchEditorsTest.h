#pragma once

#include "ErpSandbox.h"
#include "ShellTest.h"
#include "marketplace/FeriaServer.h"
#include "marketplace/MarketplaceData.h"
#include "platform/connectors/LoadedErpLibrary.h"

#include <QTreeWidget>

#include <memory>
#include <string>
#include <thread>
#include <vector>

using Texts = std::vector<std::string>;

/// The real ERP library, with a record of the lists it was asked for: for a category
/// "category <id> type <productType> store <id>", for a search
/// "search <queryType> '<text>' type <productType> store <id>".
class RecordingErp : public LoadedErpLibrary
{
public:
    std::int32_t ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                           std::int32_t querySize, char *position,
                                           std::int32_t direction, const char *ministoreId,
                                           std::int32_t *count, char *reply) override;
    std::int32_t BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType,
                                             char *searchText, std::int32_t querySize,
                                             char *lastId, std::int32_t direction,
                                             const char *ministoreId, std::int32_t *count,
                                             char *reply) override;

    Texts calls;
};

/// A test of the search editors: the ERP library over a data set of the test's own, with the
/// seller's database beside it, and on demand the marketplace simulator on loopback inside the
/// test process (the catalogue service and the back office the real library talks to).
class SearchEditorsTest : public ShellTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Serves `data` (the demo marketplace when nullptr) and binds the service clients to it.
    void startMarketplace(std::unique_ptr<MarketplaceData> data = nullptr);
    /// The log's errors as "Error: <number> (<source>): <description>".
    Texts loggedErrors() const;

    /// The nodes of a tree, depth first, each indented two blanks a level.
    static Texts treeText(const QTreeWidget &tree);
    /// The node that shows `text`; fails the test when there is none.
    static QTreeWidgetItem *node(const QTreeWidget &tree, const std::string &text);
    /// Clicks a node as the user does.
    static void click(QTreeWidget &tree, QTreeWidgetItem *item);

    std::unique_ptr<ErpSandbox> erp;
    std::shared_ptr<RecordingErp> erpCalls;

private:
    std::unique_ptr<FeriaServer> m_marketplace;
    std::thread m_serving;
};
