#pragma once

#include "platform/values/currency.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace tolvinpt::db {

class SqlBackend;

// What a transaction is for. Read: every statement in it sees one consistent state. Write: besides, no
// other connection can write from its start to its end, so that what it checks before writing stays true.
enum class TransactionKind { Read, Write };

// Everything that differs between database engines, in one place: how the statements say the rules the
// delivery data has always been queried with, and how values are stored. A new engine (PostgreSQL) is a
// new subclass; callers build statements only from these fragments and bind values from these functions.
//
// The rules:
// - Text equality ignores letter case. SQLite folds ASCII letters only (COLLATE NOCASE); full-width and
//   other non-ASCII letters compare exactly. The Like patterns (jet_like.h) fold the same way.
// - Like uses the patterns * ? # [set] [a-z] [!set], case-insensitive, through a SQL function that the
//   dialect registers on the connection.
// - Booleans are stored 0/1 and any non-zero value reads True, so "is False" is "= 0".
// - Dates are 'YYYY-MM-DD' text, date/times 'YYYY-MM-DD HH:MM:SS' text.
// - Exact decimals are decimal text; they never pass through double.
class SqlDialect
{
public:
    virtual ~SqlDialect();

    // The dialect of an open connection; nullptr when its engine has none.
    static const SqlDialect* of(const QSqlDatabase& connection);

    // Folder name of the engine's DDL scripts: ":/tolvinpt/sql/<folder>/...".
    virtual QString scriptFolder() const = 0;

    // `column` equals the text bound at the next '?', ignoring letter case.
    virtual QString textEquals(const QString& column) const = 0;
    // `column` matches the Like pattern bound at the next '?'.
    virtual QString matchesLike(const QString& column) const = 0;
    // A condition on `column`, with the two values to bind at its two '?', that holds for every text
    // starting with `prefix` under the rule of textEquals (and maybe for a few more), so that an index on
    // the column can narrow a Like match to the pattern's literal start. nullopt for an empty prefix.
    struct PrefixRange
    {
        QString sql;
        QVariant from, to;
    };
    virtual std::optional<PrefixRange> textPrefixRange(const QString& column, QStringView prefix) const = 0;
    // `column` holds False.
    virtual QString isFalse(const QString& column) const = 0;
    // A statement that inserts a row with every column at its default; see insertReturnsKey().
    virtual QString insertDefaultRow(const QString& table, const QString& keyColumn) const = 0;
    // True: that statement returns the new key as its one row; false: the key is the last insert id.
    virtual bool insertReturnsKey() const = 0;
    // The statement that begins a transaction of that kind (a server engine would take serialisable
    // isolation or a lock for Write); COMMIT and ROLLBACK end it.
    virtual QString beginTransaction(TransactionKind kind) const = 0;

    // Values to bind. An invalid date or date/time binds Null.
    virtual QVariant boolValue(bool value) const = 0;
    virtual QVariant dateValue(const QDate& date) const = 0;
    virtual QVariant dateTimeValue(const QDateTime& dateTime) const = 0;
    // `text` is plain decimal text.
    virtual QVariant decimalValue(const QString& text) const = 0;
    virtual QVariant currencyValue(Currency value) const = 0;

    // Sets up the connection for these rules (registers the Like function once per connection).
    // Throws DatabaseError.
    virtual void prepareConnection(const QSqlDatabase& connection) const = 0;
    // The fastest statement path the engine has.
    virtual std::unique_ptr<SqlBackend> nativeBackend(const QSqlDatabase& connection) const = 0;
};

} // namespace tolvinpt::db
