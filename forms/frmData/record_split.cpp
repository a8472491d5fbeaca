// The split command: the record on screen divided in two, the new record under a key number of its own.
#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/input_checks.h"
#include "forms/frmData/number_rules.h"
#include "forms/frmData/record_display.h"
#include "forms/frmData/save_values.h"
#include "forms/frmDivide/frmDivide.h"
#include "platform/sql/database.h"
#include "platform/widgets/messages.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView Title = u"数量分割...";
constexpr QStringView ErrorTitle = u"数量分割...保存";
constexpr QStringView NothingToSplit = u"分割できる納入数量がありません";
constexpr QStringView KeyTaken = u"\r\n保存できません";
constexpr QStringView NotSplit = u"\r\n\r\n分割できません";

QString textOf(const frmData& form, const QString& name)
{
    return form.control<QLineEdit>(name)->text();
}

DeliverySplit splitOf(const frmData& form, const DivideRequest& request)
{
    DeliverySplit split;
    split.id = recordIdOnScreen(form);
    split.customer = selectedCustomerId(form);
    split.orderNumber = textOf(form, u"txtOrderNo"_s);
    split.oldKey = request.oldKey;
    split.oldQuantity = request.oldQuantity;
    split.newKey = request.newKey;
    split.newQuantity = request.newQuantity;
    split.shown = form.shownRecord;
    split.shownPackages = form.shownPackages;
    return split;
}

} // namespace

// Whatever came of the split, the record on screen is shown again as it is stored: after a split with
// its reduced quantity (the new record is reached through the record list).
void frmData::mnuDataDivide_Click()
{
    if (frmdata::readCurrency(textOf(*this, u"txtAmountDelivery"_s)) <= frmdata::SmallestQuantity) {
        messages().beep();
        showExclamation(NothingToSplit.toString(), Title.toString());
        return;
    }
    if (!ConfirmLeave())
        return;
    const DivideSource source{textOf(*this, u"txtAmountIndicate"_s), textOf(*this, u"txtPaymentKeyNo"_s),
                              textOf(*this, u"txtAmountDelivery"_s)};
    if (const auto request = askDivide(this, source))
        SplitRecord(*request);
    ShowDeliveryRecord(*this, link().database(), link().customers(), recordIdOnScreen(*this));
}

bool frmData::SplitRecord(const DivideRequest& request)
{
    SplitResult result;
    try {
        result = link().splitRecord(splitOf(*this, request));
    } catch (const db::DatabaseError& e) {
        showExclamation(e.operatorText(db::DatabaseError::Spacing::NoBlank), ErrorTitle.toString());
        return false;
    }
    switch (result.outcome) {
    case SaveOutcome::Saved:
        break;
    case SaveOutcome::DuplicateKey:
        showInformation(DuplicateKeyText.toString() + KeyTaken, Title.toString());
        return false;
    case SaveOutcome::ChangedByOther:
        showExclamation(ChangedByOtherText.toString() + NotSplit, Title.toString());
        return false;
    case SaveOutcome::DeletedByOther:
        showExclamation(DeletedByOtherText.toString() + NotSplit, Title.toString());
        return false;
    }
    link().recordSaved(result.newId, request.newKey, true);
    return true;
}

} // namespace tolvinpt
