#pragma once

#include "sim/erp/ErpDataSet.h"
#include "sim/erp/SellerDatabase.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What one paged or XML call gives back. position is set only when the call moves the
/// caller's resume state.
struct ErpAnswer
{
    std::int32_t code = 0;
    std::string reply;
    std::optional<std::string> position;
    std::int32_t count = 0;
};

/// What ObtenerIDCliente and ObtenerDataBase give back: the client number (first call only)
/// and the strings in the order of the call's arguments.
struct ErpFields
{
    std::int32_t code = 0;
    std::int32_t clientNumber = 0;
    std::vector<std::string> strings;
};

/// The ERP connector's seven operations over one data set and the seller's database, with the
/// faults that the data set asks for. Failures are raised with an ErpReturnCode as number.
class ErpService
{
public:
    explicit ErpService(std::shared_ptr<const ErpDataSet> data);

    ErpFields clientIdentity() const;
    ErpFields databaseCoordinates() const;
    ErpAnswer virtualDeposits(std::int32_t querySize, std::string_view position,
                              std::int32_t direction) const;
    ErpAnswer categoryContents(std::int32_t productType, const std::string &categoryId,
                               std::int32_t querySize, std::string_view position,
                               std::int32_t direction, const std::string &ministoreId) const;
    ErpAnswer productSearch(std::int32_t productType, std::int32_t queryType,
                            const std::string &searchText, std::int32_t querySize,
                            std::string_view lastId, std::int32_t direction,
                            const std::string &ministoreId) const;
    ErpAnswer productDefinition(std::int32_t productType, const std::string &key,
                                const std::string &ministoreId) const;
    ErpAnswer taxes() const;

private:
    /// One product of a list: an ERP product, with the seller's row for types 1 to 3.
    struct Line
    {
        std::string key;
        const ErpDataSet::Product *product;
        std::optional<SellerDatabase::Record> record;
    };
    using ProductFilter = std::function<bool(const ErpDataSet::Product &)>;

    ErpAnswer withFaults(const ErpDataSet::Call &call,
                         const std::function<ErpAnswer()> &usual) const;
    ErpFields fieldsWithFaults(const std::string &function, ErpFields fields) const;
    std::vector<Line> lines(std::int32_t productType, const std::string &ministoreId,
                            const ProductFilter &wanted) const;
    std::unique_ptr<SellerDatabase> sellerDatabase() const;

    std::shared_ptr<const ErpDataSet> m_data;
};
