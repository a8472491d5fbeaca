// Half-width and full-width text fields, through the real form: what is kept, what is normalised, what
// is refused with which message, where the focus goes and what is marked changed.
#include "form_fixture.h"
#include "stated_fields.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

class TextFieldTest : public EntryTest
{
protected:
    // Left with `expected` in the box: accepted, or refused with the width message; then emptied.
    void expectWidth(const QString& name, const QString& expected, bool accepted)
    {
        const StatedField& stated = statedField(name);
        const bool full = stated.width == Full;
        expectLeft(name, expected,
                   accepted ? QString()
                            : (full ? u"全角文字のみ入力可能です\r\n最大文字数は %1 桁です"_s
                                    : u"半角文字のみ入力可能です\r\n最大文字数は %1 桁です"_s)
                                  .arg(stated.maxLength),
                   full ? u"入力ﾁｪｯｸ - 漢字項目" : u"入力ﾁｪｯｸ - 半角項目");
        EXPECT_EQ(messages.beeps, 0);
        text(name)->clear();
    }
};

} // namespace

TEST_F(TextFieldTest, WidthRules)
{
    const Input T = Input::Type, P = Input::Paste, I = Input::InputMethod;
    const Leave Tab = Leave::Tab, Back = Leave::BackTab, Click = Leave::Click;
    // clang-format off
    // `expected`: the field's text after leaving.
    const struct { const char* what; QString field; Input how; QString input, expected; bool accepted; Leave leaving; } cases[] = {
        {"half: voiced half-width katakana stay", u"txtHinmeiA"_s, T, u"ｶﾞｷﾞﾊﾟｰ"_s, u"ｶﾞｷﾞﾊﾟｰ"_s, true, Tab},
        {"half: full-width narrows", u"txtHinmeiA"_s, I, u"ＡＢ１ガッ"_s, u"AB1ｶﾞｯ"_s, true, Back},
        {"half: leading blanks kept, trailing removed", u"txtHinmeiA"_s, P, u"  ab  "_s, u"  ab"_s, true, Click},
        {"half: trailing ideographic blank", u"txtHinmeiA"_s, T, u"ab　"_s, u"ab "_s, false, Tab},
        // Bytes of the trimmed text against characters of the untrimmed one: the blank's missing byte
        // makes up for the kanji's second.
        {"half: kanji before a trailing ideographic blank", u"txtHinmeiA"_s, P, u"品　"_s, u"品 "_s, true, Tab},
        {"half: kanji; the katakana are narrowed all the same", u"txtHinmeiA"_s, I, u"品ガ"_s, u"品ｶﾞ"_s, false, Click},
        {"half: emoji is one substitute byte", u"txtHinmeiA"_s, P, u"A😀"_s, u"A😀"_s, true, Tab},
        {"half: an emoji cut at the limit leaves no half of it", u"txtTantoA"_s, P, u"😀😀😀😀"_s, u"😀😀😀\uFFFD"_s, true, Tab},
        {"half: so is an invisible right-to-left mark", u"txtHinmeiA"_s, P, u"a\u200Fb"_s, u"a\u200Fb"_s, true, Tab},
        {"half: ‖ has no half-width form", u"txtHinmeiA"_s, P, u"a‖"_s, u"a‖"_s, false, Tab},
        {"half: narrowing doubles the text past the limit", u"txtHinmeiA"_s, P, QString(30, u'ガ'), u"ｶﾞ"_s.repeated(30), true, Tab},
        {"full: ASCII widens, the blank too; base and mark join", u"txtHinmeiK"_s, T, u"ab 1ｶﾞ"_s, u"ａｂ　１ガ"_s, true, Click},
        {"full: kanji and hiragana stay", u"txtHinmeiK"_s, I, u"品名ひらがな"_s, u"品名ひらがな"_s, true, Tab},
        {"full: leading blank widened, trailing removed", u"txtHinmeiK"_s, T, u" 品  "_s, u"　品"_s, true, Tab},
        {"full: trailing ideographic blank stays", u"txtHinmeiK"_s, I, u"品　"_s, u"品　"_s, true, Tab},
        {"full: emoji", u"txtHinmeiK"_s, P, u"品😀"_s, u"品😀"_s, false, Back},
        {"unit: typed letters become capitals", u"txtUnit"_s, T, u"kg"_s, u"KG"_s, true, Tab},
        {"unit: pasted letters stay as they are", u"txtUnit"_s, P, u"kg"_s, u"kg"_s, true, Tab},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        enter(c.field);
        clearFlags();
        input(c.input, c.how);
        leave(c.leaving);
        EXPECT_TRUE(form->bChanged);
        expectWidth(c.field, c.expected, c.accepted);
    }
}

