// Saving the record on screen: the checks before it, what it writes, and what the operator sees when
// it cannot write. (The store's own rules, such as the duplicate lookup's, are tested with the store.)
#include "entry_fixture.h"

#include "forms/keyed_toolbar.h"
#include "platform/widgets/field_state.h"
#include "store/package_quantities.h"

#include <QToolButton>

using namespace tolvinpt;
using namespace Qt::StringLiterals;
using C = tolvinpt::DeliveryColumn;

namespace {

using test::Columns;
using test::okMessage;
using A = QMessageBox::StandardButton;

Message question(QStringView text, QStringView title)
{
    return {text.toString(), title.toString(), QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
            QMessageBox::No};
}

const Message ZeroOrder = okMessage(u"注文数量が ｾﾞﾛ です", u"[注文数量] - 入力ﾁｪｯｸ");
const Message Incomplete =
    question(u"必要項目が入力されていませんが、保存してよろしいですか", u"再確認...入力ﾁｪｯｸ");

// The stored value of a column as text, the same on every engine; "NULL" for Null.
QString stored(const DeliveryRecord& record, DeliveryColumn column)
{
    const QVariant value = record.value(column);
    if (record.isNull(column))
        return u"NULL"_s;
    if (value.typeId() == QMetaType::Bool)
        return QString::number(value.toInt());
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s);
    return value.toString();
}

using Save = test::EntryFormTest;

