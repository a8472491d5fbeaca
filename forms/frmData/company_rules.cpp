// Company choices: the customer's code from its combo item, the own-company combo from the code.
#include "forms/frmData/company_rules.h"

#include "forms/combo_items.h"
#include "forms/frmData/frmData.h"
#include "platform/widgets/event_guard.h"
#include "platform/widgets/guarded.h"

#include <tolvinpt/host.h>

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {

bool ownCodeListMode(const CompanySettings& company)
{
    return company.MultipleOwnCodes() && company.OwnCode() == u"*" && company.OwnCodeList().Count() >= 1;
}

void installCompanyRules(frmData& form)
{
    QObject::connect(form.control<QComboBox>(u"cobCustomer"_s), &QComboBox::currentIndexChanged, &form,
                     guarded(&form, &frmData::cobCustomer_Click));
    QObject::connect(form.control<QLineEdit>(u"txtMyCode"_s), &QLineEdit::textChanged, &form,
                     guarded(&form, &frmData::txtMyCode_Change));
}

} // namespace tolvinpt::frmdata

namespace tolvinpt {

// The customer's code is the part of the item after its last ":" (bChanged comes from the catalogue).
void frmData::cobCustomer_Click()
{
    const QString item = control<QComboBox>(u"cobCustomer"_s)->currentText();
    control<QLineEdit>(u"txtCustomCode"_s)->setText(customerCodeOf(item));
}

// Selects the own-company item of the code shown, found by its registered name; an unknown code, or a
// company with one code, selects by the company's own name. Changes no flag.
void frmData::txtMyCode_Change()
{
    EventGuard syncing(MyCodeSyncing);
    QString name;
    if (frmdata::ownCodeListMode(m_company))
        name = m_company.OwnCodeList().NameOf(control<QLineEdit>(u"txtMyCode"_s)->text());
    if (name.isEmpty())
        name = m_company.OwnName();
    control<QLineEdit>(u"txtMyNameFix"_s)->setText(name);

    auto* combo = control<QComboBox>(u"cobMyCodes"_s);
    combo->setCurrentIndex(0);
    for (int index = 0; index < combo->count(); ++index) {
        if (combo->itemText(index).startsWith(name)) {
            combo->setCurrentIndex(index);
            break;
        }
    }
}

} // namespace tolvinpt
