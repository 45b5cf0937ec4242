#pragma once

#include "publication/dbPublication.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class ZorvantaMinistore;

/// One CatalogOperation request, ready to leave.
struct CatalogBatch
{
    /// The request as checked, with its XML declaration.
    std::string request;
    /// The publications whose I rows the request carries: they turn P before it leaves.
    std::vector<std::int16_t> publishRows;
    int operations = 0;

    /// What goes on the wire: the request after its declaration, which is only there for the
    /// check and would claim an encoding the connector does not use.
    std::string wireText() const;
};

/// Turns a store's pending rows into CatalogOperation requests, one batch at a time, reading
/// only (the ERP for each product's taxes) and writing nothing: the send run and anything that
/// shows what a send would transmit both use it.
///
/// A row's characteristic fields are those of the row before it in the run (none for the
/// first), whatever that row's state or batch: the attribute text is taken after the row's own
/// fields were merged. The marketplace has always received them so.
class CatalogBatchPlanner
{
public:
    CatalogBatchPlanner(const ZorvantaMinistore &ministore, std::vector<dbPublication> rows,
                        std::int16_t batchLimit);

    /// The batch limit the back office gives for catalogue operations. A limit below one is an
    /// invalid call (5): no batch could ever take a row.
    static std::int16_t backOfficeLimit();

    bool atEnd() const { return m_position >= m_rows.size(); }
    /// The next batch of at most the limit's rows. Raises -10501 when the request does not
    /// parse (a '<' or '&' in a product id or the license).
    CatalogBatch next();

    /// The fields of the two attribute texts as the request carries them: non-characteristic
    /// before characteristic in each of Properties and VariantProperties, and the taxes as a
    /// TAXCONFIG field. A product with variant properties sends VariantProperties then
    /// Properties, and leaves TAXCONFIG out; with no taxes the last field moved goes astray
    /// (out of VariantProperties, or to the end of Properties). Reports a failure and gives ""
    /// (then the operation carries no fields).
    static std::string merge(const std::string &nonCharacteristic,
                             const std::string &characteristic, const std::string &taxes);

private:
    std::string operationOf(const dbPublication &row, CatalogBatch &batch);

    std::string m_header;
    std::vector<dbPublication> m_rows;
    std::size_t m_position = 0;
    std::int16_t m_batchLimit;
    std::string m_characteristic;
};
