#include "FaultyVfs.h"

#include <atomic>
#include <sqlite3.h>

namespace {

sqlite3_vfs *g_real = nullptr;
sqlite3_vfs g_vfs{};
std::atomic<bool> g_armed{false};
std::atomic<FaultyVfs::Call> g_call{FaultyVfs::Call::Read};
std::atomic<long> g_counted{0};
std::atomic<long> g_nth{0};
std::atomic<int> g_code{SQLITE_IOERR};

/// Our file: the real one's state follows it in the same block.
struct File
{
    sqlite3_file base;
    bool journal;
    sqlite3_file *real() { return reinterpret_cast<sqlite3_file *>(this + 1); }
};

File *fileOf(sqlite3_file *file)
{
    return reinterpret_cast<File *>(file);
}

// The code to answer when this call is the chosen one; SQLITE_OK to let it through.
int faultFor(FaultyVfs::Call call)
{
    if (!g_armed.load() || g_call.load() != call)
        return SQLITE_OK;
    return ++g_counted == g_nth.load() ? g_code.load() : SQLITE_OK;
}

int xClose(sqlite3_file *file)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods ? real->pMethods->xClose(real) : SQLITE_OK;
}

int xRead(sqlite3_file *file, void *buffer, int amount, sqlite3_int64 offset)
{
    File *f = fileOf(file);
    if (!f->journal) {
        if (const int code = faultFor(FaultyVfs::Call::Read))
            return code;
    }
    return f->real()->pMethods->xRead(f->real(), buffer, amount, offset);
}

int xWrite(sqlite3_file *file, const void *buffer, int amount, sqlite3_int64 offset)
{
    File *f = fileOf(file);
    if (const int code = faultFor(f->journal ? FaultyVfs::Call::Journal : FaultyVfs::Call::Write))
        return code;
    if (const int code = faultFor(FaultyVfs::Call::AnyWrite))
        return code;
    return f->real()->pMethods->xWrite(f->real(), buffer, amount, offset);
}

int xTruncate(sqlite3_file *file, sqlite3_int64 size)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xTruncate(real, size);
}

int xSync(sqlite3_file *file, int flags)
{
    if (const int code = faultFor(FaultyVfs::Call::Sync))
        return code;
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xSync(real, flags);
}

int xFileSize(sqlite3_file *file, sqlite3_int64 *size)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xFileSize(real, size);
}

int xLock(sqlite3_file *file, int level)
{
    if (const int code = faultFor(FaultyVfs::Call::Lock))
        return code;
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xLock(real, level);
}

int xUnlock(sqlite3_file *file, int level)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xUnlock(real, level);
}

int xCheckReservedLock(sqlite3_file *file, int *reserved)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xCheckReservedLock(real, reserved);
}

int xFileControl(sqlite3_file *file, int op, void *argument)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xFileControl(real, op, argument);
}

int xSectorSize(sqlite3_file *file)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xSectorSize(real);
}

int xDeviceCharacteristics(sqlite3_file *file)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xDeviceCharacteristics(real);
}

int xShmMap(sqlite3_file *file, int region, int size, int extend, void volatile **memory)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xShmMap(real, region, size, extend, memory);
}

int xShmLock(sqlite3_file *file, int offset, int n, int flags)
{
    // Only taking a lock can fail; letting go must always work.
    if ((flags & SQLITE_SHM_LOCK) != 0) {
        if (const int code = faultFor(FaultyVfs::Call::Lock))
            return code;
    }
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xShmLock(real, offset, n, flags);
}

void xShmBarrier(sqlite3_file *file)
{
    sqlite3_file *real = fileOf(file)->real();
    real->pMethods->xShmBarrier(real);
}

int xShmUnmap(sqlite3_file *file, int deleteFlag)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xShmUnmap(real, deleteFlag);
}

int xFetch(sqlite3_file *file, sqlite3_int64 offset, int amount, void **page)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xFetch(real, offset, amount, page);
}

