// Change flags: what a text change or a click marks, and the click handling of the package mode
// and the own-company choice.
#include "forms/combo_items.h"
#include "forms/frmData/catalogue.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/number_rules.h"

#include "platform/widgets/field_state.h"
#include "platform/widgets/guarded.h"
#include "store/package_quantities.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tolvinpt {
namespace {

constexpr int PackageModes = 3;

QString optionName(int index)
{
    return QStringLiteral("optQuantity(%1)").arg(index);
}

} // namespace

void frmData::connectChangeFlags()
{
    for (const auto& row : frmdata::controls()) {
        if (row.marks == 0)
            continue;
        const unsigned marks = row.marks;
        auto mark = [this, marks] {
            if (marks & marks::Changed)
                bChanged = true;
            if (marks & marks::Amount)
                bChangedAmount = true;
            if (marks & marks::Quantity)
                bChangedQTY = true;
        };
        QWidget* w = control(row.name.toString());
        if (auto* edit = qobject_cast<QLineEdit*>(w))
            connect(edit, &QLineEdit::textChanged, this, guarded(mark));
        else if (auto* combo = qobject_cast<QComboBox*>(w)) {
            connect(combo, &QComboBox::currentIndexChanged, this, guarded(mark));
            if (combo->isEditable())
                connect(combo, &QComboBox::editTextChanged, this, guarded(mark));
        } else if (auto* check = qobject_cast<QCheckBox*>(w))
            connect(check, &QCheckBox::toggled, this, guarded(mark));
    }

    connect(control<QComboBox>(QStringLiteral("cobMyCodes")), &QComboBox::currentIndexChanged, this,
            guarded(this, &frmData::cobMyCodes_Click));
    for (int index = 1; index <= PackageModes; ++index) {
        connect(control<QRadioButton>(optionName(index)), &QRadioButton::toggled, this,
                guarded([this, index](bool on) {
                    if (on)
                        optQuantity_Click(index);
                }));
    }
}

void frmData::cobMyCodes_Click()
{
    if (MyCodeSyncing)
        return;
    bChanged = true;
    const QString item = control<QComboBox>(QStringLiteral("cobMyCodes"))->currentText();
    control<QLineEdit>(QStringLiteral("txtMyCode"))->setText(ownCodeOf(item));
}

void frmData::selectPackageMode(int index)
{
    auto* option = control<QRadioButton>(optionName(index));
    if (option->isChecked())
        optQuantity_Click(index);
    else
        option->setChecked(true);
}

int frmData::packageMode() const
{
    for (int index = 1; index <= PackageModes; ++index) {
        if (control<QRadioButton>(optionName(index))->isChecked())
            return index;
    }
    return 0;
}

void frmData::optQuantity_Click(int index)
{
    control(QStringLiteral("txtQuantity"))->setEnabled(index == 2);
    control(QStringLiteral("cmdQuantity"))->setEnabled(index == 3);
    gPackageQty.fill(Currency());
    if (index == 3)
        gPackageQty[0] =
            frmdata::readCurrency(control<QLineEdit>(QStringLiteral("txtAmountDelivery"))->text());
    bChangedQTY = true;
    // Tab reaches the selected option only; the arrow keys move between the options.
    for (int other = 1; other <= PackageModes; ++other)
        setTabStop(control(optionName(other)), other == index);
}

} // namespace tolvinpt
