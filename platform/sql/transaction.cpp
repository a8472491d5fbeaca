#include "platform/sql/transaction.h"

#include "platform/sql/database.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

Transaction::Transaction(Database& database, Kind kind) : m_database(database)
{
    const QStringList begin = m_database.dialect().beginTransaction(kind);
    m_database.execute(begin.first()); // the last statement that may open a lost connection again
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

// The transaction counts as open until its ROLLBACK has run, so that a lost session is not opened again
// for it.
void Transaction::rollbackQuietly() noexcept
{
    try {
        m_database.execute(u"ROLLBACK"_s);
    } catch (const DatabaseError&) {
        // The engine may have rolled back on its own already (a full disk, RAISE(ROLLBACK)).
    }
    setOpen(false);
}

void Transaction::commit()
{
    m_database.execute(u"COMMIT"_s);
    setOpen(false);
}

void Transaction::rollback()
{
    try {
        m_database.execute(u"ROLLBACK"_s);
    } catch (const DatabaseError&) {
        setOpen(false);
        throw;
    }
    setOpen(false);
}

} // namespace tolvinpt::db
