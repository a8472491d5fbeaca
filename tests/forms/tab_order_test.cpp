// The real Tab order, walked with the keyboard from the customer choice.
#include "form_fixture.h"
#include "qt_print.h"

#include "forms/frmData/catalogue.h"
#include "platform/field_state.h"

#include <QApplication>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

class TabOrderTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        load();
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        openPackageFrame();
    }

    // The blank record's delivery quantity 0 disables the package frame; a quantity opens it.
    void openPackageFrame() const { text(u"txtAmountDelivery"_s)->setText(u"1"_s); }

    // What Tab should reach, in catalogue tab order: focusable controls that are not hidden or grey,
    // on the page that is shown, enabled and with a tab stop now; of the options only the selected one.
    QStringList expectedChain() const
    {
        std::vector<const ControlSpec*> specs;
        for (const auto& spec : frmdata::controls())
            specs.push_back(&spec);
        std::stable_sort(specs.begin(), specs.end(),
                         [](auto* a, auto* b) { return a->tabOrder < b->tabOrder; });
        QStringList chain;
        for (const ControlSpec* spec : specs) {
            if (spec->tabOrder == 0 || !takesFocus(spec->kind) ||
                (spec->state & (design::Hidden | design::Grey)))
                continue;
            QWidget* w = control(spec->name.toString());
            if (!spec->container.isEmpty() && control(spec->container.toString())->isHidden())
                continue;
            if (!w->isEnabled() || !isTabStop(w))
                continue;
            if (auto* option = qobject_cast<QRadioButton*>(w); option && !option->isChecked())
                continue;
            chain << spec->name.toString();
        }
        return chain;
    }

    // Focus names after each of `count` presses of `key`, starting from cobCustomer.
    QStringList walk(int count, Qt::Key key = Qt::Key_Tab) const
    {
        control(u"cobCustomer"_s)->setFocus();
        QStringList seen;
        for (int i = 0; i < count; ++i) {
            QTest::keyClick(QApplication::focusWidget(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            seen << QApplication::focusWidget()->objectName();
        }
        return seen;
    }

    // The expected chain, rotated to begin after cobCustomer's place, then wrapping around.
    static QStringList fromCustomer(const QStringList& chain)
    {
        const auto order = [](QStringView name) {
            for (const auto& spec : frmdata::controls())
                if (spec.name == name)
                    return spec.tabOrder;
            return 0;
        };
        qsizetype start = 0;
        while (start < chain.size() && order(chain[start]) <= order(u"cobCustomer"))
            ++start;
        QStringList rotated = chain.mid(start) + chain.mid(0, start);
        rotated.removeAll(u"cobCustomer"_s);
        return rotated;
    }
};

} // namespace

TEST_F(TabOrderTest, NewRecordModeRunsDownTheLeftColumnThenTheRightThenThePages)
{
    form->gNewStart();
    openPackageFrame();
    const QStringList chain = expectedChain();
    // The order the operator sees, stated once in full for the supplier page.
    const QStringList designed = {
        u"cobCustomer"_s, u"txtOrderNo"_s,     u"cmdFind"_s,           u"txtPaymentKeyNo"_s,
        u"txtTantoA"_s,   u"txtTantoK"_s,      u"txtKensa"_s,          u"txtPlaceC"_s,
        u"txtPlaceA"_s,   u"txtPlaceK"_s,      u"txtHCode"_s,          u"txtMyHCode"_s,
        u"txtHinmeiA"_s,  u"txtHinmeiK"_s,     u"txtDate(0)"_s,        u"txtDate(1)"_s,
        u"txtDate(2)"_s,  u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtAmountDelivery"_s,
        u"txtUnit"_s,     u"txtUnitPrice"_s,   u"chkTaxType"_s,        u"cobCurrency"_s,
        u"cobTaxation"_s, u"optQuantity(1)"_s, u"txtMyRemarksA"_s,     u"txtMyRemarksK"_s,
        u"txtMyBar"_s};
    EXPECT_EQ(chain, designed);

    QStringList around = chain.mid(1);
    around << chain.first();
    EXPECT_EQ(walk(int(around.size())), around);

    QStringList back = chain.mid(0, chain.size() - 1);
    std::reverse(back.begin(), back.end());
    back.prepend(chain.last());
    back.removeAll(u"cobCustomer"_s);
    back.append(u"cobCustomer"_s);
    EXPECT_EQ(walk(int(back.size()), Qt::Key_Backtab), back);
}

TEST_F(TabOrderTest, OnlyTheShownInformationPageIsReached)
{
    form->gNewStart();
    auto* tabs = form->control<QTabBar>(u"TabStrip1"_s);
    for (int page : {1, 0}) {
        tabs->setCurrentIndex(page);
        const QStringList chain = expectedChain();
        const QStringList my = {u"txtMyRemarksA"_s, u"txtMyRemarksK"_s, u"txtMyBar"_s};
        const QStringList cust = {u"txtCustomRemarksA"_s, u"txtCustomRemarksK"_s, u"txtCustomBar"_s};
        const QStringList& shown = page == 0 ? my : cust;
        const QStringList& hidden = page == 0 ? cust : my;
        const QStringList walked = walk(int(chain.size()));
        EXPECT_EQ(walked, fromCustomer(chain) << u"cobCustomer"_s);
        for (const QString& name : shown)
            EXPECT_TRUE(walked.contains(name)) << name.toStdString();
        for (const QString& name : hidden)
            EXPECT_FALSE(walked.contains(name)) << name.toStdString();
    }
}

TEST_F(TabOrderTest, BrowseModeSkipsTheLockedOrderFieldsAndFollowsThePackageMode)
{
    for (int mode : {1, 2, 3}) {
        form->selectPackageMode(mode);
        const QStringList chain = expectedChain();
        EXPECT_FALSE(chain.contains(u"txtOrderNo"_s));
        EXPECT_TRUE(chain.contains(u"txtMyHCode"_s));
        EXPECT_EQ(chain.contains(u"txtQuantity"_s), mode == 2);
        EXPECT_EQ(chain.contains(u"cmdQuantity"_s), mode == 3);
        EXPECT_EQ(chain.filter(u"optQuantity"_s), QStringList{u"optQuantity(%1)"_s.arg(mode)});
        const QStringList expected = fromCustomer(chain);
        EXPECT_EQ(walk(int(expected.size())), expected);
    }
}
