#include "platform/sql/postgresql_backend.h"

#include "platform/sql/sql_backend.h"
#include "platform/sql/sql_values.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QSqlDriver>

#include <libpq-fe.h>

#include <atomic>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

namespace {

// How Qt's QPSQL driver names its handle type (libpq's PGconn is struct pg_conn).
bool isLibpqHandle(const QVariant& handle)
{
    return handle.isValid() && qstrcmp(handle.typeName(), "pg_conn*") == 0;
}

// Type numbers of the server's built-in types (pg_type.oid), fixed since long.
enum : Oid {
    BoolOid = 16,
    Int8Oid = 20,
    Int2Oid = 21,
    Int4Oid = 23,
    OidOid = 26,
    Float4Oid = 700,
    Float8Oid = 701,
    DateOid = 1082,
    TimestampOid = 1114,
    NumericOid = 1700,
};

DatabaseError resultError(PGconn* handle, const PGresult* result)
{
    const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    const char* primary = result ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
    QString message = QString::fromUtf8(primary ? primary : PQerrorMessage(handle)).trimmed();
    // Without a state the failure was the connection's own (the server gone before it could answer).
    const QString code = state ? QString::fromLatin1(state) : u"08006"_s;
    return DatabaseError(message, DatabaseError::sqlStateNumber(code));
}

QByteArray parameterText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::QDate:
        return value.toDate().toString(u"yyyy-MM-dd"_s).toLatin1();
    case QMetaType::QDateTime:
        return value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s).toLatin1();
    case QMetaType::Double:
    case QMetaType::Float:
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    default: {
        const QString text = value.toString();
        // The server's text cannot hold U+0000; refused as it refuses it, not cut short at it.
        if (text.contains(QChar(0)))
            throw DatabaseError(u"invalid byte sequence for encoding \"UTF8\": 0x00"_s, 22021);
        return text.toUtf8();
    }
    }
}

class PostgresqlStatement final : public SqlStatement
{
public:
    PostgresqlStatement(PGconn* handle, const QString& sql)
        : m_handle(handle), m_sql(numberedPlaceholders(sql).toUtf8())
    {
        prepare();
        // The session may be lost between the two: its error, not a statement without parameters.
        PGresult* described = commandDone(PQdescribePrepared(m_handle, m_name.constData()));
        m_parameters.resize(PQnparams(described));
        PQclear(described);
    }
    ~PostgresqlStatement() override
    {
        PQclear(m_result);
        deallocate();
    }

    void bind(int index, const QVariant& value) override
    {
        if (index < 0 || std::size_t(index) >= m_parameters.size())
            throw DatabaseError(u"No parameter "_s + QString::number(index + 1), 0);
        m_parameters[index] = value.isNull() ? std::nullopt : std::optional(parameterText(value));
    }

    void exec() override { run(true); }
    void abandon() override { m_name.clear(); }

    bool next() override { return m_result && ++m_row < m_rows; }

    QVariant value(int column) const override
    {
        if (!m_result || m_row < 0 || m_row >= m_rows || PQgetisnull(m_result, m_row, column))
            return QVariant();
        const char* text = PQgetvalue(m_result, m_row, column);
        const int length = PQgetlength(m_result, m_row, column);
        switch (PQftype(m_result, column)) {
        case BoolOid:
            return QVariant(text[0] == 't');
        case Int2Oid:
        case Int4Oid:
        case Int8Oid:
        case OidOid:
            return QVariant(QByteArray(text, length).toLongLong());
        case Float4Oid:
        case Float8Oid:
            return QVariant(QByteArray(text, length).toDouble());
        // Dates and date/times as their ISO text, as a file database holds them: the reader converts those
        // it uses (made here, each date/time of every row read cost a parse and a time-zone look-up).
        case DateOid:
        case TimestampOid:
        case NumericOid: // decimal text, never through double
        default:
            return QVariant(QString::fromUtf8(text, length));
        }
    }

    int columnCount() const override { return m_result ? PQnfields(m_result) : 0; }
    const QStringList& columnNames() const override
    {
        // Made again only when the result's columns are named otherwise than the last one's.
        const int count = columnCount();
        bool same = m_names.size() == count;
        for (int i = 0; same && i < count; ++i)
            same = m_names[i] == QLatin1StringView(PQfname(m_result, i));
        if (!same) {
            m_names.clear();
            for (int i = 0; i < count; ++i)
                m_names.append(QString::fromUtf8(PQfname(m_result, i)));
        }
        return m_names;
    }
    // Keys come back through INSERT ... RETURNING; the server has no connection-wide last key.
    qint64 lastInsertId() const override { return 0; }
    qint64 rowsAffected() const override
    {
        return m_result ? QByteArray(PQcmdTuples(m_result)).toLongLong() : 0;
    }

