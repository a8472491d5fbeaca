// Killed at any instant: a driver process works on a database through the real form (see kill_driver.cpp)
// until it is killed with SIGKILL at a random moment; then the checker opens the database (see
// kill_checker.cpp). On a server the campaign kills either the driver or the server's backend process of
// the driver's connection; then the driver must show the database's message, keep the typed values and
// store them once the server is back.
//   tolvinpt-kill-campaign [KILLS [delete|wal|pg-client|pg-server [SEED [postgresql://URI]]]]
// Offscreen; default 1000 kills on SQLite with the rollback journal. On a server the campaign uses the
// test run's server when there is one, else starts a throw-away cluster; a URI names an empty database
// to work in instead (the backend kills then need its server on this machine).
#include "campaigns/kill_campaign.h"
#include "campaigns/campaign_data.h"
#include "host/database_location.h"
#include "store/schema.h"
#include "tests/support/pg_server.h"
#include "tests/support/temp_database.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <memory>

using namespace tolvinpt;

namespace {

// The database the campaign works in, with the starting records.
class KillDatabase
{
public:
    KillDatabase(const QString& mode, const QString& uri)
    {
        if (!mode.startsWith(u"pg-")) {
            m_file = std::make_unique<test::TempDatabase>();
            m_file->db().execute(QStringLiteral("PRAGMA journal_mode = ") + mode);
            fill(m_file->db());
            address = m_file->filePath();
            m_file->close();
            return;
        }
        address = uri.isEmpty() ? newServerDatabase(mode == u"pg-server") : givenServerDatabase(uri);
        {
            QSqlDatabase connection = test::TempDatabase::addConnection(QStringLiteral("setup"), address);
            if (!connection.open())
                throw std::runtime_error("cannot open the campaign's database");
            QSqlQuery(connection).exec(QStringLiteral("CREATE EXTENSION IF NOT EXISTS amcheck"));
            db::Database database(connection);
            createDeliveryTables(database);
            fill(database);
        }
        QSqlDatabase::removeDatabase(QStringLiteral("setup"));
    }
    ~KillDatabase()
    {
        if (!m_serverDatabase.isEmpty())
            m_server.admin(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_serverDatabase));
    }

    QString address;

private:
    static void fill(db::Database& database)
    {
        for (int n = 0; n < campaign::KillRecords; ++n)
            campaign::addDeliveryRecord(database, n);
    }

    // On the test run's server, else on a cluster of the campaign's own; always on its own where it kills
    // the server's processes, which restarts every session of the server.
    QString newServerDatabase(bool ownServer)
    {
        if (!ownServer && QFile::exists(QString::fromUtf8(TOLVINPT_PG_SERVER_CONF))) {
            m_server = test::PgServer::shared();
        } else {
            m_ownServer = std::make_unique<test::PrivatePgServer>();
            m_server = m_ownServer->server();
        }
        m_serverDatabase = QStringLiteral("tolvinpt_kill_%1").arg(QCoreApplication::applicationPid());
        m_server.admin(QStringLiteral("CREATE DATABASE ") + m_serverDatabase);
        return QStringLiteral("postgresql:") + m_server.connectionString(m_serverDatabase);
    }

    static QString givenServerDatabase(const QString& uri)
    {
        QString error;
        const auto server = host::parseServerUri(uri, error);
        if (!server)
            throw std::runtime_error(error.toStdString());
        return QStringLiteral("postgresql:host=%1 port=%2 user=%3 dbname=%4")
            .arg(server->host)
            .arg(server->port)
            .arg(server->user, server->name);
    }

    std::unique_ptr<test::TempDatabase> m_file;
    std::unique_ptr<test::PrivatePgServer> m_ownServer;
    test::PgServer m_server;
    QString m_serverDatabase;
};

