// The per-package quantity editor through its widgets: the grid by keys, clicks and paste, the equal
// split, the equal-split quantity, the total, closing; and its opening from the entry form.
#include "form_fixture.h"

#include "forms/frmData/package_editor.h"
#include "forms/frmQuantity/frmQuantity.h"
#include "forms/frmQuantity/package_grid.h"
#include "forms/keyed_toolbar.h"
#include "store/package_quantities.h"

#include <QInputMethodEvent>
#include <QToolButton>

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

class QuantityEditorTest : public testing::Test
{
protected:
    // The editor over a delivery of `delivery` with `packages` loaded, shown and active, the grid focused.
    void open(const QString& delivery, const QStringList& packages = {}, const QString& equality = u"0"_s)
    {
        PackageQuantities loaded{};
        for (qsizetype i = 0; i < packages.size(); ++i)
            loaded[std::size_t(i)] = Currency::fromString(packages[i]).value();
        dialog = std::make_unique<frmQuantity>(loaded);
        field(u"txtDelivery"_s)->setText(delivery);
        field(u"txtEquality"_s)->setText(equality);
        ASSERT_TRUE(showActive(dialog.get()));
        ASSERT_EQ(QApplication::focusWidget(), dialog->grid());
    }
    QLineEdit* field(const QString& name) const { return dialog->control<QLineEdit>(name); }
    // The package rows up to the last filled one, "_" for an empty row.
    QString rows() const
    {
        QStringList shown;
        for (int row = 0; row < MaxPackages; ++row)
            shown << dialog->grid()->model()->index(row, 0).data().toString();
        while (!shown.isEmpty() && shown.last().isEmpty())
            shown.removeLast();
        return shown.replaceInStrings(QRegularExpression(u"^$"_s), u"_"_s).join(u' ');
    }
    int activeRow() const { return dialog->grid()->currentRow() + 1; }
    // Typed into the focus widget, one key each: "\n" is Enter, "\t" Tab, "v" Delete, "^" and "_" the arrows.
    static void type(const QString& keys)
    {
        for (const QChar c : keys) {
            QWidget* target = QApplication::focusWidget();
            switch (c.unicode()) {
            case u'\n': QTest::keyClick(target, Qt::Key_Return); break;
            case u'\t': QTest::keyClick(target, Qt::Key_Tab); break;
            case u'v': QTest::keyClick(target, Qt::Key_Delete); break;
            case u'^': QTest::keyClick(target, Qt::Key_Up); break;
            case u'_': QTest::keyClick(target, Qt::Key_Down); break;
            default: QTest::keyClick(target, char(c.unicode()));
            }
        }
    }
    void toolbar(const QString& key) const { QTest::mouseClick(dialog->toolbar1()->button(key), Qt::LeftButton); }
    void clickRow(int row) const
    {
        const QModelIndex index = dialog->grid()->model()->index(row - 1, 0);
        dialog->grid()->scrollTo(index);
        clickThrough(dialog->grid()->viewport(), dialog->grid()->visualRect(index).center());
    }

    ScriptedMessages messages;
    std::unique_ptr<frmQuantity> dialog;
};

const Message SaveQuestion{u"変更内容を保存しますか"_s, u"[入数情報] - 保存確認"_s, QMessageBox::Question,
                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes};

