#include "host/sql_script.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"

#include <tolvinpt/error.h>

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QUuid>

namespace tolvinpt::host {
namespace {

Error toError(const QSqlError& error)
{
    return Error(error.text(), error.nativeErrorCode().toLong());
}

} // namespace

ScopedConnection::ScopedConnection(const QString& path, const QString& options)
    : m_name(QStringLiteral("tolvinpt-host-check-") + QUuid::createUuid().toString(QUuid::Id128))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    db.setDatabaseName(path);
    db.setConnectOptions(options);
}

ScopedConnection::~ScopedConnection()
{
    QSqlDatabase::database(m_name, false).close();
    QSqlDatabase::removeDatabase(m_name);
}

void runScript(const QSqlDatabase& db, const QString& script)
{
    // Not prepared: a server prepares no DDL.
    for (const QString& statement : db::splitSqlScript(script)) {
        QSqlQuery query(db);
        if (!query.exec(statement))
            throw toError(query.lastError());
    }
}

const db::SqlDialect& dialectOf(const QSqlDatabase& db)
{
    const db::SqlDialect* dialect = db::SqlDialect::of(db);
    if (!dialect)
        throw Error(QStringLiteral("No SQL dialect for the driver ") + db.driverName(), 0);
    return *dialect;
}

QString hostScript(const QSqlDatabase& db, const QString& name)
{
    return readResource(QStringLiteral(":/tolvinpt-host/%1/%2").arg(dialectOf(db).scriptFolder(), name));
}

QString readResource(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(QStringLiteral("Missing resource %1").arg(path), 0);
    return QString::fromUtf8(file.readAll());
}

qint64 insertRow(const QSqlDatabase& db, const QString& table, const ColumnValues& values,
                 const QString& keyColumn)
{
    QStringList columns;
    QStringList marks;
    QVariantList bound;
    for (const auto& [column, value] : values) {
        columns << column;
        marks << QStringLiteral("?");
        bound << value;
    }
    // RETURNING: a server driver knows no last insert id.
    QSqlQuery query = execQuery(
        db,
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)").arg(table, columns.join(u", "), marks.join(u", ")) +
            (keyColumn.isEmpty() ? QString() : QStringLiteral(" RETURNING ") + keyColumn),
        bound);
    return query.next() ? query.value(0).toLongLong() : 0;
}

QSqlQuery execQuery(const QSqlDatabase& db, const QString& sql, const QVariantList& values)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.prepare(sql))
        throw toError(query.lastError());
    for (const QVariant& value : values)
        query.addBindValue(value);
    if (!query.exec())
        throw toError(query.lastError());
    return query;
}

} // namespace tolvinpt::host
