#pragma once

#include <cstdint>

/// Return codes the marketplace writes in RETURNCODE. The -8000 band is what a user can put
/// right (and the seller's side retries), the -8500 band what will never be accepted.
namespace MarketplaceCode {
inline constexpr std::int32_t Success = 0;
inline constexpr std::int32_t WrongCredentials = -8000;
inline constexpr std::int32_t StoreNotOfSeller = -8001;
inline constexpr std::int32_t SellerMismatch = -8002;
inline constexpr std::int32_t LicenseMismatch = -8003;
inline constexpr std::int32_t PublicationMissing = -8004;
inline constexpr std::int32_t PublicationExists = -8005;
inline constexpr std::int32_t StoreFull = -8006;
inline constexpr std::int32_t StoreInactive = -8007;
inline constexpr std::int32_t UnknownCategory = -8010;
inline constexpr std::int32_t UnknownProduct = -8011;
inline constexpr std::int32_t UnknownStore = -8012;
inline constexpr std::int32_t UnknownSeller = -8013;
inline constexpr std::int32_t MalformedRequest = -8500;
inline constexpr std::int32_t ProductNotInCatalog = -8501;
inline constexpr std::int32_t UnknownOperation = -8502;
inline constexpr std::int32_t InvalidValue = -8503;
inline constexpr std::int32_t InvalidTax = -8504;
inline constexpr std::int32_t UnknownDefinition = -8505;
} // namespace MarketplaceCode
