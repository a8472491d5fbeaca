// Currency code completion, name following and the check on leaving.
#include "form_fixture.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

const QString Other = u"その他"_s;

class CurrencyTest : public EntryTest
{
protected:
    QComboBox* currency() const { return combo(u"cobCurrency"_s); }
    QString name() const { return combo(u"cobCurrencyName"_s)->currentText(); }
};

} // namespace

TEST_F(CurrencyTest, TypingCompletesAListedCode)
{
    // clang-format off
    const struct { QString keys /* typed over the whole text */, text, selected; int index; QString name; } cases[] = {
        {u"u"_s, u"USD"_s, u"SD"_s, 1, u"米 ﾄﾞﾙ"_s},
        {u"hk"_s, u"HKD"_s, u"D"_s, 8, u"香港 ﾄﾞﾙ"_s},
        {u"s"_s, u"SGD"_s, u"GD"_s, 9, u"ｼﾝｶﾞﾎﾟｰﾙ ﾄﾞﾙ"_s}, // the code starts with it, not only contains it
        {u"au"_s, u"AU"_s, u""_s, -1, Other},
        {u"usd"_s, u"USD"_s, u""_s, 1, u"米 ﾄﾞﾙ"_s},
        {u"u\b"_s, u"USD"_s, u"SD"_s, 1, u"米 ﾄﾞﾙ"_s}, // backspace removes the completion, which returns
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keys.toStdString());
        enter(u"cobCurrency"_s);
        EXPECT_EQ(currency()->lineEdit()->selectedText(), currency()->currentText())
            << "entering selects it all";
        clearFlags();
        input(c.keys);
        EXPECT_EQ(currency()->currentText(), c.text);
        EXPECT_EQ(currency()->lineEdit()->selectedText(), c.selected);
        EXPECT_EQ(currency()->currentIndex(), c.index);
        EXPECT_EQ(name(), c.name);
        EXPECT_TRUE(form->bChanged);
        EXPECT_EQ(form->CurrencyPrefixLength, 0);
        EXPECT_EQ(messages.beeps, 0) << "no key is refused";
        leave();
        expectLeft(u"cobCurrency"_s, c.text);
    }
    // A stored code outside the list shows "その他" while the combo still holds the item it started
    // like (USD here): completing that same item names it again.
    combo(u"cobCurrencyName"_s)->setCurrentIndex(11);
    enter(u"cobCurrency"_s);
    input(u"u"_s);
    EXPECT_EQ(name(), u"米 ﾄﾞﾙ"_s);
}

TEST_F(CurrencyTest, LeavingChecksTheCode)
{
    // clang-format off
    const struct { QString pasted, textAfter /* a refused text stays */, name; bool refused; } cases[] = {
        {u""_s, u"JPY"_s, u"日本 円"_s, false}, {u"   "_s, u"JPY"_s, u"日本 円"_s, false},
        {u" AU "_s, u" AU "_s, Other, false},   {u"米"_s, u"米"_s, Other, false},
        {u"ABCD"_s, u"ABCD"_s, Other, true},    {u"米国"_s, u"米国"_s, Other, true},
        {u"gbp"_s, u"GBP"_s, u"英 ﾎﾟﾝﾄﾞ"_s, false},
        {u"A"_s + QChar(0xD800), u"A\uFFFD"_s, Other, false}, // half a character is stored as U+FFFD
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pasted.toStdString());
        fill(u"cobCurrency"_s, c.pasted, Input::Paste);
        expectLeft(u"cobCurrency"_s, c.textAfter,
                   c.refused ? u"通貨 ｺｰﾄﾞ には、半角 3 文字まで入力可能です" : u"", u"通貨ｺｰﾄﾞ ﾁｪｯｸ...");
        EXPECT_EQ(name(), c.name);
    }
}

TEST_F(CurrencyTest, SwitchingToYenChecksTheUnitPriceFirst)
{
    // clang-format off
    const struct { QString price, typed, priceAfter; bool refused; } cases[] = {
        {u"12345678901.5"_s, u"j"_s, u"12345678901.5"_s, true},
        {u"12.3456"_s, u"j"_s, u"12.346"_s, false},
        {u"12345678901.5"_s, u"jpy "_s, u"12345678901.5"_s, false}, // only the exact code is checked
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(QString(c.price + u' ' + c.typed).toStdString());
        currency()->setCurrentIndex(1);
        text(u"txtUnitPrice"_s)->setText(c.price);
        fill(u"cobCurrency"_s, c.typed);
        EXPECT_EQ(text(u"txtUnitPrice"_s)->text(), c.priceAfter);
        if (c.refused) {
            messages.expectShown(
                {okMessage(u"単価の最大値は 999,999,999.999 です", u"[単価] - 入力ﾁｪｯｸ"),
                 okMessage(u"通貨を「日本円」に変更する場合は、\r\n単価を変更してから、通貨ｺｰﾄﾞを指定してください",
                           u"通貨ｺｰﾄﾞ & 単価 ﾁｪｯｸ...", QMessageBox::Information)});
            EXPECT_EQ(focusedField(), control(u"cobCurrency"_s));
            EXPECT_EQ(currency()->currentText(), u"JPY"_s);
            currency()->lineEdit()->selectAll();
            input(u"u"_s);
            leave();
        }
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(focusedField(), control(u"cobTaxation"_s));
    }
}
