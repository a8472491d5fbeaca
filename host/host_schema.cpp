#include "host/host_schema.h"

#include "host/list_query.h"
#include "host/sql_script.h"

#include "platform/sql/sql_dialect.h"
#include "store/schema.h"

#include <tolvinpt/error.h>

#include <QMap>

#include <QSqlField>
#include <QSqlRecord>
#include <algorithm>

namespace tolvinpt::host {
namespace {

void createDeliveryTables(const QSqlDatabase& db)
{
    // The delivery tables come from the component's own DDL file for the engine.
    runScript(db, deliverySchemaScript(dialectOf(db)));
}

void createOwnTables(const QSqlDatabase& db)
{
    runScript(db, hostScript(db, QStringLiteral("host_tables.sql")));
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
    runScript(db, hostScript(db, QStringLiteral("write_marks.sql")).arg(kApplicationId).arg(kSchemaVersion));
}

QStringList columnNames(const QSqlDatabase& db, const QString& table)
{
    // Under the name the database lists it by: a server keeps unquoted names in lower case.
    const QStringList tables = db.tables(QSql::Tables);
    const auto listed = std::find_if(tables.begin(), tables.end(), [&](const QString& name) {
        return name.compare(table, Qt::CaseInsensitive) == 0;
    });
    QStringList names;
    const QSqlRecord record = db.record(listed == tables.end() ? table : *listed);
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
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

HostMarks readMarks(const QSqlDatabase& db)
{
    QSqlQuery query = execQuery(db, hostScript(db, QStringLiteral("read_marks.sql")));
    if (!query.next())
        return {};
    return {query.value(0).toInt(), query.value(1).toInt()};
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
    return readMarks(db).version < kSchemaVersion;
}

void upgradeHostSchema(const QSqlDatabase& db, const SchemaProgress& progress)
{
    // Version 1 had no indexes for the list, version 2 had them on other expressions.
    for (const QString& index : listIndexNames())
        runScript(db, QStringLiteral("DROP INDEX IF EXISTS ") + index);
    createListIndexes(db, progress);
    markAsOurs(db);
}

} // namespace tolvinpt::host
