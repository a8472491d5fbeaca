// I/O faults under the operator's work: for a save, a new record and a split through the real form, every
// read, write, sync and lock that the operation makes is failed in turn (writes also with "disk full"). Each
// run must either succeed completely or show the database's message, leave the database as it was and
// the typed values on the form; once the fault is lifted the same command must succeed.
//   tolvinpt-io-faults [MAX_PER_KIND]   (offscreen; default: every call the operation makes)
#include "campaigns/campaign_data.h"
#include "campaigns/faulty_vfs.h"
#include "campaigns/operator_robot.h"
#include "tests/support/fake_host.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QApplication>
#include <QCheckBox>

#include <sqlite3.h>

#include <cstdio>
#include <functional>

using namespace tolvinpt;
using campaign::Io;
using campaign::OperatorRobot;

namespace {

// The whole content of both tables and the integrity check, read past the faulty VFS.
QString snapshot(const QString& path)
{
    sqlite3* db = nullptr;
    QString out;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, "unix") == SQLITE_OK) {
        sqlite3_busy_timeout(db, 2000);
        for (const char* sql : {"PRAGMA integrity_check", "SELECT * FROM T_Delivery ORDER BY IDData",
                                "SELECT * FROM T_DeliveryQTY ORDER BY IDData, Sequence"}) {
            sqlite3_stmt* statement = nullptr;
            if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK)
                out += QStringLiteral("!prepare ");
            while (statement && sqlite3_step(statement) == SQLITE_ROW)
                for (int c = 0; c < sqlite3_column_count(statement); ++c)
                    out +=
                        QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, c))) +
                        u'|';
            sqlite3_finalize(statement);
            out += u'\n';
        }
    }
    sqlite3_close(db);
    return out;
}

// The number of rows `sql` counts, read past the faulty VFS.
int countRows(const QString& path, const QString& sql)
{
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    int rows = -1;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, "unix") == SQLITE_OK &&
        sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        rows = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
}

// A new record that passes every check, typed on the blank form field by field (the last one left by
// the remark, so that its own check has run).
QList<std::pair<QString, QString>> newRecordFields(int n)
{
    return {{QStringLiteral("txtOrderNo"), QStringLiteral("PO-NEW")},
            {QStringLiteral("txtPaymentKeyNo"), QStringLiteral("NEW-%1").arg(n)},
            {QStringLiteral("txtHCode"), QStringLiteral("HC-N")},
            {QStringLiteral("txtAmountOrder"), QStringLiteral("2")},
            {QStringLiteral("txtAmountDelivery"), QStringLiteral("2")},
            {QStringLiteral("txtDate(0)"), QStringLiteral("20050401")},
            {QStringLiteral("txtDate(1)"), QStringLiteral("20050402")},
            {QStringLiteral("txtMyRemarksA"), QStringLiteral("IO-NEW")}};
}

// One command on the form: what the operator typed, the command, the fields that must keep their text.
struct Operation
{
    const char* name;
    std::function<void(QWidget& form, OperatorRobot& robot, int n)> type;
    QString command;
    QStringList keptFields;
    // The statement that counts 1 once run n is stored.
    QString stored;
};

struct Tally
{
    int runs = 0, failedCleanly = 0, failedQuietly = 0, succeeded = 0, storedThenShowFailed = 0,
        violations = 0;
};

class Campaign
{
public:
    Campaign() : ids(addRecords())
    {
        host.connectionName = temp.connectionName();
        host.customers = {{.id = 1, .code = QStringLiteral("1234"), .name = QStringLiteral("東京電機")}};
        test::registerFakeHost(host);
    }

    // One run on the record `id`: the operation with the fault armed, then again without it.
    void run(const Operation& op, qint64 id, int n, std::optional<std::tuple<Io, int, int>> armed,
             Tally& tally)
    {
        const QString before = snapshot(temp.filePath());
        robot.when(campaign::EntryFormTitle, [&](QWidget& form) {
            op.type(form, robot, n);
            QStringList typed;
            for (const QString& field : op.keptFields)
                typed.append(OperatorRobot::text(form, field));
            robot.takeMessages();
            if (armed)
                campaign::armFault(std::get<0>(*armed), std::get<1>(*armed), std::get<2>(*armed));
            else
                campaign::resetIo();
            OperatorRobot::run(form, op.command);
            campaign::liftFault();
            counts = campaign::ioCalls();
            const QStringList shown = robot.takeMessages();
            QStringList kept;
            for (const QString& field : op.keptFields)
                kept.append(OperatorRobot::text(form, field));
            ++tally.runs;
            const bool stored = countRows(temp.filePath(), op.stored.arg(n)) == 1;
            if (stored && shown.isEmpty()) {
                ++tally.succeeded;
            } else if (stored) {
                ++tally.storedThenShowFailed; // the record's read after the write failed, and said so
            } else if (snapshot(temp.filePath()) != before || kept != typed) {
                report(op, armed,
                       qPrintable(QStringLiteral("failed, but the database changed or the typed values "
                                                 "are gone: ") +
                                  shown.join(u" / ")),
                       tally);
            } else {
                // Without a message only where the command's rule says so: the browse-mode save ends
                // quietly when its input checks cannot read the database.
                ++(shown.isEmpty() ? tally.failedQuietly : tally.failedCleanly);
                op.type(form, robot, n); // the dialog's values again, where the command asks for them
                OperatorRobot::run(form, op.command);
                if (!robot.takeMessages().isEmpty() || countRows(temp.filePath(), op.stored.arg(n)) != 1)
                    report(op, armed, "the command failed again once the fault was lifted", tally);
            }
            OperatorRobot::run(form, QStringLiteral("mnuDataExit"));
        });
        try {
            fmInput input;
            Items items{ListKey(id)};
            input.InputData(items);
        } catch (const Error& e) {
            report(op, armed, qPrintable(e.description()), tally);
        }
    }

