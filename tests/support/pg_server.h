#pragma once

#include <QSqlDatabase>
#include <QString>

namespace tolvinpt::test {

// The PostgreSQL server a test uses: the run's shared one (tests marked SERVER in CMake) or a private one
// a test starts for itself, e.g. to stop and start it under an open form.
struct PgServer
{
    QString host;
    int port = 0;
    QString user;
    QString confFile;

    // The run's server, from the file its fixture wrote. Throws when there is none: a test that needs it
    // fails instead of passing silently.
    static PgServer shared();
    // From "key=value" settings: host, port, user, and dbname into `database` when asked for.
    static PgServer fromSettings(const QStringList& settings, QString* database = nullptr);

    // A QPSQL connection named `connectionName` to `database`, not opened.
    QSqlDatabase addConnection(const QString& connectionName, const QString& database) const;
    // libpq's "host=... port=... user=... dbname=..." for `database`.
    QString connectionString(const QString& database) const;
    // Runs `sql` on the maintenance database (CREATE/DROP DATABASE, roles). Throws on failure.
    void admin(const QString& sql) const;
};

// A server of its own for one test, stopped and removed when the object goes.
class PrivatePgServer
{
public:
    PrivatePgServer();
    PrivatePgServer(const PrivatePgServer&) = delete;
    PrivatePgServer& operator=(const PrivatePgServer&) = delete;
    ~PrivatePgServer();

    const PgServer& server() const { return m_server; }
    // Stops the server (connections drop) and starts it again on the same port with the same data.
    void pause() const;
    void resume() const;

private:
    QString m_conf;
    PgServer m_server;
};

} // namespace tolvinpt::test
