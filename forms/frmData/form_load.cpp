// Form load: own-company codes, fixed lists, order fields locked, blank record.
#include "forms/combo_items.h"
#include "forms/frmData/company_rules.h"
#include "forms/frmData/fixed_lists.h"
#include "forms/frmData/frmData.h"
#include "forms/keyed_toolbar.h"
#include "store/taxation.h"

#include <tolvinpt/host.h>

#include <QComboBox>
#include <QGroupBox>

namespace tolvinpt {

void frmData::Form_Load()
{
    fillOwnCodes();
    m_toolbar1->setButtonEnabled(QStringLiteral("戻る"), false);
    menuItem(QStringLiteral("mnuNewData"))->setVisible(false);
    for (const char16_t* page : {u"fraInfoMy", u"fraInfoCust"})
        control<QFrame>(QString::fromUtf16(page))->setFrameStyle(QFrame::NoFrame);
    control(QStringLiteral("fraQuantity"))->setVisible(m_company.UseQuantityBreakdown());
    fillFixedLists();
    SetDetailEditable(false);
    lngResult = 7;
    ClearEntryForm();
}

void frmData::fillOwnCodes()
{
    const OwnCodeList& list = m_company.OwnCodeList();
    const int count = list.Count();
    const bool listMode = frmdata::ownCodeListMode(m_company);

    auto* combo = control<QComboBox>(QStringLiteral("cobMyCodes"));
    if (!listMode)
        combo->setEnabled(false);
    combo->addItem(ownCodeItem(m_company.OwnName(), m_company.OwnCode()));
    if (listMode) {
        for (int position = 1; position <= count; ++position) {
            const OwnCodeEntry entry = list.Item(position);
            combo->addItem(ownCodeItem(entry.Name, entry.Code));
        }
    }
    combo->setCurrentIndex(0);
}

void frmData::fillFixedLists()
{
    auto fill = [this](const QString& name, auto items) {
        auto* combo = control<QComboBox>(name);
        for (QStringView item : items)
            combo->addItem(item.toString());
    };
    fill(QStringLiteral("cobCurrency"), frmdata::CurrencyCodes);
    control<QComboBox>(QStringLiteral("cobCurrency"))->setCurrentIndex(0);
    fill(QStringLiteral("cobCurrencyName"), frmdata::CurrencyNames);
    auto* taxation = control<QComboBox>(QStringLiteral("cobTaxation"));
    for (const TaxationEntry& entry : taxationTable())
        taxation->addItem(entry.listEntry.toString());
    taxation->setCurrentIndex(0);
}

} // namespace tolvinpt
