#pragma once

#include "publication/dbPublication.h"

#include <cstdint>
#include <string>
#include <vector>

class Connection;

/// The rows of WIPRODPEND that a store has to send, joined with their associations. A row whose
/// association was removed is dropped by the join: it is neither counted nor sent.
class PendingPublications
{
public:
    /// How many rows wait for the store. Overflow (6) beyond 32767.
    static std::int16_t count(Connection &connection, const std::string &storeId);
    /// The rows in date order; rows of one instant come in the database's order.
    static std::vector<dbPublication> read(Connection &connection, const std::string &storeId);
};
