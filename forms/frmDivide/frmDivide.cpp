#include "forms/frmDivide/frmDivide.h"

#include "forms/assign_text.h"
#include "forms/form_font.h"
#include "forms/frmData/number_rules.h"
#include "forms/text_checks.h"
#include "platform/values/number_text.h"
#include "platform/widgets/guarded.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/select_all.h"
#include "platform/widgets/twips.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

constexpr QStringView Caption = u"納品ﾃﾞｰﾀの分割";
constexpr int ClientWidth = 6600;
constexpr int ClientHeight = 2025;

using K = ControlKind;
using I = InputMode;
using namespace design;

// The source record's fields are grey and unlimited: a key number that narrowing made longer than its
// field must reach the split whole.
// clang-format off
constexpr ControlSpec Controls[] = {
    // name            kind        in    caption           tooltip max input        state         left  top   width height tab marks
    {u"Label1",        K::Label,   u"",  u"納入指示数量",  u"",    0,  I::Default,  0,            {2280, 300,  1155, 255},  0,  0},
    {u"txtDelivery",   K::TextBox, u"",  u"",              u"",    0,  I::Disabled, Grey | Right, {3480, 240,  1635, 315},  0,  0},
    {u"Label2",        K::Label,   u"",  u"納品ｷｰ番号",    u"",    0,  I::Default,  0,            {300,  780,  1455, 240},  0,  0},
    {u"Label3",        K::Label,   u"",  u"納入数量",      u"",    0,  I::Default,  0,            {3480, 780,  1455, 240},  0,  0},
    {u"txtPayment(0)", K::TextBox, u"",  u"",              u"",    0,  I::Off,      Grey,         {300,  1020, 3015, 315},  0,  0},
    {u"txtAmount(0)",  K::TextBox, u"",  u"",              u"",    0,  I::Disabled, Grey | Right, {3480, 1020, 1635, 315},  0,  0},
    {u"txtPayment(1)", K::TextBox, u"",  u"",              u"",    23, I::Off,      0,            {300,  1440, 3015, 315},  1,  0},
    {u"txtAmount(1)",  K::TextBox, u"",  u"",              u"",    13, I::Disabled, Right,        {3480, 1440, 1635, 315},  2,  0},
    {u"cmdAny(0)",     K::Button,  u"",  u"OK",            u"",    0,  I::Default,  0,            {5400, 240,  1035, 435},  3,  0},
    {u"cmdAny(1)",     K::Button,  u"",  u"ｷｬﾝｾﾙ",         u"",    0,  I::Default,  0,            {5400, 840,  1035, 435},  4,  0},
};
// clang-format on

constexpr QStringView KeyTitle = u"入力ﾁｪｯｸ - 納品ｷｰ番号";
constexpr QStringView SameKey = u"納品ｷｰ番号を入力してください";
constexpr QStringView AmountTitle = u"[納入数量] - 入力ﾁｪｯｸ";
constexpr QStringView ZeroAmount = u"納入数量に ｾﾞﾛ は入力できません";
constexpr QStringView NegativeAmount = u"納入数量に ﾏｲﾅｽ は入力できません";
constexpr QStringView AboveMaximum = u"納入数量の最大値は 999,999,999.999 です";
constexpr QStringView NothingLeft = u"分割後の数量が、分割前の数量を超えています";

QString payment(int index)
{
    return u"txtPayment(%1)"_s.arg(index);
}

QString amount(int index)
{
    return u"txtAmount(%1)"_s.arg(index);
}

} // namespace

frmDivide::frmDivide(QWidget* parent) : QDialog(parent)
{
    setObjectName(u"frmDivide"_s);
    setWindowTitle(Caption.toString());
    setFont(formFont());
    const Twips twips = Twips::forScreenOf(this);
    setFixedSize(twips.size(ClientWidth, ClientHeight));
    m_controls = buildControls(this, Controls, twips);
    m_leave = new ValidateOnLeave(this);
    installFieldRules();
    Form_Load();
}

frmDivide::~frmDivide() = default;

