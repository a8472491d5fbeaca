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

using namespace Qt::StringLiterals;

inline QByteArray fileHash(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

// The first column of every row of `sql`; a statement that fails fails the test.
inline QVariantList column(const QString& connection, const QString& sql)
{
    QSqlQuery query(QSqlDatabase::database(connection, false));
    EXPECT_TRUE(query.exec(sql)) << sql.toStdString();
    QVariantList values;
    while (query.next())
        values << query.value(0);
    return values;
}

inline QVariant scalar(const QString& connection, const QString& sql)
{
    return column(connection, sql).value(0);
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
        path = dir.filePath(u"demo.sqlite"_s);
        const OpenOutcome outcome = openHostDatabase(path, connection);
        ASSERT_EQ(outcome.code, ExitCode::Ok) << outcome.message.toStdString();
    }
    void TearDown() override { closeHostDatabase(connection); }

    qint64 count(const QString& sql) const { return test::count(connection, sql); }
    QStringList texts(const QString& sql) const
    {
        QStringList texts;
        for (const QVariant& value : column(connection, sql))
            texts << value.toString();
        return texts;
    }
    void exec(const QString& sql)
    {
        QSqlQuery query(QSqlDatabase::database(connection, false));
        ASSERT_TRUE(query.exec(sql)) << sql.toStdString();
    }

    QTemporaryDir dir;
    QString path;
    const QString connection = u"host-test-"_s + QUuid::createUuid().toString(QUuid::Id128);
};

} // namespace tolvinpt::host::test
