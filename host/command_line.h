#pragma once

#include "host/database_location.h"

#include <QString>
#include <QStringList>

#include <optional>

class QTextStream;

namespace tolvinpt::host {

struct CommandLine
{
    DatabaseLocation database;
    // --demo: a new server database gets the demo data (a new file always does).
    bool demo = false;
    // Hard copies go to PDF files in this folder (absolute; empty: the printer); --print-preview.
    QString pdfFolder;
    bool printPreview = false;
    // Set when the command line has been answered in full (--help, --version, an error): exit with it.
    std::optional<int> exitCode;
};

// Reads the arguments (arguments[0] is the program). --help and --version are answered on `out`,
// errors on `err`. Without --database the file lies in the user's data folder, which is created. A
// postgresql:// URI names a database on a server.
CommandLine parseCommandLine(const QStringList& arguments, QTextStream& out, QTextStream& err);

// The database file used when no --database is given: delivery.sqlite in the user's data folder.
QString defaultDatabasePath();

} // namespace tolvinpt::host
