// The per-package quantity editor: the equal-split quantity, the total's colour and the equal split.
#include "forms/frmData/number_rules.h"
#include "forms/frmQuantity/frmQuantity.h"
#include "forms/frmQuantity/package_grid.h"
#include "forms/frmQuantity/package_model.h"
#include "platform/values/number_text.h"
#include "platform/values/text.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/select_all.h"
#include "platform/widgets/validate_on_leave.h"

#include <QApplication>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView EqualityTitle = u"[均等割数] - 入力ﾁｪｯｸ";
constexpr QStringView AboveDelivery = u"納入数量を超えています";
constexpr QStringView EqualSplitTitle = u"均等割り";
constexpr QStringView TooManyPackages = u"梱包個数が 100 を超えてしまいます";
constexpr QStringView NoEqualQuantity = u"均等割数を入力してください";

QString quantityShown(Currency value)
{
    return formatFixed(value.toDecimal(), frmdata::QuantityDecimals);
}

// The total against the delivery quantity: red above it, the highlight colour below it, bold unless equal.
void colourTotal(QLineEdit* total, Currency t, Currency d)
{
    QPalette palette = total->palette();
    const QPalette desktop = QApplication::palette();
    palette.setColor(QPalette::Text, t > d   ? QColor(255, 0, 0)
                                     : t < d ? desktop.color(QPalette::Highlight)
                                             : desktop.color(QPalette::WindowText));
    total->setPalette(palette);
    QFont font = total->font();
    font.setBold(t != d);
    total->setFont(font);
}

} // namespace

void frmQuantity::installFieldRules()
{
    auto* equality = control<QLineEdit>(u"txtEquality"_s);
    setKeyPress(equality, numberKey);
    m_leave->setGotFocus(equality, [equality] { SelectAllText(equality); });
    m_leave->setValidate(equality, [this](bool& cancel) { txtEquality_Validate(cancel); });
    // Enter checks the quantity as leaving the field would, then splits by it.
    connect(equality, &QLineEdit::returnPressed, this, guarded([this] {
                if (m_leave->ValidateControls())
                    equalSplit();
            }));

    connect(m_model, &PackageModel::dataChanged, this,
            guarded([this](const QModelIndex& topLeft, const QModelIndex& bottomRight, const QList<int>&) {
                spdQuantity_Change(topLeft, bottomRight);
            }));
    for (QStringView name : {u"txtTotal", u"txtDelivery"})
        connect(control<QLineEdit>(name.toString()), &QLineEdit::textChanged, this,
                guarded(this, &frmQuantity::txtTotal_Change));
}

void frmQuantity::txtTotal_Change()
{
    colourTotal(control<QLineEdit>(u"txtTotal"_s),
                frmdata::readCurrency(control<QLineEdit>(u"txtTotal"_s)->text()),
                frmdata::readCurrency(control<QLineEdit>(u"txtDelivery"_s)->text()));
}

void frmQuantity::txtEquality_Validate(bool& cancel)
{
    auto* equality = control<QLineEdit>(u"txtEquality"_s);
    const QString delivery = control<QLineEdit>(u"txtDelivery"_s)->text();
    const QString text = trimBlanks(equality->text());
    if (text.isEmpty()) {
        equality->setText(quantityShown(Currency()));
        return;
    }
    const std::optional<Decimal> number = strictDecimal(text);
    if (!number) {
        cancel = true;
        showExclamation(u"均等割数は [ 0 ～ "_s + delivery + u" ] の範囲で入力してください"_s,
                        EqualityTitle.toString());
        return;
    }
    const std::optional<Currency> perPackage = Currency::fromDecimal(*number);
    if (!perPackage || *perPackage > frmdata::readCurrency(delivery)) {
        cancel = true;
        showExclamation(AboveDelivery.toString(), EqualityTitle.toString());
        return;
    }
    equality->setText(quantityShown(*perPackage));
}

// Packages of the equal-split quantity, the last one taking the remainder.
void frmQuantity::equalSplit()
{
    const Currency e = frmdata::readCurrency(control<QLineEdit>(u"txtEquality"_s)->text());
    const Currency d = frmdata::readCurrency(control<QLineEdit>(u"txtDelivery"_s)->text());
    if (e <= Currency()) {
        showExclamation(NoEqualQuantity.toString(), EqualSplitTitle.toString());
        return;
    }
    std::int64_t n = d.raw() / e.raw();
    const Currency r = d - Currency::fromRaw(e.raw() * n);
    if (!r.isZero())
        ++n;
    if (n > MaxPackages) {
        showExclamation(TooManyPackages.toString(), EqualSplitTitle.toString());
        return;
    }
    const int packages = int(n);
    for (int row = 0; row < packages; ++row)
        m_model->setValue(row, r > Currency() && row == packages - 1 ? r : e);
    // Earlier packages below the new ones go, up to the first empty row.
    for (int row = packages; row < MaxPackages && !m_model->value(row).isZero(); ++row)
        m_model->setValue(row, Currency());
    m_grid->goToRow(0);
}

} // namespace tolvinpt