TEST_F(QuantityEditorTest, EqualSplitFillsPackagesOfTheQuantityAndTheRemainderLast)
{
    // clang-format off
    const struct { QString delivery, equality; QStringList before; QString after, refusal; } cases[] = {
        {u"10"_s, u"3"_s, {}, u"3.000 3.000 3.000 1.000"_s, {}},
        {u"9"_s, u"3"_s, {u"1"_s, u"1"_s, u"1"_s, u"1"_s}, u"3.000 3.000 3.000"_s, {}},
        // The old packages below go up to the first empty row; rows after that gap stay.
        {u"10"_s, u"3"_s, {u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"1"_s, u"0"_s, u"9"_s},
         u"3.000 3.000 3.000 1.000 _ _ _ 9.000"_s, {}},
        {u"0.5"_s, u"0.125"_s, {}, u"0.125 0.125 0.125 0.125"_s, {}},
        {u"1000"_s, u"5"_s, {u"7"_s}, u"7.000"_s, u"梱包個数が 100 を超えてしまいます"_s},
        {u"10.001"_s, u"0.1"_s, {u"7"_s}, u"7.000"_s, u"梱包個数が 100 を超えてしまいます"_s}, // 101 packages
        {u"10"_s, u"0"_s, {u"7"_s}, u"7.000"_s, u"均等割数を入力してください"_s},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(QString(c.delivery + u" / "_s + c.equality).toStdString());
        open(c.delivery, c.before, c.equality);
        dialog->grid()->goToRow(2);
        toolbar(u"均等割り"_s);
        if (!c.refusal.isEmpty())
            messages.expectShown({okMessage(c.refusal, u"均等割り")});
        EXPECT_EQ(rows(), c.after);
        EXPECT_EQ(activeRow(), c.refusal.isEmpty() ? 1 : 3);
        EXPECT_EQ(dialog->bGridChanged, c.refusal.isEmpty());
    }
    // A hundred packages fill the grid; the total follows.
    open(u"500"_s, {}, u"5"_s);
    toolbar(u"均等割り"_s);
    EXPECT_EQ(rows().count(u"5.000"_s), MaxPackages);
    EXPECT_EQ(field(u"txtTotal"_s)->text(), u"500.000"_s);
}

TEST_F(QuantityEditorTest, TheEqualSplitQuantityIsCheckedOnLeavingAndByEnter)
{
    const QString rangeMessage = u"均等割数は [ 0 ～ 10 ] の範囲で入力してください"_s;
    // clang-format off
    const struct { QString typed, shown, refusal; } cases[] = {
        {u""_s, u"0.000"_s, {}}, {u"2.5"_s, u"2.500"_s, {}}, {u"1.23456"_s, u"1.235"_s, {}}, {u"10"_s, u"10.000"_s, {}},
        {u"10.0001"_s, u"10.0001"_s, u"納入数量を超えています"_s}, {u"1.2.3"_s, u"1.2.3"_s, rangeMessage},
    };
    // clang-format on
    open(u"10"_s);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed.toStdString());
        if (QApplication::focusWidget() != field(u"txtEquality"_s)) {
            clickThrough(field(u"txtEquality"_s));
            ASSERT_EQ(field(u"txtEquality"_s)->selectedText(), field(u"txtEquality"_s)->text()) << "entering selects all";
        }
        QTest::keyClick(field(u"txtEquality"_s), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field(u"txtEquality"_s), Qt::Key_Delete);
        type(c.typed + u'\t');
        if (!c.refusal.isEmpty())
            messages.expectShown({okMessage(c.refusal, u"[均等割数] - 入力ﾁｪｯｸ")});
        EXPECT_EQ(field(u"txtEquality"_s)->text(), c.shown);
        EXPECT_EQ(QApplication::focusWidget() == field(u"txtEquality"_s), !c.refusal.isEmpty());
    }
    type(u"a"_s);
    EXPECT_EQ(messages.beeps, 1) << "a letter is refused";
    // Enter checks, then splits.
    field(u"txtEquality"_s)->setText(u"4"_s);
    type(u"\n"_s);
    EXPECT_EQ(field(u"txtEquality"_s)->text(), u"4.000"_s);
    EXPECT_EQ(rows(), u"4.000 4.000 2.000"_s);
}

