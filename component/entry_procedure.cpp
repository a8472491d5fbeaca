#include "component/entry_procedure.h"

#include "component/call_state.h"
#include "component/state.h"
#include "forms/combo_items.h"
#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_display.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/sql/database.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"
#include "store/delivery_reads.h"

#include <tolvinpt/error.h>

#include <QComboBox>
#include <QSignalBlocker>

#include <functional>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

const QString Back = QStringLiteral("戻る");
const QString Forward = QStringLiteral("進む");
const QString RecordList = QStringLiteral("一覧選択");

template <typename T> std::shared_ptr<T> held(const std::shared_ptr<T>& object)
{
    required(object);
    return object;
}

// The record ids of the list, in list order; nullopt where an element is out of range (its error is
// raised when its turn comes).
std::vector<std::optional<qint64>> listIds()
{
    std::vector<std::optional<qint64>> ids;
    ids.reserve(static_cast<std::size_t>(gItems->Count()));
    for (int position = 1; position <= gItems->Count(); ++position) {
        try {
            ids.push_back(recordIdOf(gItems->Item(position)));
        } catch (const Error&) {
            ids.emplace_back();
        }
    }
    return ids;
}

// One entry per element, its delivery key number read in one read transaction. The first element in
// list order that fails decides the error: out of range, not a record, or a key given twice.
void fillRecordList(EntryCall& call)
{
    const auto ids = listIds();
    std::vector<qint64> known;
    for (const auto& id : ids)
        known.push_back(id.value_or(0));
    const auto keys = readDeliveryKeys(call.store(), known);
    RecordListMenu* list = call.form.recordList();
    for (int position = 1; position <= gItems->Count(); ++position) {
        const QVariant element = gItems->Item(position);
        if (!ids[position - 1])
            recordIdOf(element); // throws its overflow
        const auto& key = keys[position - 1];
        if (!key)
            throw Error(QStringLiteral("No current record."), 3021);
        if (!list->addEntry(element.toString(), *key))
            throw Error(QStringLiteral("Key is not unique in collection"), 35602);
    }
}

void showMovementError(const frmData& form, const QString& description, long number)
{
    form.reportRunTimeError(db::DatabaseError(description, number));
}

// Moves to `position` once its record has been read, then lets `followPosition` set the buttons. A
// position outside the list moves and fails as the list's lookup does; that is how stepping back from
// the first record through the menu has always ended.
void moveTo(EntryCall& call, qint32 position, const std::function<void()>& followPosition)
{
    std::optional<DeliveryRecord> record;
    const bool inList = position >= 1 && position <= gItems->Count();
    try {
        if (inList)
            record = readDeliveryRecord(call.store(), recordIdOf(gItems->Item(position)));
    } catch (const db::DatabaseError& e) {
        showMovementError(call.form, e.description(), e.number());
        return;
    }
    followPosition();
    gIndex = position;
    if (!inList) {
        try {
            gItems->Item(position);
        } catch (const Error& e) {
            showMovementError(call.form, e.description(), e.number());
        }
        return;
    }
    ShowDeliveryRecord(call.form, call.store(), *call.customers, record);
}

void connectMovement(EntryCall& call)
{
    frmData* form = &call.form;
    QObject::connect(form, &frmData::nextRecordRequested, form, guarded([&call] { ShowNextRecord(call); }));
    QObject::connect(form, &frmData::previousRecordRequested, form,
                     guarded([&call] { ShowPreviousRecord(call); }));
    QObject::connect(form, &frmData::recordChosen, form,
                     guarded([&call](int position) { ShowRecordAt(call, position); }));
}

// The call as its form reaches it.
class CallLink final : public EntryLink
{
public:
    explicit CallLink(EntryCall& call) : m_call(call) {}

    db::Database& database() override { return m_call.store(); }
    const CustomerList& customers() const override { return *m_call.customers; }
    std::shared_ptr<Customer> customerByCode(const QString& code) const override
    {
        auto customer = m_call.customers->ByCode(code);
        required(customer);
        return customer;
    }

    // The record list finds a record's entry by its ListKey. A host that passed other elements (plain
    // ids) has none: the entry of the position on screen, which is that record's, shows the number.
    void recordSaved(qint64 id, const QString& deliveryKey, bool newRecord) override
    {
        RecordListMenu* list = m_call.form.recordList();
        const QString key = ListKey(id);
        if (!newRecord) {
            if (!list->setEntryText(key, deliveryKey) && gIndex >= 1 && gIndex <= list->count())
                list->setEntryText(list->keyAt(gIndex), deliveryKey);
            return;
        }
        if (!m_call.onList)
            return;
        list->addEntry(key, deliveryKey);
        gItems->Add(key);
        const bool several = gItems->Count() >= 2;
        m_call.form.toolbar1()->setButtonEnabled(Forward, several);
        m_call.form.toolbar1()->setButtonEnabled(RecordList, several);
    }

