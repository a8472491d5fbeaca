// One entry call from the host's side: the form on the host's list, the record list, movement, errors.
#include "entry_call_fixture.h"

#include "component/state.h"

namespace {

// Active customers are counted anew on every call; with none, neither call opens the form.
TEST_F(EntryCall, WithoutAnActiveCustomerNeitherCallOpensTheForm)
{
    fmInput counting;
    EXPECT_EQ(CountActiveCustomers(), 1);
    Items empty;
    counting.InputData(empty); // nothing to show, nothing said
    const Message none = test::okMessage(u"得意先を登録してください", u"入力...");
    for (const auto& customers : {QList<test::FakeCustomerData>{}, {host.customers[1]}}) {
        host.customers = customers;
        fmInput input;
        Items items{ids[0]};
        input.InputData(items);
        EXPECT_FALSE(input.NewData());
        messages.expectShown({none, none});
    }
}

// A movement that fails says "description (number)" on the form's caption and leaves the form where it was.
TEST_F(EntryCall, ButtonsFollowThePositionThroughTheList)
{
    struct Step
    {
        const char* what;
        std::function<void(frmData&)> act;
        const char* buttons; // 戻る 進む 一覧選択; nullptr: not checked
        const char* key;
        int index;
        QString message = {};
    };
    const auto next = [](frmData& f) { f.toolbar1()->button(u"進む"_s)->click(); };
    const auto back = [](frmData& f) { f.menuItem(u"mnuDataPrevious"_s)->trigger(); };
    const auto choose = [](int n) { return [n](frmData& f) { emit f.recordList()->entryChosen(n); }; };
    const auto nextLocked = [&](frmData& f) {
        const test::SecondConnection lock(temp, {u"BEGIN EXCLUSIVE"_s});
        next(f);
    };
    // clang-format off
    const Step steps[] = {
        {"first", [](frmData&) {}, "011", "K-1", 1},
        {"next while the database is locked", nextLocked, "011", "K-1", 1, temp.lockedError().shown()},
        {"next, the lock gone", next, "111", "K-2", 2},
        {"next again", next, "101", "K-3", 3},
        {"next at the end changes nothing", [](frmData& f) { f.menuItem(u"mnuDataNext"_s)->trigger(); }, "101", "K-3", 3},
        {"back", back, "111", "K-2", 2},
        {"choose entry 3", choose(3), "101", "K-3", 3},
        {"choose entry 1", choose(1), "011", "K-1", 1},
        {"back from the first", back, nullptr, "K-1", 0, u"Index out of range (9)"_s},
    };
    // clang-format on
    Items items{ids[0], QString(QString::number(ids[1]) + u"Key"_s), double(ids[2])};
    inputData(items, [&](frmData& form) {
        for (const Step& s : steps) {
            SCOPED_TRACE(s.what);
            s.act(form);
            messages.expectShown(s.message.isEmpty() ? QList<Message>()
                                                     : QList{test::okMessage(s.message, u"納品ﾃﾞｰﾀの入力")});
            if (s.buttons) {
                EXPECT_EQ(buttons(form), QString::fromLatin1(s.buttons));
            }
            EXPECT_EQ(shownKey(form), QString::fromLatin1(s.key));
            EXPECT_EQ(gIndex, s.index);
            EXPECT_TRUE(form.isVisible());
        }
        EXPECT_EQ(form.recordList()->count(), 3);
        EXPECT_EQ(form.recordList()->keyAt(2), QString::number(ids[1]) + u"Key"_s);
        EXPECT_EQ(form.recordList()->textAt(3), u"K-3"_s);
    });
    EXPECT_EQ(gItems, &items);
}

TEST_F(EntryCall, OneRecordDisablesMovementButKeepsItsEntry)
{
    Items items{insert(u"K-9"_s, u"7777"_s)};
    inputData(items, [&](frmData& form) {
        EXPECT_EQ(buttons(form), u"000"_s);
        EXPECT_EQ(form.recordList()->count(), 1);
        EXPECT_EQ(shownKey(form), u"K-9"_s);
        // A buyer that is not in the list selects no customer (a save would store the selected one's id).
        EXPECT_EQ(form.control<QComboBox>(u"cobCustomer"_s)->currentIndex(), -1);
        EXPECT_EQ(form.control<QLineEdit>(u"txtCustomCode"_s)->text(), u"7777"_s);
    });
}

TEST_F(EntryCall, FaultyHostsAndBadListsFailTheCallAndTheNextCallWorks)
{
    using test::Fault;
    host.multipleOwnCodes = true; // the own code is chosen from the list and named by NameOf
    host.ownCode = u"*"_s;
    host.ownCodes = {{u"東京工場"_s, u"0101"_s}, {u"大阪工場"_s, u"0202"_s}};
    std::optional<test::SecondConnection> lock;
    const auto next = [](frmData& f) { f.toolbar1()->button(u"進む"_s)->click(); };
    const auto pickOwnCode = [](frmData& f) { QTest::keyClick(f.control(u"cobMyCodes"_s), Qt::Key_Down); };
    const auto saveARemark = [](frmData& f) {
        f.control<QLineEdit>(u"txtMyRemarksA"_s)->setText(u"TYPED"_s);
        f.menuItem(u"mnuDataSave"_s)->trigger();
    };
    // The faults are armed before the fmInput is created, or, with an `act`, on the open form just
    // before the operator's act.
    struct Case
    {
        const char* what;
        QHash<QString, Fault> faults;
        std::function<void()> afterCreate;
        std::function<void(frmData&)> act;
        bool newData;
        long number;
        QString description = {}; // checked when given
        Items items = {};         // none: the first two records
    };
    // clang-format off
    const Case cases[] = {
        {"no company settings", {{u"CreateCompanySettings"_s, Fault::ReturnsNull}}, {}, {}, false, 91, {}},
        {"no database", {{u"Database"_s, Fault::ReturnsNull}}, {}, {}, false, 91, {}},
        {"no customer list", {{u"CreateCustomerList"_s, Fault::ReturnsNull}}, {}, {}, false, 91, {}},
        {"no customer at a position", {{u"At"_s, Fault::ReturnsNull}}, {}, {}, true, 91, {}},
        {"a count beyond the list", {{u"Count"_s, Fault::OneTooMany}}, {}, {}, false, 440, {}},
        {"another fmInput destroyed", {}, [] { fmInput other; }, {}, false, 91, u"Object variable or With block variable not set"_s},
        {"the customer lookup of the first record throws", {{u"ByKey"_s, Fault::Throws}}, {}, {}, false, 440, u"fake host: ByKey failed"_s},
        {"the view-only setting throws on moving", {{u"ViewOnly"_s, Fault::Throws}}, {}, next, false, 440, u"fake host: ViewOnly failed"_s},
        {"the own-code name throws no std::exception", {{u"NameOf"_s, Fault::ThrowsForeign}}, {}, pickOwnCode, true, 440, u"Automation error"_s},
        {"the database is locked", {}, [&] { lock.emplace(temp, std::initializer_list<QString>{u"BEGIN EXCLUSIVE"_s}); }, {}, false, temp.lockedError().number, temp.lockedError().description},
        {"a save for a customer code the host does not know", {}, {}, saveARemark, false, 91, {}, {insert(u"K-9"_s, u"7777"_s)}},
        // Bad lists fail before the form is shown.
        {"a missing record", {}, {}, {}, false, 3021, {}, {ids[0], 999}},
        {"an element that is not a number", {}, {}, {}, false, 3021, {}, {u"abc"_s}},
        {"the same element twice", {}, {}, {}, false, 35602, {}, {ids[0], ids[0]}},
        {"an id beyond 32 bits", {}, {}, {}, false, 6, {}, {u"99999999999"_s}},
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        host.faults = c.act ? QHash<QString, Fault>() : c.faults;
        if (c.act) {
            whileShown([&](frmData& form) {
                host.faults = c.faults;
                c.act(form);
                EXPECT_FALSE(form.isVisible()) << "the failure closed the form";
            });
        }
        const test::Thrown error = test::thrown<Error>([&] {
            fmInput input;
            if (c.afterCreate)
                c.afterCreate();
            Items items = c.items.Count() ? c.items : Items{ids[0], ids[1]};
            c.newData ? void(input.NewData()) : input.InputData(items);
        });
        EXPECT_EQ(error.number, c.number);
        EXPECT_TRUE(c.description.isEmpty() || error.description == c.description)
            << error.description.toStdString();
        EXPECT_FALSE(QApplication::activeModalWidget());

        // The process goes on: the next call on a sound host shows and closes its form.
        host.faults.clear();
        lock.reset();
        test::registerFakeHost(host);
        bool shown = false;
        whileShown([&](frmData&) { shown = true; });
        fmInput input;
        Items items{ids[2]};
        EXPECT_NO_THROW(input.InputData(items));
        EXPECT_TRUE(shown);
    }
}

TEST_F(EntryCall, NewDataOpensTheBlankNewRecordForm)
{
    EXPECT_FALSE(newData([&](frmData& form) {
        EXPECT_EQ(form.control<QLabel>(u"lblInfo"_s)->text(), u"[手入力]"_s);
        EXPECT_TRUE(form.toolbar2()->isVisibleTo(&form));
        EXPECT_FALSE(form.toolbar1()->button(u"進む"_s)->isEnabled());
        EXPECT_EQ(gIndex, 0);
        // The customer choice: the active customer and its sub-codes, code after the last ":".
        auto* customers = form.control<QComboBox>(u"cobCustomer"_s);
        ASSERT_EQ(customers->count(), 3);
        EXPECT_EQ(customers->itemText(0), u"東京電機"_s + QString(100, u' ') + u":1234"_s);
        EXPECT_TRUE(customers->itemText(2).endsWith(QString(100, u' ') + u":123402"_s));
        EXPECT_EQ(customers->itemData(2).toLongLong(), 1);
    }));
}

} // namespace
