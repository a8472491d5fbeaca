#pragma once

// The kill campaign's parts: the driver that works on a database through the real form until it is
// killed, and the checker that opens the database afterwards. A database is named by an address as
// TempDatabase::addConnection takes it: an SQLite file or "postgresql:" and a libpq connection string.

#include <QString>
#include <QStringList>

#include <optional>

namespace tolvinpt::campaign {

// The records the campaign starts with: "ORD-k"/"KEY-k" for k below this, each delivering 10.
constexpr int KillRecords = 6;

// A new record whose every value follows from its delivery key "N<how><run>-<m>": typed by hand on the
// blank form (how 'H'), or started from the search of an order of the starting records (how 'S'), whose
// order data it copies. The key is unique to one driver run, so typing one again must be refused.
struct NewRecord
{
    QChar how;
    quint32 run = 0;
    int m = 0;

    static std::optional<NewRecord> fromKey(const QString& key);
    QString key() const;
    QString orderNo() const;
    int quantity() const { return 1 + m % 7; }
    int packages() const { return m % 4; }
    QString remark() const;
    // A stored column and its value as an operator reads it ("2005-04-02", "3").
    struct Value
    {
        QString column;
        QString text;
        bool number = false;
    };
    // What the record holds when it is there at all.
    QList<Value> stored() const;
};

// Runs entry calls on the starting records until killed; prints "ready" once it has the database, "done N"
// after each completed call, and
// what went wrong where the operator would see it. Returns only when it cannot open the database.
int drive(const QString& address, quint32 seed);

// What the killed driver left broken; empty when every invariant holds.
QStringList checkDatabase(const QString& address);

// Counts of what the driver left, for the report: splits, package rows, individually packed records,
// new records.
QStringList madeCounts(const QString& address);

} // namespace tolvinpt::campaign
