#include "host/host_database.h"

#include "host/demo_data.h"
#include "host/host_schema.h"
#include "host/sql_script.h"

#include <tolvinpt/error.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

#include <functional>

namespace tolvinpt::host {
namespace {

constexpr int kSqliteNotADatabase = 26;
// Another program (or a second host) may hold a write lock for a moment.
const QString kBusyTimeout = QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000");

OpenOutcome refused(ExitCode code, const QString& what, const QString& path)
{
    return {code, QStringLiteral("%1\n%2").arg(what, QDir::toNativeSeparators(path))};
}

QString creationFailure(const Error& e)
{
    return QStringLiteral("データベースを作成できません: %1 (%2)").arg(e.description()).arg(e.number());
}

QString readFailure(const Error& e)
{
    return QStringLiteral("データベースを読めません: ") + e.description();
}

// "" and ":memory:" are a private temporary database to SQLite, and "file:" names are URIs to it (with
// mode=memory among them): whatever is entered there is lost at exit.
bool namesAFile(const QString& path)
{
    return !path.isEmpty() && path != u":memory:" && !path.startsWith(u"file:");
}

bool holdsAllTables(const QSqlDatabase& db)
{
    const QStringList present = db.tables(QSql::Tables);
    for (const QString& table : requiredTables())
        if (!present.contains(table, Qt::CaseInsensitive))
            return false;
    return true;
}

// The checks that an existing database is one of ours, of a version this host knows, with every column.
OpenOutcome checkOurs(const QSqlDatabase& db, const QString& shown)
{
    const HostMarks marks = readMarks(db);
    if (marks.applicationId != kApplicationId || !holdsAllTables(db))
        return refused(ExitCode::ForeignDatabase,
                       QStringLiteral("tolvinpt-host のデータベースではありません。"), shown);
    if (marks.version > kSchemaVersion)
        return refused(ExitCode::NewerDatabase,
                       QStringLiteral("このデータベースは新しい版の tolvinpt-host で作られています。"),
                       shown);
    if (const QStringList missing = missingColumns(db); !missing.isEmpty())
        return refused(ExitCode::MissingColumns,
                       QStringLiteral("データベースの表に必要な列がありません: ") +
                           missing.join(QStringLiteral(", ")),
                       shown);
    return {};
}

// Looks at an existing file without writing to it.
OpenOutcome inspect(const QString& path)
{
    ScopedConnection check(path, QStringLiteral("QSQLITE_OPEN_READONLY"));
    QSqlDatabase db = check.db();
    if (!db.open())
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースを開けません。"), path);
    try {
        return checkOurs(db, path);
    } catch (const Error& e) {
        if (e.number() == kSqliteNotADatabase)
            return refused(ExitCode::NotADatabase,
                           QStringLiteral("このファイルは SQLite のデータベースではありません。"), path);
        return refused(ExitCode::CannotOpen, readFailure(e), path);
    }
}

Error lastError(const QSqlDatabase& db)
{
    return Error(db.lastError().text(), db.lastError().nativeErrorCode().toLong());
}

// Opens the connection; on success it stays registered under `connectionName`.
bool openConnection(const QString& path, const QString& connectionName, const QString& options)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
    db.setDatabaseName(path);
    db.setConnectOptions(options);
    return db.open();
}

void inTransaction(const QString& connectionName, const std::function<void(const QSqlDatabase&)>& work)
{
    QSqlDatabase db = QSqlDatabase::database(connectionName, false);
    if (!db.transaction())
        throw lastError(db);
    try {
        work(db);
        if (!db.commit())
            throw lastError(db);
    } catch (...) {
        db.rollback();
        throw;
    }
}

void buildNew(const QSqlDatabase& db)
{
    createHostSchema(db);
    fillDemoData(db);
}

// A database of an earlier version gets what this version adds (a big one takes a while, once).
OpenOutcome upgrade(const QString& path, const QString& connectionName, const SchemaProgress& progress)
{
    try {
        if (needsUpgrade(QSqlDatabase::database(connectionName, false)))
            inTransaction(connectionName, [&](const QSqlDatabase& db) { upgradeHostSchema(db, progress); });
    } catch (const Error& e) {
        closeHostDatabase(connectionName);
        return refused(ExitCode::CannotOpen,
                       QStringLiteral("データベースをこの版に合わせられません: %1 (%2)")
                           .arg(e.description())
                           .arg(e.number()),
                       path);
    }
    return {};
}

OpenOutcome create(const QString& path, const QString& connectionName)
{
    if (!openConnection(path, connectionName, kBusyTimeout)) {
        closeHostDatabase(connectionName);
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースを作成できません。"), path);
    }
    try {
        inTransaction(connectionName, buildNew);
    } catch (const Error& e) {
        closeHostDatabase(connectionName);
        // The file is ours and unfinished: leave nothing half made behind.
        QFile::remove(path);
        QFile::remove(path + QStringLiteral("-journal"));
        return refused(ExitCode::CannotOpen, creationFailure(e), path);
    }
    return {};
}

// A database on a server: an empty one gets our tables (and the demo data when asked for), any other
// must be ours. The password comes from libpq's password file or environment.
OpenOutcome openServer(const DatabaseLocation& location, const QString& connectionName,
                       const OpenOptions& options)
{
    if (!openServerConnection(*location.server, connectionName)) {
        const QString reason = QSqlDatabase::database(connectionName, false).lastError().text().trimmed();
        closeHostDatabase(connectionName);
        return refused(ExitCode::CannotOpen,
                       QStringLiteral("データベースサーバーに接続できません: ") + reason, location.given);
    }
    OpenOutcome outcome;
    bool creating = false;
    try {
        const QSqlDatabase db = QSqlDatabase::database(connectionName, false);
        creating = db.tables(QSql::Tables).isEmpty();
        if (creating)
            inTransaction(connectionName, options.demo ? buildNew : createHostSchema);
        else
            outcome = checkOurs(db, location.given);
    } catch (const Error& e) {
        outcome =
            refused(ExitCode::CannotOpen, creating ? creationFailure(e) : readFailure(e), location.given);
    }
    if (outcome.code != ExitCode::Ok) {
        closeHostDatabase(connectionName);
        return outcome;
    }
    return creating ? outcome : upgrade(location.given, connectionName, options.progress);
}

} // namespace

