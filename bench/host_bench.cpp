// Measures tolvinpt-host on delivery databases of different sizes, in the same run:
//   tolvinpt-bench-host FILE|URI...   (databases made by tolvinpt-bench-generate, or host databases on a
//                                     PostgreSQL server; QT_QPA_PLATFORM=offscreen)
// Each FILE is copied once to host-FILE beside it and made a host database there: the host's tables,
// the demo masters and the generator's 40 buyers, the list's indexes. A server database (as
// pg_bench_server.sh makes it) gets the same in place the first time.
// 1. First window: from starting tolvinpt-host's start-up (this program run again as a child, through
//    the host's own runHost) to the end of the first paint of the list, and the child's peak memory.
// 2. After a call on 10,000 records: the entry call returns (having changed one record and added one,
//    left uncommitted and rolled back afterwards), the list is refreshed, the 10,000 records selected
//    again, and the window repainted. Also the time from Enter to the call (the selection read as Items).
#include "bench/timing.h"
#include "host/delivery_list_model.h"
#include "host/demo_data.h"
#include "host/entry_calls.h"
#include "host/host_app.h"
#include "host/host_database.h"
#include "host/host_schema.h"
#include "host/main_window.h"
#include "host/sql_script.h"

#include <tolvinpt/error.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTableView>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

using namespace tolvinpt;
using namespace tolvinpt::host;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int Rounds = 9;
constexpr int CallRecords = 10000;
constexpr int CallFirstRow = 1000;
constexpr double FirstWindowTargetMs = 400;
constexpr double PeakTargetMb = 120;
constexpr double ScaleTargetRatio = 1.5;
constexpr double AfterCallTargetMs = 200;
const char* const ChildVariable = "TOLVINPT_BENCH_HOST_CHILD";

double msSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// In the child: once the list has been painted the first time, says so on standard output and quits.
class FirstPaint final : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!m_seen && event->type() == QEvent::Paint && watched->parent() &&
            watched->parent()->objectName() == u"deliveryList") {
            m_seen = true;
            QTimer::singleShot(0, [] {
                std::fputs("painted\n", stdout);
                std::fflush(stdout);
                QApplication::exit(0);
            });
        }
        return false;
    }

private:
    bool m_seen = false;
};

int runChild(int argc, char** argv)
{
    QApplication app(argc, argv);
    FirstPaint firstPaint;
    app.installEventFilter(&firstPaint);
    return runHost(app, false);
}

struct FirstWindow
{
    double ms = 0;
    double peakMb = 0;
};

