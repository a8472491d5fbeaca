#pragma once

#include <tolvinpt/global.h>

#include <QString>

namespace tolvinpt {

// Where the entry form's screen hard copy ("ﾊｰﾄﾞ ｺﾋﾟｰ") goes. One page each time: on the default
// printer, or as a PDF file named by date, time and the delivery key number, which never replaces
// another file; the operator is told where a PDF file went.
struct HardCopySettings
{
    // Empty: the default printer, or PDF files in the user's documents folder when no printer is
    // installed. A folder (which must exist): PDF files in it, printer or not.
    QString PdfFolder;
    // The page is shown in a print preview first; the operator prints it from there or closes it.
    bool Preview = false;
};

// Applies to every hard copy from now on, in every fmInput. Use on the thread that has the QApplication.
TOLVINPT_EXPORT void SetHardCopySettings(const HardCopySettings& settings);

} // namespace tolvinpt
