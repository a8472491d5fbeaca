// The real Tab order, walked with the keyboard from the customer choice.
#include "form_fixture.h"

#include "platform/field_state.h"

#include <QRadioButton>

#include <algorithm>

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

class TabOrderTest : public FormTest
{
protected:
    // What Tab should reach from cobCustomer, in catalogue tab order and wrapping around: focusable
    // controls, not hidden or grey, on the page shown, enabled and a tab stop now; of the options only
    // the selected one.
    QStringList expectedChain() const
    {
        std::vector<ControlSpec> specs(frmdata::controls().begin(), frmdata::controls().end());
        std::stable_sort(specs.begin(), specs.end(),
                         [](auto& a, auto& b) { return a.tabOrder < b.tabOrder; });
        QStringList before, after;
        bool afterCustomer = false;
        for (const ControlSpec& row : specs) {
            QWidget* w = control(row.name.toString());
            auto* option = qobject_cast<QRadioButton*>(w);
            if (row.tabOrder != 0 && takesFocus(row.kind) &&
                !(row.state & (design::Hidden | design::Grey)) &&
                (row.container.isEmpty() || !control(row.container.toString())->isHidden()) &&
                w->isEnabled() && isTabStop(w) && (!option || option->isChecked()))
                (afterCustomer ? after : before) << row.name.toString();
            afterCustomer = afterCustomer || row.name == u"cobCustomer";
        }
        return after + before;
    }

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
    openNew();
    text(u"txtAmountDelivery"_s)->setText(u"1"_s); // a quantity opens the package frame
    // The order the operator sees, stated once in full for the supplier page.
    const QStringList designed = {
        u"txtOrderNo"_s,     u"cmdFind"_s,           u"txtPaymentKeyNo"_s,   u"txtTantoA"_s,
        u"txtTantoK"_s,      u"txtKensa"_s,          u"txtPlaceC"_s,         u"txtPlaceA"_s,
        u"txtPlaceK"_s,      u"txtHCode"_s,          u"txtMyHCode"_s,        u"txtHinmeiA"_s,
        u"txtHinmeiK"_s,     u"txtDate(0)"_s,        u"txtDate(1)"_s,        u"txtDate(2)"_s,
        u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtAmountDelivery"_s, u"txtUnit"_s,
        u"txtUnitPrice"_s,   u"chkTaxType"_s,        u"cobCurrency"_s,       u"cobTaxation"_s,
        u"optQuantity(1)"_s, u"txtMyRemarksA"_s,     u"txtMyRemarksK"_s,     u"txtMyBar"_s,
        u"cobCustomer"_s};
    EXPECT_EQ(expectedChain(), designed);
    EXPECT_EQ(walk(designed.size()), designed);

    QStringList back = designed;
    std::reverse(back.begin(), back.end());
    back.append(back.takeFirst());
    EXPECT_EQ(walk(back.size(), true), back);

    // Only the page shown is reached.
    form->control<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(1);
    const QStringList walked = walk(expectedChain().size());
    EXPECT_EQ(walked, expectedChain());
    EXPECT_TRUE(walked.contains(u"txtCustomRemarksA"_s));
    EXPECT_FALSE(walked.contains(u"txtMyRemarksA"_s));

    // The input that the package mode opens; in browse mode without the locked order fields.
    for (int mode : {2, 3, 1}) {
        form->selectPackageMode(mode);
        form->SetDetailEditable(mode != 1);
        const QStringList chain = expectedChain();
        EXPECT_TRUE(chain.contains(mode == 2   ? u"txtQuantity"_s
                                   : mode == 3 ? u"cmdQuantity"_s
                                               : u"txtMyHCode"_s));
        EXPECT_EQ(chain.contains(u"txtOrderNo"_s), mode != 1);
        EXPECT_EQ(walk(chain.size()), chain);
    }
}
