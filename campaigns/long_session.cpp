// A long working session in one host process: entry calls of open, edit, save and close, one after the
// other, through the public API and the real form, as an operator makes them all day. Each call also
// opens the package editor and the split dialog and backs out of them.
//   tolvinpt-long-session [CALLS [WARM_UP]]   (offscreen; default 1000 calls after 100 warm-up calls)
// Reports the memory growth after the warm-up, resident and heap in use, and fails when widgets or
// database connections are left behind by a call, when a save did not arrive, when the heap in use grows
// call after call, or when resident memory grew by more than 5 MB over 1,000 calls or more.
#include "campaigns/campaign_data.h"
#include "campaigns/operator_robot.h"
#include "tests/support/fake_host.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QApplication>
#include <QSqlDatabase>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

using namespace tolvinpt;

namespace {

constexpr double MaxGrowthMb = 5.0;
// What a call may keep on the heap, on average: caches that are still filling after the warm-up. A form's
// worth of widgets or drawings left behind by each call is ten times as much.
constexpr double MaxHeapGrowthPerCallKb = 4.0;

double residentMb()
{
    std::ifstream statm("/proc/self/statm");
    long pages = 0, resident = 0;
    statm >> pages >> resident;
    return double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// Bytes the allocator has handed out and not had back: unlike resident memory, not blurred by pages the
// allocator keeps for reuse. Zero under a sanitizer's allocator.
double heapInUseMb()
{
    return double(mallinfo2().uordblks) / (1024.0 * 1024.0);
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
    campaign::OperatorRobot robot;
    QList<qint64> ids;
    for (int n = 0; n < 10; ++n)
        ids.append(campaign::addDeliveryRecord(temp.db(), n));

    double startMb = 0, startHeapMb = 0;
    qsizetype widgets = 0, connections = 0;
    int failures = 0;
    for (int call = 0; call < warmUp + calls; ++call) {
        const QString remark = QStringLiteral("CALL%1").arg(call);
        robot.when(campaign::EntryFormTitle, [&remark, &robot](QWidget& form) {
            campaign::OperatorRobot::press(form, QStringLiteral("optQuantity(3)"));
            robot.when(campaign::PackageEditorTitle,
                       [](QWidget& editor) { campaign::OperatorRobot::press(editor, QStringLiteral("戻る")); });
            campaign::OperatorRobot::press(form, QStringLiteral("cmdQuantity"));
            robot.when(campaign::SplitDialogTitle,
                       [](QWidget& split) { campaign::OperatorRobot::press(split, QStringLiteral("cmdAny(1)")); });
            campaign::OperatorRobot::run(form, QStringLiteral("mnuDataDivide"));
            campaign::OperatorRobot::type(form, QStringLiteral("txtMyRemarksA"), remark);
            campaign::OperatorRobot::run(form, QStringLiteral("mnuDataSave"));
            campaign::OperatorRobot::run(form, QStringLiteral("mnuDataExit"));
        });
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
            startHeapMb = heapInUseMb();
            widgets = QApplication::allWidgets().size();
            connections = QSqlDatabase::connectionNames().size();
        } else if (call > warmUp && (QApplication::allWidgets().size() != widgets ||
                                     QSqlDatabase::connectionNames().size() != connections)) {
            std::fprintf(stderr, "call %d: %lld widgets and %lld connections, %lld and %lld before\n", call,
                         qlonglong(QApplication::allWidgets().size()),
                         qlonglong(QSqlDatabase::connectionNames().size()), qlonglong(widgets),
                         qlonglong(connections));
            ++failures;
        }
    }
    const double growth = residentMb() - startMb;
    const double heapGrowthPerCallKb = (heapInUseMb() - startHeapMb) * 1024.0 / std::max(calls, 1);
    std::printf("%d calls after %d warm-up calls: resident memory %.1f MB -> %.1f MB (%+.2f MB), heap in use "
                "%+.2f KB a call, %lld widgets, %lld connections throughout\n",
                calls, warmUp, startMb, startMb + growth, growth, heapGrowthPerCallKb, qlonglong(widgets),
                qlonglong(connections));
    if (calls >= 1000 && growth > MaxGrowthMb) {
        std::fprintf(stderr, "memory grew by more than %.0f MB\n", MaxGrowthMb);
        ++failures;
    }
    if (heapGrowthPerCallKb > MaxHeapGrowthPerCallKb) {
        std::fprintf(stderr, "the heap grew by more than %.0f KB a call\n", MaxHeapGrowthPerCallKb);
        ++failures;
    }
    return failures == 0 ? 0 : 1;
}
