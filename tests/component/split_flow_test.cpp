// The split inside an entry call, by keyboard through the real form and dialog: the record on screen
// keeps the rest, the new record joins the list and the host's Items; what is refused before the dialog;
// and a split refused or failed halfway, after which nothing of it is stored and the next save is.
#include "entry_call_fixture.h"

#include "forms/frmDivide/frmDivide.h"
#include "store/delivery_reads.h"
#include "tests/support/operator_input.h"

#include <QMenu>
#include <QRadioButton>

namespace {

class SplitFlow : public EntryCall
{
protected:
    void SetUp() override
    {
        EntryCall::SetUp();
        temp.db().execute(
            u"UPDATE T_Delivery SET F00007 = 'ORD', F00024 = 'HC', F00015 = 10, F00036 = 10, F00031 = '2005-03-01', "
            u"F00039 = '2005-03-07', F00040 = '2005-03-09', F00059 = '1', F00281 = '', F00013 = '100', "
            u"QuantityType = 3, Quantity = '5'"_s);
        insertPackageRows(temp.db(), ids[0], {u"5"_s, u"5"_s});
    }
    DeliveryRecord stored(qint64 id) { return readDeliveryRecord(temp.db(), id).value(); }
    qint64 records() { return temp.db().scalar(u"SELECT COUNT(*) FROM T_Delivery"_s)->toLongLong(); }

    // The split by keyboard: Alt+D, down to "分割", Enter. When the dialog is up, `inDialog` runs in it.
    static void split(frmData& form, const std::function<void(frmDivide&)>& inDialog = {})
    {
        const test::WhenShown<frmDivide> watch(inDialog);
        QTest::keyClick(&form, Qt::Key_D, Qt::AltModifier);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(menu);
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        ASSERT_EQ(menu->activeAction(), form.menuItem(u"mnuDataDivide"_s));
        QTest::keyClick(menu, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form)); // its shortcuts work again
    }
    // Over the proposed key number the new one, Tab, the quantity to move, Enter (OK).
    static std::function<void(frmDivide&)> answer(const QString& key, const QString& quantity)
    {
        return [key, quantity](frmDivide& dialog) {
            QLineEdit* field = dialog.control<QLineEdit>(u"txtPayment(1)"_s);
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == field; }));
            QTest::keyClicks(field, key);
            QTest::keyClick(field, Qt::Key_Tab);
            field = dialog.control<QLineEdit>(u"txtAmount(1)"_s);
            EXPECT_EQ(QApplication::focusWidget(), field);
            QTest::keyClicks(field, quantity);
            QTest::keyClick(field, Qt::Key_Return);
        };
    }
    static QString text(const frmData& form, const QString& field) { return form.control<QLineEdit>(field)->text(); }
    static Message leaveQuestion()
    {
        return {u"内容が変更されています\r\n\r\n変更内容を保存しますか"_s, u"変更保存..."_s, QMessageBox::Question,
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes};
    }
};

TEST_F(SplitFlow, TheRecordKeepsTheRestAndTheNewOneJoinsTheList)
{
    Items items{ListKey(ids[0])};
    qint64 added = 0;
    inputData(items, [&](frmData& form) {
        split(form, answer(u"K-1b"_s, u"6"_s));
        messages.expectShown({});
        added = temp.db().scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong();
        EXPECT_EQ(text(form, u"txtAmountDelivery"_s), u"4"_s) << "shown again as stored";
        EXPECT_TRUE(form.control<QRadioButton>(u"optQuantity(1)"_s)->isChecked());
        EXPECT_EQ(form.recordList()->count(), 2);
        EXPECT_EQ(form.recordList()->keyAt(2), ListKey(added));
        EXPECT_EQ(form.recordList()->textAt(2), u"K-1b"_s);
        EXPECT_EQ(buttons(form), u"011"_s);
        form.toolbar1()->button(u"進む"_s)->click();
        EXPECT_EQ(shownKey(form), u"K-1b"_s);
        EXPECT_EQ(text(form, u"txtAmountDelivery"_s), u"6"_s);
    });
    ASSERT_EQ(items.Count(), 2);
    EXPECT_EQ(items.Item(2).toString(), ListKey(added));
    EXPECT_EQ(stored(ids[0]).currency(C::F00036), Currency::fromInteger(4));
    EXPECT_EQ(stored(added).currency(C::F00036), Currency::fromInteger(6));
    EXPECT_TRUE(readPackageRows(temp.db(), ids[0]).quantities.empty());
}

