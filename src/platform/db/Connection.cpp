#include "platform/db/Connection.h"

#include "platform/core/RaisedError.h"
#include "platform/db/DatabaseBackend.h"

Connection::Connection() : m_errors(std::make_shared<DatabaseErrors>()) {}

Connection::~Connection()
{
    close();
}

void Connection::open(const std::string &connectionString, int timeoutSeconds)
{
    if (m_backend)
        raiseError(RuntimeErrorNumber::InvalidCall, "La conexión ya está abierta");
    m_errors->clear();
    m_backend = openDatabaseBackend(connectionString, timeoutSeconds, m_errors);
}

bool Connection::isOpen() const
{
    return m_backend != nullptr;
}

Recordset Connection::execute(const Sql &statement)
{
    DatabaseBackend &backend = openBackend();
    if (!statement.isValid())
        reportDatabaseError(*m_errors, {0, statement.problem(), "Sql", "42000"});
    return Recordset(backend.execute(statement.text()));
}

void Connection::begin()
{
    openBackend().begin();
}

void Connection::commit()
{
    openBackend().commit();
}

void Connection::rollback()
{
    if (m_backend)
        m_backend->rollback();
}

void Connection::close()
{
    if (m_backend)
        m_backend->close();
    m_backend.reset();
}

void Connection::clearErrors()
{
    m_errors->clear();
}

DatabaseBackend &Connection::openBackend()
{
    if (!m_backend)
        raiseError(RuntimeErrorNumber::InvalidCall, "La conexión está cerrada");
    return *m_backend;
}
