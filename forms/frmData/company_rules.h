#pragma once

// The company choices: the customer combo fills the customer's code, and the own-company combo and
// the own-company code follow each other.

namespace tolvinpt {
class CompanySettings;
class frmData;
} // namespace tolvinpt

namespace tolvinpt::frmdata {

// The own-company code is chosen per record from the host's list: multiple codes are on, the company's
// own code is "*", and the list has at least one entry.
bool ownCodeListMode(const CompanySettings& company);

// Connects the customer combo's click and the own-company code's change.
void installCompanyRules(frmData& form);

} // namespace tolvinpt::frmdata
