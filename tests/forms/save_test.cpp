// Saving the record on screen: the checks before it, what it writes, and what the operator sees when
// it cannot write.
#include "entry_fixture.h"

#include "platform/field_state.h"
#include "store/package_quantities.h"

using namespace tolvinpt;
using namespace Qt::StringLiterals;
using C = tolvinpt::DeliveryColumn;

namespace {

using test::Columns;
using Edits = std::vector<std::pair<QString, QString>>;

Message question(QStringView text, QStringView title)
{
    return {text.toString(), title.toString(), QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
            QMessageBox::No};
}

const Message ZeroOrder = test::okMessage(u"注文数量が ｾﾞﾛ です", u"[注文数量] - 入力ﾁｪｯｸ");
const Message Incomplete = question(u"必要項目が入力されていませんが、保存してよろしいですか", u"再確認...入力ﾁｪｯｸ");
const Message Duplicate = test::okMessage(u"同一の納品ｷｰ番号が存在します", u"重複ﾁｪｯｸ");

class Save : public test::EntryFormTest
{
};

TEST_F(Save, ChecksRefuseOrWarnInTheirOrderAndPutTheFocusWhereTheFaultIs)
{
    using A = QMessageBox::StandardButton;
    const auto ok = [](const char16_t* text, const char16_t* title) { return test::okMessage(text, title); };
    struct Case
    {
        const char* what;
        long customer;
        Columns stored;
        Edits edits; // none: only the package mode changes
        std::deque<A> answers;
        std::vector<Message> expected;
        const char* focus; // where the focus ends, nullptr when the record was saved
        bool stillLocked = false;
    };
    // clang-format off
    const Case cases[] = {
        {"order number required; its field is not opened", 1, {}, {{u"txtOrderNo"_s, u"   "_s}}, {},
         {ok(u"注文番号は必須入力です", u"[注文番号] - 入力ﾁｪｯｸ")}, "txtOrderNo", true},
        {"delivery key number required", 1, {}, {{u"txtPaymentKeyNo"_s, u""_s}}, {},
         {ok(u"納品ｷｰ番号は必須入力です", u"[納品ｷｰ番号] - 入力ﾁｪｯｸ")}, "txtPaymentKeyNo"},
        {"item code or an item name required", 1, {}, {{u"txtHCode"_s, u" "_s}}, {},
         {ok(u"発注者品名ｺｰﾄﾞ、または品名は必須入力です", u"[発注者品名ｺｰﾄﾞ] - 入力ﾁｪｯｸ")}, "txtHCode"},
        {"one item name is enough", 1, {}, {{u"txtHCode"_s, u""_s}, {u"txtHinmeiK"_s, u"品名"_s}}, {}, {}, nullptr},
        {"order quantity above the largest", 1, {{C::F00015, 2e9}}, {}, {},
         {ok(u"注文数量の最大値は 999,999,999.999 です", u"[注文数量] - 入力ﾁｪｯｸ")}, "txtAmountOrder"},
        {"zero order quantity warns; No saves nothing", 1, {}, {{u"txtAmountOrder"_s, u"0"_s}}, {A::Ok, A::No},
         {ZeroOrder, Incomplete}, "txtAmountOrder", true}, // a warning opens nothing
        {"zero order quantity warns; Yes saves", 1, {}, {{u"txtAmountOrder"_s, u"0"_s}}, {A::Ok, A::Yes},
         {ZeroOrder, Incomplete}, nullptr},
        {"negative quantities pass", 1, {}, {{u"txtAmountOrder"_s, u"-5"_s}}, {}, {}, nullptr},
        {"a lenient customer: zero order quantity and no dates", 2, {},
         {{u"txtAmountOrder"_s, u"0"_s}, {u"txtDate(0)"_s, u""_s}, {u"txtDate(1)"_s, u""_s}}, {}, {}, nullptr},
        {"zero delivery quantity, even for a lenient customer", 2, {}, {{u"txtAmountDelivery"_s, u"0"_s}}, {},
         {ok(u"納入数量に ｾﾞﾛ は入力できません", u"[納入数量] - 入力ﾁｪｯｸ")}, "txtAmountDelivery"},
        {"delivery quantity above the largest", 1, {{C::F00036, 1e10}}, {}, {},
         {ok(u"納入数量の最大値は 999,999,999.999 です", u"[納入数量] - 入力ﾁｪｯｸ")}, "txtAmountDelivery"},
        {"the largest delivery quantity", 1, {}, {{u"txtAmountDelivery"_s, u"999999999.999"_s}}, {}, {}, nullptr},
        {"no due or ship date: two warnings, then the question", 1, {},
         {{u"txtDate(0)"_s, u""_s}, {u"txtDate(1)"_s, u""_s}}, {A::Ok, A::Ok, A::Yes},
         {ok(u"納期が入力されていません", u"[納期] - 入力ﾁｪｯｸ"), ok(u"出荷日が入力されていません", u"[出荷日] - 入力ﾁｪｯｸ"), Incomplete},
         nullptr},
        // The refused due date stops nothing, but keeps the ship date from being tested; the save
        // then cannot convert it.
        {"a refused due date, then a date that does not convert", 1, {},
         {{u"txtDate(0)"_s, u"123"_s}, {u"txtDate(1)"_s, u""_s}}, {},
         {ok(u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください", u"日付入力ﾁｪｯｸ"),
          ok(u"Type mismatch (13)", u"ﾃﾞｰﾀの保存")}, ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        exec(u"DELETE FROM T_Delivery"_s);
        open(insert(c.stored, c.customer));
        for (const auto& [field, value] : c.edits)
            set(field, value);
        if (c.edits.empty())
            click(control(u"optQuantity(2)"_s));
        messages.answers = c.answers;
        run(u"mnuDataSave"_s);
        std::vector<Message> seen(messages.shown.begin(), messages.shown.end());
        messages.shown.clear();
        ASSERT_EQ(seen.size(), c.expected.size()) << (seen.empty() ? "" : qPrintable(seen[0].text));
        for (std::size_t i = 0; i < seen.size(); ++i) {
            EXPECT_EQ(seen[i].text, c.expected[i].text);
            EXPECT_EQ(seen[i].title, c.expected[i].title);
            EXPECT_EQ(seen[i].icon, c.expected[i].icon);
            EXPECT_EQ(seen[i].buttons, c.expected[i].buttons);
            EXPECT_EQ(seen[i].defaultButton, c.expected[i].defaultButton);
        }
        EXPECT_EQ(link->saved.size(), c.focus ? 0 : 1);
        EXPECT_EQ(form->bChanged || form->bChangedQTY, c.focus != nullptr);
        if (c.focus && *c.focus) {
            QWidget* field = control(QString::fromLatin1(c.focus));
            EXPECT_EQ(focusedField(), field);
            EXPECT_EQ(isLocked(field), c.stillLocked);
        }
    }
}

TEST_F(Save, DuplicateDeliveryKeyOfAnotherLiveRecordIsRefused)
{
    struct Case
    {
        const char* what;
        Columns other; // another record
        bool refused;
    };
    const Case cases[] = {
        {"same key in other letter case", {{C::F00007, u"ord-1"_s}, {C::F00159, u"key-1"_s}}, true},
        {"in the waste box", {{C::InDustBox, true}}, false},
        {"another customer's", {{C::IDCustomer, 2}}, false},
        {"with a trailing blank", {{C::F00159, u"KEY-1 "_s}}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        exec(u"DELETE FROM T_Delivery"_s);
        insert(c.other);
        open(insert({{C::F00159, u"NEW"_s}}));
        run(u"mnuDataDetail"_s);
        set(u"txtPaymentKeyNo"_s, u"KEY-1"_s);
        run(u"mnuDataSave"_s);
        if (c.refused) {
            messages.expectShown({Duplicate});
            EXPECT_EQ(focusedField(), control(u"txtPaymentKeyNo"_s));
        }
        EXPECT_EQ(link->saved.size(), c.refused ? 0 : 1);
    }
}

} // namespace
