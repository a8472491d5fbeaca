#include "platform/sql/database.h"

#include "platform/sql/sql_backend.h"
#include "platform/sql/sql_dialect.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {
namespace {

// Opens and closes a session of its own to the connection's database: its error when that fails.
std::optional<QSqlError> newSessionFails(const QSqlDatabase& connection)
{
    const QString name = connection.connectionName() + u"-probe"_s;
    std::optional<QSqlError> error;
    {
        QSqlDatabase probe = QSqlDatabase::cloneDatabase(connection, name);
        if (!probe.open())
            error = probe.lastError();
    }
    QSqlDatabase::removeDatabase(name);
    return error;
}

} // namespace

DatabaseError::DatabaseError(const QString& description, long number)
    : std::runtime_error(description.toStdString()), m_description(description), m_number(number)
{
}

DatabaseError DatabaseError::fromSqlError(const QSqlError& error)
{
    const QString description = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return DatabaseError(description, sqlStateNumber(error.nativeErrorCode()));
}

long DatabaseError::sqlStateNumber(QStringView code)
{
    bool digits = false;
    const long decimal = code.toLong(&digits);
    if (digits)
        return decimal;
    if (code.size() != 5)
        return 0;
    long number = 0;
    for (const QChar c : code) {
        const int digit = c.isDigit()                        ? c.unicode() - u'0'
                          : c.isUpper() && c.unicode() < 128 ? c.unicode() - u'A' + 10
                                                             : -1;
        if (digit < 0)
            return 0;
        number = number * 36 + digit;
    }
    return 100000 + number;
}

QString DatabaseError::operatorText(Spacing spacing) const
{
    const QString open = spacing == Spacing::Blank ? u" ("_s : u"("_s;
    return m_description + open + QString::number(m_number) + u')';
}

Statement::Statement(SqlBackend& backend, SqlStatement* statement)
    : m_backend(&backend), m_statement(statement)
{
}

Statement::Statement(Statement&& other) noexcept : m_backend(other.m_backend), m_statement(other.m_statement)
{
    other.m_statement = nullptr;
}

Statement::~Statement()
{
    if (m_statement)
        m_backend->release(m_statement);
}

Statement& Statement::bind(int index, const QVariant& value)
{
    m_statement->bind(index, value);
    return *this;
}

Statement& Statement::bind(std::initializer_list<QVariant> values)
{
    int index = 0;
    for (const QVariant& value : values)
        m_statement->bind(index++, value);
    return *this;
}

Statement& Statement::exec()
{
    m_statement->exec();
    return *this;
}

bool Statement::next()
{
    return m_statement->next();
}

QVariant Statement::value(int column) const
{
    return m_statement->value(column);
}

int Statement::columnCount() const
{
    return m_statement->columnCount();
}

const QStringList& Statement::columnNames() const
{
    return m_statement->columnNames();
}

qint64 Statement::lastInsertId() const
{
    return m_statement->lastInsertId();
}

qint64 Statement::rowsAffected() const
{
    return m_statement->rowsAffected();
}

Database::Database(const QSqlDatabase& connection, StatementPath path)
    : m_connection(connection), m_dialect(SqlDialect::of(connection)), m_path(path)
{
    if (!m_connection.isOpen() && !(m_dialect && m_dialect->connectionLost(m_connection)))
        throw DatabaseError(u"The database is not open"_s, 0);
    if (!m_dialect)
        throw DatabaseError(u"No SQL dialect for the driver "_s + m_connection.driverName(), 0);
    reopenIfLost();
    backend();
}

Database::~Database() = default;

SqlBackend& Database::backend()
{
    // Another Database on this connection opened a new session: these statements belong to the old one.
    if (m_backend && !m_backend->inUse() && m_backend->sessionReplaced())
        m_backend.reset();
    if (!m_backend) {
        m_dialect->prepareConnection(m_connection);
        m_backend = m_path == StatementPath::Native ? m_dialect->nativeBackend(m_connection)
                                                    : makeQtSqlBackend(m_connection);
    }
    return *m_backend;
}

Statement Database::prepare(const QString& sql)
{
    reopenIfLost();
    SqlBackend& engine = backend();
    return Statement(engine, engine.acquire(sql));
}

void Database::reopenIfLost()
{
    if (m_openTransactions > 0 || !m_dialect->connectionLost(m_connection) ||
        (m_backend && m_backend->inUse()))
        return;
    // The host's connection is closed only once a new session opens: while the server is away (a
    // restart, its recovery after a crashed session) the connection stays as it was, lost, so that the
    // next try comes round again instead of finding it closed.
    if (const auto error = newSessionFails(m_connection))
        throw DatabaseError::fromSqlError(*error);
    // The statements belong to the old session; they go before it does.
    m_backend.reset();
    m_connection.close();
    if (!m_connection.open())
        throw DatabaseError::fromSqlError(m_connection.lastError());
    backend();
}

void Database::execute(const QString& sql, std::initializer_list<QVariant> values)
{
    prepare(sql).bind(values).exec();
}

std::optional<QVariant> Database::scalar(const QString& sql, std::initializer_list<QVariant> values)
{
    Statement statement = prepare(sql);
    statement.bind(values).exec();
    if (!statement.next())
        return std::nullopt;
    return statement.value(0);
}

qint64 Database::insertDefaultRow(const QString& table, const QString& keyColumn)
{
    Statement statement = prepare(m_dialect->insertDefaultRow(table, keyColumn));
    statement.exec();
    return insertedKey(statement);
}

qint64 Database::insertedKey(Statement& insert) const
{
    if (!m_dialect->insertReturnsKey())
        return insert.lastInsertId();
    return insert.next() ? insert.value(0).toLongLong() : 0;
}

void Database::runScript(const QString& script)
{
    for (const QString& sql : splitSqlScript(script))
        execute(sql);
}

QStringList splitSqlScript(const QString& script)
{
    QStringList statements;
    QString current;
    const auto flush = [&] {
        const QString sql = current.trimmed();
        if (!sql.isEmpty())
            statements.append(sql);
        current.clear();
    };
    const qsizetype n = script.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = script[i];
        const QChar next = i + 1 < n ? script[i + 1] : QChar();
        if (c == u'-' && next == u'-') {
            while (i < n && script[i] != u'\n')
                ++i;
            current += u'\n';
        } else if (c == u'/' && next == u'*') {
            const qsizetype end = script.indexOf(u"*/"_s, i + 2);
            i = end < 0 ? n : end + 1;
            current += u' ';
        } else if (c == u'\'' || c == u'"') {
            // Quoted text or name; a doubled quote stands for itself and simply continues it.
            const qsizetype end = script.indexOf(c, i + 1);
            const qsizetype stop = end < 0 ? n - 1 : end;
            current += QStringView(script).mid(i, stop - i + 1);
            i = stop;
        } else if (c == u';') {
            flush();
        } else {
            current += c;
        }
    }
    flush();
    return statements;
}

} // namespace tolvinpt::db
