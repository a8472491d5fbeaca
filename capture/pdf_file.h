#pragma once

// The files that hold hard copies: named by date, time and the record's key, never one over another.

#include <QDateTime>
#include <QFile>
#include <QString>

#include <memory>

namespace tolvinpt::capture {

// "20250310-142501-D0001.pdf" for the hard copy made at `time` of the record known by `key`; `copy` 2
// and more add "-2" and so on before the extension. Characters that a file name on a shared drive
// cannot hold become "_"; without a key the name is the date and time alone.
QString pdfFileName(const QDateTime& time, const QString& key, int copy = 1);

// Creates a new, empty file in `folder` for a hard copy made now, under the first of its names that no
// file has yet (the check and the creation are one step, so two hard copies never share a file).
// Throws HardCopyError, with the system's description and number, when the folder takes no file.
std::unique_ptr<QFile> createPdfFile(const QString& folder, const QString& key);

} // namespace tolvinpt::capture
