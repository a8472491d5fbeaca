// Quantities and the unit price: keys, clamping, rounding, package adjustment, price limits.
#include "rules_fixture.h"

#include "store/package_quantities.h"

#include <QGroupBox>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

const QString Amounts[] = {u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtAmountDelivery"_s};

} // namespace

TEST_F(RulesTest, NumberAndDigitKeysRefuseOtherPrintableCharacters)
{
    struct Case
    {
        QString field;
        QString keys;
        QString text;
        int beeps;
    };
    const Case cases[] = {
        {u"txtQuantity"_s, u"~9"_s, u"9"_s, 1},         {u"txtAmountOrder"_s, u"1a-,2.5 "_s, u"12.5"_s, 4},
        {u"txtAmountIndicate"_s, u"3e2"_s, u"32"_s, 1}, {u"txtAmountDelivery"_s, u"+7"_s, u"7"_s, 1},
        {u"txtUnitPrice"_s, u"1.5$"_s, u"1.5"_s, 1},    {u"txtDate(0)"_s, u"2005.0a3"_s, u"200503"_s, 2},
        {u"txtDate(2)"_s, u"05-03\b7"_s, u"0507"_s, 1}, // backspace deletes the 3
    };
    text(u"txtAmountDelivery"_s)->setText(u"30"_s);
    form->selectPackageMode(2);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.field.toStdString());
        enter(c.field);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        messages.beeps = 0;
        type(c.keys);
        EXPECT_EQ(text(c.field)->text(), c.text);
        EXPECT_EQ(messages.beeps, c.beeps);
    }
}

TEST_F(RulesTest, AmountsAreRoundedAndClampedSilentlyOnLeaving)
{
    struct Case
    {
        QString input;
        bool pasted;
        QString shown;
        int beeps;
    };
    const Case cases[] = {
        {u"1234.5678"_s, false, u"1234.568"_s, 0},
        {u"12.000"_s, false, u"12"_s, 0},
        {u""_s, false, u"0"_s, 0},
        {u"2.0005"_s, false, u"2"_s, 0}, // ties to even
        {u"2.0015"_s, false, u"2.002"_s, 0},
        {u"999999999.999"_s, false, u"999999999.999"_s, 0},
        {u"1000000000"_s, false, u"999999999.999"_s, 1},
        {u"9999999999999"_s, false, u"999999999.999"_s, 1},
        {u"-5"_s, true, u"-5"_s, 0},
        {u"1e3"_s, true, u"1"_s, 0},
        {u"1,000"_s, true, u"1"_s, 0},
        {u"  12 "_s, true, u"12"_s, 0},
        {u"12.5.3"_s, true, u"12.5"_s, 0},
        {u"１２"_s, true, u"0"_s, 0},
    };
    for (const QString& field : Amounts) {
        for (const auto& c : cases) {
            SCOPED_TRACE(QString(field + u" ← "_s + c.input).toStdString());
            messages.beeps = 0;
            fill(field, c.input, c.pasted);
            EXPECT_NE(focusedField(), control(field)) << "an amount is never refused";
            EXPECT_EQ(text(field)->text(), c.shown);
            EXPECT_EQ(messages.beeps, c.beeps);
            EXPECT_TRUE(messages.shown.isEmpty());
        }
    }
}

TEST_F(RulesTest, AnUnchangedRecordIsLeftAsDisplayed)
{
    for (const QString& field : Amounts) {
        text(field)->setText(u"1500.0000"_s);
        clearFlags();
        enter(field);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(text(field)->text(), u"1500.0000"_s) << field.toStdString();
    }
}

TEST_F(RulesTest, TheDeliveryQuantityEnablesThePackageFrame)
{
    const std::pair<QString, bool> cases[] = {
        {u"5"_s, true}, {u"0"_s, false}, {u"abc"_s, false}, {u"0.0001"_s, true}, {u""_s, false}};
    for (const auto& [delivery, enabled] : cases) {
        text(u"txtAmountDelivery"_s)->setText(delivery);
        EXPECT_EQ(control(u"fraQuantity"_s)->isEnabled(), enabled) << delivery.toStdString();
    }
}

