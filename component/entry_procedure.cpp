#include "component/entry_procedure.h"

#include "component/call_state.h"
#include "component/state.h"
#include "forms/combo_items.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/record_display.h"
#include "forms/frmData/record_list_menu.h"
#include "forms/keyed_toolbar.h"
#include "platform/database.h"
#include "platform/messages.h"
#include "store/delivery_reads.h"

#include <tolvinpt/error.h>

#include <QComboBox>

namespace tolvinpt {
namespace {

const QString Back = QStringLiteral("戻る");
const QString Forward = QStringLiteral("進む");
const QString RecordList = QStringLiteral("一覧選択");

void showElement(frmData& form, db::Database& database, qint32 position)
{
    ShowDeliveryRecord(form, database, *gCustomers, recordIdOf(gItems->Item(position)));
}

void fillRecordList(frmData& form, db::Database& database)
{
    for (int position = 1; position <= gItems->Count(); ++position) {
        const QVariant element = gItems->Item(position);
        const qint32 id = recordIdOf(element);
        const auto key = readDeliveryKey(database, id);
        if (!key)
            throw Error(QStringLiteral("No current record."), 3021);
        if (!form.recordList()->addEntry(element.toString(), *key))
            throw Error(QStringLiteral("Key is not unique in collection"), 35602);
    }
}

// Errors of a movement the operator asked for are reported, and the form stays open.
template <typename Move>
void reported(frmData& form, Move move)
{
    try {
        move();
    } catch (const Error& e) {
        showExclamation(e.description() + QStringLiteral(" (") + QString::number(e.number()) + u')',
                        form.windowTitle());
    } catch (const db::DatabaseError& e) {
        showExclamation(e.operatorText(), form.windowTitle());
    }
}

void connectMovement(frmData& form, db::Database& database)
{
    QObject::connect(&form, &frmData::nextRecordRequested, &form,
                     [&] { reported(form, [&] { ShowNextRecord(form, database); }); });
    QObject::connect(&form, &frmData::previousRecordRequested, &form,
                     [&] { reported(form, [&] { ShowPreviousRecord(form, database); }); });
    QObject::connect(&form, &frmData::recordChosen, &form,
                     [&](int position) { reported(form, [&] { ShowRecordAt(form, database, position); }); });
}

} // namespace

EntryCall::EntryCall(const QSqlDatabase& connection) : database(connection), form(*gCompany)
{
}

std::unique_ptr<EntryCall> PrepareRecordList(Items& items)
{
    if (items.Count() == 0)
        return nullptr;
    gItems = &items;
    auto call = std::make_unique<EntryCall>(gDB);
    frmData& form = call->form;
    fillRecordList(form, call->database);
    FillCustomerCombo(form);
    const bool several = gItems->Count() > 1;
    form.toolbar1()->setButtonEnabled(Forward, several);
    form.toolbar1()->setButtonEnabled(RecordList, several);
    gIndex = 1;
    showElement(form, call->database, gIndex);
    connectMovement(form, call->database);
    return call;
}

void OpenRecordList(Items& items)
{
    if (const auto call = PrepareRecordList(items))
        call->form.exec();
}

void OpenNewRecord()
{
    EntryCall call(gDB);
    FillCustomerCombo(call.form);
    call.form.toolbar1()->setButtonEnabled(Forward, false);
    call.form.toolbar1()->setButtonEnabled(RecordList, false);
    gIndex = 0;
    call.form.gNewStart();
    call.form.exec();
}

void FillCustomerCombo(frmData& form)
{
    auto* combo = form.control<QComboBox>(QStringLiteral("cobCustomer"));
    for (int i = 0; i < gCustomers->Count(); ++i) {
        const auto customer = gCustomers->At(i);
        if (customer->Deleted())
            continue;
        const long id = customer->CustomerID();
        combo->addItem(customerItem(customer->CustomerName(), customer->CustomerCode()), qint64(id));
        for (const SubCodeEntry& entry : customer->SubCodes()) {
            const QString fullCode = customer->CustomerCode() + entry.SubCode;
            combo->addItem(customerItem(customer->NameOfCode(fullCode), fullCode), qint64(id));
        }
    }
}

void ShowNextRecord(frmData& form, db::Database& database)
{
    if (gIndex == gItems->Count())
        return;
    form.toolbar1()->setButtonEnabled(Back, true);
    ++gIndex;
    if (gIndex == gItems->Count())
        form.toolbar1()->setButtonEnabled(Forward, false);
    showElement(form, database, gIndex);
}

void ShowPreviousRecord(frmData& form, db::Database& database)
{
    // Only the count is guarded: the menu command can reach position 1, and then the lookup of
    // element 0 fails and is reported.
    if (gItems->Count() == 1)
        return;
    form.toolbar1()->setButtonEnabled(Forward, true);
    --gIndex;
    if (gIndex == 1)
        form.toolbar1()->setButtonEnabled(Back, false);
    showElement(form, database, gIndex);
}

void ShowRecordAt(frmData& form, db::Database& database, qint32 position)
{
    gIndex = position;
    form.toolbar1()->setButtonEnabled(Forward, gIndex < gItems->Count());
    form.toolbar1()->setButtonEnabled(Back, gIndex >= 2);
    showElement(form, database, gIndex);
}

} // namespace tolvinpt
