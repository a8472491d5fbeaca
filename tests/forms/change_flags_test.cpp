// Which change or click sets which change flag, and the package-mode options.
#include "form_fixture.h"
#include "qt_print.h"

#include "forms/frmData/catalogue.h"
#include "platform/field_state.h"
#include "store/package_quantities.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QTest>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

struct Flags
{
    bool changed;
    bool amount;
    bool quantity;
    friend bool operator==(const Flags&, const Flags&) = default;
    friend void PrintTo(const Flags& f, std::ostream* os)
    {
        *os << "{changed " << f.changed << ", amount " << f.amount << ", quantity " << f.quantity << '}';
    }
};

class ChangeFlagsTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        host.multipleOwnCodes = true;
        host.ownCode = u"*"_s;
        host.ownCodes = {{u"東京工場"_s, u"0101"_s}};
        load();
        form->gNewStart();
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
        form->control<QComboBox>(u"cobCustomer"_s)->addItems({u"A"_s, u"B"_s});
    }

    Flags flags() const { return {form->bChanged, form->bChangedAmount, form->bChangedQTY}; }

    // Changes the control as the operator would: typing, picking another item, clicking.
    void operate(QWidget* w) const
    {
        if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            edit->setEnabled(true);
            edit->setFocus();
            QTest::keyClicks(edit, u"7"_s);
            edit->clearFocus(); // away without the field's leave rule: only the marks are tested here
        } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
            combo->setCurrentIndex(combo->currentIndex() == 1 ? 0 : 1);
        } else if (auto* button = qobject_cast<QAbstractButton*>(w)) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
};

} // namespace

TEST_F(ChangeFlagsTest, EveryChangeMarksWhatTheCatalogueSays)
{
    for (const auto& spec : frmdata::controls()) {
        if (spec.marks == 0)
            continue;
        SCOPED_TRACE(spec.name.toString().toStdString());
        clearFlags();
        operate(control(spec.name.toString()));
        EXPECT_EQ(flags(), (Flags{bool(spec.marks & marks::Changed), bool(spec.marks & marks::Amount),
                                  bool(spec.marks & marks::Quantity)}));
    }
}

TEST_F(ChangeFlagsTest, SpecialFieldsSetTheirOwnFlags)
{
    struct Case
    {
        const char16_t* name;
        Flags expected;
    };
    const Case cases[] = {
        {u"txtAmountDelivery", {true, true, false}},
        {u"txtQuantity", {false, false, true}},
        {u"optQuantity(2)", {false, false, true}},
        {u"cobMyCodes", {true, false, false}},
        {u"txtOrderNo", {true, false, false}},
        {u"txtDate(1)", {true, false, false}},
        {u"cobCurrency", {true, false, false}},
        {u"chkTaxType", {true, false, false}},
        // Holders and grey displays are not record fields of their own
        {u"txtIDData", {false, false, false}},
        {u"txtCustomCode", {false, false, false}},
        {u"cobCurrencyName", {false, false, false}},
    };
    for (const auto& c : cases) {
        const QString name = QString::fromUtf16(c.name);
        SCOPED_TRACE(name.toStdString());
        clearFlags();
        operate(control(name));
        EXPECT_EQ(flags(), c.expected);
    }
    clearFlags();
    form->control<QComboBox>(u"cobCurrency"_s)->setEditText(u"US"_s);
    EXPECT_TRUE(form->bChanged) << "typing a currency code";
}

TEST_F(ChangeFlagsTest, OwnCodeChoiceFillsTheCode)
{
    form->control<QComboBox>(u"cobMyCodes"_s)->setCurrentIndex(1);
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0101"_s);
}

TEST_F(ChangeFlagsTest, PackageModeOptionsEnableTheirInputsAndResetThePackages)
{
    text(u"txtAmountDelivery"_s)->setText(u"12.5 pcs"_s);
    struct Case
    {
        int mode;
        bool quantityOpen;
        bool editorOpen;
        Currency first;
    };
    const Case cases[] = {
        {2, true, false, {}},  {3, false, true, Currency::fromRaw(125000)},
        {1, false, false, {}}, {3, false, true, Currency::fromRaw(125000)},
        {2, true, false, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        gPackageQty.fill(Currency::fromInteger(1));
        clearFlags();
        QTest::mouseClick(control(u"optQuantity(%1)"_s.arg(c.mode)), Qt::LeftButton);
        EXPECT_EQ(form->packageMode(), c.mode);
        EXPECT_EQ(control(u"txtQuantity"_s)->isEnabled(), c.quantityOpen);
        EXPECT_EQ(control(u"cmdQuantity"_s)->isEnabled(), c.editorOpen);
        EXPECT_EQ(gPackageQty[0], c.first);
        EXPECT_EQ(packageCount(gPackageQty), c.first.isZero() ? 0 : 1);
        EXPECT_EQ(flags(), (Flags{false, false, true})) << "a package-mode change alone is a pending change";
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(isTabStop(control(u"optQuantity(%1)"_s.arg(other))), other == c.mode);
    }
}

TEST_F(ChangeFlagsTest, SelectingTheSelectedModeRunsItsClickHandlingAgain)
{
    form->selectPackageMode(3);
    gPackageQty[4] = Currency::fromInteger(4);
    clearFlags();
    form->selectPackageMode(3);
    EXPECT_TRUE(gPackageQty[4].isZero());
    EXPECT_TRUE(form->bChangedQTY);
}

TEST_F(ChangeFlagsTest, TheLeadingNumberOfTheDeliveryQuantityStartsTheIndividualPackages)
{
    const std::pair<QString, Currency> cases[] = {
        {u"25"_s, Currency::fromInteger(25)},
        {u"1 500"_s, Currency::fromInteger(1500)},
        {u"12.5.3"_s, Currency::fromRaw(125000)},
        {u"abc"_s, Currency()},
        {QString(), Currency()},
    };
    for (const auto& [delivery, first] : cases) {
        SCOPED_TRACE(delivery.toStdString());
        form->selectPackageMode(1);
        text(u"txtAmountDelivery"_s)->setText(delivery);
        form->selectPackageMode(3);
        EXPECT_EQ(gPackageQty[0], first);
    }
}
