// The form's commands: the question before a changed record is left, closing, the order fields'
// toggle, leaving new-record mode, each command's error rule and the order-number search.
#include "entry_fixture.h"

#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/widgets/field_state.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QToolButton>

using namespace tolvinpt;
using namespace Qt::StringLiterals;
using C = tolvinpt::DeliveryColumn;

namespace {

using test::Columns;

class Commands : public test::EntryFormTest
{
protected:
    QString storedRemark(qint64 id) { return row(id)->text(C::F00164).value_or(u"NULL"_s); }
};

const Message Leave = {u"内容が変更されています\r\n\r\n変更内容を保存しますか"_s, u"変更保存..."_s,
                       QMessageBox::Question, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                       QMessageBox::Yes};

TEST_F(Commands, LeavingAChangedRecordAsksAndFollowsTheAnswer)
{
    struct Command
    {
        const char* what;
        std::function<void(frmData&)> run;
        // Whether the command went on to leave the record, given the movements asked for.
        std::function<bool(frmData&, int)> left;
    };
    const auto moved = [](frmData&, int moves) { return moves == 1; };
    const auto closed = [](frmData& f, int) { return !f.isVisible(); };
    const Command commands[] = {
        {"新規作成", [](frmData& f) { f.menuItem(u"mnuDataNew"_s)->trigger(); },
         [](frmData& f, int) { return f.control<QCheckBox>(u"chkNew"_s)->isChecked(); }},
        {"前へ", [](frmData& f) { f.menuItem(u"mnuDataPrevious"_s)->trigger(); }, moved},
        {"進む", [](frmData& f) { f.toolbar1()->button(u"進む"_s)->click(); }, moved},
        {"the record list", [](frmData& f) { emit f.recordList()->entryChosen(2); }, moved},
        {"閉じる", [](frmData& f) { f.menuItem(u"mnuDataExit"_s)->trigger(); }, closed},
        {"the close box", [](frmData& f) { f.close(); }, closed},
    };
    const qint64 id = insert();
    for (const Command& command : commands) {
        for (const auto answer : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
            SCOPED_TRACE(std::string(command.what) + " " + std::to_string(answer));
            exec(u"UPDATE T_Delivery SET F00164 = NULL"_s);
            for (const bool changed : {false, true}) {
                open(id);
                int moves = 0;
                for (auto signal : {&frmData::nextRecordRequested, &frmData::previousRecordRequested})
                    QObject::connect(form.get(), signal, [&] { ++moves; });
                QObject::connect(form.get(), &frmData::recordChosen, [&] { ++moves; });
                if (changed) {
                    set(u"txtMyRemarksA"_s, u"TYPED"_s);
                    messages.answers = {answer};
                }
                command.run(*form);
                if (!changed) { // nothing pending: nothing asked
                    EXPECT_TRUE(messages.shown.isEmpty());
                    EXPECT_TRUE(command.left(*form, moves));
                    continue;
                }
                messages.expectShown({Leave});
                EXPECT_EQ(command.left(*form, moves), answer != QMessageBox::Cancel);
                EXPECT_EQ(storedRemark(id), answer == QMessageBox::Yes ? u"TYPED"_s : u"NULL"_s);
                if (answer == QMessageBox::Cancel) {
                    EXPECT_EQ(shown(u"txtMyRemarksA"_s), u"TYPED"_s);
                }
            }
        }
    }
}

TEST_F(Commands, ASaveThatIsRefusedKeepsTheOperatorOnTheRecord)
{
    open(insert());
    set(u"txtHCode"_s, u""_s);
    QSignalSpy next(form.get(), &frmData::nextRecordRequested);
    messages.answers = {QMessageBox::Yes};
    run(u"mnuDataNext"_s);
    EXPECT_EQ(messages.shown.size(), 2); // the question, then the refusal
    EXPECT_EQ(next.size(), 0);
    EXPECT_EQ(focusedField(), control(u"txtHCode"_s));
}

TEST_F(Commands, CommandsThatAskNothing)
{
    // Close without saving drops the changes.
    const qint64 id = insert();
    open(id);
    set(u"txtMyRemarksA"_s, u"TYPED"_s);
    run(u"mnuExitCancel"_s);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(storedRemark(id), u"NULL"_s);

    // Save without pending changes does nothing, not even the check of the field that is refused.
    open(id);
    enter(u"txtTantoK"_s);
    text(u"txtTantoK"_s)->setText(u"ABC"_s); // half-width in a full-width field
    clearFlags();
    QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(link->saved.isEmpty());

    // Detail change opens the order fields, and locks them again.
    for (const bool locked : {false, true}) {
        run(u"mnuDataDetail"_s);
        for (const char16_t* field : {u"txtOrderNo", u"txtPaymentKeyNo", u"cobCustomer", u"txtDate(0)"})
            EXPECT_EQ(isLocked(control(QString::fromUtf16(field))), locked);
    }

    // Leaving new-record mode drops the new record.
    run(u"mnuDataNew"_s);
    set(u"txtOrderNo"_s, u"DROPPED"_s);
    QTest::keyClick(form.get(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(link->left, 1);
    EXPECT_FALSE(form->control<QCheckBox>(u"chkNew"_s)->isChecked());
    EXPECT_TRUE(form->toolbar1()->isVisibleTo(form.get()));
    EXPECT_FALSE(control(u"cmdFind"_s)->isEnabled());
    EXPECT_TRUE(isLocked(control(u"txtOrderNo"_s)));
    EXPECT_FALSE(form->bChanged || form->bChangedQTY);
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST_F(Commands, RunTimeErrorsAreReportedOrTrappedAsEachCommandSays)
{
    struct Case
    {
        const char* what;
        bool newRecord;
        std::function<void(frmData&)> run;
        QList<Message> expected;
    };
    // clang-format off
    const Case cases[] = {
        {"the change save traps quietly", false, [](frmData& f) { f.menuItem(u"mnuDataSave"_s)->trigger(); }, {}},
        {"the question before leaving treats it as stay", false,
         [](frmData& f) { f.menuItem(u"mnuDataNext"_s)->trigger(); }, {Leave}},
        {"the new-record save from its menu reports it", true,
         [](frmData& f) { f.menuItem(u"mnuNewDataSave"_s)->trigger(); },
         {test::okMessage(temp.lockedError().shown(), u"納品ﾃﾞｰﾀの入力")}},
        {"the toolbar goes on without a word", true,
         [](frmData& f) { f.toolbar2()->button(u"新規保存"_s)->click(); }, {}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        open(insert());
        if (c.newRecord) {
            run(u"mnuDataNew"_s);
            for (const char16_t* field :
                 {u"txtOrderNo", u"txtPaymentKeyNo", u"txtHCode", u"txtAmountOrder", u"txtAmountDelivery"})
                set(QString::fromUtf16(field), u"9"_s);
        }
        set(u"txtMyRemarksA"_s, u"TYPED"_s);
        messages.answers = {QMessageBox::Yes};
        QSignalSpy next(form.get(), &frmData::nextRecordRequested);
        {
            // The duplicate check before the save cannot read.
            const test::SecondConnection other(temp, {u"BEGIN EXCLUSIVE"_s});
            c.run(*form);
        }
        messages.expectShown(c.expected);
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(next.size(), 0);
        EXPECT_EQ(shown(u"txtMyRemarksA"_s), u"TYPED"_s);
        EXPECT_TRUE(link->saved.isEmpty());
    }
}

TEST_F(Commands, OrderSearchPrefillsANewDeliveryOfTheOrder)
{
    // The Like pattern's own rules are tested with the store; here what the form adds.
    // clang-format off
    insert({{C::F00007, u"A-100"_s}, {C::F00159, u"K2"_s}, {C::F00013, u"250"_s}, {C::F00022, u"BOLT"_s},
            {C::F00028, u"PC"_s}, {C::F00031, QVariant()}});
    // clang-format on
    insert({{C::F00007, u"A-200"_s}, {C::F00159, u"K1"_s}});
    insert({{C::F00007, u"X-1"_s}, {C::F00159, u"K3"_s}, {C::IDCustomer, 2}});
    // typed, the order number copied (none when nothing is found)
    const std::pair<QString, QString> cases[] = {
        {u"A-100   "_s, u"A-100"_s}, {u" A-100"_s, {}}, {u"A*"_s, u"A-200"_s}, {u"X-1"_s, {}}};
    for (const auto& [typed, found] : cases) {
        SCOPED_TRACE(typed.toStdString());
        openNewRecord();
        set(u"txtHinmeiA"_s, u"KEPT"_s);
        set(u"txtPlaceC"_s, u"KEPT"_s);
        set(u"txtOrderNo"_s, typed);
        const int beeps = messages.beeps;
        click(control(u"cmdFind"_s));
        if (found.isEmpty()) {
            expectOneMessage(u"同一の注文番号はありません", u"注文番号 検索...", QMessageBox::Information);
            EXPECT_EQ(messages.beeps, beeps + 1);
            EXPECT_EQ(focusedField(), control(u"txtOrderNo"_s));
            continue;
        }
        const bool first = found == u"A-100";
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ((QStringList{shown(u"txtOrderNo"_s), shown(u"txtPaymentKeyNo"_s), shown(u"txtPlaceC"_s),
                               shown(u"txtHinmeiA"_s), shown(u"txtUnitPrice"_s)}),
                  (QStringList{found, found, u"KEPT"_s, first ? u"BOLT"_s : u"KEPT"_s,
                               first ? u"250"_s : u"100"_s}))
            << "the key starts as the order number; the place code is not copied; a Null leaves its field";
        if (first) {
            EXPECT_EQ(shown(u"txtDate(0)"_s), QDate::currentDate().toString(u"yyyyMMdd"_s));
        }
        EXPECT_EQ(focusedField(), control(u"txtPaymentKeyNo"_s));
        EXPECT_TRUE(form->bChanged);
    }

    // The prefilled key is the order number: a live delivery of the order that carries it refuses the
    // save until the key is changed.
    insert({{C::F00007, u"A-200"_s}, {C::F00159, u"A-200"_s}});
    openNewRecord();
    set(u"txtOrderNo"_s, u"A-200"_s);
    click(control(u"cmdFind"_s));
    set(u"txtAmountDelivery"_s, u"3"_s);
    set(u"txtDate(1)"_s, u"20050310"_s); // the ship date is not copied
    QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);
    expectOneMessage(u"同一の納品ｷｰ番号が存在します", u"重複ﾁｪｯｸ");
    set(u"txtPaymentKeyNo"_s, u"A-200-2"_s);
    QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(link->saved.size(), 1);
    EXPECT_EQ(row(link->saved[0][0].toLongLong())->text(C::F00007), u"A-200"_s);

    open(insert()); // outside new-record mode the search does nothing at all
    form->cmdFind_Click();
    EXPECT_TRUE(messages.shown.isEmpty());
}

} // namespace
