// The kill campaign's checker: what a killed driver must have left. The engine's own check (SQLite's
// integrity check; on the server amcheck's check of every index of the two tables); every order of the
// starting records adds up to what it had (a split is wholly there or wholly absent); a record of
// individual packages has the packages its save wrote, adding up to its delivery quantity, any other
// record none; a new record holds every value it was typed with; no live delivery key twice.
#include "campaigns/kill_campaign.h"
#include "platform/values/decimal.h"
#include "platform/values/number_text.h"
#include "tests/support/temp_database.h"

#include <QDate>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QThread>

namespace tolvinpt::campaign {
namespace {

const QString ServerMark = QStringLiteral("postgresql:");

// Whole numbers as "10", not "10.0"; dates as "2005-04-02".
QString textOf(const QVariant& value)
{
    if (value.typeId() == QMetaType::QDate)
        return value.toDate().toString(Qt::ISODate);
    return value.toString();
}

// A connection of the checker's own, opened again after a server restart; removed when it goes.
class Reader
{
public:
    explicit Reader(const QString& address) : m_server(address.startsWith(ServerMark))
    {
        QSqlDatabase connection = test::TempDatabase::addConnection(Name, address);
        // A server whose backend was killed restarts all its sessions: wait for it.
        for (int attempt = 0; attempt < 100 && !connection.open(); ++attempt)
            QThread::msleep(100);
    }
    ~Reader()
    {
        QSqlDatabase::database(Name, false).close();
        QSqlDatabase::removeDatabase(Name);
    }
    bool isOpen() const { return QSqlDatabase::database(Name, false).isOpen(); }
    bool server() const { return m_server; }

