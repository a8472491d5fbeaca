// Quantities and the unit price: keys, clamping, rounding, package adjustment, price limits.
#include "form_fixture.h"

#include "store/package_quantities.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

using NumberRulesTest = EntryTest;

TEST_F(NumberRulesTest, NumberAndDigitKeysRefuseOtherPrintableCharacters)
{
    // clang-format off
    const struct { QString field, keys, text; int beeps; } cases[] = {
        {u"txtQuantity"_s, u"~9"_s, u"9"_s, 1},         {u"txtAmountOrder"_s, u"1a-,2.5 "_s, u"12.5"_s, 4},
        {u"txtAmountIndicate"_s, u"3e2"_s, u"32"_s, 1}, {u"txtAmountDelivery"_s, u"+7"_s, u"7"_s, 1},
        {u"txtUnitPrice"_s, u"1.5$"_s, u"1.5"_s, 1},    {u"txtDate(0)"_s, u"2005.0a3"_s, u"200503"_s, 2},
        {u"txtDate(2)"_s, u"05-03\b7"_s, u"0507"_s, 1}, // backspace deletes the 3
    };
    // clang-format on
    text(u"txtAmountDelivery"_s)->setText(u"30"_s);
    form->selectPackageMode(2);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.field.toStdString());
        enter(c.field);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        messages.beeps = 0;
        input(c.keys);
        EXPECT_EQ(text(c.field)->text(), c.text);
        EXPECT_EQ(messages.beeps, c.beeps);
    }
}

TEST_F(NumberRulesTest, AmountsAreRoundedAndClampedSilentlyOnLeavingAChangedRecord)
{
    // clang-format off
    const struct { QString input, shown; int beeps; } cases[] = {
        {u"1234.5678"_s, u"1234.568"_s, 0}, {u"2.0005"_s, u"2"_s, 0}, {u"2.0015"_s, u"2.002"_s, 0}, // ties to even
        {u""_s, u"0"_s, 0}, {u"999999999.999"_s, u"999999999.999"_s, 0}, {u"1000000000"_s, u"999999999.999"_s, 1},
    };
    // clang-format on
    for (const QString& field : {u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtAmountDelivery"_s}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(QString(field + u" ← "_s + c.input).toStdString());
            messages.beeps = 0;
            fill(field, c.input);
            expectLeft(field, c.shown); // an amount is never refused
            EXPECT_EQ(messages.beeps, c.beeps);
        }
        // Leaving a field of an unchanged record leaves it as displayed.
        text(field)->setText(u"1500.0000"_s);
        clearFlags();
        enter(field);
        leave();
        EXPECT_EQ(text(field)->text(), u"1500.0000"_s) << field.toStdString();
    }
}

TEST_F(NumberRulesTest, AChangedDeliveryQuantityAdjustsThePackages)
{
    for (const auto& [delivery, open] : {std::pair{u"5"_s, true}, {u"0"_s, false}, {u"0.0001"_s, true}}) {
        text(u"txtAmountDelivery"_s)->setText(delivery);
        EXPECT_EQ(control(u"fraQuantity"_s)->isEnabled(), open)
            << "package frame at " << delivery.toStdString();
    }
    // clang-format off
    const struct { const char* what; int mode; QString perPackage, typed; int modeAfter; QString perPackageAfter; } cases[] = {
        {"single follows", 1, u"20"_s, u"12.50"_s, 1, u"12.5"_s},
        {"equal split of the whole becomes single", 2, u"10"_s, u"10"_s, 1, u"10"_s},
        {"equal split keeps", 2, u"10"_s, u"25"_s, 2, u"10"_s},
        {"equal split without a package size", 2, u"0"_s, u"25"_s, 1, u"25"_s},
        {"individual becomes single", 3, u"5"_s, u"25"_s, 1, u"25"_s},
        {"the write-back alone adjusts", 1, u"20"_s, u""_s, 1, u"12.5"_s}, // nothing typed
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        text(u"txtAmountDelivery"_s)->setText(u"12.50"_s);
        form->selectPackageMode(c.mode);
        text(u"txtQuantity"_s)->setText(c.perPackage);
        gPackageQty[1] = Currency::fromInteger(3);
        enter(u"txtAmountDelivery"_s);
        EXPECT_FALSE(form->bChangedAmount) << "entering the field clears it";
        input(c.typed);
        leave();
        EXPECT_EQ(form->packageMode(), c.modeAfter);
        EXPECT_EQ(text(u"txtQuantity"_s)->text(), c.perPackageAfter);
        EXPECT_EQ(gPackageQty[1].isZero(), c.mode != c.modeAfter) << "a new mode drops the packages";
        EXPECT_FALSE(form->bChangedAmount);
    }
}

TEST_F(NumberRulesTest, APackageHoldsAtMostTheDelivery)
{
    // clang-format off
    const struct { QString typed, shown; int mode; } cases[] = {
        {u"10"_s, u"10"_s, 2}, {u"0"_s, u"25"_s, 1},       {u"30"_s, u"25"_s, 1},
        {u"25"_s, u"25"_s, 1}, {u"24.9996"_s, u"25"_s, 1}, // rounded to three decimals: the whole delivery
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed.toStdString());
        text(u"txtAmountDelivery"_s)->setText(u"25"_s);
        form->selectPackageMode(2);
        clearFlags();
        fill(u"txtQuantity"_s, c.typed);
        expectLeft(u"txtQuantity"_s, c.shown);
        EXPECT_EQ(form->packageMode(), c.mode);
        EXPECT_TRUE(form->bChangedQTY);
        EXPECT_FALSE(form->bChanged) << "the per-package quantity is no record field of its own";
    }
}

TEST_F(NumberRulesTest, UnitPricesKeepTheirCurrencysPrecisionAndLimit)
{
    const QString yenMax = u"単価の最大値は 999,999,999.999 です"_s;
    const QString foreignMax = u"単価 (外貨)の最大値は 99,999,999,999.99999 です"_s;
    // clang-format off
    const struct { QString currency, input, shown; /* empty: refused, the input stays */ QString message; } cases[] = {
        {u"JPY"_s, u"12.3456"_s, u"12.346"_s, {}},
        {u" JPY "_s, u"12.3456"_s, u"12.346"_s, {}},   // the price reads the code without its blanks
        {u"USD"_s, u"12.345675"_s, u"12.34568"_s, {}},
        {u"XYZ"_s, u"12.345665"_s, u"12.34566"_s, {}}, // a code outside the list is foreign
        {u"JPY"_s, u"1.2.3"_s, u"0"_s, {}},            // unlike a quantity, all of it must be a number
        {u"JPY"_s, u"999999999.9994"_s, u"999999999.999"_s, {}},
        {u"JPY"_s, u"999999999.9995"_s, {}, yenMax},
        {u"USD"_s, u"99999999999.99999"_s, u"99999999999.99999"_s, {}},
        {u"USD"_s, u"100000000000"_s, {}, foreignMax},
        {u"XYZ"_s, u"100000000000"_s, {}, foreignMax},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(QString(c.currency + u' ' + c.input).toStdString());
        combo(u"cobCurrency"_s)->setEditText(c.currency);
        fill(u"txtUnitPrice"_s, c.input);
        expectLeft(u"txtUnitPrice"_s, c.shown.isEmpty() ? c.input : c.shown, c.message,
                   c.message == yenMax ? u"[単価] - 入力ﾁｪｯｸ" : u"[単価 (外貨)] - 入力ﾁｪｯｸ");
    }
}
