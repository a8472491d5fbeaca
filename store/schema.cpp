#include "store/schema.h"

#include "platform/sql/database.h"
#include "platform/sql/sql_dialect.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace tolvinpt {

QString deliverySchemaScript(const db::SqlDialect& dialect)
{
    const QString path = u":/tolvinpt/sql/"_s + dialect.scriptFolder() + u"/schema.sql"_s;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw db::DatabaseError(u"Cannot read "_s + path, 0);
    return QString::fromUtf8(file.readAll());
}

void createDeliveryTables(db::Database& database)
{
    database.runScript(deliverySchemaScript(database.dialect()));
}

} // namespace tolvinpt
