// The split dialog through its widgets: the new key number, the quantity to move, OK, ｷｬﾝｾﾙ, Escape.
#include "forms/frmDivide/frmDivide.h"
#include "tests/support/operator_input.h"
#include "tests/support/scripted_messages.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

class SplitDialogTest : public testing::Test
{
protected:
    void SetUp() override
    {
        dialog = std::make_unique<frmDivide>();
        dialog->fill({u"12"_s, u"KEY-1"_s, u"10"_s});
        ASSERT_TRUE(showActive(dialog.get()));
    }
    QLineEdit* field(const QString& name) const { return dialog->control<QLineEdit>(name); }
    // Replaces the text of `name` as typed (or pasted) and ends with `key`, in the field.
    void enter(const QString& name, const QString& text, Qt::Key key = Qt::Key_Tab, bool paste = false) const
    {
        field(name)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(field(name), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field(name), Qt::Key_Delete);
        if (paste)
            field(name)->insert(text);
        else
            QTest::keyClicks(field(name), text);
        QTest::keyClick(field(name), key);
    }
    void expectRefused(QStringView text, QStringView title, const QString& focused)
    {
        messages.expectShown({okMessage(text, title)});
        EXPECT_EQ(QApplication::focusWidget(), field(focused)) << "the refused field keeps the focus";
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(dialog->Result, 0);
    }

    ScriptedMessages messages;
    std::unique_ptr<frmDivide> dialog;
};

TEST_F(SplitDialogTest, TheNewKeyMustDifferAndBeHalfWidth)
{
    EXPECT_EQ(QApplication::focusWidget(), field(u"txtPayment(1)"_s));
    EXPECT_EQ(field(u"txtPayment(1)"_s)->selectedText(), u"KEY-1"_s) << "the proposed key, selected";
    enter(u"txtPayment(1)"_s, u"KEY-1"_s);
    expectRefused(u"納品ｷｰ番号を入力してください", u"入力ﾁｪｯｸ - 納品ｷｰ番号", u"txtPayment(1)"_s);
    enter(u"txtPayment(1)"_s, u"鍵1"_s, Qt::Key_Tab, true);
    expectRefused(u"半角文字のみ入力可能です\r\n最大文字数は 23 桁です", u"入力ﾁｪｯｸ - 半角項目",
                  u"txtPayment(1)"_s);
    enter(u"txtPayment(1)"_s, u"ＫＥＹ－２ "_s, Qt::Key_Tab, true);
    EXPECT_EQ(field(u"txtPayment(1)"_s)->text(), u"KEY-2"_s);
    EXPECT_EQ(QApplication::focusWidget(), field(u"txtAmount(1)"_s));
    // OK checks the key again, by Enter from the other field as well.
    field(u"txtPayment(1)"_s)->setText(u"KEY-1"_s);
    enter(u"txtAmount(1)"_s, u"4"_s, Qt::Key_Return);
    expectRefused(u"納品ｷｰ番号を入力してください", u"入力ﾁｪｯｸ - 納品ｷｰ番号", u"txtPayment(1)"_s);
    // An empty new key passes while the source record has one.
    field(u"txtPayment(1)"_s)->clear();
    QTest::keyClick(field(u"txtPayment(1)"_s), Qt::Key_Return);
    messages.expectShown({});
    EXPECT_EQ(dialog->Result, 1);
    const DivideRequest request = dialog->request();
    EXPECT_EQ(request.oldKey, u"KEY-1"_s);
    EXPECT_EQ(request.oldQuantity, Currency::fromInteger(10));
    EXPECT_EQ(request.newKey, u""_s);
    EXPECT_EQ(request.newQuantity, Currency::fromInteger(4));
}

TEST_F(SplitDialogTest, TheQuantityToMoveLeavesTheSourceAtLeastAThousandth)
{
    const QStringView title = u"[納入数量] - 入力ﾁｪｯｸ";
    // clang-format off
    const struct { QString typed; bool paste; QString shown, refusal; } cases[] = {
        {u"5"_s, false, u"5"_s, {}}, {u"2.5"_s, false, u"2.5"_s, {}}, {u"1.23456"_s, false, u"1.235"_s, {}},
        {u"1.2345"_s, false, u"1.234"_s, {}}, {u"2.0005"_s, false, u"2"_s, {}}, {u"9.999"_s, false, u"9.999"_s, {}},
        {u"10"_s, false, u"10"_s, u"分割後の数量が、分割前の数量を超えています"_s},
        {u"9.9995"_s, false, u"9.9995"_s, u"分割後の数量が、分割前の数量を超えています"_s}, // 10.000 to move
        {u"0"_s, false, u"0"_s, u"納入数量に ｾﾞﾛ は入力できません"_s},
        {u""_s, false, u""_s, u"納入数量に ｾﾞﾛ は入力できません"_s},
        {u"0.0004"_s, false, u"0.0004"_s, u"納入数量に ｾﾞﾛ は入力できません"_s},
        {u"1000000000"_s, false, u"1000000000"_s, u"納入数量の最大値は 999,999,999.999 です"_s},
        {u"-5"_s, true, u"-5"_s, u"納入数量に ﾏｲﾅｽ は入力できません"_s},
    };
    // clang-format on
    field(u"txtPayment(1)"_s)->setText(u"KEY-2"_s);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed.toStdString());
        enter(u"txtAmount(1)"_s, c.typed, Qt::Key_Backtab, c.paste);
        if (c.refusal.isEmpty())
            EXPECT_EQ(QApplication::focusWidget(), field(u"txtPayment(1)"_s));
        else
            expectRefused(c.refusal, title, u"txtAmount(1)"_s);
        EXPECT_EQ(field(u"txtAmount(1)"_s)->text(), c.shown);
    }
    // OK from the other field checks the quantity too.
    QTest::keyClick(field(u"txtPayment(1)"_s), Qt::Key_Return);
    expectRefused(u"納入数量に ﾏｲﾅｽ は入力できません", title, u"txtAmount(1)"_s);
    messages.beeps = 0;
    QTest::keyClicks(field(u"txtAmount(1)"_s), u"a,-"_s);
    EXPECT_EQ(messages.beeps, 3) << "number keys only";
}

TEST_F(SplitDialogTest, CancelEndsWithoutAnyCheck)
{
    EXPECT_TRUE(dialog->control<QPushButton>(u"cmdAny(0)"_s)->isDefault());
    for (const bool byEscape : {false, true}) {
        SCOPED_TRACE(byEscape ? "Escape" : "ｷｬﾝｾﾙ");
        field(u"txtAmount(1)"_s)->setText(u"0"_s); // would be refused, as would the unchanged key
        dialog->Result = 0;
        dialog->show();
        if (byEscape)
            QTest::keyClick(field(u"txtPayment(1)"_s), Qt::Key_Escape);
        else
            QTest::mouseClick(dialog->control(u"cmdAny(1)"_s), Qt::LeftButton);
        messages.expectShown({});
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->Result, 2);
    }
}

} // namespace
