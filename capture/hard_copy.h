#pragma once

// Where a hard copy goes, and the one page that takes it there.

#include <QImage>
#include <QString>

class QWidget;

namespace tolvinpt::capture {

struct HardCopyDestination
{
    // Empty: the default printer, or PDF files in the user's documents folder when no printer is
    // installed. A folder: PDF files in it, printer or not.
    QString pdfFolder;
    // The page is shown in a print preview first, and printed from there or not at all.
    bool preview = false;
};

// The destination of every hard copy in the process; the component sets it for its host. UI thread.
void setHardCopyDestination(const HardCopyDestination& destination);
const HardCopyDestination& hardCopyDestination();

// Prints `picture` on one page at the current destination; `title` names the print job, `key` the PDF
// file (see pdfFileName). Returns the PDF file written, empty when the page went to a printer or the
// preview closed without printing. On failure the job is dropped, no file is left, and HardCopyError
// is thrown with the printer or the file as its source.
QString PrintHardCopy(const QImage& picture, const QString& title, const QString& key, QWidget* parent);

} // namespace tolvinpt::capture
