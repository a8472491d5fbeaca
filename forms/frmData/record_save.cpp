// The save of the record on screen, and what the form does with its outcome.
#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/input_checks.h"
#include "forms/frmData/record_display.h"
#include "forms/frmData/save_values.h"
#include "platform/sql/database.h"
#include "platform/widgets/messages.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView SaveTitle = u"ﾃﾞｰﾀの保存";
constexpr QStringView NotSaved = u"\r\n\r\n入力した内容は保存されていません";
constexpr QStringView OfferStored = u"\r\n\r\n他の担当者が保存した内容を表示しますか\r\n"
                                    u"(「いいえ」: 入力した内容をそのまま残します)";

void showSaveError(const db::DatabaseError& error)
{
    showExclamation(error.operatorText(), SaveTitle.toString());
}

// Another operator saved the record meanwhile: the typed values stay unless the operator asks for the
// stored record.
void offerReload(frmData& form, qint64 id)
{
    const Message question{ChangedByOtherText.toString() + NotSaved + OfferStored, SaveTitle.toString(),
                           QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    if (messages().show(question) != QMessageBox::Yes)
        return;
    try {
        ShowDeliveryRecord(form, form.link().database(), form.link().customers(), id);
    } catch (const db::DatabaseError& e) {
        showSaveError(e);
    }
}

} // namespace

bool frmData::SaveRecord()
{
    DeliverySave save;
    SaveResult result;
    try {
        save = deliverySaveOf(*this, link().database().dialect());
        result = saveDelivery(link().database(), save);
    } catch (const db::DatabaseError& e) {
        showSaveError(e);
        return false;
    }
    switch (result.outcome) {
    case SaveOutcome::Saved:
        break;
    case SaveOutcome::DuplicateKey:
        refuseDuplicateKey(*this);
        return false;
    case SaveOutcome::ChangedByOther:
        offerReload(*this, save.id);
        return false;
    case SaveOutcome::DeletedByOther:
        showExclamation(DeletedByOtherText.toString() + NotSaved, SaveTitle.toString());
        return false;
    }
    auto* id = control<QLineEdit>(u"txtIDData"_s);
    if (save.isNew && save.detail)
        id->setText(QString::number(result.id));
    link().recordSaved(result.id, control<QLineEdit>(u"txtPaymentKeyNo"_s)->text(),
                       control<QCheckBox>(u"chkNew"_s)->isChecked());
    bChanged = false;
    bChangedQTY = false;
    // The next save compares with the record as this one left it.
    shownRecord = std::move(result.stored);
    shownPackages = std::move(result.storedPackages);
    return true;
}

} // namespace tolvinpt
