#include "platform/sql/transaction.h"

#include "platform/sql/database.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

Transaction::Transaction(Database& database, Kind kind) : m_database(database)
{
    m_database.execute(m_database.dialect().beginTransaction(kind));
    m_open = true;
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    try {
        m_database.execute(u"ROLLBACK"_s);
    } catch (const DatabaseError&) {
        // The engine may have rolled back on its own already (a full disk, RAISE(ROLLBACK)).
    }
}

void Transaction::commit()
{
    m_database.execute(u"COMMIT"_s);
    m_open = false;
}

void Transaction::rollback()
{
    m_open = false;
    m_database.execute(u"ROLLBACK"_s);
}

} // namespace tolvinpt::db
