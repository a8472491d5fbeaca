#pragma once

// Shared by the host tests: a demo database in a temporary folder or on the test server, file
// fingerprints, SQL shorthands.

#include "host/host_database.h"
#include "tests/support/pg_server.h"
#include "tests/support/temp_database.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QUuid>

#include <gtest/gtest.h>

#include <optional>

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

// A new empty database on the test run's server, dropped when the object goes.
struct ServerScratchDatabase
{
    ServerScratchDatabase() { server.admin(u"CREATE DATABASE "_s + name); }
    ~ServerScratchDatabase()
    {
        try {
            server.admin(u"DROP DATABASE IF EXISTS "_s + name + u" WITH (FORCE)"_s);
        } catch (const std::exception&) {
            // The server goes with the test run anyway.
        }
    }
    DatabaseLocation location() const
    {
        return {u"postgresql://"_s, ServerDatabase{server.host, server.port, server.user, name, {}}};
    }

    const tolvinpt::test::PgServer server = tolvinpt::test::PgServer::shared();
    const QString name = u"host_"_s + QUuid::createUuid().toString(QUuid::Id128);
};

// A freshly created demo database, open as `connection` for the fixture's lifetime: a file, or a
// database on the server when the tests run there (tolvinpt_test's BOTH_ENGINES).
class DemoDatabaseTest : public ::testing::Test
{
protected:
    explicit DemoDatabaseTest(tolvinpt::test::Engine engine = tolvinpt::test::defaultEngine())
        : isServer(engine == tolvinpt::test::Engine::PostgreSQL)
    {
    }
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(u"demo.sqlite"_s);
        if (isServer)
            scratch.emplace();
        const OpenOutcome outcome =
            openHostDatabase(isServer ? scratch->location() : path, connection, {true, {}});
        ASSERT_EQ(outcome.code, ExitCode::Ok) << outcome.message.toStdString();
    }
    void TearDown() override
    {
        closeHostDatabase(connection);
        scratch.reset();
    }

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

    const bool isServer;
    std::optional<ServerScratchDatabase> scratch;
    QTemporaryDir dir;
    QString path; // of the file, also when the database is on the server
    const QString connection = u"host-test-"_s + QUuid::createUuid().toString(QUuid::Id128);
};

} // namespace tolvinpt::host::test
