// A long working session in one host process: entry calls of open, edit, save and close, one after the
// other, through the public API and the real form, as an operator makes them all day.
//   tolvinpt-long-session [CALLS [WARM_UP]]   (offscreen; default 1000 calls after 100 warm-up calls)
// Reports the memory growth after the warm-up, and fails when widgets or database connections are left
// behind by a call, when a save did not arrive, or when memory grew by more than 5 MB.
#include "store/delivery_record.h"
#include "store/delivery_writes.h"
#include "tests/support/fake_host.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSqlDatabase>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <fstream>
#include <unistd.h>

using namespace tolvinpt;
using C = DeliveryColumn;

namespace {

constexpr double MaxGrowthMb = 5.0;

double residentMb()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

qint64 addRecord(db::Database& database, int n)
{
    DeliveryRecord record;
    const std::pair<C, QVariant> values[] = {
        {C::IDCustomer, qint64(1)},        {C::F00004, QStringLiteral("1234")},
        {C::F00007, QStringLiteral("ORD-%1").arg(n)}, {C::F00159, QStringLiteral("KEY-%1").arg(n)},
        {C::F00024, QStringLiteral("HC-1")}, {C::F00031, QStringLiteral("2005-03-01")},
        {C::F00039, QStringLiteral("2005-03-07")}, {C::F00040, QStringLiteral("2005-03-09")},
        {C::F00015, 10.0},                 {C::F00036, 10.0},
        {C::F00059, QStringLiteral("1")},  {C::F00013, QStringLiteral("100")}};
    for (const auto& [column, value] : values)
        record.set(column, value);
    return insertDeliveryRecord(database, record);
}

// Once the entry form is up: types the remark, saves (Ctrl+S's command) and closes; a message box in
// between is answered with its default button.
void operate(const QString& remark)
{
    QWidget* top = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(top)) {
        box->defaultButton()->click();
    } else if (auto* field = top ? top->findChild<QLineEdit*>(QStringLiteral("txtMyRemarksA")) : nullptr) {
        field->selectAll();
        QTest::keyClicks(field, remark);
        top->findChild<QAction*>(QStringLiteral("mnuDataSave"))->trigger();
        top->findChild<QAction*>(QStringLiteral("mnuDataExit"))->trigger();
        return;
    }
    QTimer::singleShot(5, [remark] { operate(remark); });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int calls = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int warmUp = argc > 2 ? std::atoi(argv[2]) : 100;
    test::TempDatabase temp;
    test::FakeHostData host;
    host.connectionName = temp.connectionName();
    host.customers = {{.id = 1, .code = QStringLiteral("1234"), .name = QStringLiteral("東京電機")}};
    test::registerFakeHost(host);
    QList<qint64> ids;
    for (int n = 0; n < 10; ++n)
        ids.append(addRecord(temp.db(), n));

    double startMb = 0;
    qsizetype widgets = 0, connections = 0;
    int failures = 0;
    for (int call = 0; call < warmUp + calls; ++call) {
        const QString remark = QStringLiteral("CALL%1").arg(call);
        QTimer::singleShot(0, [remark] { operate(remark); });
        try {
            fmInput input;
            Items items{ListKey(ids[call % ids.size()])};
            input.InputData(items);
        } catch (const Error& e) {
            std::fprintf(stderr, "call %d: %s (%ld)\n", call, qPrintable(e.description()), e.number());
            return 1;
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto stored = temp.db().scalar(QStringLiteral("SELECT F00164 FROM T_Delivery WHERE IDData = ?"),
                                             {ids[call % ids.size()]});
        if (!stored || stored->toString() != remark) {
            std::fprintf(stderr, "call %d: the save did not arrive\n", call);
            ++failures;
        }
        if (call == warmUp) {
            startMb = residentMb();
            widgets = QApplication::allWidgets().size();
            connections = QSqlDatabase::connectionNames().size();
        } else if (call > warmUp && (QApplication::allWidgets().size() != widgets ||
                                     QSqlDatabase::connectionNames().size() != connections)) {
            std::fprintf(stderr, "call %d: %lld widgets and %lld connections, %lld and %lld before\n", call,
                         qlonglong(QApplication::allWidgets().size()),
                         qlonglong(QSqlDatabase::connectionNames().size()), qlonglong(widgets), qlonglong(connections));
            ++failures;
        }
    }
    const double growth = residentMb() - startMb;
    std::printf("%d calls after %d warm-up calls: memory %.1f MB -> %.1f MB (%+.2f MB), %lld widgets, "
                "%lld connections throughout\n",
                calls, warmUp, startMb, startMb + growth, growth, qlonglong(widgets), qlonglong(connections));
    if (calls >= 1000 && growth > MaxGrowthMb) {
        std::fprintf(stderr, "memory grew by more than %.0f MB\n", MaxGrowthMb);
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
