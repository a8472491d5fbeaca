#include "platform/sql/database.h"

#include "platform/sql/sql_backend.h"
#include "platform/sql/sql_dialect.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace tolvinpt::db {

DatabaseError::DatabaseError(const QString& description, long number)
    : std::runtime_error(description.toStdString()), m_description(description), m_number(number)
{
}

DatabaseError DatabaseError::fromSqlError(const QSqlError& error)
{
    const QString description = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return DatabaseError(description, error.nativeErrorCode().toLong());
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
    : m_connection(connection), m_dialect(SqlDialect::of(connection))
{
    if (!m_connection.isOpen())
        throw DatabaseError(u"The database is not open"_s, 0);
    if (!m_dialect)
        throw DatabaseError(u"No SQL dialect for the driver "_s + m_connection.driverName(), 0);
    m_dialect->prepareConnection(m_connection);
    m_backend = path == StatementPath::Native ? m_dialect->nativeBackend(m_connection)
                                              : makeQtSqlBackend(m_connection);
}

Database::~Database() = default;

Statement Database::prepare(const QString& sql)
{
    return Statement(*m_backend, m_backend->acquire(sql));
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
    if (!m_dialect->insertReturnsKey())
        return statement.lastInsertId();
    statement.next();
    return statement.value(0).toLongLong();
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
