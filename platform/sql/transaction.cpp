#include "platform/sql/transaction.h"

#include "platform/sql/database.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

Transaction::Transaction(Database& database, Kind kind) : m_database(database)
{
    m_database.reopenIfLost();
    const QStringList begin = m_database.dialect().beginTransaction(kind);
    m_database.execute(begin.first());
    m_open = true;
    try {
        for (qsizetype i = 1; i < begin.size(); ++i)
            m_database.execute(begin[i]);
    } catch (const DatabaseError&) {
        this->~Transaction(); // no destructor runs for a constructor that throws
        throw;
    }
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
