// Dates: six or eight digits, the year window, the accepted range and the ship/delivery order.
#include "form_fixture.h"

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

using DateRulesTest = EntryTest;

constexpr QStringView Title = u"日付入力ﾁｪｯｸ";

} // namespace

TEST_F(DateRulesTest, DatesAreWrittenAsEightDigitsOrRefused)
{
    const QString wrongLength = u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください"_s;
    const QString notADate = u"入力された値は日付として認識できません"_s;
    const QString outOfRange =
        u"日付が入力可能範囲外です\r\n\r\n入力可能範囲 ： 1951年 1月 1日 ～ 2050年12月31日"_s;
    // clang-format off
    const struct { QString input, shown; /* empty: refused with */ QString refusal; } cases[] = {
        {u"050307"_s, u"20050307"_s, {}},   {u"501231"_s, u"20501231"_s, {}},
        {u"510101"_s, u"19510101"_s, {}},   {u"000229"_s, u"20000229"_s, {}},
        {u"20040229"_s, u"20040229"_s, {}}, {u""_s, u""_s, {}},
        {u"19501231"_s, {}, outOfRange},    {u"20510101"_s, {}, outOfRange},
        {u"20050229"_s, {}, notADate},      {u"２００５０３０７"_s, {}, notADate},
        {u"2005037"_s, {}, wrongLength},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.input.toStdString());
        fill(u"txtDate(0)"_s, c.input, Input::Paste);
        expectLeft(u"txtDate(0)"_s, c.refusal.isEmpty() ? c.shown : c.input, c.refusal, Title);
    }
}

TEST_F(DateRulesTest, TheDateJustEnteredWinsOverTheOtherOfShipAndDelivery)
{
    // clang-format off
    const struct { int index; QString typed, other /* the other date's text before */, otherAfter; } cases[] = {
        {1, u"050310"_s, u"20050308"_s, u"20050310"_s}, // the eight-digit form is copied
        {2, u"20050301"_s, u"20050305"_s, u"20050301"_s},
        {2, u"20050305"_s, u"20050305"_s, u"20050305"_s}, // the same day is in order
        {1, u"20050301"_s, u"20050305"_s, u"20050305"_s},
        {1, u"20050310"_s, u""_s, u""_s},
        {2, u"20050310"_s, u"abc"_s, u"abc"_s},           // nothing to compare with
        {0, u"20050310"_s, u"20050301"_s, u"20050301"_s}, // the due date is never compared
    };
    // clang-format on
    for (const auto& c : cases) {
        const QString field = u"txtDate(%1)"_s.arg(c.index);
        const QString other = u"txtDate(%1)"_s.arg(c.index == 1 ? 2 : 1);
        SCOPED_TRACE(QString(field + u" ← "_s + c.typed + u", "_s + c.other).toStdString());
        control(u"txtUnit"_s)->setFocus(); // out of both dates, without validating either
        text(other)->setText(c.other);
        fill(field, c.typed);
        if (c.otherAfter != c.other)
            expectOneMessage(u"出荷日と納入日の日付が矛盾しているため自動修正します", Title);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(text(other)->text(), c.otherAfter);
        EXPECT_NE(focusedField(), control(field)) << "a correction is no refusal";
    }
}
