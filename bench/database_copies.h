#pragma once

// For the benchmarks that write: each database named on the command line is measured on a fresh copy of
// it, so the shared files stay as they were generated. A database on a server (a postgresql:// URI) is
// copied on the server, as a new database made from it as a template.

#include "bench/bench_database.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUrl>

#include <cstdio>
#include <stdexcept>
#include <unistd.h>

namespace tolvinpt::bench {

// A copy of the server database `uri` for as long as it lives: the copy's URI.
class ServerCopy
{
public:
    explicit ServerCopy(const QString& uri) : m_source(uri), m_copy(uri)
    {
        m_name = m_source.path().mid(1) + QStringLiteral("_copy_") + QString::number(getpid());
        m_copy.setPath(u'/' + m_name);
        admin(QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(m_name, m_source.path().mid(1)));
    }
    ~ServerCopy() { admin(QStringLiteral("DROP DATABASE IF EXISTS %1").arg(m_name)); }
    QString uri() const { return m_copy.toString(); }

private:
    void admin(const QString& sql) const
    {
        QUrl maintenance = m_source;
        maintenance.setPath(QStringLiteral("/postgres"));
        const QString name = QStringLiteral("bench-admin");
        {
            QSqlQuery query(openDatabase(maintenance.toString(), name));
            if (!query.exec(sql))
                std::fprintf(stderr, "%s failed\n", qPrintable(sql));
        }
        QSqlDatabase::removeDatabase(name);
    }

    QUrl m_source, m_copy;
    QString m_name;
};

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
        if (isServer(source)) {
            int rc = 1;
            try {
                const ServerCopy copy(source);
                rc = measure(source, copy.uri());
                QSqlDatabase::removeDatabase(copy.uri());
            } catch (const std::runtime_error& e) {
                std::fprintf(stderr, "%s: %s\n", qPrintable(source), e.what());
            }
            if (rc != 0)
                return rc;
            continue;
        }
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
