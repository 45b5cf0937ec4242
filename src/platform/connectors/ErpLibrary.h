#pragma once

#include <cstdint>
#include <memory>

/// The seven functions of the seller's ERP library, with the buffers and results of its C
/// interface: char buffers owned and sized by the caller, int32_t results, 0 for success.
/// The gateways call it through this class so that tests can put an in-process fake in place.
class ErpLibrary
{
public:
    virtual ~ErpLibrary() = default;

    virtual std::int32_t ObtenerIDCliente(std::int32_t *clientNumber, char *license,
                                          char *clientKey2, char *id) = 0;
    virtual std::int32_t ObtenerDataBase(char *server, char *database, char *user,
                                         char *password) = 0;
    virtual std::int32_t ListarDepositosVirtuales(std::int32_t querySize, char *position,
                                                  std::int32_t direction, std::int32_t *count,
                                                  char *reply) = 0;
    virtual std::int32_t ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                                   std::int32_t querySize, char *position,
                                                   std::int32_t direction, const char *ministoreId,
                                                   std::int32_t *count, char *reply) = 0;
    virtual std::int32_t
    BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType, char *searchText,
                                std::int32_t querySize, char *lastId, std::int32_t direction,
                                const char *ministoreId, std::int32_t *count, char *reply) = 0;
    virtual std::int32_t ObtenerDefinicionProducto(std::int32_t productType, const char *key,
                                                   const char *ministoreId, char *reply) = 0;
    virtual std::int32_t ObtenerImpuestos(char *reply) = 0;
};

/// The ERP library of the process: the one given to setErpLibrary, else the real library
/// (LoadedErpLibrary), made at the first use. Only for the user-interface thread; a reference
/// held across a setErpLibrary call is left dangling.
ErpLibrary &erpLibrary();

/// Puts `library` in place of the real ERP library for the whole process; nullptr goes back to
/// the real one.
void setErpLibrary(std::shared_ptr<ErpLibrary> library);
