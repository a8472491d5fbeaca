#pragma once

// The free-text fields of the entry form: each takes half-width or full-width characters only, checked
// and normalised when the operator leaves it.

#include "platform/key_filter.h"

#include <QStringView>

#include <span>

namespace tolvinpt {

class frmData;

namespace frmdata {

enum class Width { Half, Full };

struct TextRule
{
    QStringView field;
    Width width;
    // Applied to every typed character; null for none.
    char32_t (*keyPress)(char32_t typed);
};

// The nineteen text fields and their rules, in catalogue order.
std::span<const TextRule> textRules();

} // namespace frmdata

// Hangs the width check on leaving each text field, and the key handling, on `form`'s fields.
void installTextRules(frmData& form);

} // namespace tolvinpt
