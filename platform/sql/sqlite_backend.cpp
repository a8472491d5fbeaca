#include "platform/sql/sqlite_backend.h"

#include "platform/sql/jet_like.h"
#include "platform/sql/sql_backend.h"
#include "platform/sql/sql_values.h"

#include <QSqlDriver>

#include <sqlite3.h>

#include <mutex>
#include <set>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

DatabaseError engineError(sqlite3* handle, int code)
{
    return DatabaseError(QString::fromUtf8(sqlite3_errmsg(handle)), code);
}

class SqliteStatement final : public SqlStatement
{
public:
    SqliteStatement(sqlite3* handle, const QString& sql) : m_handle(handle)
    {
        const QByteArray text = sql.toUtf8();
        const int rc = sqlite3_prepare_v3(m_handle, text.constData(), static_cast<int>(text.size()),
                                          SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
        if (rc != SQLITE_OK)
            throw engineError(m_handle, rc);
        if (!m_statement)
            throw DatabaseError(u"Empty statement"_s, 0);
    }
    ~SqliteStatement() override { sqlite3_finalize(m_statement); }

    void bind(int index, const QVariant& value) override
    {
        if (m_started)
            rewind();
        const int position = index + 1;
        int rc = SQLITE_OK;
        if (value.isNull()) {
            rc = sqlite3_bind_null(m_statement, position);
        } else if (value.typeId() == QMetaType::Bool) {
            rc = sqlite3_bind_int(m_statement, position, value.toBool() ? 1 : 0);
        } else if (isIntegerType(value.typeId())) {
            rc = sqlite3_bind_int64(m_statement, position, value.toLongLong());
        } else {
            switch (value.typeId()) {
            case QMetaType::Double:
            case QMetaType::Float:
                rc = sqlite3_bind_double(m_statement, position, value.toDouble());
                break;
            case QMetaType::QByteArray: {
                const QByteArray bytes = value.toByteArray();
                rc = sqlite3_bind_blob64(m_statement, position, bytes.constData(),
                                         static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
                break;
            }
            default: {
                const QByteArray text = value.toString().toUtf8();
                rc = sqlite3_bind_text64(m_statement, position, text.constData(),
                                         static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT,
                                         SQLITE_UTF8);
                break;
            }
            }
        }
        if (rc != SQLITE_OK)
            throw engineError(m_handle, rc);
    }

    void exec() override
    {
        if (m_started)
            rewind();
        m_started = true;
        const int rc = sqlite3_step(m_statement);
        m_rowPending = rc == SQLITE_ROW;
        m_done = rc != SQLITE_ROW;
        if (rc != SQLITE_ROW && rc != SQLITE_DONE)
            fail(rc);
    }

    bool next() override
    {
        if (m_rowPending) {
            m_rowPending = false;
            return true;
        }
        if (m_done || !m_started)
            return false;
        const int rc = sqlite3_step(m_statement);
        if (rc == SQLITE_ROW)
            return true;
        m_done = true;
        if (rc != SQLITE_DONE)
            fail(rc);
        return false;
    }

    QVariant value(int column) const override
    {
        switch (sqlite3_column_type(m_statement, column)) {
        case SQLITE_INTEGER:
            return QVariant(static_cast<qint64>(sqlite3_column_int64(m_statement, column)));
        case SQLITE_FLOAT:
            return QVariant(sqlite3_column_double(m_statement, column));
        case SQLITE_TEXT: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
            return QVariant(QString::fromUtf8(text, sqlite3_column_bytes(m_statement, column)));
        }
        case SQLITE_BLOB: {
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
            return QVariant(QByteArray(bytes, sqlite3_column_bytes(m_statement, column)));
        }
        default:
            return QVariant();
        }
    }

    int columnCount() const override { return sqlite3_column_count(m_statement); }
    const QStringList& columnNames() const override
    {
        // SQLite prepares a statement again after a schema change, and the names may change with it.
        const int prepared = sqlite3_stmt_status(m_statement, SQLITE_STMTSTATUS_REPREPARE, 0);
        if (prepared != m_namesPrepared || m_names.size() != columnCount()) {
            m_names.clear();
            for (int i = 0; i < columnCount(); ++i)
                m_names.append(QString::fromUtf8(sqlite3_column_name(m_statement, i)));
            m_namesPrepared = prepared;
        }
        return m_names;
    }
    qint64 lastInsertId() const override { return sqlite3_last_insert_rowid(m_handle); }
    qint64 rowsAffected() const override { return sqlite3_changes64(m_handle); }

    void reset() override
    {
        rewind();
        sqlite3_clear_bindings(m_statement);
    }

private:
    void rewind()
    {
        sqlite3_reset(m_statement);
        m_started = m_rowPending = m_done = false;
    }

    [[noreturn]] void fail(int rc)
    {
        const DatabaseError error = engineError(m_handle, rc);
        rewind();
        throw error;
    }

    sqlite3* m_handle;
    sqlite3_stmt* m_statement = nullptr;
    bool m_started = false;
    bool m_rowPending = false;
    bool m_done = false;
    mutable QStringList m_names;
    mutable int m_namesPrepared = -1;
};

// Never destroyed: a connection kept in a global can close after this file's statics are gone at exit.
std::mutex& registryMutex = *new std::mutex;
std::set<sqlite3*>& registeredHandles = *new std::set<sqlite3*>;

void forgetHandle(void* handle)
{
    const std::lock_guard lock(registryMutex);
    registeredHandles.erase(static_cast<sqlite3*>(handle));
}

std::u32string argumentText(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    const QList<uint> ucs4 = QString::fromUtf8(text, sqlite3_value_bytes(value)).toUcs4();
    return std::u32string(ucs4.begin(), ucs4.end());
}

void deletePattern(void* pattern)
{
    delete static_cast<LikePattern*>(pattern);
}

void likeFunction(sqlite3_context* context, int, sqlite3_value** arguments)
{
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
        sqlite3_result_null(context);
        return;
    }
    // The pattern is compiled once per statement run, not once per row.
    auto* pattern = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
    std::optional<LikePattern> local;
    if (!pattern) {
        local = LikePattern::compile(argumentText(arguments[0]));
        if (!local) {
            sqlite3_result_error(context, "Invalid Like pattern", -1);
            return;
        }
        sqlite3_set_auxdata(context, 0, new LikePattern(*local), deletePattern);
        pattern = &*local;
    }
    sqlite3_result_int(context, pattern->matches(argumentText(arguments[1])) ? 1 : 0);
}

} // namespace

sqlite3* sqliteHandle(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver() ? connection.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        throw DatabaseError(u"Not an SQLite connection"_s, 0);
    sqlite3* result = *static_cast<sqlite3* const*>(handle.constData());
    if (!result)
        throw DatabaseError(u"The SQLite connection is not open"_s, 0);
    return result;
}

void ensureLikeFunction(sqlite3* handle)
{
    {
        const std::lock_guard lock(registryMutex);
        if (registeredHandles.count(handle))
            return;
    }
    const int rc = sqlite3_create_function_v2(handle, LikeFunctionName, 2,
                                              SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, handle,
                                              likeFunction, nullptr, nullptr, forgetHandle);
    if (rc != SQLITE_OK)
        throw engineError(handle, rc);
    const std::lock_guard lock(registryMutex);
    registeredHandles.insert(handle);
}

std::unique_ptr<SqlBackend> makeSqliteBackend(const QSqlDatabase& connection)
{
    return std::make_unique<HandleBackend<sqlite3, SqliteStatement>>(connection, sqliteHandle(connection));
}

} // namespace tolvinpt::db
