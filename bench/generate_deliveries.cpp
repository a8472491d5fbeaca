// Creates a database of delivery records for the benchmarks:
//   tolvinpt-bench-generate FILE [RECORDS=1000000] [SEED=1]
#include "bench/delivery_generator.h"
#include "platform/sql/database.h"
#include "platform/sql/transaction.h"
#include "store/delivery_writes.h"
#include "store/schema.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tolvinpt;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: %s FILE [RECORDS=1000000] [SEED=1]\n", argv[0]);
        return 2;
    }
    const QString file = args[1];
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