TEST_F(QuantityEditorTest, TheGridIsWorkedByKeysAndKeepsThePackagesContiguous)
{
    open(u"15"_s, {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    type(u"9\n"_s); // typing replaces the cell; Enter stores it and moves down
    EXPECT_EQ(rows(), u"9.000 2.000 3.000 4.000 5.000"_s);
    EXPECT_EQ(field(u"txtTotal"_s)->text(), u"23.000"_s) << "the total follows every edit";
    EXPECT_TRUE(dialog->bGridChanged);
    type(u"_6_"_s); // an arrow stores the cell being typed as well
    EXPECT_EQ(rows(), u"9.000 2.000 6.000 4.000 5.000"_s);
    EXPECT_EQ(activeRow(), 4);
    type(u"^v_"_s); // package 3 of five emptied, then down: 3 to 5 go, the cursor stays
    EXPECT_EQ(rows(), u"9.000 2.000"_s);
    EXPECT_EQ(activeRow(), 3);
    type(u"x"_s);
    EXPECT_EQ(messages.beeps, 1) << "a letter opens no cell";
    type(u"1.23456\n"_s);
    EXPECT_EQ(rows(), u"9.000 2.000 1.235"_s) << "three decimals, half to even";
    clickRow(40); // below the packages: the first empty row after them
    EXPECT_EQ(activeRow(), 4);
    type(u"5\t"_s); // Tab stores and leaves the grid
    EXPECT_EQ(QApplication::focusWidget(), field(u"txtEquality"_s));
    EXPECT_EQ(field(u"txtTotal"_s)->text(), u"17.235"_s);
    dialog->grid()->setFocus();
    dialog->grid()->goToRow(99);
    type(u"7_\n"_s); // package 100 is the last row the cursor reaches
    EXPECT_EQ(activeRow(), 100);
}

TEST_F(QuantityEditorTest, APastedColumnFillsTheRowsFromTheActiveOne)
{
    open(u"10"_s, {u"1"_s});
    dialog->grid()->goToRow(1);
    QApplication::clipboard()->setText(u"3\r\n4.5\r\n\r\n2.5\r\n"_s); // a gap, a final line break
    QTest::keyClick(dialog->grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rows(), u"1.000 3.000 4.500 _ 2.500"_s);
    EXPECT_EQ(field(u"txtTotal"_s)->text(), u"11.000"_s);
    // Pasting while a cell is being typed in; values through the cell rule.
    type(u"8"_s);
    QApplication::clipboard()->setText(u"1000000000\tx\nabc\n-2\n"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(rows(), u"1.000 999999999.999 _ _ 2.500"_s);
    EXPECT_EQ(messages.beeps, 1) << "above the largest quantity";
    dialog->grid()->goToRow(98);
    QApplication::clipboard()->setText(u"1\n2\n3"_s);
    QTest::keyClick(dialog->grid(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages.beeps, 2) << "three rows do not fit below row 99";
    EXPECT_EQ(rows(), u"1.000 999999999.999 _ _ 2.500"_s);
}

TEST_F(QuantityEditorTest, TheCellsTakeNoInputMethodText)
{
    open(u"10"_s, {u"4"_s, u"6"_s});
    // The item view turns its input method back on with every focus and current cell: on opening, after a
    // move, in a cell opened with F2.
    const struct { bool opened; QString after; } steps[] = {{false, u"_"_s}, {false, u"^"_s}, {true, u"\n"_s}};
    for (const auto& [opened, after] : steps) {
        QWidget* focus = QApplication::focusWidget();
        if (opened) {
            QTest::keyClick(focus, Qt::Key_F2);
            focus = QApplication::focusWidget();
            ASSERT_NE(focus, dialog->grid());
        }
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QApplication::sendEvent(focus, &query);
        EXPECT_FALSE(query.value(Qt::ImEnabled).toBool()) << "the platform asks before it sends";
        QInputMethodEvent commit;
        commit.setCommitString(u"\uFF11\uFF12"_s);
        QApplication::sendEvent(focus, &commit);
        EXPECT_EQ(QApplication::focusWidget(), focus) << "no cell opened";
        EXPECT_EQ(focus->property("text").toString(), opened ? u"4.000"_s : QString());
        type(after);
        EXPECT_EQ(rows(), u"4.000 6.000"_s);
    }
}

TEST_F(QuantityEditorTest, ClosingAsksAndAcceptsOnlyPackagesThatAddUpToTheDelivery)
{
    // clang-format off
    const struct { const char* what; QString typed; std::deque<QMessageBox::StandardButton> answers;
                   bool mismatch, closed, accepted; } cases[] = {
        {"unchanged", u""_s, {}, false, true, false},
        {"cancel stays", u"6"_s, {QMessageBox::Cancel}, false, false, false},
        {"no drops the grid", u"6"_s, {QMessageBox::No}, false, true, false},
        {"a total 0.001 short", u"5.999"_s, {QMessageBox::Yes}, true, false, false},
        {"a total 0.001 over", u"6.001"_s, {QMessageBox::Yes}, true, false, false},
        {"yes with the total", u"6"_s, {QMessageBox::Yes}, false, true, true},
    };
    // clang-format on
    for (const bool byEscape : {false, true}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.what);
            open(u"10"_s, {u"4"_s, u"0"_s, u"1"_s});
            dialog->grid()->goToRow(2);
            if (!c.typed.isEmpty())
                type(c.typed + u'\n');
            messages.answers = c.answers;
            if (byEscape)
                QTest::keyClick(dialog->grid(), Qt::Key_Escape);
            else
                toolbar(u"戻る"_s);
            if (c.typed.isEmpty())
                messages.expectShown({});
            else if (c.mismatch)
                messages.expectShown({SaveQuestion, okMessage(u"入数の合計が納入数量と一致しません", u"入力ｴﾗｰ")});
            else
                messages.expectShown({SaveQuestion});
            EXPECT_EQ(dialog->isVisible(), !c.closed);
            EXPECT_EQ(dialog->packagesAccepted(), c.accepted);
        }
    }
    // The accepted packages close up around the row that was empty: all of them are kept.
    EXPECT_EQ(packageRowsOf(1, dialog->packages()).size(), 2u);
    EXPECT_EQ(dialog->packages()[1], Currency::fromInteger(6));
}

TEST_F(QuantityEditorTest, TheTotalShowsHowItStandsAgainstTheDelivery)
{
    const QColor red(255, 0, 0), highlight = QApplication::palette().color(QPalette::Highlight);
    const QColor text = QApplication::palette().color(QPalette::WindowText);
    for (const auto& [total, colour, bold] : {std::tuple{u"10.001"_s, red, true}, {u"9.999"_s, highlight, true},
                                              {u"10"_s, text, false}}) {
        open(u"10"_s, {total});
        EXPECT_EQ(field(u"txtTotal"_s)->palette().color(QPalette::Text), colour) << total.toStdString();
        EXPECT_EQ(field(u"txtTotal"_s)->font().bold(), bold) << total.toStdString();
        EXPECT_FALSE(dialog->bGridChanged) << "loading is no change";
    }
}

using PackageEditorTest = EntryTest;

TEST_F(PackageEditorTest, OpensBesideTheFormOnlyForSomethingToBreakDown)
{
    // clang-format off
    const struct { QString delivery; int mode; bool opens, message; } cases[] = {
        {u"0.002"_s, 3, true, false}, {u"0.001"_s, 3, false, true},
        {u"0"_s, 3, false, false},  // the package frame is disabled
        {u"10"_s, 1, false, false}, // the button is disabled
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.delivery.toStdString());
        text(u"txtAmountDelivery"_s)->setText(c.delivery);
        form->selectPackageMode(c.mode);
        messages.beeps = 0;
        const WhenShown<frmQuantity> editor;
        frmdata::cmdQuantity_Click(*form);
        EXPECT_EQ(editor.shown(), c.opens ? 1 : 0);
        if (c.message)
            expectOneMessage(u"個別設定できる納入数量がありません", u"個別入数入力...");
        EXPECT_EQ(messages.beeps, c.opens ? 0 : 1);
    }

    // By a click: the editor stands at the form's right edge over its height, and gives back the
    // equal-split quantity and, accepted, its packages.
    text(u"txtAmountDelivery"_s)->setText(u"10"_s);
    form->selectPackageMode(3);
    text(u"txtQuantity"_s)->setText(u"4"_s);
    clearFlags();
    const WhenShown<frmQuantity> editor([&](frmQuantity& dialog) {
        EXPECT_EQ(dialog.geometry().right(), form->geometry().right());
        EXPECT_EQ(dialog.geometry().top(), form->geometry().top());
        EXPECT_EQ(dialog.height(), form->height());
        EXPECT_EQ(dialog.control<QLineEdit>(u"txtDelivery"_s)->text(), u"10"_s);
        EXPECT_EQ(dialog.control<QLineEdit>(u"txtEquality"_s)->text(), u"4"_s);
        dialog.Toolbar1_ButtonClick(u"均等割り"_s);
        dialog.control<QLineEdit>(u"txtEquality"_s)->setText(u"3.000"_s);
        messages.answers = {QMessageBox::Yes};
        dialog.Toolbar1_ButtonClick(u"戻る"_s);
    });
    click(control(u"cmdQuantity"_s));
    ASSERT_EQ(editor.shown(), 1);
    EXPECT_EQ(text(u"txtQuantity"_s)->text(), u"3.000"_s);
    EXPECT_TRUE(form->bChangedQTY);
    EXPECT_EQ(packageCount(gPackageQty), 3);
    EXPECT_EQ(gPackageQty[2], Currency::fromInteger(2));
}

} // namespace
