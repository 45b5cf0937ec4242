#pragma once

#include <string>

/// The marketplace.xml of data/: seller V1042 (the demo's keys) with 100 (plan 300, room for 3
/// products, user carmen/andina2026), 200 (plan 310) and 300 (inactive); seller V2001 with 900
/// (user puerto/libros1); category ZC-1 with ZP-1 to ZP-7. `faults` goes inside <Faults>;
/// `batchLimit` is the limit of operation 9 for plan 300.
std::string smallMarketplace(const std::string &faults = {}, int batchLimit = 5);
