#pragma once

namespace tolvinpt::host {

// Exit status of tolvinpt-host; each refusal has its own number so that scripts can tell them apart.
enum class ExitCode : int {
    Ok = 0,
    BadCommandLine = 1,  // unknown option or stray argument
    CannotOpen = 2,      // no file named, missing folder, no permission, a folder instead of a file,
                         // creation failed
    NotADatabase = 3,    // the file is not a SQLite database
    ForeignDatabase = 4, // a SQLite database of another application, or ours with tables missing
    NewerDatabase = 5,   // written by a later version of this host
    NoDisplay = 6,       // the database is fine but there is no screen to show the window on
    MissingColumns = 7,  // ours, but a table lacks columns that the host or the component reads
};

inline int toInt(ExitCode code)
{
    return static_cast<int>(code);
}

} // namespace tolvinpt::host
