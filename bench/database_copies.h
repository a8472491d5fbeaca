#pragma once

// For the benchmarks that write: each database named on the command line is measured on a fresh copy of
// it, so the shared files stay as they were generated.

#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QTemporaryDir>

#include <cstdio>

namespace tolvinpt::bench {

// `measure(source, copy)` for each FILE argument in turn; the first failing code stops the run. The
// connection named after the copy's path is removed afterwards. Returns main's exit code.
template <typename Measure> int measureCopies(int argc, char** argv, const char* program, Measure&& measure)
{
    QCoreApplication app(argc, argv);
    const QStringList sources = app.arguments().mid(1);
    if (sources.isEmpty()) {
        std::fprintf(stderr, "usage: %s FILE...\n", program);
        return 2;
    }
    for (const QString& source : sources) {
        QTemporaryDir directory;
        const QString copy = directory.filePath(QStringLiteral("copy.sqlite"));
        if (!directory.isValid() || !QFile::copy(source, copy)) {
            std::fprintf(stderr, "cannot copy %s\n", qPrintable(source));
            return 1;
        }
        const int rc = measure(source, copy);
        QSqlDatabase::removeDatabase(copy);
        if (rc != 0)
            return rc;
    }
    return 0;
}

} // namespace tolvinpt::bench