// Starts this program as tolvinpt-host on `file` and waits for its first paint and its end.
FirstWindow firstWindow(const QString& file)
{
    int out[2];
    if (pipe(out) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, out[0]);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const QByteArray path = QFile::encodeName(file);
    char* argv[] = {const_cast<char*>("tolvinpt-host"), const_cast<char*>("--database"),
                    const_cast<char*>(path.constData()), nullptr};
    pid_t pid = 0;
    const Clock::time_point start = Clock::now();
    const int spawned = posix_spawn(&pid, "/proc/self/exe", &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(out[1]);
    FirstWindow result;
    char line[16] = {};
    if (spawned == 0 && read(out[0], line, sizeof line - 1) > 0 && QByteArray(line) == "painted\n")
        result.ms = msSince(start);
    close(out[0]);
    int status = 0;
    rusage usage{};
    if (spawned == 0 && wait4(pid, &status, 0, &usage) == pid)
        result.peakMb = usage.ru_maxrss / 1024.0;
    return result;
}

void execute(const QSqlDatabase& db, const QString& sql)
{
    execQuery(db, sql);
}

// The host's tables, the demo masters and the generator's 40 buyers, the list's indexes.
void addHostPart(QSqlDatabase db)
{
    db.transaction();
    addHostTables(db);
    fillDemoMasters(db);
    for (int id = 1; id <= 40; ++id)
        execQuery(
            db,
            QStringLiteral("INSERT INTO T_Customer (IDCustomer, Code, Name) VALUES (?, ?, ?) "
                           "ON CONFLICT DO NOTHING"),
            {id, QStringLiteral("C%1").arg(id, 5, 10, QChar(u'0')), QStringLiteral("得意先%1").arg(id)});
    if (!db.commit())
        throw Error(QStringLiteral("cannot commit the host's tables"), 0);
}

// A server database of generated records (see pg_bench_server.sh) becomes a host database in place, once.
void makeHostDatabase(const QString& uri)
{
    QString error;
    const std::optional<ServerDatabase> server = parseServerUri(uri, error);
    const QString connection = QStringLiteral("bench-make");
    if (!server || !openServerConnection(*server, connection))
        throw Error(QStringLiteral("cannot open ") + uri, 0);
    {
        QSqlDatabase db = QSqlDatabase::database(connection, false);
        if (readMarks(db).version == 0) {
            std::printf("making %s a host database (the list's indexes take a while)...\n", qPrintable(uri));
            std::fflush(stdout);
            addHostPart(db);
        }
    }
    closeHostDatabase(connection);
}

// A host database made from the generated one, once; the folder's lock keeps other runs out meanwhile.
QString hostDatabase(const QString& deliveries)
{
    const QFileInfo info(deliveries);
    const QString copy = info.dir().filePath(QStringLiteral("host-") + info.fileName());
    const int lock = open(QFile::encodeName(info.dir().filePath(QStringLiteral(".lock"))).constData(),
                          O_CREAT | O_RDWR, 0644);
    flock(lock, LOCK_EX);
    if (!QFile::exists(copy)) {
        std::printf("making %s (the list's indexes take a while)...\n", qPrintable(copy));
        std::fflush(stdout);
        const QString part = copy + QStringLiteral(".part");
        QFile::remove(part);
        QFile::copy(deliveries, part);
        {
            ScopedConnection connection(part);
            QSqlDatabase db = connection.db();
            db.open();
            addHostPart(db);
        }
        QFile::rename(part, copy);
    }
    flock(lock, LOCK_UN);
    close(lock);
    return copy;
}

// Stands in for the entry form: notes when it was called and returns, changing what `during` changes.
struct TimedCalls final : public EntryCalls
{
    void inputData(Items& items) override
    {
        called = Clock::now();
        records = items.Count();
        during();
        returned = Clock::now();
    }
    void newData() override {}
    std::function<void()> during;
    Clock::time_point called;
    Clock::time_point returned;
    int records = 0;
};

struct AfterCall
{
    double ms = 0;     // call returned -> list refreshed, selection found again, window repainted
    double toCall = 0; // Enter -> the call (the selection read as Items)
    int records = 0;   // opened in the call
    bool selectionKept = false;
};

DatabaseLocation locationOf(const QString& given)
{
    QString error;
    const std::optional<ServerDatabase> server =
        isServerUri(given) ? parseServerUri(given, error) : std::nullopt;
    return server ? DatabaseLocation(given, *server) : DatabaseLocation(given);
}

AfterCall afterCall(const QString& file)
{
    const QString connection = QStringLiteral("bench-host");
    if (openHostDatabase(locationOf(file), connection).code != ExitCode::Ok)
        return {};
    AfterCall result;
    {
        auto timed = std::make_unique<TimedCalls>();
        TimedCalls* calls = timed.get();
        MainWindow window(connection, file, std::move(timed));
        window.show();
        QApplication::processEvents();
        auto* view = window.findChild<QTableView*>(QStringLiteral("deliveryList"));
        // The list is counted after its first paint.
        while (!qobject_cast<DeliveryListModel*>(view->model())->counted())
            QApplication::processEvents();
        auto* open = window.findChild<QAction*>(QStringLiteral("openRecords"));
        const QSqlDatabase db = QSqlDatabase::database(connection, false);
        std::vector<double> afterSamples, toCallSamples;
        bool kept = true;
        // 10,000 records from row 1,000 on, or as many as a smaller list holds.
        const int rows = view->model()->rowCount();
        const int firstRow = std::max(0, std::min(CallFirstRow, rows - CallRecords));
        result.records = std::min(CallRecords, rows - firstRow);
        for (int round = 0; round <= Rounds; ++round) {
            QItemSelectionModel* selection = view->selectionModel();
            const QModelIndex first = view->model()->index(firstRow, 0);
            selection->select(QItemSelection(first, view->model()->index(firstRow + result.records - 1, 0)),
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            selection->setCurrentIndex(view->model()->index(firstRow + result.records / 2, 0),
                                       QItemSelectionModel::NoUpdate);
            view->scrollTo(selection->currentIndex());
            QApplication::processEvents();
            // The operator saves one record and splits one: both stay uncommitted and are rolled back.
            calls->during = [&] {
                QSqlDatabase(db).transaction();
                execute(db, QStringLiteral("UPDATE T_Delivery SET F00007 = F00007 || 'X' WHERE IDData = %1")
                                .arg(first.data(Qt::UserRole).toLongLong()));
                execute(db,
                        QStringLiteral("INSERT INTO T_Delivery (IDCustomer, F00007) VALUES (1, 'SPLIT')"));
            };
            const Clock::time_point enter = Clock::now();
            open->trigger();
            window.repaint();
            const double after = msSince(calls->returned);
            QSqlDatabase(db).rollback();
            kept = kept && calls->records == result.records &&
                   view->selectionModel()->selectedRows().size() == result.records;
            if (round > 0) { // the first round warms the caches
                afterSamples.push_back(after);
                toCallSamples.push_back(
                    std::chrono::duration<double, std::milli>(calls->called - enter).count());
            }
            window.refresh();
        }
        result.ms = bench::median(afterSamples);
        result.toCall = bench::median(toCallSamples);
        result.selectionKept = kept;
    }
    closeHostDatabase(connection);
    return result;
}

int records(const QString& file)
{
    const QString connection = QStringLiteral("bench-count");
    if (openHostDatabase(locationOf(file), connection).code != ExitCode::Ok)
        return 0;
    int count = 0;
    {
        QSqlQuery query =
            execQuery(QSqlDatabase::database(connection), QStringLiteral("SELECT COUNT(*) FROM T_Delivery"));
        count = query.next() ? query.value(0).toInt() : 0;
    }
    closeHostDatabase(connection);
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsSet(ChildVariable))
        return runChild(argc, argv);
    QApplication app(argc, argv);
    const QStringList files = app.arguments().mid(1);
    if (files.isEmpty()) {
        std::fprintf(stderr,
                     "usage: %s FILE|URI... (generated databases or server databases, smallest first)\n",
                     argv[0]);
        return 2;
    }
    qputenv(ChildVariable, "1");
    try {
        struct Figures
        {
            QString name;
            QString host;
            int records;
            FirstWindow window;
            AfterCall call;
        };
        QList<Figures> figures;
        for (const QString& file : files) {
            const bool server = isServerUri(file);
            if (server)
                makeHostDatabase(file);
            const QString host = server ? file : hostDatabase(file);
            figures.append(
                {server ? file.section(u'/', -1) : QFileInfo(file).fileName(), host, records(host), {}, {}});
            firstWindow(host); // warms the file cache
        }
        // The files take turns at going first, so that a change in the machine's load falls on all alike.
        std::vector<std::vector<double>> ms(figures.size()), mb(figures.size());
        for (int round = 0; round < Rounds; ++round)
            for (qsizetype turn = 0; turn < figures.size(); ++turn) {
                const qsizetype i = round % 2 == 0 ? turn : figures.size() - 1 - turn;
                const FirstWindow run = firstWindow(figures[i].host);
                ms[i].push_back(run.ms);
                mb[i].push_back(run.peakMb);
            }
        for (qsizetype i = 0; i < figures.size(); ++i) {
            figures[i].window = {bench::median(ms[i]), bench::median(mb[i])};
            figures[i].call = afterCall(figures[i].host);
        }
        const Figures& base = figures.first();
        std::printf("%-28s %9s %10s %8s %8s %10s %8s\n", "database", "records", "window ms", "peak MB",
                    "opened", "after ms", "to ms");
        for (const Figures& f : figures)
            std::printf("%-28s %9d %10.1f %8.1f %8d %10.1f %8.1f%s\n", qPrintable(f.name), f.records,
                        f.window.ms, f.window.peakMb, f.call.records, f.call.ms, f.call.toCall,
                        f.call.selectionKept ? "" : "  SELECTION LOST");
        for (const Figures& f : figures.mid(1))
            std::printf("%s / %s: first window %.2fx, peak memory %.2fx, after call %.2fx\n",
                        qPrintable(f.name), qPrintable(base.name), f.window.ms / base.window.ms,
                        f.window.peakMb / base.window.peakMb, f.call.ms / base.call.ms);
        const Figures& largest = figures.last();
        std::printf(
            "targets at %s: first window %.0f / %.0f ms, peak %.0f / %.0f MB, within %.1fx: %.2fx and "
            "%.2fx; after call %.0f / %.0f ms\n",
            qPrintable(largest.name), largest.window.ms, FirstWindowTargetMs, largest.window.peakMb,
            PeakTargetMb, ScaleTargetRatio, largest.window.ms / base.window.ms,
            largest.window.peakMb / base.window.peakMb, largest.call.ms, AfterCallTargetMs);
    } catch (const Error& e) {
        std::fprintf(stderr, "%s (%ld)\n", qPrintable(e.description()), e.number());
        return 1;
    }
    return 0;
}
