#include "platform/connectors/LoadedErpLibrary.h"

#include "platform/connectors/ConnectorAbi.h"

// The library's own declaration gives the type, so a signature that drifts from the C
// interface fails to compile instead of corrupting the stack.
#define ERP_FUNCTION(name) m_library.function<decltype(::name)>(#name)

LoadedErpLibrary::LoadedErpLibrary() : m_library("ASISTENTE_ERP_LIBRARY", "libzrvndll.so") {}

std::int32_t LoadedErpLibrary::ObtenerIDCliente(std::int32_t *clientNumber, char *license,
                                                char *clientKey2, char *id)
{
    return ERP_FUNCTION(ObtenerIDCliente)(clientNumber, license, clientKey2, id);
}

std::int32_t LoadedErpLibrary::ObtenerDataBase(char *server, char *database, char *user,
                                               char *password)
{
    return ERP_FUNCTION(ObtenerDataBase)(server, database, user, password);
}

std::int32_t LoadedErpLibrary::ListarDepositosVirtuales(std::int32_t querySize, char *position,
                                                        std::int32_t direction,
                                                        std::int32_t *count, char *reply)
{
    return ERP_FUNCTION(ListarDepositosVirtuales)(querySize, position, direction, count, reply);
}

std::int32_t LoadedErpLibrary::ObtenerContenidoCategoria(std::int32_t productType,
                                                         char *categoryId, std::int32_t querySize,
                                                         char *position, std::int32_t direction,
                                                         const char *ministoreId,
                                                         std::int32_t *count, char *reply)
{
    return ERP_FUNCTION(ObtenerContenidoCategoria)(productType, categoryId, querySize, position,
                                                   direction, ministoreId, count, reply);
}

std::int32_t LoadedErpLibrary::BusquedaProductosIndividual(
    std::int32_t productType, std::int32_t queryType, char *searchText, std::int32_t querySize,
    char *lastId, std::int32_t direction, const char *ministoreId, std::int32_t *count,
    char *reply)
{
    return ERP_FUNCTION(BusquedaProductosIndividual)(productType, queryType, searchText, querySize,
                                                     lastId, direction, ministoreId, count, reply);
}

std::int32_t LoadedErpLibrary::ObtenerDefinicionProducto(std::int32_t productType, const char *key,
                                                         const char *ministoreId, char *reply)
{
    return ERP_FUNCTION(ObtenerDefinicionProducto)(productType, key, ministoreId, reply);
}

std::int32_t LoadedErpLibrary::ObtenerImpuestos(char *reply)
{
    return ERP_FUNCTION(ObtenerImpuestos)(reply);
}
