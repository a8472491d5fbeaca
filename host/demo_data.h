#pragma once

#include <QSqlDatabase>

namespace tolvinpt::host {

// Number of delivery records in a new demo database.
inline constexpr int kDemoRecordCount = 300;

// Fills a freshly created host database: the supplier's settings and own-company codes, the customer
// master and kDemoRecordCount delivery records. Always the same data (fixed seed). Runs inside the
// caller's transaction; throws tolvinpt::Error on failure.
void fillDemoData(const QSqlDatabase& db);

// The two halves of fillDemoData.
void fillDemoMasters(const QSqlDatabase& db);
void fillDemoDeliveries(const QSqlDatabase& db);

} // namespace tolvinpt::host
