#pragma once

#include <QString>

#include <optional>

namespace tolvinpt::host {

// A database on a PostgreSQL server, as the QPSQL connection takes it. Empty fields and a port of -1
// leave the choice to libpq (its environment variables and defaults).
struct ServerDatabase
{
    QString host;
    int port = -1;
    QString user;
    QString name;
    // Every other libpq setting of the URI ("sslmode='require';connect_timeout='5'").
    QString options;
};

// Where the host's database lives: a SQLite file or a database on a server, with the text the user gave.
struct DatabaseLocation
{
    // A file at `path`.
    DatabaseLocation(QString path = {}) : given(std::move(path)) {}
    DatabaseLocation(QString uri, ServerDatabase database)
        : given(std::move(uri)), server(std::move(database))
    {
    }

    QString given;
    std::optional<ServerDatabase> server;

    bool isServer() const { return server.has_value(); }
};

// True for a text that names a server: a postgresql:// or postgres:// URI.
bool isServerUri(const QString& text);

// Reads a server URI with libpq's own parser. A URI that carries a password is refused: a password on
// the command line is visible to every user of the machine. On refusal `error` holds the reason.
std::optional<ServerDatabase> parseServerUri(const QString& uri, QString& error);

} // namespace tolvinpt::host