    void reset() override
    {
        clearResult();
        std::fill(m_parameters.begin(), m_parameters.end(), std::nullopt);
    }

private:
    void run(bool mayRetry)
    {
        clearResult();
        if (m_stale) {
            deallocate();
            prepare();
            m_stale = false;
        }
        std::vector<const char*> values;
        for (const auto& parameter : m_parameters)
            values.push_back(parameter ? parameter->constData() : nullptr);
        m_result = PQexecPrepared(m_handle, m_name.constData(), int(values.size()), values.data(), nullptr,
                                  nullptr, 0);
        const ExecStatusType status = PQresultStatus(m_result);
        if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK) {
            const DatabaseError error = resultError(m_handle, m_result);
            // The table's columns changed since a '*' was prepared: the server refuses the statement until
            // it is prepared again, at once outside a transaction, else before its next run.
            const char* state = PQresultErrorField(m_result, PG_DIAG_SQLSTATE);
            m_stale = state && qstrcmp(state, "0A000") == 0;
            clearResult();
            if (m_stale && mayRetry && PQtransactionStatus(m_handle) == PQTRANS_IDLE)
                return run(false);
            throw error;
        }
        m_rows = PQntuples(m_result);
    }
    void prepare()
    {
        static std::atomic<unsigned> counter{0};
        const QByteArray name = "tolvinpt_" + QByteArray::number(++counter);
        PQclear(commandDone(PQprepare(m_handle, name.constData(), m_sql.constData(), 0, nullptr)));
        m_name = name;
    }
    void deallocate()
    {
        if (m_name.isEmpty())
            return;
        // Not in a failed transaction, where the server refuses every command but the end.
        const PGTransactionStatusType state = PQtransactionStatus(m_handle);
        if (PQstatus(m_handle) == CONNECTION_OK && (state == PQTRANS_IDLE || state == PQTRANS_INTRANS))
            PQclear(PQexec(m_handle, QByteArray("DEALLOCATE " + m_name).constData()));
        m_name.clear();
    }
    // `result`, when its command completed; else it goes, and its error is thrown.
    PGresult* commandDone(PGresult* result) const
    {
        if (PQresultStatus(result) != PGRES_COMMAND_OK) {
            const DatabaseError error = resultError(m_handle, result);
            PQclear(result);
            throw error;
        }
        return result;
    }

    void clearResult()
    {
        PQclear(m_result);
        m_result = nullptr;
        m_row = -1;
        m_rows = 0;
    }

    PGconn* m_handle;
    QByteArray m_sql;
    QByteArray m_name;
    bool m_stale = false; // to be prepared again before the next run
    std::vector<std::optional<QByteArray>> m_parameters;
    PGresult* m_result = nullptr;
    int m_row = -1;
    int m_rows = 0;
    mutable QStringList m_names;
};

} // namespace

pg_conn* postgresqlHandle(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver() ? connection.driver()->handle() : QVariant();
    if (!isLibpqHandle(handle))
        throw DatabaseError(u"Not a PostgreSQL connection"_s, 0);
    PGconn* result = *static_cast<PGconn* const*>(handle.constData());
    if (!result)
        throw DatabaseError(u"The PostgreSQL connection is not open"_s, 0);
    return result;
}

bool postgresqlConnectionLost(const QSqlDatabase& connection)
{
    const QVariant handle = connection.driver() ? connection.driver()->handle() : QVariant();
    if (!isLibpqHandle(handle))
        return false;
    PGconn* pg = *static_cast<PGconn* const*>(handle.constData());
    return pg && PQstatus(pg) == CONNECTION_BAD;
}

QString numberedPlaceholders(const QString& sql)
{
    QString result;
    result.reserve(sql.size() + 16);
    int number = 0;
    const qsizetype n = sql.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = sql[i];
        if (c == u'\'' || c == u'"') {
            const qsizetype end = sql.indexOf(c, i + 1);
            const qsizetype stop = end < 0 ? n - 1 : end;
            result += QStringView(sql).mid(i, stop - i + 1);
            i = stop;
        } else if (c == u'-' && i + 1 < n && sql[i + 1] == u'-') {
            const qsizetype end = sql.indexOf(u'\n', i);
            const qsizetype stop = end < 0 ? n - 1 : end;
            result += QStringView(sql).mid(i, stop - i + 1);
            i = stop;
        } else if (c == u'?') {
            result += u'$' + QString::number(++number);
        } else {
            result += c;
        }
    }
    return result;
}

std::unique_ptr<SqlBackend> makePostgresqlBackend(const QSqlDatabase& connection)
{
    return std::make_unique<HandleBackend<PGconn, PostgresqlStatement>>(connection,
                                                                        postgresqlHandle(connection));
}

} // namespace tolvinpt::db
