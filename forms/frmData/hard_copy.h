#pragma once

// The menu item mnuDataPrint ("ﾊｰﾄﾞ ｺﾋﾟｰ"): a picture of the entry form as it stands, on one page.

namespace tolvinpt {
class frmData;
}

namespace tolvinpt::frmdata {

// Connects mnuDataPrint to mnuDataPrint_Click.
void connectHardCopy(frmData& form);

// Captures the form, frame and title bar included, into Picture1 and prints it where the host sends
// hard copies, with the busy cursor while it works. A PDF file is named by date, time and the delivery
// key number, and the operator is told where it went. A failure is shown as "description (number)"
// titled "ﾊｰﾄﾞ ｺﾋﾟｰ - " and its source (the printer or the file); the job is dropped.
void mnuDataPrint_Click(frmData& form);

} // namespace tolvinpt::frmdata
