#pragma once

// The entry form over a real database file, lent by a test entry call: the store and the customers are
// real; what the form tells its call (a record saved, new-record mode left) is recorded here. The
// component's own record list and movement are tested through InputData in tests/component.

#include "component/entry_procedure.h"
#include "form_fixture.h"
#include "forms/frmData/entry_link.h"
#include "forms/frmData/record_display.h"
#include "store/delivery_reads.h"
#include "store/delivery_writes.h"
#include "tests/support/temp_database.h"

#include <QAction>
#include <QSqlQuery>

#include <stdexcept>

namespace tolvinpt::test {

using Columns = std::vector<std::pair<DeliveryColumn, QVariant>>;

class TestLink final : public EntryLink
{
public:
    TestLink(db::Database& database, std::shared_ptr<CustomerList> customers)
        : m_database(database), m_customers(std::move(customers))
    {
    }
    db::Database& database() override { return m_database; }
    const CustomerList& customers() const override { return *m_customers; }
    std::shared_ptr<Customer> customerByCode(const QString& code) const override
    {
        if (auto customer = m_customers->ByCode(code))
            return customer;
        throw std::runtime_error("no customer " + code.toStdString());
    }
    void recordSaved(qint64 id, const QString& deliveryKey, bool newRecord) override
    {
        saved.append({QString::number(id), deliveryKey, newRecord ? u"new"_s : u"changed"_s});
    }
    void newRecordLeft() override { ++left; }
    SplitResult splitRecord(const DeliverySplit&) override
    {
        throw std::logic_error("the split runs in the entry call's transaction (tests/component)");
    }

    QList<QStringList> saved; // id, delivery key number, "new" or "changed"
    int left = 0;

private:
    db::Database& m_database;
    std::shared_ptr<CustomerList> m_customers;
};

// Customer 1 ("1234") is strict, customer 2 ("5678") lenient.
class EntryFormTest : public FormTest
{
protected:
    void SetUp() override
    {
        FormTest::SetUp();
        host.connectionName = temp.connectionName();
        for (const auto& [id, code] : {std::pair{1, u"1234"_s}, {2, u"5678"_s}}) {
            FakeCustomerData& customer = host.customers.emplace_back();
            std::tie(customer.id, customer.code, customer.name) = std::tuple(id, code, u"得意先"_s + code);
        }
        host.customers[1].lenientEntry = true;
        // A lock fails at once (0 would be no limit on the server).
        temp.db().execute(temp.sql(u"PRAGMA busy_timeout = 0"_s, u"SET lock_timeout = '1ms'"_s));
    }
    void TearDown() override
    {
        form.reset();
        link.reset();
        FormTest::TearDown();
    }

    // A record of `customer` that passes every check, with `columns` on top.
    qint64 insert(const Columns& columns = {}, long customer = 1)
    {
        using C = DeliveryColumn;
        DeliveryRecord record;
        // clang-format off
        const Columns complete = {
            {C::IDCustomer, qint64(customer)}, {C::F00004, customer == 1 ? u"1234"_s : u"5678"_s},
            {C::F00007, u"ORD-1"_s}, {C::F00159, u"KEY-1"_s}, {C::F00024, u"HC-1"_s}, {C::F00031, u"2005-03-01"_s},
            {C::F00039, u"2005-03-07"_s}, {C::F00040, u"2005-03-09"_s}, {C::F00015, 10.0}, {C::F00036, 10.0},
            {C::F00059, u"1"_s}, {C::F00281, u""_s}, {C::F00013, u"100"_s},
        };
        // clang-format on
        for (const auto& columnValues : {complete, columns})
            for (const auto& [column, value] : columnValues)
                record.set(column, value);
        return insertDeliveryRecord(temp.db(), record);
    }

    // The form on record `id` in browse mode, or in new-record mode; shown and active.
    void open(qint64 id)
    {
        prepare([&] { ShowDeliveryRecord(*form, temp.db(), link->customers(), id); });
    }
    void openNewRecord()
    {
        prepare([&] { form->gNewStart(); });
    }

    std::optional<DeliveryRecord> row(qint64 id) { return readDeliveryRecord(temp.db(), id); }
    void run(const QString& menuItem) const { form->menuItem(menuItem)->trigger(); }
    // Sets a field's text as code does, which marks the change as typing would.
    void set(const QString& field, const QString& value) const { text(field)->setText(value); }
    void exec(const QString& sql) { temp.db().execute(sql); }

    TempDatabase temp;
    std::unique_ptr<TestLink> link;

private:
    void prepare(const std::function<void()>& start)
    {
        load();
        auto customers = hostObjects().CreateCustomerList();
        FillCustomerCombo(*form, *customers);
        link = std::make_unique<TestLink>(temp.db(), customers);
        form->setEntryLink(link.get());
        start();
        form->show();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
};

} // namespace tolvinpt::test
