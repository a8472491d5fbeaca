#pragma once

// The free-text fields of the entry form: each takes half-width or full-width characters only, checked
// and normalised when the operator leaves it.

namespace tolvinpt {

class frmData;

// Hangs the width check on leaving, and the key handling, on each of `form`'s free-text fields.
void installTextRules(frmData& form);

} // namespace tolvinpt
