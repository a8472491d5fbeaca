#include "platform/transaction.h"

#include "platform/database.h"

#include <QSqlError>

namespace tolvinpt::db {

Transaction::Transaction(Database& database) : m_connection(database.connection())
{
    if (!m_connection.transaction())
        throw DatabaseError::fromSqlError(m_connection.lastError());
    m_open = true;
}

Transaction::~Transaction()
{
    if (m_open)
        m_connection.rollback();
}

void Transaction::commit()
{
    if (!m_connection.commit())
        throw DatabaseError::fromSqlError(m_connection.lastError());
    m_open = false;
}

void Transaction::rollback()
{
    m_open = false;
    if (!m_connection.rollback())
        throw DatabaseError::fromSqlError(m_connection.lastError());
}

} // namespace tolvinpt::db
