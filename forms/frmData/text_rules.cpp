#include "forms/frmData/text_rules.h"

#include "forms/frmData/frmData.h"
#include "forms/text_checks.h"
#include "platform/widgets/key_filter.h"
#include "platform/widgets/validate_on_leave.h"

#include <QLineEdit>

namespace tolvinpt {
namespace {

enum class Width { Half, Full };

struct TextRule
{
    QStringView field;
    Width width;
    // Applied to every typed character; null for none.
    char32_t (*keyPress)(char32_t typed);
};

// clang-format off
constexpr TextRule TextRules[] = {
    {u"txtOrderNo",        Width::Half, nullptr},
    {u"txtPaymentKeyNo",   Width::Half, nullptr},
    {u"txtTantoA",         Width::Half, nullptr},
    {u"txtTantoK",         Width::Full, nullptr},
    {u"txtKensa",          Width::Half, nullptr},
    {u"txtPlaceC",         Width::Half, nullptr},
    {u"txtPlaceA",         Width::Half, nullptr},
    {u"txtPlaceK",         Width::Full, nullptr},
    {u"txtHCode",          Width::Half, nullptr},
    {u"txtMyHCode",        Width::Half, nullptr},
    {u"txtHinmeiA",        Width::Half, nullptr},
    {u"txtHinmeiK",        Width::Full, nullptr},
    {u"txtUnit",           Width::Half, upperCase}, // typed letters become capitals
    {u"txtMyRemarksA",     Width::Half, nullptr},
    {u"txtMyRemarksK",     Width::Full, nullptr},
    {u"txtMyBar",          Width::Half, nullptr},
    {u"txtCustomRemarksA", Width::Half, nullptr},
    {u"txtCustomRemarksK", Width::Full, nullptr},
    {u"txtCustomBar",      Width::Half, nullptr},
};
// clang-format on

} // namespace

void installTextRules(frmData& form)
{
    for (const auto& rule : TextRules) {
        auto* box = form.control<QLineEdit>(rule.field.toString());
        Q_ASSERT(box);
        const auto check = rule.width == Width::Half ? CheckHalfWidth : CheckFullWidth;
        form.leave().setValidate(box, [box, check](bool& cancel) { cancel = !check(box); });
        if (rule.keyPress)
            setKeyPress(box, rule.keyPress);
    }
}

} // namespace tolvinpt
