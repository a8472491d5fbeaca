// Form load, new-record mode, the blank record, the order fields' lock and the information pages.
#include "form_fixture.h"
#include "qt_print.h"

#include "forms/keyed_toolbar.h"
#include "platform/field_state.h"
#include "store/package_quantities.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

using LoadTest = FormTest;

QString ownItem(const QString& name, const QString& code)
{
    return name + QString(200, u' ') + u'\t' + code;
}

const QStringList OrderFields = {
    u"cobCustomer"_s,    u"txtOrderNo"_s,        u"txtPaymentKeyNo"_s,   u"txtPlaceC"_s,
    u"txtPlaceA"_s,      u"txtPlaceK"_s,         u"txtTantoA"_s,         u"txtTantoK"_s,
    u"txtHCode"_s,       u"txtHinmeiA"_s,        u"txtHinmeiK"_s,        u"txtDate(0)"_s,
    u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtCustomRemarksA"_s, u"txtCustomRemarksK"_s,
    u"txtCustomBar"_s,   u"txtKensa"_s,          u"txtUnit"_s,           u"cobMyCodes"_s};

QStringList itemsOf(const QComboBox* combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items << combo->itemText(i);
    return items;
}

} // namespace

TEST_F(LoadTest, OwnCodesListModeOnlyWithMultipleCodesStarAndAList)
{
    const QList<OwnCodeEntry> two = {{u"東京工場"_s, u"0101"_s}, {u"大阪工場"_s, u"0202"_s}};
    struct Case
    {
        const char* what;
        bool multiple;
        QString code;
        QList<OwnCodeEntry> list;
        bool listMode;
    };
    const Case cases[] = {
        {"single code", false, u"0001"_s, {}, false},
        {"list mode", true, u"*"_s, two, true},
        {"star with an empty list", true, u"*"_s, {}, false},
        {"multiple without star", true, u"0001"_s, two, false},
        {"star without multiple", false, u"*"_s, two, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        host.multipleOwnCodes = c.multiple;
        host.ownCode = c.code;
        host.ownCodes = c.list;
        load();
        auto* combo = form->control<QComboBox>(u"cobMyCodes"_s);
        QStringList expected = {ownItem(host.ownName, c.code)};
        if (c.listMode)
            expected << ownItem(u"東京工場"_s, u"0101"_s) << ownItem(u"大阪工場"_s, u"0202"_s);
        EXPECT_EQ(itemsOf(combo), expected);
        EXPECT_EQ(combo->isEnabled(), c.listMode);
        EXPECT_EQ(combo->currentIndex(), 0);
        EXPECT_EQ(text(u"txtMyCode"_s)->text(), c.code) << "the selected own code follows into txtMyCode";
    }
}

TEST_F(LoadTest, HiddenCodesStayOutOfSightInTheOpenList)
{
    host.multipleOwnCodes = true;
    host.ownCode = u"*"_s;
    host.ownCodes = {{u"東京工場"_s, u"0101"_s}};
    load();
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    auto* combo = form->control<QComboBox>(u"cobMyCodes"_s);
    combo->showPopup();
    EXPECT_EQ(combo->view()->window()->width(), combo->width());
    combo->hidePopup();
}

TEST_F(LoadTest, LoadLeavesABlankRecordInBrowseMode)
{
    for (bool breakdown : {true, false}) {
        host.useQuantityBreakdown = breakdown;
        load();
        EXPECT_EQ(form->control(u"fraQuantity"_s)->isHidden(), !breakdown);
    }
    EXPECT_EQ(form->windowTitle(), u"納品ﾃﾞｰﾀの入力"_s);
    EXPECT_EQ(form->lngResult, 7);
    EXPECT_FALSE(form->toolbar1()->isButtonEnabled(4)) << "戻る";
    EXPECT_TRUE(form->toolbar1()->isButtonEnabled(5));
    EXPECT_FALSE(form->toolbar1()->isHidden());
    EXPECT_TRUE(form->menuItem(u"mnuData"_s)->isVisible());
    EXPECT_FALSE(form->menuItem(u"mnuNewData"_s)->isVisible());
    EXPECT_FALSE(form->control<QCheckBox>(u"chkNew"_s)->isChecked());
    EXPECT_FALSE(form->control(u"cmdFind"_s)->isEnabled());
    for (const char16_t* page : {u"fraInfoMy", u"fraInfoCust"})
        EXPECT_EQ(form->control<QFrame>(QString::fromUtf16(page))->frameShape(), QFrame::NoFrame);

    auto* currency = form->control<QComboBox>(u"cobCurrency"_s);
    auto* names = form->control<QComboBox>(u"cobCurrencyName"_s);
    auto* taxation = form->control<QComboBox>(u"cobTaxation"_s);
    EXPECT_EQ(itemsOf(currency), (QStringList{u"JPY"_s, u"USD"_s, u"GBP"_s, u"DEM"_s, u"FRF"_s, u"ITL"_s,
                                              u"XEU"_s, u"CNY"_s, u"HKD"_s, u"SGD"_s, u"KRW"_s}));
    EXPECT_EQ(names->count(), currency->count() + 1);
    EXPECT_EQ(names->itemText(0), u"日本 円"_s);
    EXPECT_EQ(names->itemText(names->count() - 1), u"その他"_s);
    EXPECT_EQ(currency->currentText(), u"JPY"_s);
    EXPECT_EQ(itemsOf(taxation),
              (QStringList{u"1-課税"_s, u"2-非課税"_s, u"3-免税"_s, u"4-経過措置"_s, u"9-消費税対象外"_s}));
    EXPECT_EQ(taxation->currentIndex(), 0);
    EXPECT_EQ(form->control<QComboBox>(u"cobCustomer"_s)->count(), 0);

    for (const QString& name : OrderFields) {
        EXPECT_TRUE(isLocked(control(name))) << name.toStdString();
        EXPECT_FALSE(isTabStop(control(name))) << name.toStdString();
    }
    EXPECT_EQ(form->control<QLabel>(u"lblInfo"_s)->text(), u"[手入力]"_s);
    EXPECT_EQ(text(u"txtAmountDelivery"_s)->text(), u"0"_s);
    EXPECT_EQ(form->packageMode(), 1);
    EXPECT_FALSE(control(u"txtQuantity"_s)->isEnabled());
    EXPECT_FALSE(control(u"cmdQuantity"_s)->isEnabled());
}

TEST_F(LoadTest, NewStartShowsABlankNewRecordWithoutPendingChanges)
{
    host.ownCode = u"0007"_s;
    load();
    text(u"txtOrderNo"_s)->setText(u"PO-1"_s);
    text(u"txtCustomBar"_s)->setText(u"BAR"_s);
    text(u"txtMyCode"_s)->setText(u"9999"_s);
    form->control<QCheckBox>(u"chkTaxType"_s)->setChecked(true);
    form->selectPackageMode(3);

    form->gNewStart();
    EXPECT_EQ(text(u"txtOrderNo"_s)->text(), QString());
    EXPECT_EQ(text(u"txtCustomBar"_s)->text(), QString());
    EXPECT_FALSE(form->control<QCheckBox>(u"chkTaxType"_s)->isChecked());
    EXPECT_EQ(form->packageMode(), 1);
    EXPECT_EQ(form->control<QLabel>(u"lblInfo"_s)->text(), u"[手入力]"_s);
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0007"_s) << "the own-company choice is applied again";
    EXPECT_TRUE(form->control<QCheckBox>(u"chkNew"_s)->isChecked());
    EXPECT_TRUE(control(u"cmdFind"_s)->isEnabled());
    EXPECT_FALSE(form->toolbar2()->isHidden());
    EXPECT_TRUE(form->toolbar1()->isHidden());
    EXPECT_TRUE(form->menuItem(u"mnuNewData"_s)->isVisible());
    EXPECT_FALSE(form->menuItem(u"mnuData"_s)->isVisible());
    EXPECT_FALSE(form->bChanged);
    EXPECT_FALSE(form->bChangedQTY);
    for (const QString& name : OrderFields)
        EXPECT_FALSE(isLocked(control(name))) << name.toStdString();
}

TEST_F(LoadTest, ClearEntryFormBlanksTheRecordAndLeavesTheRestAlone)
{
    load();
    auto* customers = form->control<QComboBox>(u"cobCustomer"_s);
    customers->addItems({u"A"_s, u"B"_s});
    customers->setCurrentIndex(1);
    text(u"txtCustomCode"_s)->setText(u"4711"_s);
    text(u"txtMyCode"_s)->setText(u"0002"_s);
    text(u"txtUnitPrice"_s)->setText(u"12.5"_s);
    text(u"txtDate(2)"_s)->setText(u"20050310"_s);
    text(u"txtMyRemarksK"_s)->setText(u"備考"_s);
    form->control<QComboBox>(u"cobCurrency"_s)->setEditText(u"XYZ"_s);
    form->control<QComboBox>(u"cobTaxation"_s)->setCurrentIndex(3);
    form->control<QCheckBox>(u"chkNew"_s)->setChecked(true);
    form->control(u"fraQuantity"_s)->hide();
    form->selectPackageMode(3);
    gPackageQty[5] = Currency::fromInteger(9);
    clearFlags();

    form->ClearEntryForm();
    EXPECT_EQ(text(u"txtUnitPrice"_s)->text(), u"0"_s);
    EXPECT_EQ(text(u"txtDate(2)"_s)->text(), QString());
    EXPECT_EQ(text(u"txtMyRemarksK"_s)->text(), QString());
    EXPECT_EQ(text(u"txtQuantity"_s)->text(), u"0"_s);
    EXPECT_EQ(form->control<QComboBox>(u"cobCurrency"_s)->currentText(), u"JPY"_s);
    EXPECT_EQ(form->control<QComboBox>(u"cobTaxation"_s)->currentIndex(), 0);
    EXPECT_EQ(form->packageMode(), 1);
    EXPECT_EQ(packageCount(gPackageQty), 0);
    EXPECT_TRUE(gPackageQty[5].isZero());
    // Left alone
    EXPECT_EQ(customers->currentIndex(), 1);
    EXPECT_EQ(text(u"txtCustomCode"_s)->text(), u"4711"_s);
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0002"_s);
    EXPECT_TRUE(form->control<QCheckBox>(u"chkNew"_s)->isChecked());
    EXPECT_TRUE(form->control(u"fraQuantity"_s)->isHidden());
    EXPECT_TRUE(isLocked(control(u"txtOrderNo"_s)));
    // Its changes count as changes, as typing would
    EXPECT_TRUE(form->bChanged);
    EXPECT_TRUE(form->bChangedQTY);
}

TEST_F(LoadTest, SetDetailEditableTwiceKeepsTheSameStateAndTouchesOnlyTheOrderFields)
{
    load();
    const QColor open = QApplication::palette().color(QPalette::Base);
    const QColor grey = QApplication::palette().color(QPalette::Button);
    for (bool editable : {true, true, false, false, true}) {
        form->SetDetailEditable(editable);
        for (const QString& name : OrderFields) {
            SCOPED_TRACE(name.toStdString());
            EXPECT_EQ(isLocked(control(name)), !editable);
            EXPECT_EQ(isTabStop(control(name)), editable);
            if (qobject_cast<QLineEdit*>(control(name))) {
                EXPECT_EQ(control(name)->palette().color(QPalette::Base), editable ? open : grey);
            }
        }
        for (const char16_t* other : {u"txtMyHCode", u"txtDate(1)", u"txtAmountDelivery", u"txtMyBar"}) {
            EXPECT_FALSE(isLocked(control(QString::fromUtf16(other))));
            EXPECT_TRUE(isTabStop(control(QString::fromUtf16(other))));
        }
        EXPECT_TRUE(isLocked(control(u"txtMyCode"_s))) << "grey stays grey";
        for (const char16_t* noInputMethod : {u"txtDate(0)", u"txtAmountOrder", u"txtKensa", u"txtUnit"}) {
            EXPECT_FALSE(control(QString::fromUtf16(noInputMethod))->testAttribute(Qt::WA_InputMethodEnabled))
                << "locking or opening a field keeps its input method off";
        }
    }
}

TEST_F(LoadTest, FormUsesTheJapaneseUiFontAndEscapeDoesNotClose)
{
    load();
    EXPECT_EQ(QFontInfo(form->control(u"txtHinmeiK"_s)->font()).family(), u"Noto Sans CJK JP"_s);
    EXPECT_DOUBLE_EQ(form->font().pointSizeF(), 9.75);
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    control(u"txtMyBar"_s)->setFocus();
    QTest::keyClick(control(u"txtMyBar"_s), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->result(), 0);
}

TEST_F(LoadTest, TabStripShowsOnePageAtATime)
{
    load();
    auto* tabs = form->control<QTabBar>(u"TabStrip1"_s);
    ASSERT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(0), u"受注者"_s);
    EXPECT_EQ(tabs->tabToolTip(0), u"受注者用情報"_s);
    EXPECT_EQ(tabs->tabText(1), u"発注者"_s);
    EXPECT_EQ(tabs->tabToolTip(1), u"発注者用情報"_s);
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_FALSE(control(u"fraInfoMy"_s)->isHidden());
    EXPECT_TRUE(control(u"fraInfoCust"_s)->isHidden());

    tabs->setCurrentIndex(1);
    EXPECT_TRUE(control(u"fraInfoMy"_s)->isHidden());
    EXPECT_FALSE(control(u"fraInfoCust"_s)->isHidden());
    tabs->setCurrentIndex(0);
    EXPECT_FALSE(control(u"fraInfoMy"_s)->isHidden());
    EXPECT_TRUE(control(u"fraInfoCust"_s)->isHidden());
}
