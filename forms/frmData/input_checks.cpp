// The checks that run before every save, in their order: the required fields, the quantity ranges,
// the duplicate delivery key, and the soft warnings that the operator may accept.
#include "forms/frmData/input_checks.h"

#include "forms/frmData/entry_link.h"
#include "forms/frmData/frmData.h"
#include "forms/frmData/number_rules.h"
#include "forms/run_time_error.h"
#include "platform/values/text.h"
#include "platform/widgets/field_state.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/validate_on_leave.h"
#include "store/delivery_reads.h"

#include <tolvinpt/host.h>

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tolvinpt {
namespace {

struct Notice
{
    QStringView text;
    QStringView title;
};

constexpr Notice OrderNumberRequired = {u"注文番号は必須入力です", u"[注文番号] - 入力ﾁｪｯｸ"};
constexpr Notice DeliveryKeyRequired = {u"納品ｷｰ番号は必須入力です", u"[納品ｷｰ番号] - 入力ﾁｪｯｸ"};
constexpr Notice ItemRequired = {u"発注者品名ｺｰﾄﾞ、または品名は必須入力です", u"[発注者品名ｺｰﾄﾞ] - 入力ﾁｪｯｸ"};
constexpr Notice OrderQuantityTooLarge = {u"注文数量の最大値は 999,999,999.999 です",
                                          u"[注文数量] - 入力ﾁｪｯｸ"};
constexpr Notice OrderQuantityZero = {u"注文数量が ｾﾞﾛ です", u"[注文数量] - 入力ﾁｪｯｸ"};
constexpr Notice DeliveryQuantityZero = {u"納入数量に ｾﾞﾛ は入力できません", u"[納入数量] - 入力ﾁｪｯｸ"};
constexpr Notice DeliveryQuantityTooLarge = {u"納入数量の最大値は 999,999,999.999 です",
                                             u"[納入数量] - 入力ﾁｪｯｸ"};
constexpr Notice DuplicateKey = {DuplicateKeyText, u"重複ﾁｪｯｸ"};
constexpr Notice DueDateEmpty = {u"納期が入力されていません", u"[納期] - 入力ﾁｪｯｸ"};
constexpr Notice ShipDateEmpty = {u"出荷日が入力されていません", u"[出荷日] - 入力ﾁｪｯｸ"};
struct DateCheck
{
    QStringView field;
    Notice empty;
};
constexpr DateCheck DateChecks[] = {{u"txtDate(0)", DueDateEmpty}, {u"txtDate(1)", ShipDateEmpty}};
constexpr Notice SaveIncomplete = {u"必要項目が入力されていませんが、保存してよろしいですか",
                                   u"再確認...入力ﾁｪｯｸ"};

void tell(const Notice& notice)
{
    showExclamation(notice.text.toString(), notice.title.toString());
}

// One run of the checks: the Cancel and Warn flags that the steps share, as the field validations
// share Cancel with their Validate events.
class InputCheck
{
public:
    explicit InputCheck(frmData& form)
        : m_form(form), m_customer(form.link().customerByCode(text(u"txtCustomCode")))
    {
    }

    bool run()
    {
        return orderNumber() && deliveryKey() && item() && orderQuantity() && deliveryQuantity() &&
               uniqueKey() && dates() && accepted();
    }

private:
    QWidget* field(QStringView name) const { return m_form.control(name.toString()); }
    QString text(QStringView name) const { return m_form.control<QLineEdit>(name.toString())->text(); }
    bool blank(QStringView name) const { return rightTrim(text(name)).isEmpty(); }
    // Runs the field's validation as leaving it would; a refusal sets Cancel, which then stays set.
    void validate(QStringView name)
    {
        if (!m_form.leave().validate(field(name)))
            m_cancel = true;
    }
    void refuse(const Notice& notice)
    {
        m_cancel = true;
        tell(notice);
    }
    // Puts the focus in the field, opening the order fields first when `open` asks for it.
    bool stayIn(QStringView name, bool open)
    {
        if (open)
            m_form.SetDetailEditable(true);
        field(name)->setFocus();
        return false;
    }
    bool lenient() const { return m_customer->Settings().EntryOptions().LenientEntry(); }

    bool orderNumber()
    {
        validate(u"txtOrderNo");
        if (!m_cancel && blank(u"txtOrderNo"))
            refuse(OrderNumberRequired);
        if (!m_cancel)
            return true;
        // Locks rather than opens: that is how this one check has always behaved.
        if (!field(u"txtOrderNo")->isEnabled())
            m_form.SetDetailEditable(false);
        return stayIn(u"txtOrderNo", false);
    }

    bool deliveryKey()
    {
        validate(u"txtPaymentKeyNo");
        if (!m_cancel && blank(u"txtPaymentKeyNo"))
            refuse(DeliveryKeyRequired);
        return !m_cancel || stayIn(u"txtPaymentKeyNo", isLocked(field(u"txtPaymentKeyNo")));
    }

    // The item code or one of the two item names.
    bool item()
    {
        validate(u"txtHCode");
        if (!m_cancel && blank(u"txtHCode")) {
            validate(u"txtHinmeiA");
            if (!m_cancel && text(u"txtHinmeiA").isEmpty())
                validate(u"txtHinmeiK");
            if (!m_cancel && text(u"txtHinmeiA").isEmpty() && text(u"txtHinmeiK").isEmpty())
                refuse(ItemRequired);
        }
        return !m_cancel || stayIn(u"txtHCode", isLocked(field(u"txtHCode")));
    }

    // Checked whether or not its validation refused it; zero is only a warning.
    bool orderQuantity()
    {
        validate(u"txtAmountOrder");
        const Currency value = frmdata::readQuantity(text(u"txtAmountOrder"));
        if (!value.isZero() && value > frmdata::MaxQuantity)
            refuse(OrderQuantityTooLarge);
        if (value.isZero() && !lenient()) {
            m_warn = true;
            field(u"txtAmountOrder")->setFocus();
            tell(OrderQuantityZero);
        }
        return !m_cancel || stayIn(u"txtAmountOrder", isLocked(field(u"txtAmountOrder")));
    }

    // Never zero, whatever the customer's option.
    bool deliveryQuantity()
    {
        validate(u"txtAmountDelivery");
        const Currency value = frmdata::readQuantity(text(u"txtAmountDelivery"));
        if (value.isZero())
            refuse(DeliveryQuantityZero);
        else if (value > frmdata::MaxQuantity)
            refuse(DeliveryQuantityTooLarge);
        return !m_cancel || stayIn(u"txtAmountDelivery", isLocked(field(u"txtAmountDelivery")));
    }

    // The record's own row is no duplicate; for a new record (no id yet) any row is.
    bool uniqueKey()
    {
        const OrderKey key = orderKeyOnScreen(m_form);
        const auto found = findLiveRecordByOrderKey(m_form.link().database(), key.customer, key.orderNumber,
                                                    key.deliveryKey);
        if (!found || QString::number(*found) == text(u"txtIDData"))
            return true;
        refuseDuplicateKey(m_form);
        return false;
    }

    // Empty dates are warnings; a date that its validation refuses does not stop the save here, and
    // it keeps Cancel set, so the ship date is then not tested for being empty.
    bool dates()
    {
        if (lenient())
            return true;
        for (const DateCheck& check : DateChecks) {
            validate(check.field);
            if (!m_cancel && blank(check.field)) {
                m_warn = true;
                field(check.field)->setFocus();
                tell(check.empty);
            }
        }
        return true;
    }

    bool accepted() const
    {
        if (!m_warn)
            return true;
        const Message question{SaveIncomplete.text.toString(), SaveIncomplete.title.toString(),
                               QMessageBox::Question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
        return messages().show(question) == QMessageBox::Yes;
    }

    frmData& m_form;
    const std::shared_ptr<Customer> m_customer;
    bool m_cancel = false;
    bool m_warn = false;
};

} // namespace

qint64 selectedCustomerId(const frmData& form)
{
    const auto* customers = form.control<QComboBox>(u"cobCustomer"_s);
    if (customers->currentIndex() < 0)
        throw RunTimeError(u"Invalid property array index"_s, 381);
    return customers->currentData().toLongLong();
}

OrderKey orderKeyOnScreen(const frmData& form)
{
    return {selectedCustomerId(form), form.control<QLineEdit>(u"txtOrderNo"_s)->text(),
            form.control<QLineEdit>(u"txtPaymentKeyNo"_s)->text()};
}

void refuseDuplicateKey(frmData& form)
{
    tell(DuplicateKey);
    form.control(u"txtPaymentKeyNo"_s)->setFocus();
}

bool frmData::CheckInput()
{
    return InputCheck(*this).run();
}

} // namespace tolvinpt