TEST_F(RulesTest, AChangedDeliveryQuantityAdjustsThePackages)
{
    struct Case
    {
        const char* name;
        int mode;
        QString perPackage;
        QString typed; // empty: leave without typing
        int modeAfter;
        QString perPackageAfter;
    };
    const Case cases[] = {
        {"single follows", 1, u"20"_s, u"12.50"_s, 1, u"12.5"_s},
        {"equal split of the whole becomes single", 2, u"10"_s, u"10"_s, 1, u"10"_s},
        {"equal split below the package becomes single", 2, u"10"_s, u"5"_s, 1, u"5"_s},
        {"equal split keeps", 2, u"10"_s, u"25"_s, 2, u"10"_s},
        {"equal split without a package size", 2, u"0"_s, u"25"_s, 1, u"25"_s},
        {"individual becomes single", 3, u"5"_s, u"25"_s, 1, u"25"_s},
        {"the write-back alone adjusts", 1, u"20"_s, u""_s, 1, u"12.5"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        text(u"txtAmountDelivery"_s)->setText(u"12.50"_s);
        form->selectPackageMode(c.mode);
        text(u"txtQuantity"_s)->setText(c.perPackage);
        gPackageQty[1] = Currency::fromInteger(3);
        enter(u"txtAmountDelivery"_s);
        EXPECT_FALSE(form->bChangedAmount) << "entering the field clears it";
        type(c.typed);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form->packageMode(), c.modeAfter);
        EXPECT_EQ(text(u"txtQuantity"_s)->text(), c.perPackageAfter);
        EXPECT_EQ(gPackageQty[1].isZero(), c.mode != c.modeAfter) << "a new mode drops the packages";
        EXPECT_FALSE(form->bChangedAmount);
    }
}

TEST_F(RulesTest, APackageHoldsAtMostTheDelivery)
{
    const std::tuple<QString, QString, int> cases[] =
        {
            {u"10"_s, u"10"_s, 2},      {u"10.0004"_s, u"10"_s, 2}, {u"0"_s, u"25"_s, 1},
            {u"30"_s, u"25"_s, 1},      {u"25"_s, u"25"_s, 1},      {u""_s, u"25"_s, 1},
            {u"24.9996"_s, u"25"_s, 1}, // rounded to three decimals: the whole delivery
        };
    for (const auto& [typed, shown, mode] : cases) {
        SCOPED_TRACE(typed.toStdString());
        text(u"txtAmountDelivery"_s)->setText(u"25"_s);
        form->selectPackageMode(2);
        clearFlags();
        fill(u"txtQuantity"_s, typed);
        EXPECT_EQ(text(u"txtQuantity"_s)->text(), shown);
        EXPECT_EQ(form->packageMode(), mode);
        EXPECT_NE(focusedField(), control(u"txtQuantity"_s));
        EXPECT_TRUE(form->bChangedQTY);
        EXPECT_FALSE(form->bChanged) << "the per-package quantity is no record field of its own";
    }
}

TEST_F(RulesTest, UnitPricesKeepTheirCurrencysPrecisionAndLimit)
{
    const QString yenMax = u"単価の最大値は 999,999,999.999 です"_s;
    const QString foreignMax = u"単価 (外貨)の最大値は 99,999,999,999.99999 です"_s;
    const QString yenTitle = u"[単価] - 入力ﾁｪｯｸ"_s;
    const QString foreignTitle = u"[単価 (外貨)] - 入力ﾁｪｯｸ"_s;
    struct Case
    {
        int currency; // index in cobCurrency; -1 for a code outside the list
        QString input;
        bool pasted;
        QString shown; // empty: refused, the input stays
        QString message;
    };
    const Case cases[] = {
        {0, u"12.3456"_s, false, u"12.346"_s, {}},
        {1, u"12.3456"_s, false, u"12.3456"_s, {}},
        {1, u"12.345675"_s, false, u"12.34568"_s, {}},
        {-1, u"12.345665"_s, false, u"12.34566"_s, {}},
        {0, u"1.2.3"_s, false, u"0"_s, {}},
        {0, u""_s, false, u"0"_s, {}},
        {0, u"1e3"_s, true, u"0"_s, {}},
        {0, u"１２"_s, true, u"0"_s, {}},
        {0, u" 12 "_s, true, u"12"_s, {}},
        {0, u"1,234.5"_s, true, u"1234.5"_s, {}},
        {0, u"-5"_s, true, u"-5"_s, {}},
        {0, u"999999999.9994"_s, false, u"999999999.999"_s, {}},
        {0, u"999999999.9995"_s, false, {}, yenMax},
        {0, u"1000000000"_s, false, {}, yenMax},
        {1, u"99999999999.99999"_s, false, u"99999999999.99999"_s, {}},
        {1, u"100000000000"_s, false, {}, foreignMax},
        {-1, u"999999999999"_s, true, {}, foreignMax},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.input.toStdString());
        if (c.currency >= 0)
            combo(u"cobCurrency"_s)->setCurrentIndex(c.currency);
        else
            combo(u"cobCurrency"_s)->setEditText(u"XYZ"_s);
        fill(u"txtUnitPrice"_s, c.input, c.pasted);
        if (c.shown.isEmpty()) {
            expectOneMessage(c.message, c.message == yenMax ? yenTitle : foreignTitle);
            EXPECT_EQ(focusedField(), control(u"txtUnitPrice"_s));
            EXPECT_EQ(text(u"txtUnitPrice"_s)->text(), c.input);
            text(u"txtUnitPrice"_s)->setText(u"0"_s);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } else {
            EXPECT_TRUE(messages.shown.isEmpty());
            EXPECT_EQ(text(u"txtUnitPrice"_s)->text(), c.shown);
        }
        EXPECT_NE(focusedField(), control(u"txtUnitPrice"_s));
    }
}
