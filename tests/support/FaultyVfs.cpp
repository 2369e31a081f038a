// SPDX-License-Identifier: MIT
#include "tests/support/FaultyVfs.h"

namespace giggle {

FaultyVfs* FaultyVfs::s_current = nullptr;

/// What SQLite takes for its file; the system's own follows it in memory.
struct FaultyVfs::File {
    sqlite3_file base;
    bool isLog;
};

FaultyVfs::File& FaultyVfs::asFile(sqlite3_file* file)
{
    return *reinterpret_cast<File*>(file);
}

sqlite3_file* FaultyVfs::inner(sqlite3_file* file)
{
    return reinterpret_cast<sqlite3_file*>(&asFile(file) + 1);
}

template <class Operation>
int FaultyVfs::perform(Operation operation, int error)
{
    if (!nextOperationFails())
        return operation();
    if (m_failing == Failing::OnceButDone)
        static_cast<void>(operation());
    return error;
}

/// A file method that goes to the system as it is.
template <class... Arguments, int (*sqlite3_io_methods::*Method)(sqlite3_file*, Arguments...)>
struct FaultyVfs::Passed<Method> {
    static int call(sqlite3_file* file, Arguments... arguments)
    {
        sqlite3_file* system = inner(file);
        return (system->pMethods->*Method)(system, arguments...);
    }
};

/// A file method that can be made to fail with an error.
template <class... Arguments, int (*sqlite3_io_methods::*Method)(sqlite3_file*, Arguments...), int Error>
struct FaultyVfs::Counted<Method, Error> {
    static int call(sqlite3_file* file, Arguments... arguments)
    {
        const int result =
            s_current->perform([&] { return Passed<Method>::call(file, arguments...); }, Error);
        if (result != SQLITE_OK)
            return result;
        if (asFile(file).isLog && Error == SQLITE_IOERR_WRITE)
            s_current->m_hasUnsyncedLog = true;
        if (asFile(file).isLog && Error == SQLITE_IOERR_FSYNC)
            s_current->m_hasUnsyncedLog = false;
        return result;
    }
};

const sqlite3_io_methods* FaultyVfs::methods()
{
    using Methods = sqlite3_io_methods;
    static const Methods methods = [] {
        Methods m{};
        m.iVersion = 2; // without memory-mapped reads
        m.xClose = Passed<&Methods::xClose>::call;
        m.xRead = Passed<&Methods::xRead>::call;
        m.xWrite = Counted<&Methods::xWrite, SQLITE_IOERR_WRITE>::call;
        m.xTruncate = Counted<&Methods::xTruncate, SQLITE_IOERR_TRUNCATE>::call;
        m.xSync = Counted<&Methods::xSync, SQLITE_IOERR_FSYNC>::call;
        m.xFileSize = Passed<&Methods::xFileSize>::call;
        m.xLock = Passed<&Methods::xLock>::call;
        m.xUnlock = Passed<&Methods::xUnlock>::call;
        m.xCheckReservedLock = Passed<&Methods::xCheckReservedLock>::call;
        m.xFileControl = Passed<&Methods::xFileControl>::call;
        m.xSectorSize = Passed<&Methods::xSectorSize>::call;
        m.xDeviceCharacteristics = Passed<&Methods::xDeviceCharacteristics>::call;
        m.xShmMap = [](sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
            const auto map = [&] {
                return Passed<&Methods::xShmMap>::call(file, page, size, extend, memory);
            };
            return extend ? s_current->perform(map, SQLITE_IOERR_SHMSIZE) : map();
        };
        m.xShmLock = Passed<&Methods::xShmLock>::call;
        m.xShmBarrier = [](sqlite3_file* file) { inner(file)->pMethods->xShmBarrier(inner(file)); };
        m.xShmUnmap = Passed<&Methods::xShmUnmap>::call;
        return m;
    }();
    return &methods;
}

FaultyVfs::FaultyVfs() : m_system(sqlite3_vfs_find(nullptr)), m_vfs(*m_system)
{
    s_current = this;
    m_vfs.szOsFile += static_cast<int>(sizeof(File));
    m_vfs.zName = "faulty";
    m_vfs.xOpen = open;
    m_vfs.xDelete = remove;
    sqlite3_vfs_register(&m_vfs, 1);
}

FaultyVfs::~FaultyVfs()
{
    sqlite3_vfs_unregister(&m_vfs);
    sqlite3_vfs_register(m_system, 1);
    s_current = nullptr;
}

void FaultyVfs::failAt(int operation, Failing failing)
{
    m_operations = 0;
    m_failAt = operation;
    m_failing = failing;
    m_hasFailed = false;
}

bool FaultyVfs::nextOperationFails()
{
    ++m_operations;
    const bool fails =
        m_failAt > 0 && (m_failing == Failing::Once ? m_operations == m_failAt : m_operations >= m_failAt);
    m_hasFailed = m_hasFailed || fails;
    return fails;
}

int FaultyVfs::open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    asFile(file).isLog = (flags & SQLITE_OPEN_WAL) != 0;
    const int result = s_current->m_system->xOpen(s_current->m_system, name, inner(file), flags, outFlags);
    file->pMethods = inner(file)->pMethods ? methods() : nullptr;
    return result;
}

int FaultyVfs::remove(sqlite3_vfs*, const char* name, int syncFolder)
{
    const auto systemRemove = [&] {
        return s_current->m_system->xDelete(s_current->m_system, name, syncFolder);
    };
    return s_current->perform(systemRemove, SQLITE_IOERR_DELETE);
}

} // namespace giggle
