#include "platform/core/RaisedError.h"

RaisedError::RaisedError(std::int32_t number, std::string description, std::string source)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description))
{
}

void raiseError(std::int32_t number, std::string description, std::string source)
{
    throw RaisedError(number, std::move(description), std::move(source));
}

std::string runtimeErrorText(std::int32_t number)
{
    namespace R = RuntimeErrorNumber;
    switch (number) {
    case R::InvalidCall: return "Llamada a procedimiento o argumento no válidos";
    case R::Overflow: return "Desbordamiento";
    case R::OutOfMemory: return "Memoria insuficiente";
    case R::SubscriptOutOfRange: return "El subíndice está fuera del intervalo";
    case R::TypeMismatch: return "No coinciden los tipos";
    case R::FileNotFound: return "No se encontró el archivo";
    case R::PathFileAccess: return "Error de acceso a la ruta o el archivo";
    case R::PathNotFound: return "No se encontró la ruta de acceso";
    case R::ObjectNotSet:
        return "Variable de tipo Object o la variable de bloque With no está establecida";
    case R::AutomationError: return "Error de automatización";
    case R::EntryPointNotFound: return "No se encuentra el punto de entrada de la DLL";
    case R::DuplicateKey: return "Esta clave ya está asociada con un elemento de esta colección";
    default: return "Error definido por la aplicación o por el objeto";
    }
}

void raiseRuntimeError(std::int32_t number)
{
    throw RaisedError(number, runtimeErrorText(number));
}
