// Half-width and full-width text fields, through the real form: what is kept, what is normalised, what
// is refused with which message, where the focus goes and what is marked changed.
#include "text_field_fixture.h"

#include "platform/validate_on_leave.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

struct WidthCase
{
    const char* name;
    QStringView field;
    Input how;
    QString input;
    QString expected; // the field's text after leaving
    bool accepted;
    Leave leaving = Leave::Tab;
};

QString times(int count, QStringView text)
{
    return text.toString().repeated(count);
}

const Input T = Input::Type;
const Input P = Input::Paste;
const Input I = Input::InputMethod;
const Leave Back = Leave::BackTab;
const Leave Click = Leave::Click;

// clang-format off
const WidthCase WidthCases[] = {
    // Half-width fields
    {"voiced half-width katakana stay", u"txtHinmeiA", T, u"ｶﾞｷﾞﾊﾟｰ"_s, u"ｶﾞｷﾞﾊﾟｰ"_s, true},
    {"full-width letters and digits narrow", u"txtHinmeiA", I, u"ＡＢＣ１２３"_s, u"ABC123"_s, true, Back},
    {"voiced katakana narrow to base and mark", u"txtHinmeiA", I, u"ガッコウ"_s, u"ｶﾞｯｺｳ"_s, true},
    {"yen signs and backslash", u"txtHinmeiA", P, u"￥100¥\\"_s, u"¥100¥\\"_s, true},
    {"tilde, wave dash, full-width tilde", u"txtHinmeiA", P, u"~〜～"_s, u"~~~"_s, true},
    {"quotation marks", u"txtHinmeiA", T, u"“a”‘b’"_s, u"\"a\"'b'"_s, true},
    {"leading blanks kept, trailing removed", u"txtHinmeiA", T, u"  ab  "_s, u"  ab"_s, true},
    {"blanks only become empty", u"txtHinmeiA", T, u"   "_s, u""_s, true},
    {"ideographic blank between words", u"txtHinmeiA", I, u"ｱ　ｲ"_s, u"ｱ ｲ"_s, true},
    {"trailing ideographic blank", u"txtHinmeiA", T, u"ab　"_s, u"ab "_s, false},
    {"ideographic blank alone", u"txtHinmeiA", P, u"　"_s, u" "_s, false},
    // Bytes of the trimmed text against characters of the untrimmed one: the blank's missing byte
    // makes up for the kanji's second.
    {"kanji before a trailing ideographic blank", u"txtHinmeiA", P, u"品　"_s, u"品 "_s, true},
    {"kanji", u"txtHinmeiA", I, u"品名"_s, u"品名"_s, false, Click},
    {"hiragana; the katakana are narrowed all the same", u"txtHinmeiA", I, u"ひらガナ"_s, u"ひらｶﾞﾅ"_s, false, Back},
    {"emoji: one substitute byte", u"txtHinmeiA", P, u"A😀"_s, u"A😀"_s, true},
    {"Hangul, outside the code page", u"txtHinmeiA", P, u"한"_s, u"한"_s, true},
    {"at the limit", u"txtHinmeiA", T, times(30, u"A"), times(30, u"A"), true},
    {"over the limit: the box cuts the paste", u"txtHinmeiA", P, times(35, u"A"), times(30, u"A"), true},
    {"narrowing doubles the text past the limit", u"txtHinmeiA", P, times(30, u"ガ"), times(30, u"ｶﾞ"), true},
    {"limit in characters, not bytes", u"txtTantoA", I, u"ＡＢＣＤＥＦＧ"_s, u"ABCDEFG"_s, true},
    {"typed over the limit", u"txtTantoA", T, u"ABCDEFGHI"_s, u"ABCDEFG"_s, true},
    {"message names the field's limit (7)", u"txtTantoA", T, u"担当"_s, u"担当"_s, false},
    {"message names the field's limit (50)", u"txtCustomRemarksA", P, u"備考"_s, u"備考"_s, false},
    {"no input method: paste", u"txtKensa", P, u"Ａ検"_s, u"A検"_s, false},
    // Full-width fields
    {"ASCII widens, the blank too", u"txtHinmeiK", T, u"abc 123"_s, u"ａｂｃ　１２３"_s, true, Click},
    {"half-width base and mark join", u"txtHinmeiK", T, u"ｶﾞｯｺｳ"_s, u"ガッコウ"_s, true},
    {"a mark without a joined form stays apart", u"txtHinmeiK", P, u"ﾜﾞｱﾞ"_s, u"ワ゛ア゛"_s, true},
    {"backslash and yen sign", u"txtHinmeiK", T, u"\\¥"_s, u"＼￥"_s, true},
    {"tilde and wave dash", u"txtHinmeiK", P, u"~〜"_s, u"～～"_s, true},
    {"kanji and hiragana stay", u"txtHinmeiK", I, u"品名ひらがな"_s, u"品名ひらがな"_s, true},
    {"leading blank widened, trailing removed", u"txtHinmeiK", T, u" 品名  "_s, u"　品名"_s, true},
    {"trailing ideographic blank stays", u"txtHinmeiK", I, u"品名　"_s, u"品名　"_s, true},
    {"blanks only become empty", u"txtHinmeiK", T, u"  "_s, u""_s, true},
    {"emoji", u"txtHinmeiK", P, u"品😀"_s, u"品😀"_s, false, Back},
    {"Hangul", u"txtHinmeiK", P, u"한"_s, u"한"_s, false, Click},
    {"at the limit", u"txtHinmeiK", I, times(30, u"品"), times(30, u"品"), true},
    {"the box cuts first, widening shortens", u"txtHinmeiK", P, times(40, u"ｶﾞ"), times(15, u"ガ"), true},
    {"message names the field's limit (7)", u"txtTantoK", T, u"a😀"_s, u"ａ😀"_s, false},
    // The unit: typed letters become capitals, then the half-width rule
    {"unit: typed letters", u"txtUnit", T, u"kg"_s, u"KG"_s, true},
    {"unit: typed full-width letters", u"txtUnit", T, u"ｋｇ"_s, u"KG"_s, true},
    {"unit: pasted letters stay as they are", u"txtUnit", P, u"kg"_s, u"kg"_s, true},
    {"unit: kanji", u"txtUnit", T, u"g個"_s, u"G個"_s, false},
};
// clang-format on

} // namespace

