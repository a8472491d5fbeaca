#include "platform/sql/sql_backend.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

// Statement texts differ only by the columns a caller names, so this is never reached in practice; it
// bounds the cache for callers that build many texts.
constexpr std::size_t MaxCachedStatements = 128;

// Queries and row changes; other statements (schema changes, BEGIN, COMMIT) are run as they are, since
// some drivers prepare them through SQL PREPARE, which takes only these.
bool preparable(const QString& sql)
{
    static const QStringList kinds{u"SELECT"_s, u"INSERT"_s, u"UPDATE"_s, u"DELETE"_s, u"VALUES"_s, u"WITH"_s};
    const QString first = sql.trimmed().section(u' ', 0, 0);
    return sql.contains(u'?') || kinds.contains(first, Qt::CaseInsensitive);
}

class QtSqlStatement final : public SqlStatement
{
public:
    QtSqlStatement(const QSqlDatabase& connection, const QString& sql) : m_query(connection)
    {
        // Qt's PostgreSQL driver streams forward-only rows and holds the connection until the last one, so
        // a statement run inside another's rows would fail; it gets the whole (small) result instead.
        m_query.setForwardOnly(connection.driver()->dbmsType() != QSqlDriver::PostgreSQL);
        // Exact decimals (PostgreSQL's numeric) as text; engines without them are not affected.
        m_query.setNumericalPrecisionPolicy(QSql::HighPrecision);
        if (!preparable(sql))
            m_direct = sql;
        else if (!m_query.prepare(sql))
            throw DatabaseError::fromSqlError(m_query.lastError());
    }

    void bind(int index, const QVariant& value) override { m_query.bindValue(index, value); }
    void exec() override
    {
        if (!(m_direct.isEmpty() ? m_query.exec() : m_query.exec(m_direct)))
            throw DatabaseError::fromSqlError(m_query.lastError());
    }
    bool next() override
    {
        if (m_query.next())
            return true;
        if (m_query.lastError().isValid())
            throw DatabaseError::fromSqlError(m_query.lastError());
        return false;
    }
    QVariant value(int column) const override { return m_query.value(column); }
    int columnCount() const override { return m_query.record().count(); }
    const QStringList& columnNames() const override
    {
        QStringList names;
        const QSqlRecord record = m_query.record();
        for (int i = 0; i < record.count(); ++i)
            names.append(record.fieldName(i));
        if (names != m_names)
            m_names = names;
        return m_names;
    }
    qint64 lastInsertId() const override { return m_query.lastInsertId().toLongLong(); }
    qint64 rowsAffected() const override { return m_query.numRowsAffected(); }
    void reset() override { m_query.finish(); }

private:
    QSqlQuery m_query;
    QString m_direct;
    mutable QStringList m_names;
};

class QtSqlBackend final : public SqlBackend
{
public:
    explicit QtSqlBackend(const QSqlDatabase& connection) : m_connection(connection) {}
    ~QtSqlBackend() override { clear(); }

protected:
    std::unique_ptr<SqlStatement> create(const QString& sql) override
    {
        return std::make_unique<QtSqlStatement>(m_connection, sql);
    }

private:
    QSqlDatabase m_connection;
};

} // namespace

SqlBackend::~SqlBackend() = default;

SqlStatement* SqlBackend::acquire(const QString& sql)
{
    const auto found = m_cache.find(sql);
    if (found != m_cache.end() && !found->second.inUse) {
        found->second.inUse = true;
        return found->second.statement.get();
    }
    auto statement = create(sql);
    SqlStatement* result = statement.get();
    if (found == m_cache.end() && m_cache.size() < MaxCachedStatements)
        m_cache.emplace(sql, Cached{std::move(statement), true});
    else
        m_fresh.push_back(std::move(statement));
    return result;
}

void SqlBackend::release(SqlStatement* statement)
{
    statement->reset();
    const auto fresh = std::find_if(m_fresh.begin(), m_fresh.end(),
                                    [statement](const auto& owned) { return owned.get() == statement; });
    if (fresh != m_fresh.end()) {
        m_fresh.erase(fresh);
        return;
    }
    for (auto& [sql, cached] : m_cache) {
        if (cached.statement.get() == statement) {
            cached.inUse = false;
            return;
        }
    }
}

bool SqlBackend::inUse() const
{
    return !m_fresh.empty() ||
           std::any_of(m_cache.begin(), m_cache.end(), [](const auto& entry) { return entry.second.inUse; });
}

void SqlBackend::clear()
{
    m_fresh.clear();
    m_cache.clear();
}

void SqlBackend::abandon()
{
    for (auto& statement : m_fresh)
        statement->abandon();
    for (auto& [sql, cached] : m_cache)
        cached.statement->abandon();
}

const void* nativeHandle(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver() ? connection.driver()->handle() : QVariant();
    if (!handle.isValid() || !QByteArrayView(handle.typeName()).endsWith('*'))
        return nullptr;
    return *static_cast<const void* const*>(handle.constData());
}

std::unique_ptr<SqlBackend> makeQtSqlBackend(const QSqlDatabase& connection)
{
    return std::make_unique<QtSqlBackend>(connection);
}

} // namespace tolvinpt::db
