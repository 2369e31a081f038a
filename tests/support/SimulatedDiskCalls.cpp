// SPDX-License-Identifier: MIT
// The system's calls on files, replaced in the executable that links this file.
#include "tests/support/SimulatedDisk.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdarg>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace giggle {

/// The bodies of the replaced calls. Each asks the disk for the outcome and has it note what was done.
struct SimulatedDisk::Calls {
    template <class Function>
    static Function* system(const char* name)
    {
        return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
    }

    /// Carries a call out, and has @p note note it, or fails it.
    template <class Call, class Note>
    static auto perform(Outcome outcome, Call call, Note note) -> decltype(call())
    {
        using Result = decltype(call());
        const int error = s_current->m_error;
        if (outcome != Outcome::Fails) {
            const Result result = call();
            if (result >= 0)
                note(result);
            if (outcome != Outcome::FailsAfterwards)
                return result;
        }
        errno = error;
        return Result(-1);
    }

    static bool isWatched(int descriptor) { return s_current && s_current->m_files.contains(descriptor); }

    static void forget(int descriptor)
    {
        if (s_current)
            s_current->m_files.erase(descriptor);
    }

    static bool exists(const char* path) { return QFileInfo::exists(QFile::decodeName(path)); }

    static off_t sizeOf(int descriptor)
    {
        struct stat status = {};
        return ::fstat(descriptor, &status) == 0 ? status.st_size : 0;
    }

    static int open(const char* path, int flags, mode_t mode)
    {
        static auto* const real = system<int(const char*, int, ...)>("open64");
        const auto call = [&] { return real(path, flags, mode); };
        SimulatedDisk* disk = s_current;
        const bool isFolder = disk && QFile::decodeName(path) == disk->m_folder;
        const QString name = disk ? disk->nameOf(path) : QString();
        if (!disk || (name.isEmpty() && !isFolder))
            return call();
        const Outcome outcome = disk->nextCall(false, (flags & O_CREAT) && !exists(path), false);
        return perform(outcome, call, [&](int opened) {
            if (outcome == Outcome::FailsAfterwards)
                ::close(opened);
            else if ((flags & O_TMPFILE) == O_TMPFILE)
                disk->openedUnnamed(opened);
            else
                disk->opened(opened, name, flags & O_TRUNC);
        });
    }

    static ssize_t write(int descriptor, const void* bytes, size_t count, off_t offset, bool isPositioned)
    {
        static auto* const realWrite = system<ssize_t(int, const void*, size_t)>("write");
        static auto* const realPositioned = system<ssize_t(int, const void*, size_t, off_t)>("pwrite64");
        const auto write = [&](size_t size) {
            return isPositioned ? realPositioned(descriptor, bytes, size, offset)
                                : realWrite(descriptor, bytes, size);
        };
        if (!isWatched(descriptor))
            return write(count);
        const off_t start = isPositioned ? offset : ::lseek(descriptor, 0, SEEK_CUR);
        const bool grows = start + off_t(count) > sizeOf(descriptor);
        const Outcome outcome = s_current->nextCall(false, grows, true);
        const size_t written = outcome == Outcome::ComesOutShort ? (count + 1) / 2 : count;
        return perform(
            outcome, [&] { return write(written); },
            [&](ssize_t done) {
                s_current->wrote(descriptor, start, static_cast<const char*>(bytes), done);
            });
    }

    template <class Call>
    static ssize_t read(int descriptor, Call call)
    {
        if (!isWatched(descriptor))
            return call();
        return perform(s_current->nextCall(true, false, false), call, [](ssize_t) {});
    }

    static int truncate(int descriptor, off_t size)
    {
        static auto* const real = system<int(int, off_t)>("ftruncate64");
        const auto call = [&] { return real(descriptor, size); };
        if (!isWatched(descriptor))
            return call();
        const bool grows = size > sizeOf(descriptor);
        return perform(s_current->nextCall(false, grows, false), call,
                       [&](int) { s_current->truncated(descriptor, size); });
    }

    static int sync(int descriptor, const char* name)
    {
        auto* const real = system<int(int)>(name);
        const auto call = [&] { return real(descriptor); };
        if (!isWatched(descriptor))
            return call();
        return perform(s_current->nextCall(false, true, false), call,
                       [&](int) { s_current->synced(descriptor); });
    }

    /// Gives a file without a name one. @p from is its place among the descriptors of this process.
    template <class Call>
    static int link(const char* from, const char* to, Call call)
    {
        SimulatedDisk* disk = s_current;
        const QString name = disk ? disk->nameOf(to) : QString();
        const int descriptor = QFileInfo(QFile::decodeName(from)).fileName().toInt();
        if (name.isEmpty() || !isWatched(descriptor))
            return call();
        return perform(disk->nextCall(false, true, false), call, [&](int) {
            disk->change({{}, name, disk->m_files[descriptor]});
        });
    }

    template <class Call>
    static int changeEntry(const char* from, const char* to, Call call)
    {
        SimulatedDisk* disk = s_current;
        const QString removed = disk ? disk->nameOf(from) : QString();
        if (removed.isEmpty())
            return call();
        const bool isThere = exists(from);
        return perform(disk->nextCall(false, to != nullptr, false), call, [&](int) {
            const auto file = disk->m_live.find(removed);
            if (isThere && file != disk->m_live.end())
                disk->change({removed, to ? disk->nameOf(to) : QString(), file->second});
        });
    }
};

} // namespace giggle

// In place of the system's, for everything in this process.
using Calls = giggle::SimulatedDisk::Calls;

extern "C" {

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(arguments, mode_t) : mode_t(0);
    va_end(arguments);
    return Calls::open(path, flags, mode);
}

int open(const char* path, int flags, ...) __attribute__((alias("open64")));

int close(int descriptor)
{
    static auto* const real = Calls::system<int(int)>("close");
    Calls::forget(descriptor);
    return real(descriptor);
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    return Calls::write(descriptor, bytes, count, 0, false);
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off_t offset)
{
    return Calls::write(descriptor, bytes, count, offset, true);
}

ssize_t read(int descriptor, void* bytes, size_t count)
{
    static auto* const real = Calls::system<ssize_t(int, void*, size_t)>("read");
    return Calls::read(descriptor, [&] { return real(descriptor, bytes, count); });
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off_t offset)
{
    static auto* const real = Calls::system<ssize_t(int, void*, size_t, off_t)>("pread64");
    return Calls::read(descriptor, [&] { return real(descriptor, bytes, count, offset); });
}

int ftruncate64(int descriptor, off_t size) noexcept
{
    return Calls::truncate(descriptor, size);
}

int fsync(int descriptor)
{
    return Calls::sync(descriptor, "fsync");
}

int fdatasync(int descriptor)
{
    return Calls::sync(descriptor, "fdatasync");
}

int rename(const char* from, const char* to) noexcept
{
    static auto* const real = Calls::system<int(const char*, const char*)>("rename");
    return Calls::changeEntry(from, to, [&] { return real(from, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    static auto* const real = Calls::system<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return Calls::changeEntry(from, to, [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    static auto* const real = Calls::system<int(int, const char*, int, const char*, int)>("linkat");
    return Calls::link(from, to, [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char* path) noexcept
{
    static auto* const real = Calls::system<int(const char*)>("unlink");
    return Calls::changeEntry(path, nullptr, [&] { return real(path); });
}

} // extern "C"
