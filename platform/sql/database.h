#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>

class QSqlError;

namespace tolvinpt::db {

class SqlBackend;
class SqlDialect;
class SqlStatement;

// A failure reported by the database engine: its description and its native error number. For SQLite
// that is the extended result code, as Qt's driver reports it too: 2067 for a duplicate key, 1299 for a
// missing required value, 1 for an SQL error. For PostgreSQL it is the SQLSTATE as a number (see
// sqlStateNumber): 23505 for a duplicate key, 42501 for a missing permission, 8006 for a lost
// connection. Failures of this layer itself carry the number 0.
class DatabaseError : public std::runtime_error
{
public:
    DatabaseError(const QString& description, long number);
    static DatabaseError fromSqlError(const QSqlError& error);

    // A five-character SQLSTATE as a number: its decimal value when it is all digits ("23505" is 23505,
    // "08006" is 8006), else 100000 plus its value in base 36 ("42P01" is 6944177), so the two never
    // meet. Any other code of digits only (SQLite's) is its decimal value; anything else is 0.
    static long sqlStateNumber(QStringView code);

    const QString& description() const noexcept { return m_description; }
    long number() const noexcept { return m_number; }

    // How an operator sees a store error: "description (number)", or "description(number)" where the
    // message leaves out the blank.
    enum class Spacing { Blank, NoBlank };
    QString operatorText(Spacing spacing = Spacing::Blank) const;

private:
    QString m_description;
    long m_number;
};

// A prepared statement: values are bound to its '?' placeholders, never written into its text.
// Obtained from Database::prepare; move-only; gives its engine statement back when destroyed.
class Statement
{
public:
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&&) = delete;
    ~Statement();

    // Binds the value of the placeholder at `index` (0 for the first '?'). A null QVariant binds Null.
    Statement& bind(int index, const QVariant& value);
    Statement& bind(std::initializer_list<QVariant> values);
    // Runs the statement; rows are then read with next(). Throws DatabaseError.
    Statement& exec();
    // Moves to the next row; false after the last. Throws DatabaseError.
    bool next();
    // Column value of the current row, in the representation the engine returned (see sql_values.h).
    QVariant value(int column) const;
    int columnCount() const;
    // Names of the result columns in order. The list stays the same object while the names stay the
    // same, so a caller can keep what it worked out from them and compare the lists cheaply.
    const QStringList& columnNames() const;
    // Key assigned by the last insert on the connection; rows changed by the last write.
    qint64 lastInsertId() const;
    qint64 rowsAffected() const;

private:
    friend class Database;
    Statement(SqlBackend& backend, SqlStatement* statement);

    SqlBackend* m_backend;
    SqlStatement* m_statement;
};

// The component's access to the host's open database. Every statement is prepared once and kept for the
// life of this object, so destroy it before the host closes or removes the connection.
// Threading: UI thread only, like the connection it wraps.
class Database
{
public:
    // Native: SQLite statements run on the engine directly (the connection stays Qt's). Portable: every
    // statement goes through QSqlQuery, as it will for engines without a native path.
    enum class StatementPath { Native, Portable };

    // `connection` must be open, or lost (see reopenIfLost), when it is opened again. Throws DatabaseError
    // for an engine without a dialect or when a lost connection cannot be opened again.
    explicit Database(const QSqlDatabase& connection, StatementPath path = StatementPath::Native);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    const QSqlDatabase& connection() const { return m_connection; }
    const SqlDialect& dialect() const { return *m_dialect; }

    // Throws DatabaseError when `sql` does not compile, or when the connection was lost and cannot be
    // opened again (see reopenIfLost).
    Statement prepare(const QString& sql);
    // Opens the connection again when the engine reports it broken (a server restart or a dropped link
    // since the last statement), so that the next statement runs; every prepared statement is prepared
    // anew. Does nothing while a statement is in use or a transaction is open, whose statements must not
    // run on a new session. Throws DatabaseError when it cannot reopen.
    void reopenIfLost();
    // Prepares, binds `values` in order and runs a statement that returns no rows.
    void execute(const QString& sql, std::initializer_list<QVariant> values = {});
    // First column of the first row, nullopt when there is no row.
    std::optional<QVariant> scalar(const QString& sql, std::initializer_list<QVariant> values = {});
    // The key the engine numbered the row with that `insert` (just run) added; an insert on an engine
    // whose dialect insertReturnsKey() ends in RETURNING its key column.
    qint64 insertedKey(Statement& insert) const;
    // Inserts a row with every column at its default and returns the key the engine numbered it with.
    qint64 insertDefaultRow(const QString& table, const QString& keyColumn);
    // Runs each statement of a script in turn (see splitSqlScript).
    void runScript(const QString& script);

private:
    friend class Transaction;
    SqlBackend& backend();

    QSqlDatabase m_connection;
    int m_openTransactions = 0;
    const SqlDialect* m_dialect;
    StatementPath m_path;
    std::unique_ptr<SqlBackend> m_backend;
};

// The statements of a script, split at ';' outside quotes and comments; comments and blank statements
// are dropped. Scripts with procedural bodies (triggers) are not supported.
QStringList splitSqlScript(const QString& script);

} // namespace tolvinpt::db
