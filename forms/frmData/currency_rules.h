#pragma once

// The currency code combo cobCurrency and the name combo cobCurrencyName that follows it. The code is
// typed or picked; typing completes a listed code from its first letters, and a code outside the list
// is kept with the name "その他".

namespace tolvinpt {
class frmData;
}

namespace tolvinpt::frmdata {

// True when the unit price is in yen: the currency code, without blanks around it, is "JPY". (Leaving
// the currency checks the price for yen only when the code is exactly "JPY".)
bool pricedInYen(const frmData& form);

// Hangs the upper-case letters, entry, completion, name following and the leave check on cobCurrency.
void installCurrencyRules(frmData& form);

} // namespace tolvinpt::frmdata