// Switching the information page with the mouse leaves the field: a refused value keeps its page.
TEST_F(TextFieldTest, SwitchingTheInformationPageChecksTheFieldFirst)
{
    auto* tabs = form->control<QTabBar>(u"TabStrip1"_s);
    const auto clickTab = [&](int index) { clickThrough(tabs, tabs->tabRect(index).center()); };
    enter(u"txtMyRemarksA"_s);
    input(u"備考"_s);
    clickTab(1);
    expectWidth(u"txtMyRemarksA"_s, u"備考"_s, false);
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_TRUE(control(u"fraInfoMy"_s)->isVisible() && !control(u"fraInfoCust"_s)->isVisible());

    clickTab(1); // emptied: accepted
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_TRUE(control(u"fraInfoCust"_s)->isVisible() && !control(u"fraInfoMy"_s)->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusedField(), control(u"txtCustomRemarksA"_s)) << "Tab goes on into the page shown";

    // The wheel would switch without leaving the field: it switches nothing.
    const QPointF at = tabs->tabRect(0).center();
    QWheelEvent wheel(at, tabs->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(tabs, &wheel);
    EXPECT_EQ(tabs->currentIndex(), 1);
}

// Text written by code (as a record is shown), then the field entered and left without typing.
TEST_F(TextFieldTest, TheWriteBackMarksTheRecordChangedOnlyWhenItAltersTheText)
{
    // clang-format off
    const struct { QString field, shown, expected; bool accepted; } cases[] = {
        {u"txtHCode"_s, u"ＡＢ－１"_s, u"AB-1"_s, true}, {u"txtHCode"_s, u"AB-1"_s, u"AB-1"_s, true},
        {u"txtHCode"_s, u"品番"_s, u"品番"_s, false},     {u"txtPlaceK"_s, u"ｶﾞｰﾃﾞﾝ"_s, u"ガーデン"_s, true},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.shown.toStdString());
        text(c.field)->setText(c.shown);
        enter(c.field);
        clearFlags();
        leave();
        EXPECT_EQ(form->bChanged, c.shown != c.expected);
        expectWidth(c.field, c.expected, c.accepted);
    }
}

TEST_F(TextFieldTest, ATextLengthenedPastTheLimitStaysWholeAndTypingCannotGrowIt)
{
    fill(u"txtHinmeiA"_s, QString(30, u'パ'), Input::Paste);
    QLineEdit* box = text(u"txtHinmeiA"_s);
    ASSERT_EQ(box->text(), u"ﾊﾟ"_s.repeated(30));

    enter(u"txtHinmeiA"_s);
    QTest::keyClick(box, Qt::Key_End);
    input(u"X"_s);
    EXPECT_EQ(box->text().size(), 60) << "no room to type";
    QTest::keyClick(box, Qt::Key_Home);
    QTest::keyClick(box, Qt::Key_Delete); // ﾊﾟ goes as one character
    EXPECT_EQ(box->text().size(), 58);
    EXPECT_EQ(box->cursorPosition(), 0) << "the caret stays where the operator works";
    input(u"X"_s);
    EXPECT_EQ(box->text().size(), 58) << "deleting makes no room beyond the limit";
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    input(QString(31, u'Y'));
    EXPECT_EQ(box->text(), QString(30, u'Y')) << "once the text fits, the limit is back";
    EXPECT_EQ(box->maxLength(), 30);
}

// Every text field applies its own class: a kanji is refused by a half-width field, with the field's
// limit in the message, and kept by a full-width one; ASCII is kept by the one and widened by the other.
TEST_F(TextFieldTest, EveryFieldChecksItsOwnClass)
{
    int fields = 0;
    for (const StatedField& field : StatedFields) {
        if (field.width == NoWidth)
            continue;
        ++fields;
        const QString name = field.name.toString();
        SCOPED_TRACE(name.toStdString());
        fill(name, u"品a"_s, Input::Paste);
        expectWidth(name, field.width == Full ? u"品ａ"_s : u"品a"_s, field.width == Full);
    }
    EXPECT_EQ(fields, 19);
}
