// Record display: stored records, Null and unreadable columns, through the widgets the operator sees.
#include "entry_fixture.h"

#include "forms/keyed_toolbar.h"
#include "platform/widgets/field_state.h"
#include "store/package_quantities.h"

using namespace tolvinpt;
using namespace Qt::StringLiterals;
using C = tolvinpt::DeliveryColumn;

namespace {

using test::Columns;

class Display : public test::EntryFormTest
{
protected:
    // Stores a record of customer 1 with `columns` and nothing else.
    qint64 insert(const Columns& columns)
    {
        DeliveryRecord record;
        record.set(C::IDCustomer, 1);
        for (const auto& [column, value] : columns)
            record.set(column, value);
        return insertDeliveryRecord(temp.db(), record);
    }

    // Shows record `id`, on a form loaded with the customers unless one is loaded.
    void show(qint64 id)
    {
        if (!form) {
            load();
            customers = hostObjects().CreateCustomerList();
            for (int i = 0; i < customers->Count(); ++i)
                combo(u"cobCustomer"_s)
                    ->addItem(customers->At(i)->CustomerName() + u':' + customers->At(i)->CustomerCode());
        }
        ShowDeliveryRecord(*form, temp.db(), *customers, id);
    }

    std::shared_ptr<CustomerList> customers;
};

TEST_F(Display, ShowsEachColumnAsTheOperatorSeesIt)
{
    // clang-format off
    const struct { const char* what; Columns columns; std::vector<std::pair<QString, QString>> shows; } cases[] = {
        {"order awaiting instruction", {{C::F00002, u"0502"_s}, {C::F00030, u"2"_s}}, {{u"lblInfo"_s, u"[注文情報 納入指示待ち]"_s}}},
        {"blank currency is yen", {{C::F00281, u"   "_s}, {C::F00013, 12.5}, {C::F00282, u"7"_s}},
         {{u"cobCurrency"_s, u"JPY"_s}, {u"txtUnitPrice"_s, u"12.5"_s}, {u"cobTaxation"_s, u"1-課税"_s}}},
        {"unlisted currency", {{C::F00281, u"XYZ"_s}}, {{u"cobCurrency"_s, u"XYZ"_s}, {u"cobCurrencyName"_s, u"その他"_s}}},
        {"a currency that starts like a listed one", {{C::F00281, u"US"_s}}, {{u"cobCurrency"_s, u"US"_s}, {u"cobCurrencyName"_s, u"その他"_s}}},
        {"Null currency is yen but not taxable", {{C::F00059, QVariant()}}, {{u"cobCurrency"_s, u"JPY"_s}, {u"cobTaxation"_s, u"2-非課税"_s}}},
        {"plain quantities", {{C::F00015, 1500.0}, {C::F00032, 2.5}, {C::F00036, 0.001}},
         {{u"txtAmountOrder"_s, u"1500"_s}, {u"txtAmountIndicate"_s, u"2.5"_s}, {u"txtAmountDelivery"_s, u"0.001"_s}}},
        {"Null delivery quantity, single package", {{C::F00036, QVariant()}, {C::QuantityType, 1}}, {{u"txtAmountDelivery"_s, u"0"_s}, {u"txtQuantity"_s, u"0"_s}}},
        {"single package shows the delivery quantity", {{C::F00036, 40.0}, {C::Quantity, u"7"_s}}, {{u"txtQuantity"_s, u"40"_s}}},
        {"a stored text longer than its field shows whole", {{C::F00012, u"KGSX"_s}}, {{u"txtUnit"_s, u"KGSX"_s}}},
        {"unreadable number and mode fall back", {{C::F00015, u"abc"_s}, {C::QuantityType, u"x"_s}, {C::F00036, 3.0}},
         {{u"txtAmountOrder"_s, u"0"_s}, {u"txtQuantity"_s, u"3"_s}}},
        {"tax not included for 2", {{C::F00057, 2}}, {{u"chkTaxType"_s, u"off"_s}}},
        {"tax not included for Null", {{C::F00057, QVariant()}}, {{u"chkTaxType"_s, u"off"_s}}},
        // After all the others on the same form: the record shown before is cleared.
        {"Null in every column shows the cleared form", {{C::IDCustomer, QVariant()}},
         {{u"txtAmountOrder"_s, u"0"_s}, {u"txtUnitPrice"_s, u"0"_s}, {u"txtQuantity"_s, u"0"_s}, {u"txtOrderNo"_s, u""_s},
          {u"txtHinmeiK"_s, u""_s}, {u"txtCustomBar"_s, u""_s}, {u"txtUnit"_s, u""_s}, {u"txtDate(1)"_s, u""_s},
          {u"lblInfo"_s, u"[手入力]"_s}, {u"optQuantity(1)"_s, u"on"_s}}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        // The server types its columns: nothing unreadable can be stored there.
        if (std::string_view(c.what).starts_with("unreadable") && temp.engine() != test::Engine::SQLite)
            continue;
        const qint64 id = insert(c.columns);
        show(id);
        EXPECT_EQ(shown(u"txtIDData"_s), QString::number(id));
        for (const auto& [control, expected] : c.shows)
            EXPECT_EQ(shown(control), expected) << control.toStdString();
        EXPECT_FALSE(form->bChanged || form->bChangedQTY);
    }
    // A missing record leaves the form as it is, but clears the flags.
    text(u"txtOrderNo"_s)->setText(u"EDITED"_s);
    form->bChangedQTY = true;
    ShowDeliveryRecord(*form, temp.db(), *customers, 999);
    EXPECT_EQ(shown(u"txtOrderNo"_s), u"EDITED"_s);
    EXPECT_FALSE(form->bChanged || form->bChangedQTY);
}

TEST_F(Display, EveryFieldShowsItsOwnColumnAndAMissingColumnBlanksOnlyItsField)
{
    // Each column holds a value no other column holds, so a field that shows another field's column
    // fails. The pairs are written out here, independently of the display's own table.
    // clang-format off
    const struct { const char* field; const char* column; QVariant stored; QString shown; } rows[] = {
        {"txtCustomCode", "F00004", u"5678"_s, u"5678"_s},        {"cobCustomer", nullptr, {}, u"得意先5678:5678"_s},
        {"txtMyCode", "F00005", u"MY-05"_s, u"MY-05"_s},          {"txtOrderNo", "F00007", u"ORD-07"_s, u"ORD-07"_s},
        {"txtPaymentKeyNo", "F00159", u"KEY-159"_s, u"KEY-159"_s}, {"txtTantoA", "F00018", u"TA-18"_s, u"TA-18"_s},
        {"txtTantoK", "F00260", u"担当260"_s, u"担当260"_s},      {"txtPlaceC", "F00028", u"PC-28"_s, u"PC-28"_s},
        {"txtPlaceA", "F00160", u"PA-160"_s, u"PA-160"_s},        {"txtPlaceK", "F00274", u"場所274"_s, u"場所274"_s},
        {"txtHCode", "F00024", u"HC-24"_s, u"HC-24"_s},           {"txtMyHCode", "F00023", u"MHC-23"_s, u"MHC-23"_s},
        {"txtHinmeiA", "F00022", u"HA-22"_s, u"HA-22"_s},         {"txtHinmeiK", "F00262", u"品名262"_s, u"品名262"_s},
        {"txtDate(0)", "F00031", u"2005-03-01"_s, u"20050301"_s}, {"txtDate(1)", "F00039", u"2005-03-07"_s, u"20050307"_s},
        {"txtDate(2)", "F00040", u"2005-03-09"_s, u"20050309"_s}, {"txtAmountOrder", "F00015", 15.0, u"15"_s},
        {"txtAmountIndicate", "F00032", 32.5, u"32.5"_s},         {"txtAmountDelivery", "F00036", 36.0, u"36"_s},
        {"txtUnit", "F00012", u"U12"_s, u"U12"_s},                {"chkTaxType", "F00057", 1, u"on"_s},
        {"txtKensa", "F00029", u"KS-29"_s, u"KS-29"_s},           {"cobTaxation", "F00059", u"3"_s, u"3-免税"_s},
        {"cobCurrency", "F00281", u"USD"_s, u"USD"_s},            {"txtUnitPrice", "F00282", u"1234.56789"_s, u"1234.56789"_s},
        {nullptr, "F00013", u"13"_s, {}}, // the yen price of a foreign-currency record is not shown
        {"txtCustomRemarksA", "F00162", u"CRA-162"_s, u"CRA-162"_s}, {"txtCustomRemarksK", "F00275", u"備考275"_s, u"備考275"_s},
        {"txtMyRemarksA", "F00164", u"MRA-164"_s, u"MRA-164"_s},  {"txtMyRemarksK", "F00276", u"備考276"_s, u"備考276"_s},
        {"txtCustomBar", "F00161", u"CB-161"_s, u"CB-161"_s},     {"txtMyBar", "F00163", u"MB-163"_s, u"MB-163"_s},
        {"lblInfo", "F00002", u"9990"_s, u"[納品情報(2E)]"_s},    {"optQuantity(2)", "QuantityType", 2, u"on"_s},
        {"txtQuantity", "Quantity", u"8"_s, u"8"_s},
    };
    // clang-format on
    QStringList columns{u"IDCustomer"_s};
    QVariantList values{1};
    for (const auto& row : rows) {
        if (row.column) {
            columns.append(QString::fromLatin1(row.column));
            values.append(row.stored);
        }
    }
    db::Statement insert =
        temp.db().prepare(u"INSERT INTO T_Delivery ("_s + columns.join(u", "_s) + u") VALUES ("_s +
                          QStringList(columns.size(), u"?"_s).join(u", "_s) + u')');
    for (int i = 0; i < values.size(); ++i)
        insert.bind(i, values[i]);
    insert.exec();
    const qint64 id = temp.db().scalar(u"SELECT MAX(IDData) FROM T_Delivery"_s)->toLongLong();

    QStringList dropped;
    for (const QString& drop : {QString(), u"F00023"_s, u"F00039"_s}) {
        SCOPED_TRACE(drop.isEmpty() ? "the whole row" : "without " + drop.toStdString());
        if (!drop.isEmpty()) {
            temp.db().execute(u"ALTER TABLE T_Delivery DROP COLUMN "_s + drop);
            dropped.append(drop);
        }
        show(id);
        EXPECT_EQ(shown(u"txtIDData"_s), QString::number(id));
        for (const auto& row : rows) {
            if (!row.field)
                continue;
            const bool blank = row.column && dropped.contains(QString::fromLatin1(row.column));
            EXPECT_EQ(shown(QString::fromLatin1(row.field)), blank ? QString() : row.shown) << row.field;
        }
    }
}

TEST_F(Display, IndividualPackagesFillTheListInOrderUpToAHundred)
{
    qint64 id = insert({{C::QuantityType, 3}, {C::F00036, 6.0}, {C::Quantity, u"1"_s}});
    for (const auto& [sequence, quantity] : {std::pair{9, u"3"_s}, {2, u"1"_s}, {5, u"2"_s}})
        temp.db().execute(u"INSERT INTO T_DeliveryQTY (IDData, Sequence, Quantity) VALUES (?, ?, ?)"_s,
                          {id, sequence, quantity});
    gPackageQty.fill(Currency::fromInteger(9));
    show(id);
    EXPECT_EQ(shown(u"optQuantity(3)"_s), u"on"_s);
    EXPECT_TRUE(control(u"cmdQuantity"_s)->isEnabled());
    for (int i = 0; i < MaxPackages; ++i)
        EXPECT_EQ(gPackageQty[std::size_t(i)], Currency::fromInteger(i < 3 ? i + 1 : 0)) << i;

    id = insert({{C::QuantityType, 3}, {C::F00036, 101.0}});
    insertPackageRows(temp.db(), id, QList<QVariant>(101, QVariant(u"1"_s)));
    show(id);
    EXPECT_EQ(packageCount(gPackageQty), MaxPackages);
    EXPECT_EQ(shown(u"txtAmountDelivery"_s), u"101"_s); // the rest of the display ran
}

TEST_F(Display, PackageFrameAndViewOnlyFollowTheSettingsAndTheBuyer)
{
    // clang-format off
    const struct { const char* what; bool useBreakdown; long customer; bool hideFrame, viewOnly, frameShown; } cases[] = {
        {"shown", true, 1, false, false, true},
        {"buyer without breakdown", true, 2, false, false, false},
        {"buyer hides the frame", true, 1, true, false, false},
        {"no breakdown at all leaves the frame as loaded", false, 1, false, false, false},
        {"view only", true, 1, false, true, true},
    };
    // clang-format on
    host.customers[1].noQuantityBreakdown = true;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        host.useQuantityBreakdown = c.useBreakdown;
        host.customers[0].hideQuantityFrame = c.hideFrame;
        host.viewOnly = c.viewOnly;
        form.reset();
        show(insert({{C::IDCustomer, qint64(c.customer)}, {C::QuantityType, 2}}));
        EXPECT_EQ(control(u"fraQuantity"_s)->isVisibleTo(form.get()), c.frameShown);
        // View only locks the supplier's fields and the commands that create, split or change a record.
        for (const QString& name : {u"txtMyHCode"_s, u"txtDate(1)"_s, u"txtDate(2)"_s, u"txtAmountDelivery"_s,
                                    u"txtUnitPrice"_s, u"cobCurrency"_s, u"cobTaxation"_s})
            EXPECT_TRUE(isLocked(control(name)) == c.viewOnly && isTabStop(control(name)) != c.viewOnly)
                << name.toStdString();
        EXPECT_EQ(control(u"chkTaxType"_s)->isEnabled(), !c.viewOnly);
        for (int position : {1, 8, 9})
            EXPECT_EQ(form->toolbar1()->isButtonEnabled(position), !c.viewOnly) << position;
        for (const QString& item : {u"mnuDataNew"_s, u"mnuDataDivide"_s, u"mnuDataDetail"_s})
            EXPECT_EQ(form->menuItem(item)->isEnabled(), !c.viewOnly) << item.toStdString();
        for (const QString& name : {u"txtOrderNo"_s, u"txtDate(0)"_s})
            EXPECT_FALSE(isTabStop(control(name))) << name.toStdString() << " keeps the order-field lock";
    }
}

} // namespace