void frmDivide::installFieldRules()
{
    for (int index : {0, 1}) {
        auto* button = control<QPushButton>(u"cmdAny(%1)"_s.arg(index));
        // A click on a button checks nothing by leaving the field: OK checks the fields itself and
        // ｷｬﾝｾﾙ checks nothing at all. Tab still reaches both, and Enter presses the one focused.
        button->setFocusPolicy(Qt::TabFocus);
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, guarded([this, index] { cmdAny_Click(index); }));

        auto* key = control<QLineEdit>(payment(index));
        auto* quantity = control<QLineEdit>(amount(index));
        m_leave->setGotFocus(key, [key] { SelectAllText(key); });
        m_leave->setGotFocus(quantity, [quantity] { SelectAllText(quantity); });
        setKeyPress(quantity, numberKey);
    }
    control<QPushButton>(u"cmdAny(0)"_s)->setDefault(true);
    m_leave->setValidate(control(payment(1)), [this](bool& cancel) { txtPayment_Validate(1, cancel); });
    m_leave->setValidate(control(amount(1)), [this](bool& cancel) { txtAmount_Validate(1, cancel); });
    control(payment(1))->setFocus();
}

void frmDivide::Form_Load()
{
    for (int index : {0, 1}) {
        control<QLineEdit>(payment(index))->clear();
        control<QLineEdit>(amount(index))->setText(u"0"_s);
    }
}

void frmDivide::fill(const DivideSource& source)
{
    control<QLineEdit>(u"txtDelivery"_s)->setText(source.instructionQuantity);
    for (int index : {0, 1})
        assignText(control<QLineEdit>(payment(index)), source.keyNo);
    control<QLineEdit>(amount(0))->setText(source.deliveryQuantity);
}

DivideRequest frmDivide::request() const
{
    const auto text = [this](const QString& name) { return control<QLineEdit>(name)->text(); };
    return {text(payment(0)), frmdata::readCurrency(text(amount(0))), text(payment(1)),
            frmdata::readCurrency(text(amount(1)))};
}

void frmDivide::cmdAny_Click(int index)
{
    if (index == 0) {
        bool cancel = false;
        for (const auto& [check, field] : {std::pair{&frmDivide::txtPayment_Validate, payment(1)},
                                           {&frmDivide::txtAmount_Validate, amount(1)}}) {
            (this->*check)(1, cancel);
            if (cancel) {
                control(field)->setFocus();
                return;
            }
        }
    }
    Result = index == 0 ? 1 : 2;
    done(index == 0 ? Accepted : Rejected);
}

void frmDivide::reject()
{
    guardedCall([this] { cmdAny_Click(1); });
}

// The new key must differ from the source record's (an empty one does, while the source has a key) and
// be half-width. Whether it is free among the stored records is the split's own check.
void frmDivide::txtPayment_Validate(int index, bool& cancel)
{
    if (control<QLineEdit>(payment(1))->text() == control<QLineEdit>(payment(0))->text()) {
        cancel = true;
        showExclamation(SameKey.toString(), KeyTitle.toString());
        return;
    }
    cancel = !CheckHalfWidth(control<QLineEdit>(payment(index)));
}

void frmDivide::txtAmount_Validate(int index, bool& cancel)
{
    auto* field = control<QLineEdit>(amount(index));
    const Currency moved = frmdata::readQuantity(field->text());
    const Currency before = frmdata::readCurrency(control<QLineEdit>(amount(0))->text());
    QStringView refusal;
    if (moved.isZero())
        refusal = ZeroAmount;
    else if (moved < Currency()) // only a paste can bring a sign
        refusal = NegativeAmount;
    else if (moved > frmdata::MaxQuantity)
        refusal = AboveMaximum;
    else if (before - moved < frmdata::SmallestQuantity)
        refusal = NothingLeft;
    if (!refusal.isEmpty()) {
        cancel = true;
        showExclamation(refusal.toString(), AmountTitle.toString());
        return;
    }
    field->setText(formatNumber(moved.toDecimal(), frmdata::QuantityDecimals));
}

std::optional<DivideRequest> askDivide(QWidget* owner, const DivideSource& source)
{
    frmDivide dialog(owner);
    dialog.fill(source);
    HandlerFailures failures;
    failures.exec(dialog);
    if (dialog.Result != 1)
        return std::nullopt;
    return dialog.request();
}

} // namespace tolvinpt
