#pragma once

// The seven functions of the ERP connector, with C linkage. Every string is a NUL-terminated
// buffer owned and sized by the caller; the library writes into the output buffers and never
// allocates for the caller. The result is 0 on success, otherwise one of ErpReturnCode.

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define ZRVNDLL_EXPORT __attribute__((visibility("default")))

/// The seller as the ERP knows it: client number, first and second client keys and the id in
/// the marketplace. Each string buffer holds 256 characters.
ZRVNDLL_EXPORT int32_t ObtenerIDCliente(int32_t *clientNumber, char *license, char *clientKey2,
                                        char *id);

/// The coordinates of the seller's database. Each buffer holds 256 characters.
ZRVNDLL_EXPORT int32_t ObtenerDataBase(char *server, char *database, char *user, char *password);

/// One page of the virtual deposits, each with the ministore linked to it. position holds
/// 1000 characters, reply 65535.
ZRVNDLL_EXPORT int32_t ListarDepositosVirtuales(int32_t querySize, char *position,
                                                int32_t direction, int32_t *count, char *reply);

/// One page of the products of a category, with its subcategories. position holds 100
/// characters, reply 65535. The end of the products is told by 6007 only.
ZRVNDLL_EXPORT int32_t ObtenerContenidoCategoria(int32_t productType, char *categoryId,
                                                 int32_t querySize, char *position,
                                                 int32_t direction, const char *ministoreId,
                                                 int32_t *count, char *reply);

/// One page of a search by code (queryType 1), description (2) or reference (3). lastId holds
/// 1000 characters, reply 65535.
ZRVNDLL_EXPORT int32_t BusquedaProductosIndividual(int32_t productType, int32_t queryType,
                                                   char *searchText, int32_t querySize,
                                                   char *lastId, int32_t direction,
                                                   const char *ministoreId, int32_t *count,
                                                   char *reply);

/// The detail of one product, association (type 1), publication (2) or pending operation (3,
/// key "id|yyyy-MM-dd hh:mm:ss"). reply holds 65535 characters.
ZRVNDLL_EXPORT int32_t ObtenerDefinicionProducto(int32_t productType, const char *key,
                                                 const char *ministoreId, char *reply);

/// The seller's taxes. reply holds 65535 characters.
ZRVNDLL_EXPORT int32_t ObtenerImpuestos(char *reply);

#ifdef __cplusplus
}
#endif