// The server's process that serves the driver's connection: the one session on the database that is not
// the asking one. 0 when there is none yet.
qint64 backendOf(const QString& address)
{
    qint64 pid = 0;
    {
        QSqlDatabase connection = test::TempDatabase::addConnection(QStringLiteral("backend"), address);
        if (connection.open()) {
            QSqlQuery query(connection);
            if (query.exec(
                    QStringLiteral("SELECT pid FROM pg_stat_activity WHERE datname = current_database() "
                                   "AND pid <> pg_backend_pid() AND backend_type = 'client backend'")) &&
                query.next())
                pid = query.value(0).toLongLong();
            else
                std::fprintf(stderr, "no backend: %s\n", qPrintable(query.lastError().text()));
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("backend"));
    return pid;
}

struct Tally
{
    int operations = 0, refused = 0, faults = 0, violations = 0;
};

// What the driver said since it started: completed calls, refused duplicates, and what it reported of a
// fault (its message, the typed values kept or lost, the next save; a call that failed). Where the server's
// process was killed, a fault is expected and anything but a clean recovery is a violation; elsewhere any
// fault is.
QStringList readDriver(const QByteArray& said, bool faultsExpected, Tally& tally)
{
    QStringList wrong;
    for (const QByteArray& line : said.split('\n')) {
        const bool fault = line.startsWith("fault ") || line.startsWith("call failed");
        tally.operations += line.startsWith("done ") ? 1 : 0;
        tally.refused += line.startsWith("refused ") ? 1 : 0;
        tally.faults += fault ? 1 : 0;
        // The database's message carries its number; number 0 is this system's own failure.
        if ((fault && !faultsExpected) || line.startsWith("fault LOST") || line.startsWith("again FAILED") ||
            (fault && line.endsWith("(0)")))
            wrong.append(QString::fromUtf8(line));
    }
    return wrong;
}

// Kills the server's process of the driver's connection, then lets the driver go on until it has finished
// two more calls (it must recover), and kills it too.
QStringList killBackend(QProcess& driver, const QString& address)
{
    const qint64 pid = backendOf(address);
    if (pid == 0)
        return {};
    const qsizetype before = driver.peek(1 << 24).count("done ");
    if (::kill(pid_t(pid), SIGKILL) != 0)
        throw std::runtime_error("cannot signal the server's process (the server must run on this machine)");
    QElapsedTimer waited;
    waited.start();
    while (driver.peek(1 << 24).count("done ") < before + 2 && waited.elapsed() < 30000 &&
           driver.state() == QProcess::Running)
        driver.waitForReadyRead(200);
    if (driver.peek(1 << 24).count("done ") < before + 2)
        return {QStringLiteral("the driver did not go on after the server's process was killed")};
    return {};
}

int run(int kills, const QString& mode, quint32 seed, const QString& uri)
{
    const KillDatabase database(mode, uri);
    QRandomGenerator random(seed);
    Tally tally;
    for (int kill = 0; kill < kills; ++kill) {
        QProcess driver;
        driver.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        driver.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--drive"), database.address, QString::number(random.generate())});
        // A random moment once it works: on a busy machine its start alone can take a second.
        driver.waitForStarted();
        QElapsedTimer started;
        started.start();
        while (!driver.peek(64).startsWith("ready") && started.elapsed() < 60000 &&
               driver.state() == QProcess::Running)
            driver.waitForReadyRead(100);
        QThread::msleep(random.bounded(1000));
        const bool serverKill = mode == u"pg-server";
        QStringList broken = serverKill ? killBackend(driver, database.address) : QStringList();
        ::kill(pid_t(driver.processId()), SIGKILL);
        driver.waitForFinished();
        const QByteArray said = driver.readAllStandardOutput();
        broken += readDriver(said, serverKill, tally) + campaign::checkDatabase(database.address);
        for (const QString& what : broken)
            std::fprintf(stderr, "kill %d: %s\n", kill + 1, qPrintable(what));
        const QList<QByteArray> lines = said.split('\n');
        if (!broken.isEmpty()) // what the driver said last
            std::fprintf(stderr, "  the driver's last words:\n%s\n",
                         lines.mid(std::max<qsizetype>(0, lines.size() - 10)).join('\n').constData());
        tally.violations += broken.isEmpty() ? 0 : 1;
    }
    const QStringList made = campaign::madeCounts(database.address);
    std::printf("%s: %d kills after %d completed entry calls in all (%d faults reported and recovered from, "
                "%d duplicate new records refused; %s splits, %s package rows in %s individually packed "
                "records and %s new records stored at the end); %d left a violation\n",
                qPrintable(mode), kills, tally.operations, tally.faults, tally.refused,
                qPrintable(made.value(0)), qPrintable(made.value(1)), qPrintable(made.value(2)),
                qPrintable(made.value(3)), tally.violations);
    return tally.violations == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() == 4 && arguments[1] == u"--drive")
        return campaign::drive(arguments[2], arguments[3].toUInt());
    try {
        return run(arguments.size() > 1 ? arguments[1].toInt() : 1000,
                   arguments.size() > 2 ? arguments[2] : QStringLiteral("delete"),
                   arguments.size() > 3 ? arguments[3].toUInt() : 20261124, arguments.value(4));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 2;
    }
}
