// The order-number search of new-record mode: a further delivery of an earlier order starts from that
// order's data.
#include "forms/combo_items.h"
#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/input_checks.h"
#include "forms/frmData/record_fields.h"
#include "platform/values/date.h"
#include "platform/values/text.h"
#include "platform/widgets/messages.h"

#include <tolvinpt/host.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

using C = DeliveryColumn;

constexpr QStringView NotFound = u"同一の注文番号はありません";
constexpr QStringView SearchTitle = u"注文番号 検索...";

// The order's data that a new delivery takes over; its delivery key number starts as the order number.
constexpr FieldColumn CopiedTexts[] = {
    {u"txtCustomCode", C::F00004},   {u"txtMyCode", C::F00005},  {u"txtOrderNo", C::F00007},
    {u"txtPaymentKeyNo", C::F00007}, {u"txtTantoA", C::F00018},  {u"txtTantoK", C::F00260},
    {u"txtPlaceA", C::F00160},       {u"txtPlaceK", C::F00274},  {u"txtHCode", C::F00024},
    {u"txtMyHCode", C::F00023},      {u"txtHinmeiA", C::F00022}, {u"txtHinmeiK", C::F00262},
};
constexpr FieldColumn CopiedAmounts[] = {{u"txtAmountOrder", C::F00015}, {u"txtAmountIndicate", C::F00032}};

// One package holding the whole delivery, unless the buyer handles no packages.
void startPackages(frmData& form, const CustomerList& customers, const DeliveryRecord& record)
{
    const auto customer = customers.ByKey(QString::number(record.integer(C::IDCustomer).value()));
    QWidget* frame = form.control(u"fraQuantity"_s);
    if (customer && customer->Settings().NoQuantityBreakdown()) {
        frame->hide();
        return;
    }
    frame->show();
    form.selectPackageMode(1);
    form.control<QLineEdit>(u"txtQuantity"_s)
        ->setText(form.control<QLineEdit>(u"txtAmountDelivery"_s)->text());
}

// Copies the found record's order data into the new record, statement by statement: a Null or bad
// column leaves its field as it was. The ship and delivery dates, the delivery quantity, the currency,
// the taxation and the packages stay as the new record had them.
void FillFromFoundRecord(frmData& form, const DeliveryRecord& record)
{
    step([&] {
        FindComboItem(form.control<QComboBox>(u"cobCustomer"_s),
                      QString::number(record.integer(C::IDCustomer).value()));
    });
    fillTexts(form, record, CopiedTexts);
    step([&] {
        const QDate due = record.isNull(C::F00031) ? QDate::currentDate() : record.date(C::F00031).value();
        fill(form, u"txtDate(0)", toYmd(due));
    });
    fillNumbers(form, record, CopiedAmounts);
    fillTexts(form, record, fields::unitAndInspection());
    step([&] {
        fill(form, u"txtUnitPrice", plainNumber(record, C::F00013));
    }); // the yen price, whatever the currency
    fillTaxIncluded(form, record);
    fillTexts(form, record, fields::remarks());
    step([&] {
        if (form.company().UseQuantityBreakdown())
            startPackages(form, form.link().customers(), record);
    });
    form.bChanged = false;
    form.bChangedQTY = false;
}

} // namespace

void frmData::cmdFind_Click()
{
    if (!control<QCheckBox>(u"chkNew"_s)->isChecked())
        return;
    // The operator's wildcards work; trailing blanks are not part of the number.
    const QString pattern = rightTrim(control<QLineEdit>(u"txtOrderNo"_s)->text());
    const auto found = findOrderRecord(link().database(), selectedCustomerId(*this), pattern);
    if (!found) {
        messages().beep();
        showInformation(NotFound.toString(), SearchTitle.toString());
        control(u"txtOrderNo"_s)->setFocus();
        return;
    }
    FillFromFoundRecord(*this, *found);
    bChanged = true;
    control(u"txtPaymentKeyNo"_s)->setFocus();
}

} // namespace tolvinpt
