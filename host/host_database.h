#pragma once

#include "host/database_location.h"
#include "host/exit_codes.h"
#include "host/host_schema.h"

#include <QString>

namespace tolvinpt::host {

// The outcome of opening the host database: Ok, or the refusal with the text shown to the user.
struct OpenOutcome
{
    ExitCode code = ExitCode::Ok;
    QString message;
};

struct OpenOptions
{
    // A new server database gets the demo data too (a new file always does).
    bool demo = false;
    // Reports the one-time upgrade of a database of an earlier version.
    SchemaProgress progress;
};

// Opens the host database at `location` as the Qt SQL connection `connectionName`. A missing file is
// created with the host schema and the demo data in one transaction (and removed again if that fails);
// its folder must exist. An existing file is first inspected read-only and left untouched unless it is
// a writable database of this host of a known version. A server database without tables gets the host
// schema; one with tables must be ours, of a known version (a read-only login browses it). A database of
// an earlier version is brought up to date. On refusal the connection is not left open.
OpenOutcome openHostDatabase(const DatabaseLocation& location, const QString& connectionName,
                             const OpenOptions& options = {});

// Opens the QPSQL connection `connectionName` to `server`, nothing checked; false when it could not.
bool openServerConnection(const ServerDatabase& server, const QString& connectionName);

// Closes and removes the connection.
void closeHostDatabase(const QString& connectionName);

} // namespace tolvinpt::host
