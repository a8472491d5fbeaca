#pragma once

#include "platform/sql/database.h"

#include <QSqlDatabase>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

namespace tolvinpt::test {

// A fresh SQLite database file in its own temporary directory, open under a connection name of its own,
// with the delivery tables created from the shipped DDL unless asked for an empty one. The connection is
// closed and removed, and the file deleted, when the object goes.
class TempDatabase
{
public:
    enum class Schema { Delivery, Empty };

    explicit TempDatabase(Schema schema = Schema::Delivery,
                          db::Database::StatementPath path = db::Database::StatementPath::Native);
    TempDatabase(const TempDatabase&) = delete;
    TempDatabase& operator=(const TempDatabase&) = delete;
    ~TempDatabase();

    // The store's access; created with the connection.
    db::Database& db() { return *m_database; }
    // The Qt connection, e.g. for a host object's Database().
    QSqlDatabase connection() const;
    const QString& connectionName() const { return m_name; }
    QString filePath() const;

    // Drops the store's access and closes the connection (to reopen it with reopen()).
    void close();
    // Opens the connection again and gives it a new store access.
    void reopen();

private:
    QTemporaryDir m_dir;
    QString m_name;
    db::Database::StatementPath m_path;
    std::unique_ptr<db::Database> m_database;
};

// Another operator's connection to the same file, for changes and locks made behind the component's back.
// Each statement must succeed.
class SecondConnection
{
public:
    // Runs `statements` in turn once the connection is open (e.g. "BEGIN EXCLUSIVE" to hold a lock
    // until the object goes).
    explicit SecondConnection(const TempDatabase& database, std::initializer_list<QString> statements = {});
    SecondConnection(const SecondConnection&) = delete;
    SecondConnection& operator=(const SecondConnection&) = delete;
    ~SecondConnection();

    void exec(const QString& sql);

private:
    QString m_name;
};

// For tests that run on both statement paths:
//   INSTANTIATE_TEST_SUITE_P(Db, Suite, test::bothStatementPaths(), test::statementPathName);
inline auto bothStatementPaths()
{
    return testing::Values(db::Database::StatementPath::Native, db::Database::StatementPath::Portable);
}
std::string statementPathName(const testing::TestParamInfo<db::Database::StatementPath>& param);

} // namespace tolvinpt::test
