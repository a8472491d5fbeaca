#include "capture/pdf_file.h"

#include "capture/hard_copy_error.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace tolvinpt::capture {
namespace {

// More copies of one record within one second than anyone makes by hand.
constexpr int MostCopies = 1000;

QString fileNameSafe(const QString& text)
{
    QString safe = text.trimmed();
    for (QChar& c : safe)
        if (c.unicode() < 0x20 || u"\\/:*?\"<>|"_s.contains(c))
            c = u'_';
    return safe;
}

} // namespace

QString pdfFileName(const QDateTime& time, const QString& key, int copy)
{
    QString name = time.toString(u"yyyyMMdd-HHmmss"_s);
    if (const QString safe = fileNameSafe(key); !safe.isEmpty())
        name += u'-' + safe;
    if (copy > 1)
        name += u'-' + QString::number(copy);
    return name + u".pdf"_s;
}

std::unique_ptr<QFile> createPdfFile(const QString& folder, const QString& key)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDir dir(folder);
    for (int copy = 1;; ++copy) {
        auto file = std::make_unique<QFile>(dir.filePath(pdfFileName(now, key, copy)));
        if (file->open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return file;
        const int number = errno;
        if (!QFileInfo::exists(file->fileName()) || copy == MostCopies)
            throw HardCopyError(file->errorString(), number, QDir::toNativeSeparators(file->fileName()));
    }
}

} // namespace tolvinpt::capture
