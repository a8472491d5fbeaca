// Field rules: what each field does when it is entered, typed into and left.
#include "forms/frmData/catalogue.h"
#include "forms/frmData/company_rules.h"
#include "forms/frmData/currency_rules.h"
#include "forms/frmData/date_rules.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/number_rules.h"
#include "forms/frmData/text_rules.h"

#include "platform/widgets/select_all.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>

namespace tolvinpt {

void frmData::installFieldRules()
{
    // Entering any text field selects its whole text, so that typing replaces it.
    for (const auto& row : frmdata::controls()) {
        if (row.kind != ControlKind::TextBox)
            continue;
        auto* box = control<QLineEdit>(row.name.toString());
        m_leave->setGotFocus(box, [box] { SelectAllText(box); });
    }
    installTextRules(*this);
    frmdata::installNumberRules(*this);
    frmdata::installDateRules(*this);
    frmdata::installCurrencyRules(*this);
    frmdata::installCompanyRules(*this);
}

} // namespace tolvinpt
