#pragma once

// A SQLite VFS that wraps the default one and fails one chosen I/O call: the Nth read, write, sync or
// lock of the files it opens, with the error given. Registered as the default VFS, so every connection
// opened afterwards (Qt's too) goes through it; "unix" stays the plain one for checks.

#include <array>

namespace tolvinpt::campaign {

enum class Io { Read, Write, Sync, Lock, Count };

// Registers the VFS as the default; once per process.
void installFaultyVfs();
// Counts from zero again; no fault.
void resetIo();
// The calls of each kind since the last reset.
std::array<int, int(Io::Count)> ioCalls();
// The `nth` call of `kind` from now on fails with `error` (a SQLite result code); once.
void armFault(Io kind, int nth, int error);
void liftFault();
bool faultFired();

} // namespace tolvinpt::campaign
