// Date fields: what typing and leaving them do.
#include "forms/frmData/date_rules.h"

#include "forms/frmData/frmData.h"
#include "platform/values/date.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/messages.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tolvinpt::frmdata {
namespace {

constexpr QStringView Title = u"日付入力ﾁｪｯｸ";
constexpr QStringView WrongLength = u"日付の入力が不正です\r\n6 桁 または 8 桁で入力してください";
constexpr QStringView NotADate = u"入力された値は日付として認識できません";
constexpr QStringView OutOfRange =
    u"日付が入力可能範囲外です\r\n\r\n入力可能範囲 ： 1951年 1月 1日 ～ 2050年12月31日";
constexpr QStringView Contradiction = u"出荷日と納入日の日付が矛盾しているため自動修正します";

constexpr int ShipDate = 1;
constexpr int DeliveryDate = 2;

QLineEdit* dateField(const frmData& form, int index)
{
    return form.control<QLineEdit>(u"txtDate(%1)"_s.arg(index));
}

bool allDigits(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// The ship date and the delivery date are compared once both hold a date; the one just entered wins.
void crossCheck(const frmData& form, int index, const QDate& entered)
{
    const int other = index == ShipDate ? DeliveryDate : ShipDate;
    QLineEdit* otherField = dateField(form, other);
    if (otherField->text().isEmpty())
        return;
    // Only a displayed record can hold something else there; it is left for the save to judge.
    const std::optional<QDate> otherDate = fromYmd(otherField->text());
    if (!otherDate)
        return;
    const QDate ship = index == ShipDate ? entered : *otherDate;
    const QDate delivery = index == ShipDate ? *otherDate : entered;
    if (ship <= delivery)
        return;
    showExclamation(Contradiction.toString(), Title.toString());
    otherField->setText(dateField(form, index)->text());
}

void txtDate_Validate(const frmData& form, int index, bool& cancel)
{
    QLineEdit* field = dateField(form, index);
    if (field->text().isEmpty())
        return;
    const TypedDate typed = readTypedDate(field->text());
    if (!typed.refusal.isEmpty()) {
        showExclamation(typed.refusal.toString(), Title.toString());
        cancel = true;
        return;
    }
    field->setText(toYmd(typed.date));
    if (index == ShipDate || index == DeliveryDate)
        crossCheck(form, index, typed.date);
}

} // namespace

TypedDate readTypedDate(const QString& text)
{
    if (text.size() != 8 && text.size() != 6)
        return {{}, WrongLength};
    // Only ASCII digits can name a day; full-width digits are refused like any other character.
    if (!allDigits(text))
        return {{}, NotADate};
    const QString ymd =
        text.size() == 8 ? text : QString::number(expandTwoDigitYear(text.left(2).toInt())) + text.mid(2);
    const std::optional<QDate> date = fromYmd(ymd);
    if (!date)
        return {{}, NotADate};
    if (!isAcceptedDate(*date))
        return {{}, OutOfRange};
    return {*date, {}};
}

void installDateRules(frmData& form)
{
    for (int index = 0; index <= DeliveryDate; ++index) {
        QLineEdit* field = dateField(form, index);
        setKeyPress(field, digitKey);
        form.leave().setValidate(field,
                                 [&form, index](bool& cancel) { txtDate_Validate(form, index, cancel); });
    }
}

} // namespace tolvinpt::frmdata