TEST_F(TextFieldTest, WidthRules)
{
    for (const auto& c : WidthCases) {
        SCOPED_TRACE(c.name);
        QLineEdit* box = enter(c.field);
        clearFlags();
        messages.shown.clear();
        input(box, c.how, c.input);
        leave(box, c.leaving);

        EXPECT_EQ(box->text(), c.expected);
        EXPECT_EQ(box->hasFocus(), !c.accepted) << "a refused value keeps the focus";
        ASSERT_EQ(messages.shown.size(), c.accepted ? 0 : 1);
        if (!c.accepted)
            expectMessage(messages.shown[0],
                          widthMessage(*widthOf(specOf(c.field)), specOf(c.field).maxLength));
        EXPECT_TRUE(form->bChanged);
        EXPECT_EQ(messages.beeps, 0);
        box->clear();
    }
}

TEST_F(TextFieldTest, TheOperatorCorrectsARefusedValueAndLeavesAgain)
{
    QLineEdit* box = enter(u"txtPlaceA");
    input(box, Input::InputMethod, u"東京"_s);
    leave(box, Leave::Tab);
    ASSERT_TRUE(box->hasFocus());
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    input(box, Input::InputMethod, u"ﾄｳｷｮｳ"_s);
    leave(box, Leave::Tab);
    EXPECT_EQ(box->text(), u"ﾄｳｷｮｳ"_s);
    EXPECT_EQ(QApplication::focusWidget(), control(u"txtPlaceK"_s));
    EXPECT_EQ(messages.shown.size(), 1);
}

TEST_F(TextFieldTest, ACommandChecksTheFocusedField)
{
    QLineEdit* box = enter(u"txtMyRemarksK");
    input(box, Input::Type, u"abc😀"_s);
    EXPECT_FALSE(form->leave().ValidateControls());
    ASSERT_EQ(messages.shown.size(), 1);
    expectMessage(messages.shown[0], widthMessage(Width::Full, 25));
    EXPECT_EQ(box->text(), u"ａｂｃ😀"_s);
    EXPECT_TRUE(box->hasFocus());
}

// Text written by code (as a record is shown), then the field entered and left without typing.
TEST_F(TextFieldTest, TheWriteBackMarksTheRecordChangedOnlyWhenItAltersTheText)
{
    struct Case
    {
        QStringView field;
        QString shown;
        QString expected;
        bool changed;
        bool accepted;
    };
    const Case cases[] = {
        {u"txtHCode", u"ＡＢ－１"_s, u"AB-1"_s, true, true},
        {u"txtHCode", u"AB-1"_s, u"AB-1"_s, false, true},
        {u"txtHCode", u"AB-1  "_s, u"AB-1"_s, true, true},
        {u"txtHCode", u"品番"_s, u"品番"_s, false, false},
        {u"txtPlaceK", u"ｶﾞｰﾃﾞﾝ"_s, u"ガーデン"_s, true, true},
        {u"txtPlaceK", u"ガーデン"_s, u"ガーデン"_s, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.shown.toStdString());
        text(c.field.toString())->setText(c.shown);
        QLineEdit* box = enter(c.field);
        clearFlags();
        leave(box, Leave::Tab);
        EXPECT_EQ(box->text(), c.expected);
        EXPECT_EQ(form->bChanged, c.changed);
        EXPECT_EQ(box->hasFocus(), !c.accepted);
        box->clear();
    }
}

TEST_F(TextFieldTest, ATextLengthenedPastTheLimitStaysWholeAndTypingCannotGrowIt)
{
    QLineEdit* box = enter(u"txtHinmeiA");
    input(box, Input::Paste, times(30, u"パ"));
    leave(box, Leave::Tab);
    ASSERT_EQ(box->text(), times(30, u"ﾊﾟ"));

    box = enter(u"txtHinmeiA");
    QTest::keyClick(box, Qt::Key_End);
    type(box, u"X"_s);
    EXPECT_EQ(box->text().size(), 60) << "no room to type";
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClick(box, Qt::Key_Delete); // ﾊﾟ goes as one character
    EXPECT_EQ(box->text().size(), 58);
    EXPECT_EQ(box->cursorPosition(), 0) << "the caret stays where the operator works";
    type(box, u"X"_s);
    EXPECT_EQ(box->text().size(), 58) << "deleting makes no room beyond the limit";

    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    type(box, times(31, u"Y"));
    EXPECT_EQ(box->text(), times(30, u"Y")) << "once the text fits, the limit is back";
    EXPECT_EQ(box->maxLength(), 30);
    EXPECT_EQ(messages.shown.size(), 0);
}
