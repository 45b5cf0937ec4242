#pragma once

#include "platform/connectors/ErpLibrary.h"
#include "platform/connectors/SharedLibrary.h"

/// The real ERP library: libzrvndll.so, or the full path in ASISTENTE_ERP_LIBRARY, loaded at
/// the first call. Each function is looked up at its own first call, so a missing library
/// (53) or function (453) is raised by the call that needs it (see SharedLibrary).
class LoadedErpLibrary : public ErpLibrary
{
public:
    LoadedErpLibrary();

    std::int32_t ObtenerIDCliente(std::int32_t *clientNumber, char *license, char *clientKey2,
                                  char *id) override;
    std::int32_t ObtenerDataBase(char *server, char *database, char *user,
                                 char *password) override;
    std::int32_t ListarDepositosVirtuales(std::int32_t querySize, char *position,
                                          std::int32_t direction, std::int32_t *count,
                                          char *reply) override;
    std::int32_t ObtenerContenidoCategoria(std::int32_t productType, char *categoryId,
                                           std::int32_t querySize, char *position,
                                           std::int32_t direction, const char *ministoreId,
                                           std::int32_t *count, char *reply) override;
    std::int32_t BusquedaProductosIndividual(std::int32_t productType, std::int32_t queryType,
                                             char *searchText, std::int32_t querySize,
                                             char *lastId, std::int32_t direction,
                                             const char *ministoreId, std::int32_t *count,
                                             char *reply) override;
    std::int32_t ObtenerDefinicionProducto(std::int32_t productType, const char *key,
                                           const char *ministoreId, char *reply) override;
    std::int32_t ObtenerImpuestos(char *reply) override;

private:
    SharedLibrary m_library;
};
