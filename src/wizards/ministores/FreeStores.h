#pragma once

#include "platform/core/RaisedError.h"
#include "stores/Seller.h"

#include <memory>
#include <string>

/// The seller's ministores and deposits as the pages read them: a list that could not be read
/// is ObjectNotSet (91), which ends the page's procedure as fatal.
Ministores &sellerMinistores();
VirtualDeposits &sellerDeposits();

/// The ministores that no deposit holds, in the seller's order, keyed by id.
Ministores ministoresWithoutDeposit();
/// The deposits that hold no ministore, in the seller's order, keyed by id.
VirtualDeposits depositsWithoutMinistore();

/// The deposit or ministore behind a row key of the lists ("id" or "un" and the id).
std::string idOfRowKey(const std::string &rowKey);
