#pragma once

#include "marketplace/BackOfficeService.h"
#include "marketplace/CatalogService.h"
#include "marketplace/FaultPlan.h"
#include "marketplace/MarketplaceData.h"
#include "marketplace/MarketplaceState.h"

#include <filesystem>
#include <httplib.h>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/// The marketplace on one loopback port: the WSDL, the three SOAP endpoints, the back-office
/// endpoint, the product images and, for tests, GET /sim/state (what the stores publish, the
/// requests received, the taxes) and GET /sim/catalog-operations (each CatalogOperation body
/// as it came over the wire, as the text of a Request element). Requests are served one at a
/// time against the state; an injected delay is spent outside that turn.
class FeriaServer
{
public:
    /// With a state file, the state is read from it when it exists (raising 13 when it is not
    /// a state document) and written back after every request that changes it, so that what
    /// the seller published outlives a restart, as on a real marketplace.
    FeriaServer(std::unique_ptr<MarketplaceData> data, std::filesystem::path stateFile = {});

    /// Binds 127.0.0.1 on the port, 0 for a free one. The port bound, or -1.
    int bind(int port);
    /// Serves until stop() is called; false when it could not serve at all.
    bool run();
    /// Callable from any thread.
    void stop();

private:
    void onWsdl(const httplib::Request &request, httplib::Response &response);
    void onSoap(std::string_view port, const httplib::Request &request,
                httplib::Response &response);
    void onOpenSession(const httplib::Request &request, httplib::Response &response);
    void onCloseSession(const httplib::Request &request, httplib::Response &response);
    void onExecute(const httplib::Request &request, httplib::Response &response);
    void onState(const httplib::Request &request, httplib::Response &response);
    void onCatalogOperations(const httplib::Request &request, httplib::Response &response);
    void onImage(const httplib::Request &request, httplib::Response &response);

    /// Sends the body after the fault's delay; a cut fault drops the connection halfway.
    static void send(httplib::Response &response, std::string body, const char *contentType,
                     const std::optional<Fault> &fault);
    /// Writes the state file, when there is one; called with the state locked.
    void saveState() const;
    /// Prints one line on the standard output for a request just recorded.
    static void reportRequest(const ReceivedRequest &request);

    std::unique_ptr<MarketplaceData> m_data;
    MarketplaceState m_state;
    FaultPlan m_faults;
    CatalogService m_catalog;
    BackOfficeService m_backOffice;
    std::filesystem::path m_stateFile;
    /// Every body of operation 9 as it arrived, in order; for tests, never saved.
    std::vector<std::string> m_catalogOperations;
    std::mutex m_mutex;
    httplib::Server m_server;
    int m_port = -1;
};
