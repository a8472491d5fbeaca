#pragma once

// Shared by the host tests: a demo database in a temporary folder, file fingerprints, SQL shorthands.

#include "host/host_database.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

#include <gtest/gtest.h>

namespace tolvinpt::host::test {

inline QByteArray fileHash(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

// The first value of the first row of `sql`; a statement that fails fails the test.
inline QVariant scalar(const QString& connection, const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(connection, false));
    if (!query.exec(sql)) {
        ADD_FAILURE() << sql.toStdString();
        return {};
    }
    return query.next() ? query.value(0) : QVariant();
}

inline qint64 count(const QString& connection, const QString& sql)
{
    return scalar(connection, sql).toLongLong();
}

// A freshly created demo database, open as `connection` for the fixture's lifetime.
class DemoDatabaseTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(QStringLiteral("demo.sqlite"));
        const OpenOutcome outcome = openHostDatabase(path, connection);
        ASSERT_EQ(outcome.code, ExitCode::Ok) << outcome.message.toStdString();
    }
    void TearDown() override { closeHostDatabase(connection); }

    qint64 count(const QString& sql) const { return test::count(connection, sql); }
    void exec(const QString& sql)
    {
        QSqlQuery query(QSqlDatabase::database(connection, false));
        ASSERT_TRUE(query.exec(sql)) << sql.toStdString();
    }

    QTemporaryDir dir;
    QString path;
    const QString connection = QStringLiteral("host-test-") + QUuid::createUuid().toString(QUuid::Id128);
};

} // namespace tolvinpt::host::test
