#pragma once

#include "platform/values/currency.h"

#include <QDate>
#include <QDateTime>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

namespace tolvinpt::db {

class SqlBackend;

// What a transaction is for. Read: every statement in it sees one consistent state. Write: besides, no
// other connection can write from its start to its end, so that what it checks before writing stays true.
enum class TransactionKind { Read, Write };

// Everything that differs between database engines, in one place: how the statements say the rules the
// delivery data has always been queried with, and how values are stored. Each engine is a subclass
// (SQLite, PostgreSQL); callers build statements only from these fragments and bind values from these
// functions, so both engines give the same answers.
//
// The rules:
// - Text equality ignores letter case, folding ASCII letters only; full-width and other non-ASCII letters
//   compare exactly. The Like patterns (jet_like.h) fold the same way.
// - Like uses the patterns * ? # [set] [a-z] [!set], case-insensitive; the value bound for a pattern
//   comes from likeValue().
// - Booleans: "is False" comes from isFalse(), values to bind from boolValue().
// - Dates and date/times, exact decimals: bound from the functions below, read back through
//   sql_values.h whatever type the engine returns; exact decimals never pass through double.
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
    // `column` matches the Like pattern bound at the next '?' as likeValue(pattern).
    virtual QString matchesLike(const QString& column) const = 0;
    // What to bind for a valid Like pattern.
    virtual QVariant likeValue(const QString& pattern) const = 0;
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
    // `column` is one of the integers bound at the next '?' as integerListValue(): any number of them as
    // one value (a '?' apiece costs the engine's parser time that grows with the square of their count).
    virtual QString inIntegerList(const QString& column) const = 0;
    // The integers as one value to bind: a JSON array, which every engine reads.
    static QVariant integerListValue(const QList<qint64>& values);
    // A statement that inserts a row with every column at its default; see insertReturnsKey().
    virtual QString insertDefaultRow(const QString& table, const QString& keyColumn) const = 0;
    // True: that statement returns the new key as its one row; false: the key is the last insert id.
    virtual bool insertReturnsKey() const = 0;
    // The statements that begin a transaction of that kind, in order; COMMIT and ROLLBACK end it.
    virtual QStringList beginTransaction(TransactionKind kind) const = 0;

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
    // True when the opened connection is broken for good and must be opened again (a server restarted);
    // never for one its owner closed.
    virtual bool connectionLost(const QSqlDatabase& connection) const = 0;
};

} // namespace tolvinpt::db