    // The rows of `sql`, each as its columns' texts; a failure as a row of its own.
    QList<QStringList> rows(const QString& sql) const
    {
        QSqlQuery query(QSqlDatabase::database(Name, false));
        if (!query.exec(sql))
            return {{QStringLiteral("failed: ") + query.lastError().text()}};
        QList<QStringList> out;
        while (query.next()) {
            QStringList row;
            for (int c = 0; c < query.record().count(); ++c)
                row.append(textOf(query.value(c)));
            out.append(row);
        }
        return out;
    }
    // `sqlite` or `server`, by the engine.
    QString sql(const QString& sqlite, const QString& postgresql) const
    {
        return m_server ? postgresql : sqlite;
    }
    QString concat(const QString& column) const
    {
        return sql(QStringLiteral("group_concat(%1, ' ')"), QStringLiteral("string_agg(%1::text, ' ')"))
            .arg(column);
    }

private:
    static inline const QString Name = QStringLiteral("kill-checker");
    bool m_server;
};

Decimal decimal(const QString& text)
{
    return leadingNumber(text);
}

QStringList engineCheck(const Reader& db)
{
    if (!db.server())
        return db.rows(QStringLiteral("PRAGMA integrity_check")) == QList<QStringList>{{QStringLiteral("ok")}}
                   ? QStringList()
                   : QStringList{QStringLiteral("integrity check")};
    if (db.rows(QStringLiteral("SELECT 1 FROM pg_extension WHERE extname = 'amcheck'")).isEmpty())
        return {};
    QStringList broken;
    for (const QStringList& row : db.rows(
             QStringLiteral("SELECT c.relname, bt_index_check(c.oid)::text FROM pg_index i JOIN pg_class c "
                            "ON c.oid = i.indexrelid WHERE i.indrelid IN ('t_delivery'::regclass, "
                            "'t_deliveryqty'::regclass)")))
        if (row.size() != 2)
            broken.append(QStringLiteral("index check: ") + row.join(u' '));
    return broken;
}

QStringList ordersAddUp(const Reader& db)
{
    QStringList broken;
    for (const QStringList& order : db.rows(
             QStringLiteral("SELECT F00007, %1 FROM T_Delivery WHERE F00159 NOT LIKE 'N%' GROUP BY F00007")
                 .arg(db.concat(QStringLiteral("F00036"))))) {
        Decimal sum;
        for (const QString& quantity : order.value(1).split(u' '))
            sum = sum + decimal(quantity);
        if (sum != Decimal::fromInteger(10))
            broken.append(QStringLiteral("order %1 adds up to %2").arg(order.join(u' '), sum.toString()));
    }
    return broken;
}

QStringList packagesAsSaved(const Reader& db)
{
    QStringList broken;
    const QRegularExpression remark(QStringLiteral("^[SN]\\d+P(\\d+)$"));
    for (const QStringList& record : db.rows(
             QStringLiteral("SELECT d.IDData, d.QuantityType, d.F00036, d.F00164, COUNT(q.IDData), "
                            "coalesce(%1, '') FROM T_Delivery d LEFT JOIN T_DeliveryQTY q "
                            "ON q.IDData = d.IDData GROUP BY d.IDData, d.QuantityType, d.F00036, d.F00164")
                 .arg(db.concat(QStringLiteral("q.Quantity"))))) {
        if (record.size() != 6)
            return {record.join(u' ')};
        const int packages = record[4].toInt();
        Decimal sum;
        for (const QString& quantity : record[5].split(u' ', Qt::SkipEmptyParts))
            sum = sum + decimal(quantity);
        const auto written = remark.match(record[3]);
        const bool individual = record[1] == u"3";
        if (individual &&
            (!written.hasMatch() || written.captured(1).toInt() != packages || sum != decimal(record[2])))
            broken.append(QStringLiteral("record %1: %2 packages adding up to %3 for %4, remark %5")
                              .arg(record[0], record[4], sum.toString(), record[2], record[3]));
        if (!individual && packages != 0)
            broken.append(QStringLiteral("record %1: packages without individual packing").arg(record[0]));
    }
    return broken;
}

QStringList newRecordsWhole(const Reader& db)
{
    QStringList names;
    for (const NewRecord::Value& value : NewRecord{u'H', 0, 0}.stored())
        names.append(value.column);
    QStringList broken;
    for (const QStringList& row :
         db.rows(QStringLiteral("SELECT F00159, %1 FROM T_Delivery WHERE F00159 LIKE 'N%'")
                     .arg(names.join(u", ")))) {
        const std::optional<NewRecord> record = NewRecord::fromKey(row.value(0));
        if (!record) {
            broken.append(QStringLiteral("a new record's key: ") + row.join(u' '));
            continue;
        }
        const auto expected = record->stored();
        for (qsizetype c = 0; c < expected.size(); ++c) {
            const QString stored = row.value(c + 1);
            // Numbers compare as numbers: the engines give 10 as "10" or "10.000".
            if (expected[c].number ? decimal(stored) != decimal(expected[c].text)
                                   : stored != expected[c].text)
                broken.append(QStringLiteral("new record %1: %2 is %3, typed %4")
                                  .arg(row[0], expected[c].column, stored, expected[c].text));
        }
    }
    return broken;
}

} // namespace

std::optional<NewRecord> NewRecord::fromKey(const QString& key)
{
    static const QRegularExpression pattern(QStringLiteral("^N([HS])(\\d+)-(\\d+)$"));
    const auto match = pattern.match(key);
    if (!match.hasMatch())
        return std::nullopt;
    return NewRecord{match.captured(1)[0], match.captured(2).toUInt(), match.captured(3).toInt()};
}

QString NewRecord::key() const
{
    return QStringLiteral("N%1%2-%3").arg(how).arg(run).arg(m);
}

QString NewRecord::orderNo() const
{
    return how == u'S' ? QStringLiteral("ORD-%1").arg(m % KillRecords) : QStringLiteral("NEW-%1").arg(m % 3);
}

QString NewRecord::remark() const
{
    return QStringLiteral("N%1P%2").arg(m).arg(packages());
}

QList<NewRecord::Value> NewRecord::stored() const
{
    const bool searched = how == u'S'; // these copy the starting record's order data
    return {
        {QStringLiteral("F00007"), orderNo()},
        {QStringLiteral("F00024"), searched ? QStringLiteral("HC-1") : QStringLiteral("HC-N")},
        {QStringLiteral("F00015"), searched ? QStringLiteral("10") : QString::number(quantity()), true},
        {QStringLiteral("F00031"), searched ? QStringLiteral("2005-03-01") : QStringLiteral("2005-04-01")},
        {QStringLiteral("F00036"), QString::number(quantity()), true},
        {QStringLiteral("F00039"), QStringLiteral("2005-04-02")},
        {QStringLiteral("F00164"), remark()},
        {QStringLiteral("QuantityType"), packages() > 0 ? QStringLiteral("3") : QStringLiteral("1"), true}};
}

QStringList checkDatabase(const QString& address)
{
    const Reader db(address);
    if (!db.isOpen())
        return {QStringLiteral("cannot open")};
    QStringList broken = engineCheck(db) + ordersAddUp(db) + packagesAsSaved(db) + newRecordsWhole(db);
    if (!db.rows(QStringLiteral("SELECT F00159 FROM T_Delivery WHERE InDustBox = false GROUP BY IDCustomer, "
                                "F00007, F00159 HAVING COUNT(*) > 1"))
             .isEmpty())
        broken.append(QStringLiteral("a delivery key twice"));
    return broken;
}

QStringList madeCounts(const QString& address)
{
    const Reader db(address);
    return db
        .rows(QStringLiteral(
            "SELECT (SELECT COUNT(*) FROM T_Delivery WHERE F00159 LIKE 'K%' AND F00159 NOT LIKE "
            "'KEY-%'), (SELECT COUNT(*) FROM T_DeliveryQTY), (SELECT COUNT(*) FROM T_Delivery WHERE "
            "QuantityType = 3), (SELECT COUNT(*) FROM T_Delivery WHERE F00159 LIKE 'N%')"))
        .value(0);
}

} // namespace tolvinpt::campaign
