#include "host/host_schema.h"

#include "host/sql_script.h"

namespace tolvinpt::host {

QStringList requiredTables()
{
    return {QStringLiteral("T_Delivery"),        QStringLiteral("T_DeliveryQTY"),
            QStringLiteral("T_Company"),         QStringLiteral("T_OwnCode"),
            QStringLiteral("T_Customer"),        QStringLiteral("T_CustomerSubCode"),
            QStringLiteral("T_CustomerSettings")};
}

void createHostSchema(const QSqlDatabase& db)
{
    // The delivery tables come from the component's own DDL file, compiled into our resources.
    runScript(db, readResource(QStringLiteral(":/tolvinpt-host/delivery_schema.sql")));
    runScript(db, readResource(QStringLiteral(":/tolvinpt-host/host_tables.sql")));
    // Both marks live in the file header and take part in the transaction.
    runScript(db, QStringLiteral("PRAGMA application_id = %1; PRAGMA user_version = %2;")
                      .arg(kApplicationId)
                      .arg(kSchemaVersion));
}

} // namespace tolvinpt::host
