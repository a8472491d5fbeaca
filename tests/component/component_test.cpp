#include <tolvinpt/fmInput.h>

#include "component/state.h"
#include "tests/support/fake_host.h"
#include "tests/support/scripted_messages.h"

#include <gtest/gtest.h>

using namespace tolvinpt;
using namespace tolvinpt::test;

namespace {

FakeCustomerData customer(long id, bool deleted)
{
    FakeCustomerData c;
    c.id = id;
    c.code = QString::number(1000 + id);
    c.name = QStringLiteral("得意先%1").arg(id);
    c.deleted = deleted;
    return c;
}

class ComponentTest : public testing::Test
{
protected:
    void SetUp() override { registerFakeHost(host); }
    void TearDown() override { RegisterHostObjects(nullptr); }
    FakeHostData host;
    ScriptedMessages messages;
};

void expectNoCustomerMessage(const ScriptedMessages& m)
{
    ASSERT_EQ(m.shown.size(), 1);
    EXPECT_EQ(m.shown[0].text, QStringLiteral("得意先を登録してください"));
    EXPECT_EQ(m.shown[0].title, QStringLiteral("入力..."));
    EXPECT_EQ(m.shown[0].icon, QMessageBox::Warning);
    EXPECT_EQ(m.shown[0].buttons, QMessageBox::Ok);
}

} // namespace

TEST_F(ComponentTest, NoActiveCustomerStopsBothCallsWithTheMessage)
{
    // An empty master and one whose customers are all deleted behave alike.
    for (const auto& customers : {QList<FakeCustomerData>{}, {customer(1, true), customer(2, true)}}) {
        host.customers = customers;
        fmInput input;
        messages.shown.clear();
        Items items{1, 2};
        input.InputData(items);
        expectNoCustomerMessage(messages);

        messages.shown.clear();
        EXPECT_FALSE(input.NewData());
        expectNoCustomerMessage(messages);
    }
}

TEST_F(ComponentTest, ActiveCustomersAreCountedAnewOnEveryCall)
{
    host.customers = {customer(1, true), customer(2, false), customer(3, false)};
    fmInput input;
    EXPECT_EQ(CountActiveCustomers(), 2);
    Items empty;
    input.InputData(empty); // empty list: nothing shown at all
    EXPECT_TRUE(messages.shown.isEmpty());
}

TEST_F(ComponentTest, HostFailuresReachTheCallerAsTheComponentError)
{
    RegisterHostObjects(nullptr);
    try {
        fmInput input;
        FAIL() << "creating fmInput without host objects must fail";
    } catch (const Error& e) {
        EXPECT_FALSE(e.description().isEmpty());
        EXPECT_NE(e.number(), 0);
    }
}
