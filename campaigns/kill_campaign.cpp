// Killed at any instant: a driver process works on a database through the real form (saves of changed
// records with 0 to 5 packages, splits) until it is killed with SIGKILL at a random moment; then the
// database is checked: integrity; every order's delivery quantities add up to what it had (a split is
// wholly there or wholly absent); a record of individual packages has the packages its save wrote,
// adding up to its delivery quantity, any other record none; no delivery key twice.
//   tolvinpt-kill-campaign [KILLS [delete|wal] [SEED]]   (offscreen; default 1000 kills, delete journal)
#include "campaigns/campaign_data.h"
#include "campaigns/operator_robot.h"
#include "platform/values/decimal.h"
#include "platform/values/number_text.h"
#include "tests/support/fake_host.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTableView>
#include <QThread>

#include <sqlite3.h>

#include <csignal>
#include <cstdio>

using namespace tolvinpt;
using campaign::OperatorRobot;

namespace {

constexpr int Records = 6; // each with a delivery quantity of 10

// Package quantities that add up to `delivery`: count - 1 of 0.001 and the rest in the last.
QStringList packagesOf(const Decimal& delivery, int count)
{
    QStringList quantities;
    Decimal rest = delivery;
    for (int k = 1; k < count; ++k) {
        quantities.append(QStringLiteral("0.001"));
        rest = rest - *Decimal::fromString(u"0.001");
    }
    quantities.append(rest.toString());
    return quantities;
}

// One operation on the record on screen, chosen by `random`.
void operate(QWidget& form, OperatorRobot& robot, QRandomGenerator& random, int n)
{
    const Decimal delivery = leadingNumber(OperatorRobot::text(form, QStringLiteral("txtAmountDelivery")));
    if (random.bounded(10) < 4 && delivery > *Decimal::fromString(u"0.01")) {
        robot.when(campaign::SplitDialogTitle, [n](QWidget& dialog) {
            OperatorRobot::type(dialog, QStringLiteral("txtPayment(1)"), QStringLiteral("K%1").arg(n));
            OperatorRobot::type(dialog, QStringLiteral("txtAmount(1)"), QStringLiteral("0.001"));
            OperatorRobot::press(dialog, QStringLiteral("cmdAny(0)"));
        });
        OperatorRobot::run(form, QStringLiteral("mnuDataDivide"));
    } else {
        const int count = delivery > *Decimal::fromString(u"0.01") ? random.bounded(6) : 0;
        // Through the delivery quantity first, as Tab takes an operator: a save whose checks find the
        // quantity "changed" since the record was shown returns it to a single package.
        OperatorRobot::visit(form, QStringLiteral("txtAmountDelivery"));
        OperatorRobot::type(form, QStringLiteral("txtMyRemarksA"),
                            QStringLiteral("S%1P%2").arg(n).arg(count));
        OperatorRobot::press(form, count == 0 ? QStringLiteral("optQuantity(1)")
                                              : QStringLiteral("optQuantity(3)"));
        if (count > 0) {
            robot.when(QStringLiteral("個別 入数情報"), [&](QWidget& editor) {
                QAbstractItemModel* model = editor.findChild<QTableView*>()->model();
                const QStringList quantities = packagesOf(delivery, count);
                for (int row = 0; row < 100; ++row)
                    model->setData(model->index(row, 0), row < count ? quantities[row] : QString());
                editor.findChild<QAbstractButton*>(QStringLiteral("戻る"))->click(); // keeps them: Yes
            });
            OperatorRobot::press(form, QStringLiteral("cmdQuantity"));
        }
        OperatorRobot::run(form, QStringLiteral("mnuDataSave"));
    }
    OperatorRobot::run(form, QStringLiteral("mnuDataExit"));
}

// The driver: entry calls on the records in turn until it is killed.
int drive(const QString& path, quint32 seed)
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("driver"));
    connection.setDatabaseName(path);
    if (!connection.open())
        return 1;
    test::FakeHostData host;
    host.connectionName = QStringLiteral("driver");
    host.customers = {{.id = 1, .code = QStringLiteral("1234"), .name = QStringLiteral("東京電機")}};
    test::registerFakeHost(host);
    OperatorRobot robot;
    QRandomGenerator random(seed);
    for (int n = 0;; ++n) {
        robot.when(campaign::EntryFormTitle, [&, n](QWidget& form) { operate(form, robot, random, n); });
        fmInput input;
        Items items{ListKey(1 + random.bounded(Records))};
        input.InputData(items);
        std::printf("done %d\n", n);
        std::fflush(stdout);
    }
}

