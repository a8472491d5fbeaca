// Form load, browse and new-record mode, the blank record, the order fields' lock, toolbars, menus,
// the record list, the change flags and the package-mode options.
#include "form_fixture.h"
#include "stated_fields.h"

#include "forms/combo_items.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/widgets/field_state.h"
#include "store/package_quantities.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

using FormModesTest = FormTest;

const QStringList OrderFields = {
    u"cobCustomer"_s,    u"txtOrderNo"_s,        u"txtPaymentKeyNo"_s,   u"txtPlaceC"_s,
    u"txtPlaceA"_s,      u"txtPlaceK"_s,         u"txtTantoA"_s,         u"txtTantoK"_s,
    u"txtHCode"_s,       u"txtHinmeiA"_s,        u"txtHinmeiK"_s,        u"txtDate(0)"_s,
    u"txtAmountOrder"_s, u"txtAmountIndicate"_s, u"txtCustomRemarksA"_s, u"txtCustomRemarksK"_s,
    u"txtCustomBar"_s,   u"txtKensa"_s,          u"txtUnit"_s,           u"cobMyCodes"_s};

} // namespace

TEST_F(FormModesTest, OwnCodesListModeOnlyWithMultipleCodesStarAndAListAndTheCodeSelectsItsItem)
{
    const QList<OwnCodeEntry> two = {{u"東京工場"_s, u"0101"_s}, {u"大阪工場"_s, u"0202"_s}};
    // clang-format off
    const struct { bool multiple; QString code; QList<OwnCodeEntry> list; bool listMode; } cases[] = {
        {false, u"0001"_s, {}, false}, {true, u"*"_s, two, true},   {true, u"*"_s, {}, false},
        {true, u"0001"_s, two, false}, {false, u"*"_s, two, false},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code.toStdString() + (c.multiple ? " multiple" : " single"));
        host.multipleOwnCodes = c.multiple;
        host.ownCode = c.code;
        host.ownCodes = c.list;
        load();
        QComboBox* codes = combo(u"cobMyCodes"_s);
        EXPECT_EQ(codes->count(), c.listMode ? 3 : 1);
        EXPECT_EQ(codes->itemText(0), ownCodeItem(host.ownName, c.code));
        EXPECT_EQ(codes->itemText(codes->count() - 1),
                  c.listMode ? ownCodeItem(u"大阪工場"_s, u"0202"_s) : codes->itemText(0));
        EXPECT_EQ(codes->isEnabled(), c.listMode);
        EXPECT_EQ(codes->currentIndex(), 0);
        EXPECT_EQ(text(u"txtMyCode"_s)->text(), c.code) << "the selected own code follows into txtMyCode";
        // A code shown selects its company's item by name (an unknown one the company's own), marking
        // nothing.
        for (const auto& [code, index] : {std::pair{u"0202"_s, c.listMode ? 2 : 0}, {u"9999"_s, 0}}) {
            clearFlags();
            text(u"txtMyCode"_s)->setText(code);
            EXPECT_EQ(codes->currentIndex(), index);
            EXPECT_EQ(text(u"txtMyNameFix"_s)->text(), index ? u"大阪工場"_s : u"自社"_s);
            EXPECT_EQ(text(u"txtMyCode"_s)->text(), code) << "the combo's click stays out while syncing";
            EXPECT_FALSE(form->bChanged);
        }
    }
    // The long blank run that hides the code stays out of sight in the open list.
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    combo(u"cobMyCodes"_s)->showPopup();
    EXPECT_EQ(combo(u"cobMyCodes"_s)->view()->window()->width(), combo(u"cobMyCodes"_s)->width());
    combo(u"cobMyCodes"_s)->hidePopup();
}