int xUnfetch(sqlite3_file *file, sqlite3_int64 offset, void *page)
{
    sqlite3_file *real = fileOf(file)->real();
    return real->pMethods->xUnfetch(real, offset, page);
}

const sqlite3_io_methods kMethods = {3,
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

int xOpen(sqlite3_vfs *, sqlite3_filename name, sqlite3_file *file, int flags, int *outFlags)
{
    File *f = fileOf(file);
    f->journal = (flags & (SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    const int opened = g_real->xOpen(g_real, name, f->real(), flags, outFlags);
    // The engine calls xClose only on a file that has methods.
    f->base.pMethods = f->real()->pMethods ? &kMethods : nullptr;
    return opened;
}

int xDelete(sqlite3_vfs *, const char *name, int syncDir)
{
    return g_real->xDelete(g_real, name, syncDir);
}

int xAccess(sqlite3_vfs *, const char *name, int flags, int *result)
{
    return g_real->xAccess(g_real, name, flags, result);
}

int xFullPathname(sqlite3_vfs *, const char *name, int size, char *out)
{
    return g_real->xFullPathname(g_real, name, size, out);
}

void *xDlOpen(sqlite3_vfs *, const char *name)
{
    return g_real->xDlOpen(g_real, name);
}

void xDlError(sqlite3_vfs *, int size, char *message)
{
    g_real->xDlError(g_real, size, message);
}

void (*xDlSym(sqlite3_vfs *, void *handle, const char *symbol))(void)
{
    return g_real->xDlSym(g_real, handle, symbol);
}

void xDlClose(sqlite3_vfs *, void *handle)
{
    g_real->xDlClose(g_real, handle);
}

int xRandomness(sqlite3_vfs *, int size, char *out)
{
    return g_real->xRandomness(g_real, size, out);
}

int xSleep(sqlite3_vfs *, int microseconds)
{
    return g_real->xSleep(g_real, microseconds);
}

int xCurrentTime(sqlite3_vfs *, double *now)
{
    return g_real->xCurrentTime(g_real, now);
}

int xGetLastError(sqlite3_vfs *, int size, char *out)
{
    return g_real->xGetLastError(g_real, size, out);
}

int xCurrentTimeInt64(sqlite3_vfs *, sqlite3_int64 *now)
{
    return g_real->xCurrentTimeInt64(g_real, now);
}

} // namespace

bool FaultyVfs::install()
{
    g_real = sqlite3_vfs_find(nullptr);
    if (!g_real || g_real->iVersion < 2)
        return false;
    g_vfs.iVersion = 2;
    g_vfs.szOsFile = static_cast<int>(sizeof(File)) + g_real->szOsFile;
    g_vfs.mxPathname = g_real->mxPathname;
    g_vfs.zName = "faulty";
    g_vfs.xOpen = xOpen;
    g_vfs.xDelete = xDelete;
    g_vfs.xAccess = xAccess;
    g_vfs.xFullPathname = xFullPathname;
    g_vfs.xDlOpen = xDlOpen;
    g_vfs.xDlError = xDlError;
    g_vfs.xDlSym = xDlSym;
    g_vfs.xDlClose = xDlClose;
    g_vfs.xRandomness = xRandomness;
    g_vfs.xSleep = xSleep;
    g_vfs.xCurrentTime = xCurrentTime;
    g_vfs.xGetLastError = xGetLastError;
    g_vfs.xCurrentTimeInt64 = xCurrentTimeInt64;
    return sqlite3_vfs_register(&g_vfs, 1) == SQLITE_OK;
}

void FaultyVfs::failAt(Call call, long nth, int code)
{
    g_counted = 0;
    g_call = call;
    g_nth = nth;
    g_code = code;
    g_armed = true;
}

void FaultyVfs::disarm()
{
    g_armed = false;
}

long FaultyVfs::counted()
{
    return g_counted.load();
}

bool FaultyVfs::failed()
{
    return g_counted.load() >= g_nth.load();
}