// The rows of `sql`, each as its columns' texts.
QList<QStringList> rows(sqlite3* db, const char* sql)
{
    QList<QStringList> out;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK)
        return {{QStringLiteral("cannot prepare: ") + QString::fromUtf8(sqlite3_errmsg(db))}};
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QStringList row;
        for (int c = 0; c < sqlite3_column_count(statement); ++c)
            row.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, c))));
        out.append(row);
    }
    sqlite3_finalize(statement);
    return out;
}

Decimal decimal(const QString& text)
{
    return leadingNumber(text);
}

// What the killed driver must have left; empty when all holds.
QStringList check(const QString& path)
{
    sqlite3* db = nullptr;
    QStringList broken;
    if (sqlite3_open(path.toUtf8().constData(), &db) != SQLITE_OK)
        return {QStringLiteral("cannot open")};
    if (rows(db, "PRAGMA integrity_check") != QList<QStringList>{{QStringLiteral("ok")}})
        broken.append(QStringLiteral("integrity check"));
    for (const QStringList& order :
         rows(db, "SELECT F00007, group_concat(F00036, ' ') FROM T_Delivery GROUP BY F00007")) {
        Decimal sum;
        for (const QString& quantity : order[1].split(u' '))
            sum = sum + decimal(quantity);
        if (sum != Decimal::fromInteger(10))
            broken.append(QStringLiteral("order %1 adds up to %2").arg(order[0], sum.toString()));
    }
    const QRegularExpression remark(QStringLiteral("^S\\d+P(\\d+)$"));
    for (const QStringList& record :
         rows(db, "SELECT d.IDData, d.QuantityType, d.F00036, d.F00164, COUNT(q.IDData), "
                  "coalesce(group_concat(q.Quantity, ' '), '') FROM T_Delivery d LEFT JOIN T_DeliveryQTY q "
                  "ON q.IDData = d.IDData GROUP BY d.IDData")) {
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
    if (!rows(db, "SELECT F00159 FROM T_Delivery WHERE InDustBox = 0 GROUP BY IDCustomer, F00007, F00159 "
                  "HAVING COUNT(*) > 1")
             .isEmpty())
        broken.append(QStringLiteral("a delivery key twice"));
    sqlite3_close(db);
    return broken;
}

int run(int kills, const QString& journal, quint32 seed)
{
    test::TempDatabase temp;
    temp.db().execute(QStringLiteral("PRAGMA journal_mode = ") + journal);
    for (int n = 0; n < Records; ++n)
        campaign::addDeliveryRecord(temp.db(), n);
    const QString path = temp.filePath();
    temp.close();
    QRandomGenerator random(seed);
    int operations = 0, violations = 0;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess driver;
        driver.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        driver.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--drive"), path, QString::number(random.generate())});
        driver.waitForStarted();
        QThread::msleep(150 + random.bounded(1000));
        ::kill(pid_t(driver.processId()), SIGKILL);
        driver.waitForFinished();
        operations += int(driver.readAllStandardOutput().count("done "));
        const QStringList broken = check(path);
        for (const QString& what : broken)
            std::fprintf(stderr, "kill %d: %s\n", kill + 1, qPrintable(what));
        violations += broken.isEmpty() ? 0 : 1;
    }
    sqlite3* db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    const QStringList made = rows(db, "SELECT COUNT(*) - 6, (SELECT COUNT(*) FROM T_DeliveryQTY), "
                                      "SUM(QuantityType = 3) FROM T_Delivery")
                                 .value(0);
    sqlite3_close(db);
    std::printf(
        "%s journal: %d kills after %d completed entry calls in all (%s splits stored, %s package rows "
        "in %s individually packed records at the end); %d left a broken database\n",
        qPrintable(journal), kills, operations, qPrintable(made.value(0)), qPrintable(made.value(1)),
        qPrintable(made.value(2)), violations);
    return violations == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() == 4 && arguments[1] == u"--drive")
        return drive(arguments[2], arguments[3].toUInt());
    return run(arguments.size() > 1 ? arguments[1].toInt() : 1000,
               arguments.size() > 2 ? arguments[2] : QStringLiteral("delete"),
               arguments.size() > 3 ? arguments[3].toUInt() : 20261124);
}
