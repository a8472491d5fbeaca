#include "host/host_schema.h"

#include "host/list_query.h"
#include "host/sql_script.h"

#include <QMap>

namespace tolvinpt::host {
namespace {

void createDeliveryTables(const QSqlDatabase& db)
{
    // The delivery tables come from the component's own DDL file, compiled into our resources.
    runScript(db, readResource(QStringLiteral(":/tolvinpt-host/delivery_schema.sql")));
}

void createOwnTables(const QSqlDatabase& db)
{
    runScript(db, readResource(QStringLiteral(":/tolvinpt-host/host_tables.sql")));
}

void createListIndexes(const QSqlDatabase& db, const SchemaProgress& progress = {})
{
    const QStringList statements = listIndexStatements();
    for (int done = 0; done < statements.size(); ++done) {
        if (progress)
            progress(done, int(statements.size()));
        runScript(db, statements.at(done));
    }
    if (progress)
        progress(int(statements.size()), int(statements.size()));
}

void markAsOurs(const QSqlDatabase& db)
{
    // Both marks live in the file header and take part in the transaction.
    runScript(db, QStringLiteral("PRAGMA application_id = %1; PRAGMA user_version = %2;")
                      .arg(kApplicationId)
                      .arg(kSchemaVersion));
}

QStringList columnNames(const QSqlDatabase& db, const QString& table)
{
    QStringList names;
    QSqlQuery query = execQuery(db, QStringLiteral("SELECT name FROM pragma_table_info(?)"), {table});
    while (query.next())
        names << query.value(0).toString();
    return names;
}

// The columns of each table as our own DDL creates them, read back from a private in-memory database.
QMap<QString, QStringList> ownColumns()
{
    ScopedConnection schema(QStringLiteral(":memory:"));
    if (!schema.db().open())
        return {};
    createDeliveryTables(schema.db());
    createOwnTables(schema.db());
    QMap<QString, QStringList> columns;
    for (const QString& table : requiredTables())
        columns.insert(table, columnNames(schema.db(), table));
    return columns;
}

} // namespace

QStringList requiredTables()
{
    return {QStringLiteral("T_Delivery"),        QStringLiteral("T_DeliveryQTY"),
            QStringLiteral("T_Company"),         QStringLiteral("T_OwnCode"),
            QStringLiteral("T_Customer"),        QStringLiteral("T_CustomerSubCode"),
            QStringLiteral("T_CustomerSettings")};
}

QStringList missingColumns(const QSqlDatabase& db)
{
    static const QMap<QString, QStringList> expected = ownColumns();
    QStringList missing;
    for (auto table = expected.begin(); table != expected.end(); ++table) {
        const QStringList present = columnNames(db, table.key());
        for (const QString& column : table.value())
            if (!present.contains(column, Qt::CaseInsensitive))
                missing << table.key() + u'.' + column;
    }
    return missing;
}

void createHostSchema(const QSqlDatabase& db)
{
    createDeliveryTables(db);
    addHostTables(db);
}

void addHostTables(const QSqlDatabase& db)
{
    createOwnTables(db);
    createListIndexes(db);
    markAsOurs(db);
}

bool needsUpgrade(const QSqlDatabase& db)
{
    QSqlQuery query = execQuery(db, QStringLiteral("PRAGMA user_version"));
    return query.next() && query.value(0).toInt() < kSchemaVersion;
}

void upgradeHostSchema(const QSqlDatabase& db, const SchemaProgress& progress)
{
    // Version 1 had no indexes for the list.
    createListIndexes(db, progress);
    markAsOurs(db);
}

} // namespace tolvinpt::host