TEST_F(SplitFlow, NothingToSplitIsRefusedBeforeTheQuestionAndTheDialog)
{
    const Message nothing = test::okMessage(u"分割できる納入数量がありません", u"数量分割...");
    const struct
    {
        const char* quantity;
        bool changed;
        QList<Message> shown;
        bool dialog;
    } cases[] = {
        {"0.001", true, {nothing}, false},
        {"0.002", false, {}, true},
        {"10", true, {leaveQuestion()}, false}, // answered Cancel
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.quantity);
        temp.db().execute(u"UPDATE T_Delivery SET F00036 = "_s + QString::fromLatin1(c.quantity));
        Items items{ListKey(ids[0])};
        bool dialog = false;
        inputData(items, [&](frmData& form) {
            if (c.changed)
                form.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"TYPED"_s);
            messages.answers = {QMessageBox::Cancel};
            split(form, [&](frmDivide&) { dialog = true; }); // then cancelled
            messages.expectShown(c.shown);
            EXPECT_EQ(std::exchange(messages.beeps, 0), std::string(c.quantity) == "0.001" ? 1 : 0);
            form.lngResult = 2; // closes without asking
        });
        EXPECT_EQ(dialog, c.dialog);
        EXPECT_EQ(records(), 3);
    }
}

TEST_F(SplitFlow, ASplitRefusedOrFailedHalfwayStoresNothingAndTheNextSaveIsStored)
{
    const QString refused = u"refused"_s;
    const struct
    {
        const char* what;
        const char16_t* newKey;
        std::function<void(frmData&)> before;
        QList<Message> shown;
    } cases[] = {
        {"the new key is taken", u"K-2", {},
         {test::okMessage(u"同一の納品ｷｰ番号が存在します\r\n保存できません", u"数量分割...", QMessageBox::Information)}},
        {"changed by another operator", u"K-1b",
         [this](frmData&) { test::SecondConnection(temp).exec(u"UPDATE T_Delivery SET F00164 = 'other'"_s); },
         {test::okMessage(u"このﾃﾞｰﾀは、表示した後に他の担当者が変更しました\r\n\r\n分割できません", u"数量分割...")}},
        {"a key number changed on screen and not saved", u"K-1b",
         [this](frmData& form) {
             form.menuItem(u"mnuDataDetail"_s)->trigger();
             form.control<QLineEdit>(u"txtPaymentKeyNo"_s)->setText(u"K-1x"_s);
             messages.answers = {QMessageBox::No};
         },
         {leaveQuestion(), test::okMessage(u"No current record.(3021)", u"数量分割...保存")}},
        {"the record's update fails after the new row", u"K-1b",
         [&](frmData&) { temp.refuseWrites(u"UPDATE OF F00036"_s, u"T_Delivery"_s, refused, u"NEW.F00036 = 4"_s); },
         {test::okMessage(temp.refusedError(refused).shown(false), u"数量分割...保存")}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Items items{ListKey(ids[0])};
        inputData(items, [&](frmData& form) {
            if (c.before)
                c.before(form);
            split(form, answer(QString::fromUtf16(c.newKey), u"6"_s));
            messages.expectShown(c.shown);
            EXPECT_EQ(form.recordList()->count(), 1);
            EXPECT_EQ(text(form, u"txtAmountDelivery"_s), u"10"_s);
            form.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"SAVED"_s);
            QTest::keyClick(&form, Qt::Key_S, Qt::ControlModifier);
            messages.expectShown({});
        });
        EXPECT_EQ(records(), 3);
        EXPECT_EQ(stored(ids[0]).text(C::F00164), u"SAVED"_s);
        EXPECT_EQ(stored(ids[0]).text(C::F00159), u"K-1"_s);
        temp.allowWrites(u"T_Delivery"_s);
    }
}

} // namespace
