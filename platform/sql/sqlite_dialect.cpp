#include "platform/sql/sql_dialect.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_backend.h"
#include "platform/sql/sqlite_backend.h"

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

class SqliteDialect final : public SqlDialect
{
public:
    QString scriptFolder() const override { return u"sqlite"_s; }

    // The order-key columns are declared COLLATE NOCASE, so their index serves this comparison too;
    // naming the collation keeps the rule for tables a host created without it.
    QString textEquals(const QString& column) const override { return column + u" = ? COLLATE NOCASE"_s; }
    QString matchesLike(const QString& column) const override
    {
        return QString::fromLatin1(LikeFunctionName) + u"(?, "_s + column + u')';
    }
    QVariant likeValue(const QString& pattern) const override { return pattern; }
    // NOCASE compares the UTF-8 bytes (code point order) with A-Z folded to a-z.
    std::optional<PrefixRange> textPrefixRange(const QString& column, QStringView prefix) const override
    {
        const auto bounds = foldedPrefixBounds(prefix);
        if (!bounds)
            return std::nullopt;
        const QString nocase = u" COLLATE NOCASE"_s;
        return PrefixRange{column + u" >= ?"_s + nocase + u" AND "_s + column + u" < ?"_s + nocase,
                           bounds->first, bounds->second};
    }
    QString isFalse(const QString& column) const override { return column + u" = 0"_s; }
    QString inIntegerList(const QString& column) const override
    {
        return column + u" IN (SELECT value FROM json_each(?))"_s;
    }
    QString insertDefaultRow(const QString& table, const QString&) const override
    {
        return u"INSERT INTO "_s + table + u" DEFAULT VALUES"_s;
    }
    bool insertReturnsKey() const override { return false; }
    // IMMEDIATE takes the write lock at once, waiting out the busy timeout for another writer; a plain
    // BEGIN would take it only at the first write, after the checks it is meant to guard.
    QStringList beginTransaction(TransactionKind kind) const override
    {
        return {kind == TransactionKind::Write ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s};
    }

    QVariant boolValue(bool value) const override { return QVariant(value ? 1 : 0); }
    QVariant dateValue(const QDate& date) const override
    {
        return date.isValid() ? QVariant(date.toString(u"yyyy-MM-dd"_s)) : QVariant();
    }
    QVariant dateTimeValue(const QDateTime& dateTime) const override
    {
        return dateTime.isValid() ? QVariant(dateTime.toString(u"yyyy-MM-dd HH:mm:ss"_s)) : QVariant();
    }
    // Bound as text into TEXT columns: stored exactly as written.
    QVariant decimalValue(const QString& text) const override { return QVariant(text); }
    QVariant currencyValue(Currency value) const override { return QVariant(value.toString()); }

    void prepareConnection(const QSqlDatabase& connection) const override
    {
        ensureLikeFunction(sqliteHandle(connection));
    }
    std::unique_ptr<SqlBackend> nativeBackend(const QSqlDatabase& connection) const override
    {
        return makeSqliteBackend(connection);
    }
    // A file has no connection to lose.
    bool connectionLost(const QSqlDatabase&) const override { return false; }
};

} // namespace

const SqlDialect& sqliteDialect()
{
    static const SqliteDialect dialect;
    return dialect;
}

} // namespace tolvinpt::db
