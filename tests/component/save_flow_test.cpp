// Saving inside an entry call: the typical correction, a new record joining the host's list, NewData
// ending by save or cancel, a session the server dropped.
#include "entry_call_fixture.h"

#include "store/delivery_reads.h"

#include <QCheckBox>

namespace {

class SaveFlow : public EntryCall
{
protected:
    void SetUp() override
    {
        EntryCall::SetUp();
        temp.db().execute(
            u"UPDATE T_Delivery SET F00007 = 'ORD', F00024 = 'HC', F00015 = 5, F00036 = 5, "
            u"F00031 = '2005-03-01', F00039 = '2005-03-07', F00040 = '2005-03-09', F00059 = '1', "
            u"F00281 = '', F00013 = '100', DateDeliveryPrint = '2005-03-08 10:00:00'"_s);
    }
    QString stored(qint64 id, DeliveryColumn column)
    {
        return readDeliveryRecord(temp.db(), id)->value(column).toString();
    }
    // A new record that passes every check, typed into the form in new-record mode.
    static void fillNewRecord(frmData& form, const QString& key)
    {
        const std::pair<const char16_t*, QString> values[] = {
            {u"txtOrderNo", u"PO-1"_s},     {u"txtPaymentKeyNo", key},      {u"txtHCode", u"HC"_s},
            {u"txtAmountOrder", u"2"_s},    {u"txtAmountDelivery", u"2"_s}, {u"txtDate(0)", u"20050401"_s},
            {u"txtDate(1)", u"20050402"_s},
        };
        for (const auto& [field, value] : values)
            form.control<QLineEdit>(QString::fromUtf16(field))->setText(value);
    }
    qint64 lastId() { return temp.db().scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong(); }
};

TEST_F(SaveFlow, TheTypicalCorrectionIsSavedWhenTheOperatorMovesOn)
{
    Items items{ids[0], ListKey(ids[1]), ListKey(ids[2])}; // a plain id in the list saves as well
    inputData(items, [&](frmData& form) {
        // A delivery key number changed through the detail change shows in the record list at once.
        form.menuItem(u"mnuDataDetail"_s)->trigger();
        form.control<QLineEdit>(u"txtPaymentKeyNo"_s)->setText(u"K-1b"_s);
        QTest::keyClick(&form, Qt::Key_S, Qt::ControlModifier);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(form.recordList()->textAt(1), u"K-1b"_s);
        EXPECT_EQ(form.recordList()->textAt(2), u"K-2"_s);

        form.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"TYPED"_s);
        form.toolbar1()->button(u"進む"_s)->click(); // asks; Yes saves and moves on
        ASSERT_EQ(std::exchange(messages.shown, {}).size(), 1) << "the question before leaving";
        EXPECT_EQ(shownKey(form), u"K-2"_s);
        EXPECT_EQ(gIndex, 2);
        EXPECT_FALSE(form.bChanged || form.bChangedQTY);
    });
    EXPECT_EQ(stored(ids[0], C::F00159) + stored(ids[0], C::F00164), u"K-1bTYPED"_s);
    EXPECT_TRUE(readDeliveryRecord(temp.db(), ids[0])->isNull(C::DateDeliveryPrint));
    EXPECT_EQ(stored(ids[1], C::F00164), u""_s) << "the next record is only shown";
}

TEST_F(SaveFlow, ARecordSavedInNewRecordModeJoinsTheListAndTheHostsItems)
{
    Items items{ListKey(ids[0])};
    qint64 added = 0;
    inputData(items, [&](frmData& form) {
        form.menuItem(u"mnuDataNew"_s)->trigger();
        fillNewRecord(form, u"NEW-1"_s);
        QTest::keyClick(&form, Qt::Key_N, Qt::ControlModifier);
        EXPECT_TRUE(messages.shown.isEmpty());
        added = lastId();
        EXPECT_EQ(form.recordList()->count(), 2);
        EXPECT_EQ(form.recordList()->keyAt(2), QString::number(added) + u"Key"_s);
        EXPECT_EQ(form.recordList()->textAt(2), u"NEW-1"_s);
        EXPECT_EQ(buttons(form), u"011"_s);
        EXPECT_EQ(shownKey(form), u"K-1"_s) << "back on the record the new one was started from";
        EXPECT_FALSE(form.control<QCheckBox>(u"chkNew"_s)->isChecked());
        form.toolbar1()->button(u"進む"_s)->click();
        EXPECT_EQ(shownKey(form), u"NEW-1"_s);
    });
    ASSERT_EQ(items.Count(), 2);
    EXPECT_EQ(items.Item(2).toString(), QString::number(added) + u"Key"_s);
}

TEST_F(SaveFlow, NewDataEndsWithASaveOrACancel)
{
    for (const bool save : {true, false}) {
        SCOPED_TRACE(save ? "save" : "cancel");
        const qint64 before = lastId();
        EXPECT_FALSE(newData([&](frmData& form) {
            fillNewRecord(form, u"NEW-2"_s);
            QTest::keyClick(&form, save ? Qt::Key_N : Qt::Key_E, Qt::ControlModifier);
            EXPECT_FALSE(form.isVisible()) << "the command ended the call";
        }));
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(lastId(), save ? before + 1 : before);
    }
    EXPECT_EQ(stored(lastId(), C::F00159), u"NEW-2"_s);
}

// The server ends the host's session under the open form and between two calls: the statement that
// meets it fails, the next one runs on a new session.
TEST_F(SaveFlow, ASessionTheServerDroppedIsOpenedAgainByTheNextStatement)
{
    if (temp.engine() != test::Engine::PostgreSQL)
        GTEST_SKIP() << "a session of the server";
    // The fixture's statements would keep the session the component replaces: none until it is back.
    temp.close();
    temp.reopen();
    const auto dropSession = [this] {
        // Waits until the session is gone: the server ends it some time after the call otherwise.
        test::SecondConnection(temp, {u"SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity "
                                      "WHERE datname = current_database() AND pid <> pg_backend_pid()"_s});
    };
    Items items{ListKey(ids[0])};
    inputData(items, [&](frmData& form) {
        dropSession();
        form.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"TYPED-1"_s);
        form.menuItem(u"mnuDataSave"_s)->trigger(); // its checks cannot read: it ends quietly
        EXPECT_TRUE(form.bChanged);
        form.menuItem(u"mnuDataSave"_s)->trigger();
        EXPECT_FALSE(form.bChanged) << "stored on a new session";
    });
    temp.close(); // the fixture's statements belong to the first session
    temp.reopen();
    EXPECT_EQ(stored(ids[0], C::F00164), u"TYPED-1"_s);

    dropSession(); // the next call meets it, and reports it to the host
    EXPECT_THROW(fmInput().InputData(items), Error);
    inputData(items, [&](frmData& form) {
        form.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"TYPED-2"_s);
        form.menuItem(u"mnuDataSave"_s)->trigger();
        EXPECT_FALSE(form.bChanged);
    });
    EXPECT_TRUE(messages.shown.isEmpty());
    temp.close();
    temp.reopen();
    EXPECT_EQ(stored(ids[0], C::F00164), u"TYPED-2"_s);
}

} // namespace
