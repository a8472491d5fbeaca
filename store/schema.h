#pragma once

#include <QString>

namespace tolvinpt {

namespace db {
class Database;
class SqlDialect;
} // namespace db

// The DDL of T_Delivery and T_DeliveryQTY for the connection's engine, from the resources.
QString deliverySchemaScript(const db::SqlDialect& dialect);

// Creates both tables and their indexes on `database`, statement by statement. The component itself never
// does this: the stand-alone host and the tests create their databases with it. Throws DatabaseError.
void createDeliveryTables(db::Database& database);

} // namespace tolvinpt
