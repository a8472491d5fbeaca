#include "platform/sql/database.h"
#include "platform/sql/jet_like.h"
#include "platform/sql/postgresql_backend.h"
#include "platform/sql/sql_backend.h"
#include "platform/sql/sql_dialect.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

// The key of the advisory lock every Write transaction takes first ('TOLV').
constexpr qint64 WriteLockKey = 0x544F4C56;

// Text folded as the rules fold it: lower() under the "C" collation changes A-Z only, whatever the
// database's locale, and compares by code point. The schema indexes exactly this expression.
QString folded(const QString& column)
{
    return u"lower("_s + column + u" COLLATE \"C\")"_s;
}

class PostgresqlDialect final : public SqlDialect
{
public:
    QString scriptFolder() const override { return u"postgresql"_s; }

    QString textEquals(const QString& column) const override { return folded(column) + u" = "_s + folded(u"?"_s); }
    QString matchesLike(const QString& column) const override { return folded(column) + u" ~ ?"_s; }
    // Bound, never written into the statement; the expression escapes every character of the pattern.
    QVariant likeValue(const QString& pattern) const override
    {
        const auto compiled = LikePattern::compile(pattern);
        if (!compiled)
            throw DatabaseError(u"Invalid Like pattern: "_s + pattern, 0);
        return compiled->foldedRegularExpression();
    }
    std::optional<PrefixRange> textPrefixRange(const QString& column, QStringView prefix) const override
    {
        const auto bounds = foldedPrefixBounds(prefix);
        if (!bounds)
            return std::nullopt;
        return PrefixRange{folded(column) + u" >= ? AND "_s + folded(column) + u" < ?"_s, bounds->first,
                           bounds->second};
    }
    QString isFalse(const QString& column) const override { return column + u" = false"_s; }
    QString inIntegerList(const QString& column) const override
    {
        return column +
               u" IN (SELECT CAST(value AS bigint) FROM json_array_elements_text(CAST(? AS json)))"_s;
    }
    QString insertDefaultRow(const QString& table, const QString& keyColumn) const override
    {
        return u"INSERT INTO "_s + table + u" DEFAULT VALUES RETURNING "_s + keyColumn;
    }
    bool insertReturnsKey() const override { return true; }
    // Writers take turns on one transaction-scoped advisory lock, taken before anything is read, as
    // SQLite's BEGIN IMMEDIATE makes them: what a Write transaction checks (the duplicate key, the
    // record's state) stays true until it commits, on any number of machines, without the retries that
    // serialisable isolation would need. Under READ COMMITTED every statement after the lock sees all
    // that the previous writer committed. The lock goes with COMMIT, ROLLBACK or a lost connection.
    // A writer waits at most 5 s for it (SQLite's busy timeout under Qt) unless the host set a
    // lock_timeout of its own; then it fails with 55P03.
    QStringList beginTransaction(TransactionKind kind) const override
    {
        if (kind == TransactionKind::Read)
            return {u"BEGIN ISOLATION LEVEL REPEATABLE READ"_s};
        return {u"BEGIN ISOLATION LEVEL READ COMMITTED"_s,
                u"SELECT set_config('lock_timeout', '5s', true) WHERE current_setting('lock_timeout') = '0'"_s,
                u"SELECT pg_advisory_xact_lock("_s + QString::number(WriteLockKey) + u')'};
    }

    QVariant boolValue(bool value) const override { return QVariant(value); }
    QVariant dateValue(const QDate& date) const override { return date.isValid() ? QVariant(date) : QVariant(); }
    QVariant dateTimeValue(const QDateTime& dateTime) const override
    {
        return dateTime.isValid() ? QVariant(dateTime.toString(u"yyyy-MM-dd HH:mm:ss"_s)) : QVariant();
    }
    // Decimal text into numeric columns: the server parses it exactly.
    QVariant decimalValue(const QString& text) const override { return QVariant(text); }
    QVariant currencyValue(Currency value) const override { return QVariant(value.toString()); }

    void prepareConnection(const QSqlDatabase& connection) const override { postgresqlHandle(connection); }
    std::unique_ptr<SqlBackend> nativeBackend(const QSqlDatabase& connection) const override
    {
        return makePostgresqlBackend(connection);
    }
    bool connectionLost(const QSqlDatabase& connection) const override
    {
        return postgresqlConnectionLost(connection);
    }
};

} // namespace

const SqlDialect& postgresqlDialect()
{
    static const PostgresqlDialect dialect;
    return dialect;
}

} // namespace tolvinpt::db
