#pragma once

#include "platform/sql/sql_dialect.h"

namespace tolvinpt::db {

class Database;

// One database transaction, rolled back when the object goes out of scope without commit(), so that an
// exception or an early return never leaves half a change behind.
// Threading: UI thread only, the thread that owns the connection; one transaction at a time per
// connection (a second one throws).
class Transaction
{
public:
    using Kind = TransactionKind;

    // Begins the transaction; a Write one waits for another writer up to the connection's busy timeout.
    // Throws DatabaseError.
    Transaction(Database& database, Kind kind);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    // Rolls back unless committed or rolled back already; never throws.
    ~Transaction();

    // Throws DatabaseError; after a failed commit the transaction is still open and rolls back on scope exit.
    void commit();
    // Throws DatabaseError.
    void rollback();
    bool isOpen() const { return m_open; }

private:
    void setOpen(bool open);
    void rollbackQuietly() noexcept;

    Database& m_database;
    bool m_open = false;
};

} // namespace tolvinpt::db
