#include "bench/bench_database.h"

#include "host/database_location.h"
#include "host/host_database.h"

#include <QSqlError>

#include <stdexcept>

namespace tolvinpt::bench {

bool isServer(const QString& target)
{
    return host::isServerUri(target);
}

QSqlDatabase openDatabase(const QString& target, const QString& name)
{
    bool open = false;
    if (isServer(target)) {
        QString error;
        const auto server = host::parseServerUri(target, error);
        if (!server)
            throw std::runtime_error(error.toStdString());
        open = host::openServerConnection(*server, name);
    } else {
        QSqlDatabase connection = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        connection.setDatabaseName(target);
        open = connection.open();
    }
    QSqlDatabase connection = QSqlDatabase::database(name, false);
    if (!open)
        throw std::runtime_error(connection.lastError().text().toStdString());
    return connection;
}

} // namespace tolvinpt::bench
