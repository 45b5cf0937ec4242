#pragma once

#include <cstdint>
#include <string>

/// One row that waits in WIPRODPEND for a store, joined with its association, as the send run
/// reads it.
struct dbPublication
{
    /// 16 bits: a publication number above 32767 fails the run with an overflow.
    std::int16_t publicationId = 0;
    /// The row's date as the database gave it; it orders the rows.
    std::string publicationDate;
    std::string dovelID;
    /// The pending operation: I publish, A update, E withdraw.
    std::string status;
    /// The publication's attribute text; not read for an E row, whose column is Null.
    std::string nonCharacteristicAttributes;
    /// The association's attribute text.
    std::string characteristicAttributes;
    std::string zorvantaId;
};
