#include "platform/sql/transaction.h"

#include "platform/sql/database.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

Transaction::Transaction(Database& database, Kind kind) : m_database(database)
{
    const QStringList begin = m_database.dialect().beginTransaction(kind);
    m_database.execute(begin.first());
    setOpen(true);
    try {
        for (qsizetype i = 1; i < begin.size(); ++i)
            m_database.execute(begin[i]);
    } catch (const DatabaseError&) {
        rollbackQuietly(); // no destructor runs for a constructor that throws
        throw;
    }
}

Transaction::~Transaction()
{
    if (m_open)
        rollbackQuietly();
}

void Transaction::setOpen(bool open)
{
    if (open != m_open)
        m_database.m_openTransactions += open ? 1 : -1;
    m_open = open;
}

void Transaction::rollbackQuietly() noexcept
{
    setOpen(false);
    try {
        m_database.execute(u"ROLLBACK"_s);
    } catch (const DatabaseError&) {
        // The engine may have rolled back on its own already (a full disk, RAISE(ROLLBACK)).
    }
}

void Transaction::commit()
{
    m_database.execute(u"COMMIT"_s);
    setOpen(false);
}

void Transaction::rollback()
{
    setOpen(false);
    m_database.execute(u"ROLLBACK"_s);
}

} // namespace tolvinpt::db
