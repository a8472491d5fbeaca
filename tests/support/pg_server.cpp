#include "tests/support/pg_server.h"

#include <QFile>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryFile>

#include <atomic>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tolvinpt::test {

namespace {

PgServer readConf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw std::runtime_error("no PostgreSQL test server: " + path.toStdString()
                                 + " is missing (run the tests through ctest, which starts it)");
    PgServer server = PgServer::fromSettings(QString::fromUtf8(file.readAll()).split(u'\n'));
    server.confFile = path;
    return server;
}

void runScript(const char* command, const QString& conf)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(u"bash"_s, {QString::fromUtf8(TOLVINPT_PG_SERVER_SCRIPT), QString::fromLatin1(command), conf});
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error(std::string("pg_server.sh ") + command + " failed");
}

} // namespace

PgServer PgServer::shared()
{
    return readConf(QString::fromUtf8(TOLVINPT_PG_SERVER_CONF));
}

PgServer PgServer::fromSettings(const QStringList& settings, QString* database)
{
    PgServer server;
    for (const QString& setting : settings) {
        const QString key = setting.section(u'=', 0, 0), value = setting.section(u'=', 1);
        if (key == u"host"_s)
            server.host = value;
        else if (key == u"port"_s)
            server.port = value.toInt();
        else if (key == u"user"_s)
            server.user = value;
        else if (key == u"dbname"_s && database)
            *database = value;
    }
    return server;
}

QSqlDatabase PgServer::addConnection(const QString& connectionName, const QString& database) const
{
    QSqlDatabase connection = QSqlDatabase::addDatabase(u"QPSQL"_s, connectionName);
    connection.setHostName(host);
    connection.setPort(port);
    connection.setUserName(user);
    connection.setDatabaseName(database);
    return connection;
}

QString PgServer::connectionString(const QString& database) const
{
    return u"host=%1 port=%2 user=%3 dbname=%4"_s.arg(host).arg(port).arg(user, database);
}

void PgServer::admin(const QString& sql) const
{
    static std::atomic<int> counter{0};
    const QString name = u"tolvinpt-admin-"_s + QString::number(++counter);
    {
        QSqlDatabase connection = addConnection(name, u"postgres"_s);
        if (!connection.open())
            throw std::runtime_error(connection.lastError().text().toStdString());
        QSqlQuery query(connection);
        if (!query.exec(sql))
            throw std::runtime_error(sql.toStdString() + ": " + query.lastError().text().toStdString());
    }
    QSqlDatabase::removeDatabase(name);
}

PrivatePgServer::PrivatePgServer()
{
    QTemporaryFile file(u"/tmp/tolvinpt-pg-conf.XXXXXX"_s);
    file.setAutoRemove(false);
    if (!file.open())
        throw std::runtime_error("cannot create a temporary file");
    m_conf = file.fileName();
    file.close();
    QFile::remove(m_conf);
    runScript("start", m_conf);
    m_server = readConf(m_conf);
}

PrivatePgServer::~PrivatePgServer()
{
    try {
        runScript("stop", m_conf);
    } catch (const std::exception&) {
        // The script removes what it can; a leftover folder in /tmp is not worth a crash.
    }
}

void PrivatePgServer::pause() const
{
    runScript("pause", m_conf);
}

void PrivatePgServer::resume() const
{
    runScript("start", m_conf);
}

} // namespace tolvinpt::test
