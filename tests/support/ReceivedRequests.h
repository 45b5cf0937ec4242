#pragma once

#include <httplib.h>
#include <pugixml.hpp>

#include <ostream>
#include <string>
#include <vector>

/// A request for a new category, product or definition, as feria-sim says it received it.
struct ReceivedRequest
{
    std::string operation;
    std::string store;
    std::string category;
    std::string text;

    friend bool operator==(const ReceivedRequest &, const ReceivedRequest &) = default;
    friend void PrintTo(const ReceivedRequest &request, std::ostream *out)
    {
        *out << request.operation << " store=" << request.store
             << " category=" << request.category << "\n" << request.text;
    }
};

/// Every request the feria-sim at `url` has received, oldest first; none when it cannot be
/// asked.
inline std::vector<ReceivedRequest> receivedRequests(const std::string &url)
{
    std::vector<ReceivedRequest> requests;
    const auto reply = httplib::Client(url).Get("/sim/state");
    pugi::xml_document state;
    if (!reply || !state.load_string(reply->body.c_str()))
        return requests;
    for (pugi::xml_node node : state.child("MarketplaceState").child("Requests").children())
        requests.push_back({node.attribute("operation").value(),
                            node.attribute("StoreID").value(),
                            node.attribute("CategoryID").value(), node.text().get()});
    return requests;
}
