#include "capture/hard_copy.h"

#include "capture/busy_cursor.h"
#include "capture/hard_copy_error.h"
#include "capture/pdf_file.h"
#include "capture/print_picture.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

#include <cerrno>
#include <cstring>
#include <optional>

namespace tolvinpt::capture {
namespace {

HardCopyDestination destination;

bool toPdf()
{
    return !destination.pdfFolder.isEmpty() || QPrinterInfo::availablePrinterNames().isEmpty();
}

// The host's folder must exist; the documents folder is the user's own and made when missing.
QString pdfFolder()
{
    if (!destination.pdfFolder.isEmpty())
        return destination.pdfFolder;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(documents);
    return documents;
}

// A PDF page has no unprintable border: the printable area is the whole A4 sheet.
QPageLayout pdfPage()
{
    return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF());
}

// Draws the page and ends the document, which sends it; on failure drops the job with `abort`, which
// gets the painter still active.
template <typename Abort>
void paintPage(QPagedPaintDevice& device, const QImage& picture, const QString& source, Abort abort)
{
    BusyCursor busy;
    QPainter painter;
    try {
        PrintPictureToPage(device, painter, picture);
        if (!painter.end())
            throw printerError();
    } catch (const HardCopyError& e) {
        abort(painter);
        throw e.from(source);
    }
}

// The page is made in memory and written in one go, so a short write (a full disk) is seen for certain:
// the PDF engine and a file's own buffer lose some write errors on the way.
QString toPdfFile(const QImage& picture, const QString& title, const QString& key)
{
    const std::unique_ptr<QFile> file = createPdfFile(pdfFolder(), key);
    const QString source = QDir::toNativeSeparators(file->fileName());
    QBuffer page;
    page.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&page);
        writer.setTitle(title);
        writer.setPageLayout(pdfPage());
        paintPage(writer, picture, source, [&](QPainter&) { file->remove(); });
    }
    if (file->write(page.data()) != page.size() || !file->flush()) {
        // A short write leaves the file without an error of its own; the system's says why.
        const int number = errno;
        const HardCopyError failure(QString::fromLocal8Bit(std::strerror(number)), number, source);
        file->remove();
        throw failure;
    }
    file->close();
    return file->fileName();
}

void toPrinter(const QImage& picture, const QString& title)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    paintPage(printer, picture, printer.printerName(), [&](QPainter&) { printer.abort(); });
}

// A name that no file has now. The print dialog of the preview shows it and may change it; it asks
// before it replaces a file, so the name is not held by an empty file meanwhile.
QString freePdfName(const QString& key)
{
    const std::unique_ptr<QFile> file = createPdfFile(pdfFolder(), key);
    file->remove();
    return file->fileName();
}

// The preview paints the page as often as it likes, the print button once more on the printer the
// operator picks. Qt calls the painting: a failure is kept and thrown once the preview has closed.
QString previewed(const QImage& picture, const QString& title, const QString& key, QWidget* parent)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    if (toPdf()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(freePdfName(key));
        printer.setPageLayout(pdfPage());
    }
    std::optional<HardCopyError> failure;
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(title);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* target) {
        const bool pdf = target->outputFormat() == QPrinter::PdfFormat;
        const QString file = target->outputFileName();
        // A file that was there before (the operator chose to replace it) is not ours to remove.
        const bool newFile = pdf && !QFileInfo::exists(file);
        try {
            paintPage(*target, picture, pdf ? QDir::toNativeSeparators(file) : target->printerName(),
                      [target](QPainter&) { target->abort(); });
        } catch (const HardCopyError& e) {
            if (newFile)
                QFile::remove(file);
            if (!failure)
                failure = e;
        }
    });
    const bool printed = dialog.exec() == QDialog::Accepted;
    if (failure)
        throw *failure;
    return printed && printer.outputFormat() == QPrinter::PdfFormat ? printer.outputFileName() : QString();
}

} // namespace

void setHardCopyDestination(const HardCopyDestination& to)
{
    destination = to;
}

const HardCopyDestination& hardCopyDestination()
{
    return destination;
}

QString PrintHardCopy(const QImage& picture, const QString& title, const QString& key, QWidget* parent)
{
    if (destination.preview)
        return previewed(picture, title, key, parent);
    if (toPdf())
        return toPdfFile(picture, title, key);
    toPrinter(picture, title);
    return {};
}

} // namespace tolvinpt::capture
