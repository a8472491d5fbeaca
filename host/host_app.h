#pragma once

#include "host/database_location.h"

#include <QString>

class QApplication;
class QTextStream;

namespace tolvinpt::host {

// The Qt SQL connection name of the host database.
inline const QString kHostConnection = QStringLiteral("tolvinpt-host");

// Call before the QApplication exists: without a display (and no platform chosen by the user) the
// application starts offscreen, so that --help, --version and a refused database still answer on the
// terminal. Returns true in that case.
bool preparePlatform();

// Application name (for the data folder), the Japanese UI font.
void configureApplication(QApplication& app);

// Opens the database at `location` as kHostConnection (a new server database with the demo data when
// `demo`). A refusal is written as one line to `err` and, when `messageBox` is true, shown in a message
// box; the result is the exit status (0 when opened).
int openOrRefuse(const DatabaseLocation& location, QTextStream& err, bool messageBox, bool demo = false);

// tolvinpt-host: command line, database, host objects, the list window until it closes. `headless` is
// the result of preparePlatform. Returns the process exit status.
int runHost(QApplication& app, bool headless);

} // namespace tolvinpt::host