TEST_F(FormModesTest, LoadShowsBrowseModeAndNewStartNewRecordMode)
{
    for (bool breakdown : {false, true}) {
        host.useQuantityBreakdown = breakdown;
        load();
        EXPECT_EQ(control(u"fraQuantity"_s)->isHidden(), !breakdown);
    }
    EXPECT_EQ(form->lngResult, 7);
    EXPECT_EQ(QFontInfo(control(u"txtHinmeiK"_s)->font()).family(), u"Noto Sans CJK JP"_s);
    EXPECT_DOUBLE_EQ(form->font().pointSizeF(), 9.75);
    EXPECT_FALSE(form->toolbar1()->isButtonEnabled(4)) << "戻る";
    EXPECT_FALSE(control(u"fraQuantity"_s)->isEnabled()) << "the blank record has nothing to pack";
    const QColor open = QApplication::palette().color(QPalette::Base);
    const QColor grey = QApplication::palette().color(QPalette::Button);
    ASSERT_TRUE(showActive(form.get()));
    QSignalSpy save(form->menuItem(u"mnuDataSave"_s), &QAction::triggered);
    QSignalSpy newSave(form->menuItem(u"mnuNewDataSave"_s), &QAction::triggered);
    for (bool newRecord : {false, true}) {
        SCOPED_TRACE(newRecord ? "new record" : "browse");
        if (newRecord)
            form->gNewStart();
        form->SetDetailEditable(newRecord); // once more: changes nothing
        EXPECT_EQ(form->toolbar1()->isHidden(), newRecord);
        EXPECT_EQ(form->toolbar2()->isHidden(), !newRecord);
        EXPECT_EQ(form->menuItem(u"mnuData"_s)->isVisible(), !newRecord);
        EXPECT_EQ(form->menuItem(u"mnuNewData"_s)->isVisible(), newRecord);
        EXPECT_EQ(form->control<QCheckBox>(u"chkNew"_s)->isChecked(), newRecord);
        EXPECT_EQ(control(u"cmdFind"_s)->isEnabled(), newRecord);
        for (const QString& name : OrderFields) {
            QWidget* field = control(name);
            EXPECT_EQ(isLocked(field), !newRecord) << name.toStdString();
            EXPECT_EQ(isTabStop(field), newRecord) << name.toStdString();
            EXPECT_TRUE(!qobject_cast<QLineEdit*>(field) ||
                        field->palette().color(QPalette::Base) == (newRecord ? open : grey));
        }
        EXPECT_TRUE(!isLocked(control(u"txtMyHCode"_s)) && isTabStop(control(u"txtMyHCode"_s)))
            << "no order field";
        EXPECT_TRUE(isLocked(control(u"txtMyCode"_s))) << "grey stays grey";
        for (const QString& name : {u"txtDate(0)"_s, u"txtKensa"_s})
            EXPECT_FALSE(control(name)->testAttribute(Qt::WA_InputMethodEnabled)) << "locking keeps it off";
        // Only the shown menu's shortcuts work.
        QTest::keyClick(form.get(), Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(form.get(), Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(save.size(), 1) << "Ctrl+S in browse mode only";
        EXPECT_EQ(newSave.size(), newRecord ? 1 : 0);
    }
}

TEST_F(FormModesTest, ClearEntryFormBlanksTheRecordAndNewStartStartsAfresh)
{
    host.ownCode = u"0007"_s;
    load();
    combo(u"cobCustomer"_s)->addItems({u"A:1"_s, u"B:2"_s});
    combo(u"cobCustomer"_s)->setCurrentIndex(1);
    text(u"txtMyCode"_s)->setText(u"0002"_s);
    text(u"txtMyRemarksK"_s)->setText(u"備考"_s);
    combo(u"cobCurrency"_s)->setEditText(u"XYZ"_s);
    combo(u"cobTaxation"_s)->setCurrentIndex(3);
    form->control<QCheckBox>(u"chkTaxType"_s)->setChecked(true);
    control(u"fraQuantity"_s)->hide();
    form->selectPackageMode(3);
    gPackageQty[5] = Currency::fromInteger(9);
    clearFlags();

    form->ClearEntryForm();
    EXPECT_EQ(text(u"txtMyRemarksK"_s)->text(), QString()); // more in the record display test
    EXPECT_EQ(combo(u"cobCurrency"_s)->currentText(), u"JPY"_s);
    EXPECT_EQ(combo(u"cobCurrencyName"_s)->currentText(), u"日本 円"_s);
    EXPECT_EQ(combo(u"cobTaxation"_s)->currentIndex(), 0);
    EXPECT_FALSE(form->control<QCheckBox>(u"chkTaxType"_s)->isChecked());
    EXPECT_EQ(form->packageMode(), 1);
    EXPECT_EQ(packageCount(gPackageQty), 0);
    EXPECT_TRUE(gPackageQty[5].isZero());
    // Left alone
    EXPECT_EQ(combo(u"cobCustomer"_s)->currentIndex(), 1);
    EXPECT_EQ(text(u"txtCustomCode"_s)->text(), u"2"_s);
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0002"_s);
    EXPECT_TRUE(control(u"fraQuantity"_s)->isHidden());
    EXPECT_TRUE(isLocked(control(u"txtOrderNo"_s)));
    EXPECT_TRUE(form->bChanged && form->bChangedQTY) << "its changes count as changes, as typing would";

    form->gNewStart();
    EXPECT_EQ(combo(u"cobCustomer"_s)->currentIndex(), 0);
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0007"_s) << "the own-company choice is applied again";
    EXPECT_FALSE(form->bChanged || form->bChangedQTY);
}

TEST_F(FormModesTest, ToolbarButtonsByPositionAndKey)
{
    load();
    // Other code addresses Toolbar1 by these positions; a separator takes one too.
    const QStringList keys1 = {u"新規作成"_s, u"変更保存"_s, {},           u"戻る"_s, u"進む"_s, {},
                               u"一覧選択"_s, u"分割"_s,     u"詳細変更"_s};
    KeyedToolBar* bar = form->toolbar1();
    ASSERT_EQ(bar->count(), keys1.size());
    EXPECT_EQ(bar->buttonAt(bar->count() + 1), nullptr);
    for (int position = 1; position <= bar->count(); ++position) {
        SCOPED_TRACE(position);
        const QString& key = keys1[position - 1];
        QToolButton* button = bar->buttonAt(position);
        EXPECT_EQ(bar->keyAt(position), key);
        EXPECT_EQ(button == nullptr, key.isEmpty());
        bar->setButtonEnabled(position, true);
        EXPECT_EQ(bar->isButtonEnabled(position), button != nullptr);
        if (!button)
            continue;
        EXPECT_EQ(bar->button(key), button);
        EXPECT_FALSE(button->icon().isNull());
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
        EXPECT_EQ(button->popupMode() == QToolButton::MenuButtonPopup, key == u"一覧選択");
    }
    EXPECT_EQ(form->toolbar2()->keyAt(1), u"新規保存"_s);
    clearFlags(); // as after a record is shown: nothing to ask before moving
    QSignalSpy next(form.get(), &frmData::nextRecordRequested);
    QSignalSpy previous(form.get(), &frmData::previousRecordRequested);
    QTest::mouseClick(bar->button(u"進む"_s), Qt::LeftButton);
    QTest::mouseClick(bar->button(u"戻る"_s), Qt::LeftButton);
    EXPECT_TRUE(next.size() == 1 && previous.size() == 1);
}

TEST_F(FormModesTest, RecordListKeepsInsertionOrderAndReportsOneBasedIndices)
{
    load();
    ASSERT_TRUE(showActive(form.get()));
    RecordListMenu* list = form->recordList();
    EXPECT_EQ(form->toolbar1()->button(u"一覧選択"_s)->menu(), list);
    EXPECT_TRUE(list->addEntry(u"30Key"_s, u"K-030"_s));
    EXPECT_TRUE(list->addEntry(u"10Key"_s, u"K-010"_s));
    EXPECT_TRUE(list->addEntry(u"20Key"_s, u"A&B"_s));
    EXPECT_FALSE(list->addEntry(u"10key"_s, u"again"_s)) << "keys are unique regardless of case";
    EXPECT_EQ((QStringList{list->keyAt(1), list->keyAt(2), list->textAt(3)}),
              (QStringList{u"30Key"_s, u"10Key"_s, u"A&B"_s}));
    EXPECT_EQ(list->indexOfKey(u"20KEY"_s), 3);
    EXPECT_EQ(list->indexOfKey(u"99Key"_s), 0);
    EXPECT_TRUE(list->setEntryText(u"10key"_s, u"K-011"_s));
    EXPECT_EQ(list->textAt(2), u"K-011"_s);

    // Chosen in the open list: opened by Ctrl+L and worked by the keyboard (keys go where the window system
    // sends them), then by a click.
    clearFlags();
    QSignalSpy chosen(form.get(), &frmData::recordChosen);
    form->toolbar1()->setButtonEnabled(u"一覧選択"_s, true);
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(list->isVisible());
        for (const auto key : {Qt::Key_Down, Qt::Key_Return})
            QTest::keyClick(list->windowHandle(), key);
    });
    QTest::keyClick(form.get(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_FALSE(list->isVisible());
    list->popup(form->mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list));
    const QModelIndex third = list->view()->model()->index(2, 0);
    EXPECT_EQ(third.data().toString(), u"A&B"_s) << "an ampersand is shown, not an access key";
    QTest::mouseClick(list->view()->viewport(), Qt::LeftButton, {}, list->view()->visualRect(third).center());
    EXPECT_EQ(chosen, (QList<QVariantList>{{2}, {3}}));
}

TEST_F(FormModesTest, EveryChangeMarksWhatTheRulesSay)
{
    host.multipleOwnCodes = true;
    host.ownCode = u"*"_s;
    host.ownCodes = {{u"東京工場"_s, u"0101"_s}};
    load();
    form->gNewStart();
    combo(u"cobCustomer"_s)->addItems({u"得意先A:12345"_s, u"得:意:先B:00678"_s});
    for (const test::StatedField& field : test::StatedFields) {
        SCOPED_TRACE(field.name.toString().toStdString());
        QWidget* w = control(field.name.toString());
        clearFlags();
        // A text changed (by typing or by code alike), another item picked, a click.
        if (auto* edit = qobject_cast<QLineEdit*>(w))
            edit->setText(edit->text() + u'7');
        else if (auto* box = qobject_cast<QComboBox*>(w))
            box->setCurrentIndex(box->currentIndex() == 1 ? 0 : 1);
        else if (auto* check = qobject_cast<QCheckBox*>(w))
            QTest::mouseClick(check, Qt::LeftButton);
        EXPECT_EQ(form->bChanged, field.marks.contains(u'C'));
        EXPECT_EQ(form->bChangedAmount, field.marks.contains(u'A'));
        EXPECT_EQ(form->bChangedQTY, field.marks.contains(u'Q'));
    }
    EXPECT_EQ(text(u"txtMyCode"_s)->text(), u"0101"_s) << "the own-company choice fills the code";
    EXPECT_EQ(text(u"txtCustomCode"_s)->text(), u"00678"_s) << "the customer's code follows its last colon";
    clearFlags();
    combo(u"cobCurrency"_s)->setEditText(u"US"_s);
    EXPECT_TRUE(form->bChanged) << "typing a currency code";
}

TEST_F(FormModesTest, PackageModeOptionsEnableTheirInputsAndResetThePackages)
{
    openNew();
    QTest::keyClick(control(u"cobCustomer"_s), Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible()) << "Escape closes nothing";
    text(u"txtAmountDelivery"_s)->setText(u"12.5 pcs"_s);
    // The selected option clicked again (by code) runs its click handling again.
    for (int mode : {2, 3, 1, 3, 3}) {
        SCOPED_TRACE(mode);
        gPackageQty.fill(Currency::fromInteger(1));
        clearFlags();
        if (form->packageMode() == mode)
            form->selectPackageMode(mode);
        else
            QTest::mouseClick(control(u"optQuantity(%1)"_s.arg(mode)), Qt::LeftButton);
        EXPECT_EQ(form->packageMode(), mode);
        EXPECT_EQ(control(u"txtQuantity"_s)->isEnabled(), mode == 2);
        EXPECT_EQ(control(u"cmdQuantity"_s)->isEnabled(), mode == 3);
        // Individual packages start from the delivery quantity's leading number.
        EXPECT_EQ(gPackageQty[0], mode == 3 ? Currency::fromRaw(125000) : Currency());
        EXPECT_EQ(packageCount(gPackageQty), mode == 3 ? 1 : 0);
        EXPECT_TRUE(!form->bChanged && !form->bChangedAmount && form->bChangedQTY);
        for (int other = 1; other <= 3; ++other)
            EXPECT_EQ(isTabStop(control(u"optQuantity(%1)"_s.arg(other))), other == mode);
    }
}