TEST_F(Save, ChecksRefuseOrWarnInTheirOrderAndPutTheFocusWhereTheFaultIs)
{
    struct Case
    {
        const char* what;
        long customer;
        Columns stored, other; // the record on screen, and another record when there is one
        std::vector<std::pair<QString, QString>> edits; // none: only the package mode changes
        std::deque<A> answers;
        QList<Message> expected;
        const char* focus; // where the focus ends; nullptr when the record was saved, "" not checked
        bool stillLocked = false;
    };
    // clang-format off
    const Case cases[] = {
        {"order number required; its field is not opened", 1, {}, {}, {{u"txtOrderNo"_s, u"   "_s}}, {},
         {okMessage(u"注文番号は必須入力です", u"[注文番号] - 入力ﾁｪｯｸ")}, "txtOrderNo", true},
        {"delivery key number required", 1, {}, {}, {{u"txtPaymentKeyNo"_s, u""_s}}, {},
         {okMessage(u"納品ｷｰ番号は必須入力です", u"[納品ｷｰ番号] - 入力ﾁｪｯｸ")}, "txtPaymentKeyNo"},
        {"item code or an item name required", 1, {}, {}, {{u"txtHCode"_s, u" "_s}}, {},
         {okMessage(u"発注者品名ｺｰﾄﾞ、または品名は必須入力です", u"[発注者品名ｺｰﾄﾞ] - 入力ﾁｪｯｸ")}, "txtHCode"},
        {"one item name is enough", 1, {}, {}, {{u"txtHCode"_s, u""_s}, {u"txtHinmeiK"_s, u"品名"_s}}, {}, {}, nullptr},
        {"order quantity above the largest", 1, {{C::F00015, 2e9}}, {}, {}, {},
         {okMessage(u"注文数量の最大値は 999,999,999.999 です", u"[注文数量] - 入力ﾁｪｯｸ")}, "txtAmountOrder"},
        {"zero order quantity warns, opening nothing; No saves nothing", 1, {}, {}, {{u"txtAmountOrder"_s, u"0"_s}},
         {A::Ok, A::No}, {ZeroOrder, Incomplete}, "txtAmountOrder", true},
        {"zero order quantity warns; Yes saves", 1, {}, {}, {{u"txtAmountOrder"_s, u"0"_s}}, {A::Ok, A::Yes},
         {ZeroOrder, Incomplete}, nullptr},
        {"negative quantities pass", 1, {}, {}, {{u"txtAmountOrder"_s, u"-5"_s}}, {}, {}, nullptr},
        {"a lenient customer: zero order quantity and no dates", 2, {}, {},
         {{u"txtAmountOrder"_s, u"0"_s}, {u"txtDate(0)"_s, u""_s}, {u"txtDate(1)"_s, u""_s}}, {}, {}, nullptr},
        {"zero delivery quantity, even for a lenient customer", 2, {}, {}, {{u"txtAmountDelivery"_s, u"0"_s}}, {},
         {okMessage(u"納入数量に ｾﾞﾛ は入力できません", u"[納入数量] - 入力ﾁｪｯｸ")}, "txtAmountDelivery"},
        {"delivery quantity above the largest", 1, {{C::F00036, 1e10}}, {}, {}, {},
         {okMessage(u"納入数量の最大値は 999,999,999.999 です", u"[納入数量] - 入力ﾁｪｯｸ")}, "txtAmountDelivery"},
        {"the largest delivery quantity", 1, {}, {}, {{u"txtAmountDelivery"_s, u"999999999.999"_s}}, {}, {}, nullptr},
        {"another live record holds the key", 1, {{C::F00159, u"NEW"_s}}, {{C::F00007, u"ord-1"_s}},
         {{u"txtPaymentKeyNo"_s, u"KEY-1"_s}}, {}, {okMessage(u"同一の納品ｷｰ番号が存在します", u"重複ﾁｪｯｸ")},
         "txtPaymentKeyNo", true},
        {"no due or ship date: two warnings, then the question", 1, {}, {},
         {{u"txtDate(0)"_s, u""_s}, {u"txtDate(1)"_s, u""_s}}, {A::Ok, A::Ok, A::Yes},
         {okMessage(u"納期が入力されていません", u"[納期] - 入力ﾁｪｯｸ"), okMessage(u"出荷日が入力されていません", u"[出荷日] - 入力ﾁｪｯｸ"), Incomplete},
         nullptr},
        // The refused due date stops nothing but keeps the ship date from being tested; the save then
        // cannot convert it.
        {"a refused due date, then a date that does not convert", 1, {}, {},
         {{u"txtDate(0)"_s, u"123"_s}, {u"txtDate(1)"_s, u""_s}}, {},
         {okMessage(u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください", u"日付入力ﾁｪｯｸ"),
          okMessage(u"Type mismatch (13)", u"ﾃﾞｰﾀの保存")}, ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        exec(u"DELETE FROM T_Delivery"_s);
        if (!c.other.empty())
            insert(c.other);
        open(insert(c.stored, c.customer));
        for (const auto& [field, value] : c.edits)
            set(field, value);
        if (c.edits.empty())
            click(control(u"optQuantity(2)"_s));
        messages.answers = c.answers;
        run(u"mnuDataSave"_s);
        messages.expectShown(c.expected);
        EXPECT_EQ(link->saved.size(), c.focus ? 0 : 1);
        EXPECT_EQ(form->bChanged || form->bChangedQTY, c.focus != nullptr);
        if (c.focus && *c.focus) {
            EXPECT_EQ(focusedField(), control(QString::fromLatin1(c.focus)));
            EXPECT_EQ(isLocked(control(QString::fromLatin1(c.focus))), c.stillLocked);
        }
    }
}

TEST_F(Save, ANewRecordTypedByHandIsStoredColumnByColumn)
{
    openNewRecord();
    // clang-format off
    const std::pair<QString, QString> typed[] = {
        {u"txtOrderNo"_s, u"PO-77"_s}, {u"txtPaymentKeyNo"_s, u"PO-77-1"_s}, {u"txtTantoA"_s, u"TA"_s},
        {u"txtTantoK"_s, u"担当"_s}, {u"txtPlaceC"_s, u"PC1"_s}, {u"txtPlaceA"_s, u"DOCK 3"_s},
        {u"txtPlaceK"_s, u"倉庫"_s}, {u"txtHCode"_s, u"HC-9"_s}, {u"txtMyHCode"_s, u"MHC-9"_s},
        {u"txtHinmeiA"_s, u"BOLT"_s}, {u"txtHinmeiK"_s, u"品目"_s}, {u"txtDate(0)"_s, u"050301"_s},
        {u"txtDate(1)"_s, u"20050307"_s}, {u"txtDate(2)"_s, u"20050309"_s}, {u"txtAmountOrder"_s, u"12.5"_s},
        {u"txtAmountIndicate"_s, u"3"_s}, {u"txtAmountDelivery"_s, u"12.5"_s}, {u"txtUnit"_s, u"pcs"_s},
        {u"txtUnitPrice"_s, u"1234.5"_s}, {u"txtKensa"_s, u"K1"_s}, {u"txtMyRemarksA"_s, u"MY"_s},
        {u"txtMyRemarksK"_s, u"備考"_s}, {u"txtMyBar"_s, u"MB"_s}, {u"txtCustomRemarksA"_s, u"CR"_s},
        {u"txtCustomRemarksK"_s, u"注記"_s}, {u"txtCustomBar"_s, u"CB"_s},
    };
    // clang-format on
    for (const auto& [field, value] : typed)
        fill(field, value);
    click(control(u"chkTaxType"_s));
    combo(u"cobTaxation"_s)->setCurrentIndex(2);
    ASSERT_TRUE(messages.shown.isEmpty());
    QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);

    ASSERT_EQ(link->saved.size(), 1);
    EXPECT_EQ(link->saved[0].mid(1), (QStringList{u"PO-77-1"_s, u"new"_s}));
    EXPECT_EQ(link->left, 1) << "a successful new save leaves new-record mode";
    const auto record = row(link->saved[0][0].toLongLong());
    ASSERT_TRUE(record);
    // clang-format off
    const std::pair<DeliveryColumn, QString> expected[] = {
        {C::IDCustomer, u"1"_s}, {C::F00004, u"1234"_s}, {C::F00005, u"0001"_s}, {C::F00007, u"PO-77"_s},
        {C::F00159, u"PO-77-1"_s}, {C::F00018, u"TA"_s}, {C::F00260, u"担当"_s}, {C::F00028, u"PC1"_s},
        {C::F00160, u"DOCK 3"_s}, {C::F00274, u"倉庫"_s}, {C::F00024, u"HC-9"_s}, {C::F00023, u"MHC-9"_s},
        {C::F00022, u"BOLT"_s}, {C::F00262, u"品目"_s}, {C::F00031, u"2005-03-01"_s}, {C::F00039, u"2005-03-07"_s},
        {C::F00040, u"2005-03-09"_s}, {C::F00015, u"12.5"_s}, {C::F00032, u"3"_s}, {C::F00036, u"12.5"_s},
        {C::F00012, u"PCS"_s}, {C::F00013, u"1234.5"_s}, {C::F00029, u"K1"_s}, {C::F00057, u"1"_s},
        {C::F00162, u"CR"_s}, {C::F00275, u"注記"_s}, {C::F00276, u"備考"_s}, {C::F00164, u"MY"_s},
        {C::F00161, u"CB"_s}, {C::F00163, u"MB"_s}, {C::F00059, u"3"_s}, {C::F00281, u""_s}, {C::F00282, u"0"_s},
        {C::DateDeliveryPrint, u"NULL"_s}, {C::DateLabelPrint, u"NULL"_s}, {C::QuantityType, u"1"_s},
        {C::Quantity, u"12.5"_s}, {C::InDustBox, u"0"_s},
    };
    // clang-format on
    for (const auto& [column, value] : expected)
        EXPECT_EQ(stored(*record, column), value) << columnName(column).toStdString();
}

TEST_F(Save, CurrencyPriceAndTaxAreStoredByTheirRules)
{
    // currency, price, tax included; then F00281, F00013, F00282, F00057 as stored
    const QStringList cases[] = {
        {u" JPY "_s, u"1,234.5"_s, u"off"_s, u""_s, u"1234.5"_s, u"0"_s, u"2"_s}, // blanks around the code
        {u"USD"_s, u"1234.56789"_s, u"on"_s, u"USD"_s, u"0"_s, u"1234.56789"_s, u"1"_s},
        {u"XYZ"_s, u"7"_s, u"off"_s, u"XYZ"_s, u"0"_s, u"7"_s, u"2"_s},
    };
    for (const QStringList& c : cases) {
        SCOPED_TRACE(c[0].toStdString());
        exec(u"DELETE FROM T_Delivery"_s);
        const qint64 id = insert({{C::F00057, 1}});
        open(id);
        combo(u"cobCurrency"_s)->lineEdit()->setText(c[0]);
        set(u"txtUnitPrice"_s, c[1]);
        form->control<QAbstractButton>(u"chkTaxType"_s)->setChecked(c[2] == u"on");
        run(u"mnuDataSave"_s);
        const auto record = row(id);
        EXPECT_EQ((QStringList{stored(*record, C::F00281), stored(*record, C::F00013),
                               stored(*record, C::F00282), stored(*record, C::F00057)}),
                  c.mid(3));
    }
}

TEST_F(Save, PackageRowsAreRewrittenAndEachSaveClearsItsPrintDate)
{
    const QString printed = u"2005-03-10 09:00:00"_s;
    struct Case
    {
        const char* what;
        std::function<void()> change;
        QStringList stored; // QuantityType, Quantity, DateDeliveryPrint, then the package rows
    };
    const Case cases[] = {
        {"equal packages: the rows go, the label date is cleared",
         [&] {
             click(control(u"optQuantity(2)"_s));
             set(u"txtQuantity"_s, u"2.5"_s);
         },
         {u"2"_s, u"2.5"_s, printed}},
        {"individual packages up to the first zero",
         [&] {
             click(control(u"optQuantity(1)"_s));
             click(control(u"optQuantity(3)"_s));
             gPackageQty[1] = Currency::fromInteger(4);
             gPackageQty[3] = Currency::fromInteger(9); // after a zero: not stored
         },
         {u"3"_s, u"0"_s, printed, u"6"_s, u"4"_s}},
        // The delivery quantity the display filled in counts as typed until its field is entered: the
        // save's check of it puts the packages back to one.
        {"a changed record clears both dates",
         [&] { set(u"txtMyRemarksA"_s, u"M"_s); },
         {u"1"_s, u"6"_s, u"NULL"_s}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        exec(u"DELETE FROM T_Delivery"_s);
        const qint64 id = insert({{C::QuantityType, 3},
                                  {C::F00036, 6.0},
                                  {C::DateDeliveryPrint, printed},
                                  {C::DateLabelPrint, printed}});
        insertPackageRows(temp.db(), id, {u"1"_s, u"2"_s, u"3"_s});
        open(id);
        c.change();
        run(u"mnuDataSave"_s);
        const auto record = row(id);
        QStringList values{stored(*record, C::QuantityType), record->currency(C::Quantity)->toString(),
                           stored(*record, C::DateDeliveryPrint)};
        for (const auto& quantity : readPackageRows(temp.db(), id).quantities)
            values << quantity->toString();
        EXPECT_EQ(values, c.stored);
        EXPECT_TRUE(record->isNull(C::DateLabelPrint));
    }
}

// Every value the operator sees on the form.
QStringList everyValue(const frmData& form)
{
    QStringList values;
    for (QLineEdit* edit : form.findChildren<QLineEdit*>())
        values << edit->objectName() + u'=' + edit->text();
    for (QAbstractButton* button : form.findChildren<QAbstractButton*>())
        values << button->objectName() + u'=' + (button->isChecked() ? u'1' : u'0');
    return values;
}

TEST_F(Save, ADatabaseFaultIsShownAndTheFormKeepsEverythingForTheNextTry)
{
    for (const bool refused : {true, false}) { // or another connection holds the write lock
        SCOPED_TRACE(refused ? "refused" : "locked");
        exec(u"DELETE FROM T_Delivery"_s);
        const qint64 id = insert();
        open(id);
        set(u"txtMyRemarksA"_s, u"TYPED"_s);
        click(control(u"optQuantity(2)"_s));
        set(u"txtQuantity"_s, u"2.5"_s);
        const QStringList typed = everyValue(*form);
        std::optional<test::SecondConnection> writer;
        if (!refused)
            writer.emplace(temp, std::initializer_list<QString>{u"BEGIN IMMEDIATE"_s});
        if (refused)
            temp.refuseWrites(u"UPDATE"_s, u"T_Delivery"_s, u"no writes today"_s);
        const auto error = refused ? temp.refusedError(u"no writes today"_s) : temp.lockedError();
        run(u"mnuDataSave"_s);
        messages.expectShown({okMessage(error.shown(), u"ﾃﾞｰﾀの保存")});
        EXPECT_EQ(everyValue(*form), typed);
        EXPECT_TRUE(form->bChanged && form->bChangedQTY);
        EXPECT_EQ(stored(*row(id), C::F00164), u"NULL"_s);

        writer.reset();
        temp.allowWrites(u"T_Delivery"_s);
        run(u"mnuDataSave"_s);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(stored(*row(id), C::F00164), u"TYPED"_s);
        EXPECT_EQ(row(id)->integer(C::QuantityType), 2);
    }
}

TEST_F(Save, ARecordChangedOrDeletedByAnotherOperatorIsNotOverwritten)
{
    const qint64 id = insert();
    const QString where = u" WHERE IDData = "_s + QString::number(id);
    open(id);
    set(u"txtMyRemarksA"_s, u"MINE"_s);
    test::SecondConnection other(temp, {u"UPDATE T_Delivery SET F00164 = 'THEIRS'"_s + where});
    const Message changed = question(
        u"このﾃﾞｰﾀは、表示した後に他の担当者が変更しました\r\n\r\n入力した内容は保存されていません\r\n\r\n"
        u"他の担当者が保存した内容を表示しますか\r\n(「いいえ」: 入力した内容をそのまま残します)",
        u"ﾃﾞｰﾀの保存");
    run(u"mnuDataSave"_s); // No, by default: the typed values stay
    messages.expectShown({changed});
    EXPECT_EQ(shown(u"txtMyRemarksA"_s), u"MINE"_s);
    EXPECT_TRUE(form->bChanged);
    EXPECT_EQ(stored(*row(id), C::F00164), u"THEIRS"_s);

    messages.answers = {QMessageBox::Yes};
    run(u"mnuDataSave"_s);
    messages.expectShown({changed});
    EXPECT_EQ(shown(u"txtMyRemarksA"_s), u"THEIRS"_s);
    EXPECT_FALSE(form->bChanged);

    // From the reloaded record on a save goes through, and so does the next one.
    for (const QString& value : {u"MINE"_s, u"MINE AGAIN"_s}) {
        set(u"txtMyRemarksA"_s, value);
        run(u"mnuDataSave"_s);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(stored(*row(id), C::F00164), value);
    }
    set(u"txtMyRemarksA"_s, u"MINE"_s);
    other.exec(u"DELETE FROM T_Delivery"_s + where);
    run(u"mnuDataSave"_s);
    messages.expectShown({okMessage(
        u"このﾃﾞｰﾀは、表示した後に他の担当者が削除しました\r\n\r\n入力した内容は保存されていません",
        u"ﾃﾞｰﾀの保存")});
    EXPECT_EQ(shown(u"txtMyRemarksA"_s), u"MINE"_s);
}

} // namespace
