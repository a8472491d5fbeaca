// The real Tab order, walked with the keyboard from the customer choice.
#include "form_fixture.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

// New-record mode, the supplier page shown, a single package: the order the operator sees.
const QStringList Designed = {
    u"txtOrderNo"_s,     u"cmdFind"_s,           u"txtPaymentKeyNo"_s,   u"txtTantoA"_s,
    u"txtTantoK"_s,      u"txtKensa"_s,          u"txtPlaceC"_s,         u"txtPlaceA"_s,
    u"txtPlaceK"_s,      u"txtHCode"_s,          u"txtMyHCode"_s,        u"txtHinmeiA"_s,
    u"txtHinmeiK"_s,     u"txtDate(0)"_s,        u"txtDate(1)"_s,        u"txtDate(2)"_s,
    u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtAmountDelivery"_s, u"txtUnit"_s,
    u"txtUnitPrice"_s,   u"chkTaxType"_s,        u"cobCurrency"_s,       u"cobTaxation"_s,
    u"optQuantity(1)"_s, u"txtMyRemarksA"_s,     u"txtMyRemarksK"_s,     u"txtMyBar"_s,
    u"cobCustomer"_s};

// `chain` with `from` replaced by `by`.
QStringList replaced(QStringList chain, const QString& from, const QStringList& by)
{
    const qsizetype at = chain.indexOf(from);
    chain.remove(at);
    for (qsizetype i = 0; i < by.size(); ++i)
        chain.insert(at + i, by[i]);
    return chain;
}

class TabOrderTest : public EntryTest
{
protected:
    // Focus names after each of `count` presses of Tab (or Shift+Tab), starting from cobCustomer.
    QStringList walk(qsizetype count, bool back = false) const
    {
        control(u"cobCustomer"_s)->setFocus();
        QStringList seen;
        while (count-- > 0) {
            leave(back ? Leave::BackTab : Leave::Tab);
            seen << QApplication::focusWidget()->objectName();
        }
        return seen;
    }
};

} // namespace

TEST_F(TabOrderTest, RunsDownTheLeftColumnThenTheRightThenTheShownPage)
{
    text(u"txtAmountDelivery"_s)->setText(u"1"_s); // a quantity opens the package frame
    EXPECT_EQ(walk(Designed.size()), Designed);
    QStringList back = Designed;
    std::reverse(back.begin(), back.end());
    back.append(back.takeFirst());
    EXPECT_EQ(walk(back.size(), true), back);

    // Only the page shown is reached.
    form->control<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(1);
    QStringList buyer =
        replaced(Designed, u"txtMyRemarksA"_s, {u"txtCustomRemarksA"_s, u"txtCustomRemarksK"_s});
    buyer = replaced(replaced(buyer, u"txtMyRemarksK"_s, {}), u"txtMyBar"_s, {u"txtCustomBar"_s});
    EXPECT_EQ(walk(buyer.size()), buyer);
    form->control<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(0);

    // The input that the package mode opens, reached after the selected option only.
    for (const auto& [mode, opened] : {std::pair{2, u"txtQuantity"_s}, {3, u"cmdQuantity"_s}}) {
        form->selectPackageMode(mode);
        const QString option = u"optQuantity(%1)"_s.arg(mode);
        const QStringList chain = replaced(Designed, u"optQuantity(1)"_s, {option, opened});
        EXPECT_EQ(walk(chain.size()), chain);
    }
    // Without the order fields, which are locked in browse mode.
    form->selectPackageMode(1);
    form->SetDetailEditable(false);
    const QStringList open = {
        u"cmdFind"_s,       u"txtMyHCode"_s,    u"txtDate(1)"_s,  u"txtDate(2)"_s,  u"txtAmountDelivery"_s,
        u"txtUnitPrice"_s,  u"chkTaxType"_s,    u"cobCurrency"_s, u"cobTaxation"_s, u"optQuantity(1)"_s,
        u"txtMyRemarksA"_s, u"txtMyRemarksK"_s, u"txtMyBar"_s};
    EXPECT_EQ(walk(open.size() + 1), open + QStringList{u"cmdFind"_s});
}
