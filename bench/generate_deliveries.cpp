// Creates a database of delivery records for the benchmarks:
//   tolvinpt-bench-generate FILE [RECORDS=1000000] [SEED=1]
//   tolvinpt-bench-generate --copy [RECORDS=1000000] [SEED=1]
// --copy writes the same records as COPY input for psql on standard output (IDData 1, 2, ... as a new
// file numbers them), for a PostgreSQL database that has the delivery tables (see pg_bench_server.sh).
#include "bench/delivery_generator.h"
#include "platform/sql/database.h"
#include "platform/sql/sql_backend.h"
#include "platform/sql/transaction.h"
#include "store/delivery_writes.h"
#include "store/schema.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLocale>
#include <QSqlDatabase>
#include <QSqlError>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvinpt;

namespace {

// A value in COPY's text form: \N for Null, the backslash and line and field breaks escaped.
QByteArray copyText(const QVariant& value)
{
    if (value.isNull())
        return "\\N";
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "t" : "f";
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate).toLatin1();
    case QMetaType::Double:
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    default:
        break;
    }
    QByteArray text = value.toString().toUtf8();
    text.replace("\\", "\\\\").replace("\t", "\\t").replace("\n", "\\n").replace("\r", "\\r");
    return text;
}

// Both tables' rows as psql reads COPY from its input; the package rows wait in memory until the
// records are written.
int writeCopy(qint64 records, unsigned seed)
{
    const db::SqlDialect& dialect = db::postgresqlDialect();
    QByteArray header = "COPY T_Delivery (IDData";
    for (const DeliveryColumnInfo& info : deliveryColumns())
        if (info.column != DeliveryColumn::IDData)
            header += ", " + info.name.toString().toLatin1();
    std::printf("%s) FROM stdin;\n", header.constData());
    bench::DeliveryGenerator generator(seed);
    QList<QVariant> packages;
    QByteArray packageRows;
    QByteArray line;
    for (qint64 id = 1; id <= records; ++id) {
        const DeliveryRecord record = generator.next(packages);
        line = QByteArray::number(id);
        for (const DeliveryColumnInfo& info : deliveryColumns())
            if (info.column != DeliveryColumn::IDData)
                line += '\t' + copyText(storedValue(dialect, info.column,
                                                    record.has(info.column) ? record.value(info.column)
                                                                            : QVariant()));
        line += '\n';
        std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
        for (int i = 0; i < packages.size(); ++i)
            packageRows += QByteArray::number(id) + '\t' + QByteArray::number(i + 1) + '\t' +
                           copyText(packages[i]) + '\n';
    }
    std::printf("\\.\nCOPY T_DeliveryQTY (IDData, Sequence, Quantity) FROM stdin;\n");
    std::fwrite(packageRows.constData(), 1, std::size_t(packageRows.size()), stdout);
    std::printf("\\.\n");
    // Later inserts number on from the copied ones.
    std::printf("SELECT setval(pg_get_serial_sequence('t_delivery', 'iddata'), %lld);\n",
                static_cast<long long>(records));
    return std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: %s FILE [RECORDS=1000000] [SEED=1]\n", argv[0]);
        return 2;
    }
    const QString file = args[1];
    if (file == u"--copy"_s)
        return writeCopy(args.size() > 2 ? args[2].toLongLong() : 1000000,
                         args.size() > 3 ? args[3].toUInt() : 1);
    const qint64 records = args.size() > 2 ? args[2].toLongLong() : 1000000;
    const unsigned seed = args.size() > 3 ? args[3].toUInt() : 1;
    QFile::remove(file);

    {
        QSqlDatabase connection = QSqlDatabase::addDatabase(u"QSQLITE"_s);
        connection.setDatabaseName(file);
        if (!connection.open()) {
            std::fprintf(stderr, "%s\n", qPrintable(connection.lastError().text()));
            return 1;
        }
        try {
            db::Database database(connection);
            createDeliveryTables(database);
            // The generator only: nothing to recover if it dies half-way, so no journal and no syncing.
            database.execute(u"PRAGMA journal_mode = OFF"_s);
            database.execute(u"PRAGMA synchronous = OFF"_s);

            QElapsedTimer timer;
            timer.start();
            bench::DeliveryGenerator generator(seed);
            QList<QVariant> packages;
            qint64 packageRows = 0;
            db::Transaction transaction(database, db::Transaction::Kind::Write);
            for (qint64 i = 0; i < records; ++i) {
                const qint64 id = insertDeliveryRecord(database, generator.next(packages));
                insertPackageRows(database, id, packages);
                packageRows += packages.size();
            }
            transaction.commit();
            std::printf("%s: %lld records, %lld package rows in %.1f s\n", qPrintable(file),
                        static_cast<long long>(records), static_cast<long long>(packageRows),
                        timer.elapsed() / 1000.0);
        } catch (const db::DatabaseError& e) {
            std::fprintf(stderr, "%s\n", qPrintable(e.operatorText()));
            return 1;
        }
        connection.close();
    }
    QSqlDatabase::removeDatabase(QLatin1StringView(QSqlDatabase::defaultConnection));
    return 0;
}