    std::array<int, int(Io::Count)> counts{};
    test::TempDatabase temp;
    test::FakeHostData host;
    OperatorRobot robot;
    QList<qint64> ids;

private:
    QList<qint64> addRecords()
    {
        QList<qint64> added;
        for (int n = 0; n < 2; ++n)
            added.append(campaign::addDeliveryRecord(temp.db(), n));
        return added;
    }

    static void report(const Operation& op, const std::optional<std::tuple<Io, int, int>>& armed,
                       const char* what, Tally& tally)
    {
        ++tally.violations;
        std::fprintf(stderr, "%s, fault %d #%d error %d: %s\n", op.name,
                     armed ? int(std::get<0>(*armed)) : -1, armed ? std::get<1>(*armed) : 0,
                     armed ? std::get<2>(*armed) : 0, what);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int maxPerKind = argc > 1 ? std::atoi(argv[1]) : 1000000;
    campaign::installFaultyVfs();
    Campaign campaign;

    const Operation operations[] = {
        {"save",
         [](QWidget& form, OperatorRobot&, int n) {
             OperatorRobot::type(form, QStringLiteral("txtMyRemarksA"), QStringLiteral("IO%1").arg(n));
         },
         QStringLiteral("mnuDataSave"),
         {QStringLiteral("txtMyRemarksA")},
         QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00164 = 'IO%1'")},
        {"split",
         [](QWidget&, OperatorRobot& robot, int n) {
             robot.when(campaign::SplitDialogTitle, [n](QWidget& dialog) {
                 OperatorRobot::type(dialog, QStringLiteral("txtPayment(1)"),
                                     QStringLiteral("SPLIT-%1").arg(n));
                 OperatorRobot::type(dialog, QStringLiteral("txtAmount(1)"), QStringLiteral("0.001"));
                 OperatorRobot::press(dialog, QStringLiteral("cmdAny(0)"));
             });
         },
         QStringLiteral("mnuDataDivide"),
         {},
         QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00159 = 'SPLIT-%1'")},
        {"new",
         [](QWidget& form, OperatorRobot&, int n) {
             if (!form.findChild<QCheckBox*>(QStringLiteral("chkNew"))->isChecked())
                 OperatorRobot::run(form, QStringLiteral("mnuDataNew"));
             for (const auto& [field, text] : newRecordFields(n))
                 OperatorRobot::type(form, field, text);
         },
         QStringLiteral("mnuNewDataSave"),
         [] {
             QStringList fields;
             for (const auto& [field, text] : newRecordFields(0))
                 fields.append(field);
             return fields;
         }(),
         QStringLiteral("SELECT COUNT(*) FROM T_Delivery WHERE F00159 = 'NEW-%1'")},
    };
    const std::pair<Io, int> faults[] = {{Io::Read, SQLITE_IOERR_READ},
                                         {Io::Write, SQLITE_IOERR_WRITE},
                                         {Io::Write, SQLITE_FULL},
                                         {Io::Sync, SQLITE_IOERR_FSYNC},
                                         {Io::Lock, SQLITE_IOERR_LOCK}};
    int n = 0, violations = 0;
    for (const Operation& op : operations) {
        Tally tally;
        campaign.run(op, campaign.ids[0], ++n, std::nullopt, tally); // counts the calls it makes
        const auto calls = campaign.counts;
        for (const auto& [kind, error] : faults)
            for (int nth = 1; nth <= std::min(calls[int(kind)], maxPerKind); ++nth)
                campaign.run(op, campaign.ids[0], ++n, std::tuple{kind, nth, error}, tally);
        std::printf(
            "%-6s reads %d, writes %d, syncs %d, locks %d: %d runs; %d failed with the database's "
            "message and %d quietly, each leaving the database as it was and the typed values on the form, "
            "and stored once the fault was lifted; %d stored despite the fault; %d stored but their "
            "redisplay failed and said so; %d violations\n",
            op.name, calls[0], calls[1], calls[2], calls[3], tally.runs, tally.failedCleanly,
            tally.failedQuietly, tally.succeeded, tally.storedThenShowFailed, tally.violations);
        violations += tally.violations;
    }
    return violations == 0 ? 0 : 1;
}