    SplitResult splitRecord(const DeliverySplit& split) override { return m_call.split(split); }

    // Back on the record from which the new one was started; a call without a position ends.
    void newRecordLeft() override
    {
        if (gIndex != 0)
            ShowRecordAt(m_call, gIndex);
        else
            m_call.form.done(QDialog::Rejected);
    }

private:
    EntryCall& m_call;
};

} // namespace

EntryCall::EntryCall(bool onList)
    : company(held(gCompany)), customers(held(gCustomers)), m_database(openDatabase()), form(*company),
      onList(onList), link(std::make_unique<CallLink>(*this))
{
    form.setEntryLink(link.get());
}

EntryCall::~EntryCall() = default;

db::Database& EntryCall::store()
{
    m_openSplit.reset();
    return m_database;
}

SplitResult EntryCall::split(const DeliverySplit& split)
{
    db::Database& database = store();
    SplitResult result =
        splitDelivery(database, m_openSplit.emplace(database, db::Transaction::Kind::Write), split);
    m_openSplit.reset(); // committed
    return result;
}

std::unique_ptr<EntryCall> PrepareRecordList(Items& items)
{
    if (items.Count() == 0)
        return nullptr;
    gItems = &items;
    auto call = std::make_unique<EntryCall>(true);
    frmData& form = call->form;
    fillRecordList(*call);
    FillCustomerCombo(form, *call->customers);
    const bool several = gItems->Count() > 1;
    form.toolbar1()->setButtonEnabled(Forward, several);
    form.toolbar1()->setButtonEnabled(RecordList, several);
    gIndex = 1;
    ShowDeliveryRecord(form, call->store(), *call->customers, recordIdOf(gItems->Item(gIndex)));
    connectMovement(*call);
    return call;
}

void OpenRecordList(Items& items)
{
    HandlerFailures failures;
    if (const auto call = PrepareRecordList(items))
        failures.exec(call->form);
}

void OpenNewRecord()
{
    HandlerFailures failures;
    EntryCall call(false);
    FillCustomerCombo(call.form, *call.customers);
    call.form.toolbar1()->setButtonEnabled(Forward, false);
    call.form.toolbar1()->setButtonEnabled(RecordList, false);
    gIndex = 0;
    call.form.gNewStart();
    failures.exec(call.form);
}

void FillCustomerCombo(frmData& form, const CustomerList& customers)
{
    auto* combo = form.control<QComboBox>(QStringLiteral("cobCustomer"));
    {
        // Adding items selects nothing and runs no handler; Qt would select the first item added.
        const QSignalBlocker quiet(combo);
        for (int i = 0; i < customers.Count(); ++i) {
            const auto customer = customers.At(i);
            const Customer& c = required(customer);
            if (c.Deleted())
                continue;
            const long id = c.CustomerID();
            combo->addItem(customerItem(c.CustomerName(), c.CustomerCode()), qint64(id));
            for (const SubCodeEntry& entry : c.SubCodes()) {
                const QString fullCode = c.CustomerCode() + entry.SubCode;
                combo->addItem(customerItem(c.NameOfCode(fullCode), fullCode), qint64(id));
            }
        }
        combo->setCurrentIndex(-1);
    }
}

void ShowNextRecord(EntryCall& call)
{
    if (gIndex == gItems->Count())
        return;
    const qint32 target = gIndex + 1;
    moveTo(call, target, [&] {
        call.form.toolbar1()->setButtonEnabled(Back, true);
        if (target == gItems->Count())
            call.form.toolbar1()->setButtonEnabled(Forward, false);
    });
}

void ShowPreviousRecord(EntryCall& call)
{
    // Only the count is guarded: the menu command can reach position 1, and then the lookup of
    // element 0 fails and is reported.
    if (gItems->Count() == 1)
        return;
    const qint32 target = gIndex - 1;
    moveTo(call, target, [&] {
        call.form.toolbar1()->setButtonEnabled(Forward, true);
        if (target == 1)
            call.form.toolbar1()->setButtonEnabled(Back, false);
    });
}

void ShowRecordAt(EntryCall& call, qint32 position)
{
    moveTo(call, position, [&] {
        call.form.toolbar1()->setButtonEnabled(Forward, position < gItems->Count());
        call.form.toolbar1()->setButtonEnabled(Back, position >= 2);
    });
}

} // namespace tolvinpt
