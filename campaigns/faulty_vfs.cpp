#include "campaigns/faulty_vfs.h"

#include <sqlite3.h>

namespace tolvinpt::campaign {
namespace {

sqlite3_vfs* real = nullptr;
sqlite3_vfs faulty;
sqlite3_io_methods methods;
std::array<int, int(Io::Count)> calls{};
struct
{
    bool armed = false, fired = false;
    Io kind = Io::Read;
    int nth = 0, error = SQLITE_OK;
} fault;

// Our file, the wrapped one right behind it.
struct File
{
    sqlite3_file base;
    sqlite3_file* inner;
};
sqlite3_file* inner(sqlite3_file* file)
{
    return reinterpret_cast<File*>(file)->inner;
}

// SQLITE_OK, or the armed error when this is the call it waits for.
int count(Io kind)
{
    const int n = ++calls[int(kind)];
    if (fault.armed && fault.kind == kind && n == fault.nth) {
        fault.armed = false;
        fault.fired = true;
        return fault.error;
    }
    return SQLITE_OK;
}

int xClose(sqlite3_file* f)
{
    return inner(f)->pMethods->xClose(inner(f));
}
int xRead(sqlite3_file* f, void* buffer, int amount, sqlite3_int64 offset)
{
    const int rc = count(Io::Read);
    return rc != SQLITE_OK ? rc : inner(f)->pMethods->xRead(inner(f), buffer, amount, offset);
}
int xWrite(sqlite3_file* f, const void* buffer, int amount, sqlite3_int64 offset)
{
    const int rc = count(Io::Write);
    return rc != SQLITE_OK ? rc : inner(f)->pMethods->xWrite(inner(f), buffer, amount, offset);
}
int xTruncate(sqlite3_file* f, sqlite3_int64 size)
{
    return inner(f)->pMethods->xTruncate(inner(f), size);
}
int xSync(sqlite3_file* f, int flags)
{
    const int rc = count(Io::Sync);
    return rc != SQLITE_OK ? rc : inner(f)->pMethods->xSync(inner(f), flags);
}
int xFileSize(sqlite3_file* f, sqlite3_int64* size)
{
    return inner(f)->pMethods->xFileSize(inner(f), size);
}
int xLock(sqlite3_file* f, int level)
{
    const int rc = count(Io::Lock);
    return rc != SQLITE_OK ? rc : inner(f)->pMethods->xLock(inner(f), level);
}
int xUnlock(sqlite3_file* f, int level)
{
    return inner(f)->pMethods->xUnlock(inner(f), level);
}
int xCheckReservedLock(sqlite3_file* f, int* out)
{
    return inner(f)->pMethods->xCheckReservedLock(inner(f), out);
}
int xFileControl(sqlite3_file* f, int op, void* arg)
{
    return inner(f)->pMethods->xFileControl(inner(f), op, arg);
}
int xSectorSize(sqlite3_file* f)
{
    return inner(f)->pMethods->xSectorSize(inner(f));
}
int xDeviceCharacteristics(sqlite3_file* f)
{
    return inner(f)->pMethods->xDeviceCharacteristics(inner(f));
}
int xShmMap(sqlite3_file* f, int region, int size, int extend, void volatile** out)
{
    return inner(f)->pMethods->xShmMap(inner(f), region, size, extend, out);
}
int xShmLock(sqlite3_file* f, int offset, int n, int flags)
{
    return inner(f)->pMethods->xShmLock(inner(f), offset, n, flags);
}
void xShmBarrier(sqlite3_file* f)
{
    inner(f)->pMethods->xShmBarrier(inner(f));
}
int xShmUnmap(sqlite3_file* f, int deleteFlag)
{
    return inner(f)->pMethods->xShmUnmap(inner(f), deleteFlag);
}
int xFetch(sqlite3_file* f, sqlite3_int64 offset, int amount, void** out)
{
    return inner(f)->pMethods->xFetch(inner(f), offset, amount, out);
}
int xUnfetch(sqlite3_file* f, sqlite3_int64 offset, void* p)
{
    return inner(f)->pMethods->xUnfetch(inner(f), offset, p);
}

int xOpen(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* ours = reinterpret_cast<File*>(file);
    ours->inner = reinterpret_cast<sqlite3_file*>(ours + 1);
    ours->base.pMethods = nullptr;
    const int rc = real->xOpen(real, name, ours->inner, flags, outFlags);
    if (rc == SQLITE_OK && ours->inner->pMethods)
        ours->base.pMethods = &methods;
    return rc;
}

} // namespace

void installFaultyVfs()
{
    real = sqlite3_vfs_find(nullptr);
    faulty = *real;
    faulty.zName = "tolvinpt-faulty";
    faulty.szOsFile = int(sizeof(File)) + real->szOsFile;
    faulty.xOpen = xOpen;
    methods = sqlite3_io_methods{3,
                                 xClose,
                                 xRead,
                                 xWrite,
                                 xTruncate,
                                 xSync,
                                 xFileSize,
                                 xLock,
                                 xUnlock,
                                 xCheckReservedLock,
                                 xFileControl,
                                 xSectorSize,
                                 xDeviceCharacteristics,
                                 xShmMap,
                                 xShmLock,
                                 xShmBarrier,
                                 xShmUnmap,
                                 xFetch,
                                 xUnfetch};
    sqlite3_vfs_register(&faulty, 1);
}

void resetIo()
{
    calls = {};
    fault = {};
}

std::array<int, int(Io::Count)> ioCalls()
{
    return calls;
}

void armFault(Io kind, int nth, int error)
{
    calls = {};
    fault = {true, false, kind, nth, error};
}

void liftFault()
{
    fault.armed = false;
}

bool faultFired()
{
    return fault.fired;
}

} // namespace tolvinpt::campaign
