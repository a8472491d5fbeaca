#include "forms/frmData/text_rules.h"

#include "forms/frmData/frmData.h"
#include "forms/text_checks.h"
#include "platform/validate_on_leave.h"

#include <QLineEdit>

namespace tolvinpt {
namespace frmdata {
namespace {

using W = Width;

// clang-format off
constexpr TextRule TextRules[] = {
    {u"txtOrderNo",        W::Half, nullptr},
    {u"txtPaymentKeyNo",   W::Half, nullptr},
    {u"txtTantoA",         W::Half, nullptr},
    {u"txtTantoK",         W::Full, nullptr},
    {u"txtKensa",          W::Half, nullptr},
    {u"txtPlaceC",         W::Half, nullptr},
    {u"txtPlaceA",         W::Half, nullptr},
    {u"txtPlaceK",         W::Full, nullptr},
    {u"txtHCode",          W::Half, nullptr},
    {u"txtMyHCode",        W::Half, nullptr},
    {u"txtHinmeiA",        W::Half, nullptr},
    {u"txtHinmeiK",        W::Full, nullptr},
    {u"txtUnit",           W::Half, upperCase}, // typed letters become capitals
    {u"txtMyRemarksA",     W::Half, nullptr},
    {u"txtMyRemarksK",     W::Full, nullptr},
    {u"txtMyBar",          W::Half, nullptr},
    {u"txtCustomRemarksA", W::Half, nullptr},
    {u"txtCustomRemarksK", W::Full, nullptr},
    {u"txtCustomBar",      W::Half, nullptr},
};
// clang-format on

} // namespace

std::span<const TextRule> textRules()
{
    return TextRules;
}

} // namespace frmdata

void installTextRules(frmData& form)
{
    for (const auto& rule : frmdata::textRules()) {
        auto* box = form.control<QLineEdit>(rule.field.toString());
        Q_ASSERT(box);
        const auto check = rule.width == frmdata::Width::Half ? CheckHalfWidth : CheckFullWidth;
        form.leave().setValidate(box, [box, check](bool& cancel) { cancel = !check(box); });
        if (rule.keyPress)
            setKeyPress(box, rule.keyPress);
    }
}

} // namespace tolvinpt
