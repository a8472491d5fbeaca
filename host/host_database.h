#pragma once

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

// Opens the host database at `path` as the Qt SQL connection `connectionName`. A missing file is
// created with the host schema and the demo data in one transaction (and removed again if that fails);
// its folder must exist. An existing file is first inspected read-only and left untouched unless it is
// a writable database of this host of a known version; one of an earlier version is brought up to date,
// reporting to `progress`. On refusal the connection is not left open.
OpenOutcome openHostDatabase(const QString& path, const QString& connectionName,
                             const SchemaProgress& progress = {});

// Closes and removes the connection.
void closeHostDatabase(const QString& connectionName);

} // namespace tolvinpt::host
