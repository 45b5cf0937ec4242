#include "platform/core/RaisedError.h"

RaisedError::RaisedError(std::int32_t number, std::string description, std::string source)
    : m_number(number), m_source(std::move(source)), m_description(std::move(description))
{
}

void raiseError(std::int32_t number, std::string description, std::string source)
{
    throw RaisedError(number, std::move(description), std::move(source));
}
