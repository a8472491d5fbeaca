// The kill campaign's driver: entry calls on the starting records, each with one operation through the
// real form, until the campaign kills it: a save of the record with 0 to 5 packages, a split, or a new
// record typed on the blank form or started from an order search (now and then one typed before, which
// the save must refuse as a duplicate).
#include "campaigns/kill_campaign.h"
#include "campaigns/operator_robot.h"
#include "forms/frmData/input_checks.h"
#include "platform/values/decimal.h"
#include "platform/values/number_text.h"
#include "tests/support/fake_host.h"
#include "tests/support/temp_database.h"

#include <tolvinpt/fmInput.h>

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QCheckBox>
#include <QRandomGenerator>
#include <QTableView>
#include <QTest>

#include <cstdio>
#include <functional>

namespace tolvinpt::campaign {
namespace {

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

// Chooses the package mode: one package, or `count` individual ones through the package editor.
void choosePackages(QWidget& form, OperatorRobot& robot, const Decimal& delivery, int count)
{
    OperatorRobot::press(form,
                         count == 0 ? QStringLiteral("optQuantity(1)") : QStringLiteral("optQuantity(3)"));
    if (count == 0)
        return;
    robot.when(PackageEditorTitle, [delivery, count](QWidget& editor) {
        QAbstractItemModel* model = editor.findChild<QTableView*>()->model();
        const QStringList quantities = packagesOf(delivery, count);
        for (int row = 0; row < 100; ++row)
            model->setData(model->index(row, 0), row < count ? quantities[row] : QString());
        editor.findChild<QAbstractButton*>(QStringLiteral("戻る"))->click(); // keeps them: Yes
    });
    OperatorRobot::press(form, QStringLiteral("cmdQuantity"));
}

void print(const QString& line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

// Runs `command` until `done()`. A command the database failed (its session was killed) must have kept
// the typed text in `field`, and must succeed once the server is back: tried again for 20 s. Some fail
// quietly by the form's rule (the change save when its checks cannot read); `done()` tells.
void untilDone(QWidget& form, OperatorRobot& robot, const std::function<void()>& command,
               const QString& field, const std::function<bool()>& done)
{
    const QString typed = OperatorRobot::text(form, field);
    robot.takeMessages();
    command();
    QStringList shown = robot.takeMessages();
    if (done() || shown == QStringList{DuplicateKeyText.toString()})
        return;
    print(QStringLiteral("fault %1: %2")
              .arg(OperatorRobot::text(form, field) == typed ? u"kept" : u"LOST",
                   shown.isEmpty() ? QStringLiteral("(quiet)") : shown.join(u" / ")));
    const QStringList duplicate{DuplicateKeyText.toString()};
    for (int attempt = 0; attempt < 80 && !done() && shown != duplicate; ++attempt) {
        QTest::qWait(250);
        command();
        shown = robot.takeMessages();
    }
    // A commit whose answer the lost session did not bring back: the next try meets the stored record.
    if (shown == duplicate)
        print(QStringLiteral("again refused: the failed try had stored it"));
    else
        print(done() ? QStringLiteral("again stored")
                     : QStringLiteral("again FAILED: ") + shown.join(u" / "));
}

// Closes the form as the operator does: a change its save did not store is asked about (Yes, save).
void close(QWidget& form, OperatorRobot& robot, const QString& field)
{
    untilDone(
        form, robot, [&form] { OperatorRobot::run(form, QStringLiteral("mnuDataExit")); }, field,
        [&form] { return !form.isVisible(); });
    if (form.isVisible())
        OperatorRobot::run(form, QStringLiteral("mnuExitCancel"));
}

void change(QWidget& form, OperatorRobot& robot, const Decimal& delivery, int count, int n)
{
    // Through the delivery quantity first, as Tab takes an operator: a save whose checks find the
    // quantity "changed" since the record was shown returns it to a single package.
    OperatorRobot::visit(form, QStringLiteral("txtAmountDelivery"));
    OperatorRobot::type(form, QStringLiteral("txtMyRemarksA"), QStringLiteral("S%1P%2").arg(n).arg(count));
    choosePackages(form, robot, delivery, count);
    OperatorRobot::run(form, QStringLiteral("mnuDataSave"));
    close(form, robot, QStringLiteral("txtMyRemarksA"));
}

void split(QWidget& form, OperatorRobot& robot, int n)
{
    robot.when(SplitDialogTitle, [n](QWidget& dialog) {
        OperatorRobot::type(dialog, QStringLiteral("txtPayment(1)"), QStringLiteral("K%1").arg(n));
        OperatorRobot::type(dialog, QStringLiteral("txtAmount(1)"), QStringLiteral("0.001"));
        OperatorRobot::press(dialog, QStringLiteral("cmdAny(0)"));
    });
    OperatorRobot::run(form, QStringLiteral("mnuDataDivide"));
    close(form, robot, QStringLiteral("txtMyRemarksA"));
}

void enter(QWidget& form, OperatorRobot& robot, const NewRecord& record)
{
    OperatorRobot::run(form, QStringLiteral("mnuDataNew"));
    OperatorRobot::type(form, QStringLiteral("txtOrderNo"), record.orderNo());
    if (record.how == u'S') {
        untilDone(
            form, robot, [&form] { OperatorRobot::press(form, QStringLiteral("cmdFind")); },
            QStringLiteral("txtOrderNo"),
            [&form] { return !OperatorRobot::text(form, QStringLiteral("txtHCode")).isEmpty(); });
    } else {
        OperatorRobot::type(form, QStringLiteral("txtHCode"), QStringLiteral("HC-N"));
        OperatorRobot::type(form, QStringLiteral("txtAmountOrder"), QString::number(record.quantity()));
        OperatorRobot::type(form, QStringLiteral("txtDate(0)"), QStringLiteral("20050401"));
    }
    const QString key = QStringLiteral("txtPaymentKeyNo");
    OperatorRobot::type(form, key, record.key());
    OperatorRobot::type(form, QStringLiteral("txtAmountDelivery"), QString::number(record.quantity()));
    OperatorRobot::type(form, QStringLiteral("txtDate(1)"), QStringLiteral("20050402"));
    OperatorRobot::type(form, QStringLiteral("txtMyRemarksA"), record.remark());
    OperatorRobot::visit(form, QStringLiteral("txtAmountDelivery")); // see change()
    choosePackages(form, robot, Decimal::fromInteger(record.quantity()), record.packages());
    auto* newMode = form.findChild<QCheckBox*>(QStringLiteral("chkNew"));
    // Stored, the form leaves new-record mode.
    untilDone(
        form, robot, [&form] { OperatorRobot::run(form, QStringLiteral("mnuNewDataSave")); }, key,
        [newMode] { return !newMode->isChecked(); });
    if (newMode->isChecked()) {
        print(QStringLiteral("refused %1").arg(record.key()));
        OperatorRobot::run(form, QStringLiteral("mnuNewDataCancel"));
    }
    close(form, robot, key);
}

} // namespace

int drive(const QString& address, quint32 seed)
{
    QSqlDatabase connection = test::TempDatabase::addConnection(QStringLiteral("driver"), address);
    if (!connection.open())
        return 1;
    test::FakeHostData host;
    host.connectionName = QStringLiteral("driver");
    host.customers = {{.id = 1, .code = QStringLiteral("1234"), .name = QStringLiteral("東京電機")}};
    test::registerFakeHost(host);
    OperatorRobot robot;
    QRandomGenerator random(seed);
    std::optional<NewRecord> entered;
    print(QStringLiteral("ready"));
    for (int n = 0;; ++n) {
        robot.when(EntryFormTitle, [&, n](QWidget& form) {
            const Decimal delivery =
                leadingNumber(OperatorRobot::text(form, QStringLiteral("txtAmountDelivery")));
            const bool divisible = delivery > *Decimal::fromString(u"0.01");
            const int choice = int(random.bounded(10));
            if (choice < 3 && divisible) {
                split(form, robot, n);
            } else if (choice < 6) {
                if (!entered || random.bounded(5) != 0)
                    entered = NewRecord{random.bounded(2) ? u'H' : u'S', seed, n};
                enter(form, robot, *entered);
            } else {
                change(form, robot, delivery, divisible ? int(random.bounded(6)) : 0, n);
            }
        });
        try {
            fmInput input;
            Items items{ListKey(1 + random.bounded(KillRecords))};
            input.InputData(items);
            print(QStringLiteral("done %1").arg(n));
        } catch (const Error& e) {
            print(QStringLiteral("call failed: %1 (%2)").arg(e.description()).arg(e.number()));
            QTest::qWait(250); // the operator reads the host's message before trying again
        }
    }
}

} // namespace tolvinpt::campaign
