#pragma once

#include <cstdint>

/// What the ERP connector's functions answer. The paging codes tell the caller where a list
/// stands; the others are failures, and the reply buffer then holds an empty text.
namespace ErpReturnCode {
inline constexpr std::int32_t Success = 0;
/// A search page, read backwards, that reaches the first product of the list.
inline constexpr std::int32_t StartOfList = 101;
/// A search page, read forwards, that reaches the last product of the list.
inline constexpr std::int32_t EndOfList = 102;
/// A search page that holds the whole list.
inline constexpr std::int32_t WholeList = 103;
/// The category has no products left in the direction asked; its subcategories still come.
inline constexpr std::int32_t CategoryExhausted = 6007;
/// No category has the id given.
inline constexpr std::int32_t CategoryNotFound = 6001;
/// No product has the key given.
inline constexpr std::int32_t ProductNotFound = 6002;
/// No association, publication or pending operation has the key given (in that ministore).
inline constexpr std::int32_t SellerRecordNotFound = 6003;
/// A product type, query type, direction, query size or buffer that the function cannot take.
inline constexpr std::int32_t InvalidArgument = 8001;
/// The search found no product at all.
inline constexpr std::int32_t NothingFound = 8002;
/// The search finds more products than the ERP lists for one search: the page is given and the
/// query ends there.
inline constexpr std::int32_t SearchTooBroad = 8007;
/// The ERP's data set cannot be read.
inline constexpr std::int32_t DataSetUnreadable = 9001;
/// The seller's database does not exist, and the detail asked for lives there.
inline constexpr std::int32_t SellerDatabaseMissing = 9002;
/// The seller's database exists but cannot be read.
inline constexpr std::int32_t SellerDatabaseFailed = 9003;
/// Anything else went wrong inside the library.
inline constexpr std::int32_t InternalFailure = 9999;
} // namespace ErpReturnCode