OpenOutcome openHostDatabase(const DatabaseLocation& location, const QString& connectionName,
                             const OpenOptions& options)
{
    if (location.isServer())
        return openServer(location, connectionName, options);
    const QString& path = location.given;
    if (!namesAFile(path))
        return refused(ExitCode::CannotOpen,
                       QStringLiteral("データベースにはファイルを指定してください。"
                                      "メモリ上のデータベースは終了するとすべて失われます。"),
                       path);
    const QFileInfo info(path);
    if (!info.exists()) {
        if (!info.dir().exists())
            return refused(ExitCode::CannotOpen, QStringLiteral("データベースのフォルダがありません。"),
                           path);
        return create(path, connectionName);
    }
    if (!info.isFile())
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースのファイルではありません。"), path);
    if (!info.isReadable())
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースを読む権限がありません。"), path);
    if (OpenOutcome outcome = inspect(path); outcome.code != ExitCode::Ok)
        return outcome;
    if (!info.isWritable())
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースに書き込む権限がありません。"),
                       path);

    if (!openConnection(path, connectionName, kBusyTimeout)) {
        closeHostDatabase(connectionName);
        return refused(ExitCode::CannotOpen, QStringLiteral("データベースを開けません。"), path);
    }
    return upgrade(path, connectionName, options.progress);
}

void closeHostDatabase(const QString& connectionName)
{
    QSqlDatabase::database(connectionName, false).close();
    QSqlDatabase::removeDatabase(connectionName);
}

bool openServerConnection(const ServerDatabase& server, const QString& connectionName)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connectionName);
    db.setHostName(server.host);
    db.setPort(server.port);
    db.setUserName(server.user);
    db.setDatabaseName(server.name);
    db.setConnectOptions(server.options);
    return db.open();
}

} // namespace tolvinpt::host
