#include "host/sql_script.h"

#include <tolvinpt/error.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QUuid>

#include <sqlite3.h>

namespace tolvinpt::host {
namespace {

sqlite3* sqliteHandle(const QSqlDatabase& db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        throw Error(QStringLiteral("Not a SQLite connection"), 0);
    return *static_cast<sqlite3* const*>(handle.constData());
}

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
    // sqlite3_exec runs a whole script, trigger bodies included, without our own statement splitting.
    sqlite3* handle = sqliteHandle(db);
    char* message = nullptr;
    const int rc = sqlite3_exec(handle, script.toUtf8().constData(), nullptr, nullptr, &message);
    if (rc != SQLITE_OK) {
        const QString text = QString::fromUtf8(message ? message : sqlite3_errstr(rc));
        sqlite3_free(message);
        throw Error(text, rc);
    }
}

QString readResource(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(QStringLiteral("Missing resource %1").arg(path), 0);
    return QString::fromUtf8(file.readAll());
}

qint64 insertRow(const QSqlDatabase& db, const QString& table, const ColumnValues& values)
{
    QStringList columns;
    QStringList marks;
    QVariantList bound;
    for (const auto& [column, value] : values) {
        columns << column;
        marks << QStringLiteral("?");
        bound << value;
    }
    return execQuery(db,
                     QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                         .arg(table, columns.join(u", "), marks.join(u", ")),
                     bound)
        .lastInsertId()
        .toLongLong();
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
