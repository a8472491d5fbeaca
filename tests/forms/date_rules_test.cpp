// Dates: six or eight digits, the year window, the accepted range and the ship/delivery order.
#include "rules_fixture.h"

using namespace tolvinpt;
using namespace tolvinpt::test;
using namespace Qt::StringLiterals;

namespace {

const QString Title = u"日付入力ﾁｪｯｸ"_s;
const QString WrongLength = u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください"_s;
const QString NotADate = u"入力された値は日付として認識できません"_s;
const QString OutOfRange =
    u"日付が入力可能範囲外です\r\n\r\n入力可能範囲 ： 1951年 1月 1日 ～ 2050年12月31日"_s;
const QString Contradiction = u"出荷日と納入日の日付が矛盾しているため自動修正します"_s;

} // namespace

TEST_F(RulesTest, DatesAreWrittenAsEightDigitsOrRefused)
{
    struct Case
    {
        QString input;
        QString shown; // empty: refused with `refusal`
        QString refusal;
        bool pasted = false;
    };
    const Case cases[] = {
        {u"050307"_s, u"20050307"_s, {}},
        {u"500101"_s, u"20500101"_s, {}},
        {u"501231"_s, u"20501231"_s, {}},
        {u"510101"_s, u"19510101"_s, {}},
        {u"991231"_s, u"19991231"_s, {}},
        {u"000229"_s, u"20000229"_s, {}},
        {u"19510101"_s, u"19510101"_s, {}},
        {u"20501231"_s, u"20501231"_s, {}},
        {u"20040229"_s, u"20040229"_s, {}},
        {u""_s, u""_s, {}},
        {u"19501231"_s, {}, OutOfRange},
        {u"20510101"_s, {}, OutOfRange},
        {u"20050229"_s, {}, NotADate},
        {u"20050230"_s, {}, NotADate},
        {u"20051301"_s, {}, NotADate},
        {u"20050100"_s, {}, NotADate},
        {u"050229"_s, {}, NotADate},
        {u"2005/3/7"_s, {}, NotADate, true},
        {u"２００５０３０７"_s, {}, NotADate, true},
        {u"2005037"_s, {}, WrongLength},
        {u"0503"_s, {}, WrongLength},
        {u" 50307"_s, {}, NotADate, true},
    };
    for (const QString& field : {u"txtDate(0)"_s, u"txtDate(1)"_s}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(QString(field + u" ← "_s + c.input).toStdString());
            fill(field, c.input, c.pasted);
            if (c.shown.isEmpty() && !c.input.isEmpty()) {
                expectOneMessage(c.refusal, Title);
                EXPECT_EQ(focusedField(), control(field));
                EXPECT_EQ(text(field)->text(), c.input);
                text(field)->clear();
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            } else {
                EXPECT_TRUE(messages.shown.isEmpty());
                EXPECT_EQ(text(field)->text(), c.shown);
            }
            EXPECT_NE(focusedField(), control(field));
        }
    }
}

TEST_F(RulesTest, TheDateJustEnteredWinsOverTheOtherOfShipAndDelivery)
{
    struct Case
    {
        int index;
        QString typed;
        QString other; // the other date's text before
        QString otherAfter;
    };
    const Case cases[] = {
        {1, u"20050310"_s, u"20050308"_s, u"20050310"_s},
        {1, u"050310"_s, u"20050308"_s, u"20050310"_s}, // the eight-digit form is copied
        {2, u"20050301"_s, u"20050305"_s, u"20050301"_s},
        {2, u"20050305"_s, u"20050305"_s, u"20050305"_s}, // the same day is in order
        {1, u"20050301"_s, u"20050305"_s, u"20050305"_s},
        {1, u"20050310"_s, u""_s, u""_s},
        {2, u"20050310"_s, u"abc"_s, u"abc"_s},           // nothing to compare with
        {0, u"20050310"_s, u"20050301"_s, u"20050301"_s}, // the due date is never compared
    };
    for (const auto& c : cases) {
        const QString field = u"txtDate(%1)"_s.arg(c.index);
        const QString other = u"txtDate(%1)"_s.arg(c.index == 1 ? 2 : 1);
        SCOPED_TRACE(QString(field + u" ← "_s + c.typed + u", "_s + c.other).toStdString());
        control(u"txtUnit"_s)->setFocus(); // out of both dates, without validating either
        text(other)->setText(c.other);
        fill(field, c.typed);
        if (c.otherAfter != c.other)
            expectOneMessage(Contradiction, Title);
        EXPECT_TRUE(messages.shown.isEmpty());
        EXPECT_EQ(text(other)->text(), c.otherAfter);
        EXPECT_NE(focusedField(), control(field)) << "a correction is no refusal";
    }
}
