#include "forms/frmData/package_editor.h"

#include "forms/assign_text.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/number_rules.h"
#include "forms/frmQuantity/frmQuantity.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/messages.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {
namespace {

constexpr QStringView NothingToBreakDown = u"個別設定できる納入数量がありません";
constexpr QStringView Title = u"個別入数入力...";

// The dialog's left edge where the form's inner width ends less the dialog's, its top at the form's.
void placeBeside(QDialog& dialog, const frmData& form)
{
    const QRect frame = form.frameGeometry();
    dialog.resize(dialog.width(), form.height());
    dialog.move(frame.left() + form.width() - dialog.width(), frame.top());
}

} // namespace

void connectPackageEditor(frmData& form)
{
    QObject::connect(form.control<QPushButton>(u"cmdQuantity"_s), &QPushButton::clicked, &form,
                     guarded([&form] { cmdQuantity_Click(form); }));
}

void cmdQuantity_Click(frmData& form)
{
    if (!form.control(u"cmdQuantity"_s)->isEnabled()) {
        messages().beep();
        return;
    }
    auto* delivery = form.control<QLineEdit>(u"txtAmountDelivery"_s);
    if (readCurrency(delivery->text()) <= SmallestQuantity) {
        messages().beep();
        showExclamation(NothingToBreakDown.toString(), Title.toString());
        return;
    }
    frmQuantity dialog(gPackageQty, &form);
    placeBeside(dialog, form);
    auto* quantity = form.control<QLineEdit>(u"txtQuantity"_s);
    dialog.control<QLineEdit>(u"txtDelivery"_s)->setText(delivery->text());
    assignText(dialog.control<QLineEdit>(u"txtEquality"_s), quantity->text());
    HandlerFailures failures;
    failures.exec(dialog);
    assignText(quantity, dialog.control<QLineEdit>(u"txtEquality"_s)->text());
    if (dialog.packagesAccepted()) {
        gPackageQty = dialog.packages();
        form.bChangedQTY = true;
    }
}

} // namespace tolvinpt::frmdata
