#pragma once

#include <string>

/// A marketplace.xml small enough to read in a test: seller V1042 (the demo's keys) with
/// 100 (plan 300, room for 3 products, user carmen/andina2026), 200 (no description)
/// and 300 (inactive, empty description); seller V2001 with 900. Categories ZC-1 with
/// ZP-1 to ZP-7 and the subcategory ZC-11 with the variant product ZP-8; ZC-2 is empty.
/// `faults` goes inside <Faults>; `batchLimit` is the limit of operation 9 for plan 300.
std::string smallMarketplace(const std::string &faults = {}, int batchLimit = 5);
