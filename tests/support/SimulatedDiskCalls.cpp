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
        const Fault fault = s_current->m_fault;
        if (outcome != Outcome::Fails) {
            const auto result = call();
            if (result >= 0)
                note(result);
            if (outcome != Outcome::FailsAfterwards)
                return result;
        }
        errno = fault == Fault::NoSpace ? ENOSPC : fault == Fault::Interrupted ? EINTR : EIO;
        return -1;
    }

    /// The same for a call on an open file.
    template <class Call, class Note>
    static auto performOn(int descriptor, Kind kind, bool grows, Call call, Note note) -> decltype(call())
    {
        return isWatched(descriptor) ? perform(s_current->nextCall(kind, grows), call, note) : call();
    }

    static bool isWatched(int descriptor) { return s_current && s_current->m_files.contains(descriptor); }

    static void forget(int descriptor)
    {
        if (s_current)
            s_current->m_files.erase(descriptor);
    }

    static bool exists(const char* path) { return ::access(path, F_OK) == 0; }

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
        if (name.isEmpty() && !isFolder)
            return call();
        const Outcome outcome = disk->nextCall(Kind::Other, (flags & O_CREAT) && !exists(path));
        return perform(outcome, call, [&](int opened) {
            if (outcome == Outcome::FailsAfterwards)
                ::close(opened);
            else
                disk->opened(opened, name, flags);
        });
    }

    /// @p write writes so many bytes.
    template <class Write>
    static ssize_t write(int descriptor, const void* bytes, size_t count, off_t offset, Write write)
    {
        if (!isWatched(descriptor))
            return write(count);
        const Outcome outcome = s_current->nextCall(Kind::Write, offset + off_t(count) > sizeOf(descriptor));
        const size_t written = outcome == Outcome::ComesOutShort ? (count + 1) / 2 : count;
        return perform(
            outcome, [&] { return write(written); },
            [&](ssize_t done) {
                s_current->change(
                    {s_current->m_files[descriptor], offset, {static_cast<const char*>(bytes), done}});
            });
    }

    template <class Call>
    static ssize_t read(int descriptor, Call call)
    {
        return performOn(descriptor, Kind::Read, false, call, [](ssize_t) {});
    }

    template <class Call>
    static int truncate(int descriptor, off_t size, Call call)
    {
        return performOn(descriptor, Kind::Other, size > sizeOf(descriptor), call, [&](int) {
            s_current->change({s_current->m_files[descriptor], size});
        });
    }

    static int sync(int descriptor, const char* name)
    {
        auto* const real = system<int(int)>(name);
        return performOn(
            descriptor, Kind::Other, true, [&] { return real(descriptor); },
            [&](int) { s_current->synced(s_current->m_files[descriptor]); });
    }

    /// Gives a file without a name one. @p from is its place among the descriptors of this process.
    template <class Call>
    static int link(const char* from, const char* to, Call call)
    {
        const QString name = s_current ? s_current->nameOf(to) : QString();
        if (name.isEmpty())
            return call();
        const int descriptor = QFileInfo(QFile::decodeName(from)).fileName().toInt();
        return performOn(descriptor, Kind::Other, true, call, [&](int) {
            s_current->change({.file = s_current->m_files[descriptor], .made = name});
        });
    }

    template <class Call>
    static int changeEntry(const char* from, const char* to, Call call)
    {
        SimulatedDisk* disk = s_current;
        const QString removed = disk ? disk->nameOf(from) : QString();
        if (removed.isEmpty())
            return call();
        return perform(disk->nextCall(Kind::Other, to != nullptr), call, [&](int) {
            if (const auto file = disk->m_names.find(removed); file != disk->m_names.end())
                disk->change(
                    {.file = file->second, .removed = removed, .made = to ? disk->nameOf(to) : QString()});
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
    static auto* const real = Calls::system<ssize_t(int, const void*, size_t)>("write");
    return Calls::write(descriptor, bytes, count, ::lseek(descriptor, 0, SEEK_CUR),
                        [&](size_t size) { return real(descriptor, bytes, size); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off_t offset)
{
    static auto* const real = Calls::system<ssize_t(int, const void*, size_t, off_t)>("pwrite64");
    return Calls::write(descriptor, bytes, count, offset,
                        [&](size_t size) { return real(descriptor, bytes, size, offset); });
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
    static auto* const real = Calls::system<int(int, off_t)>("ftruncate64");
    return Calls::truncate(descriptor, size, [&] { return real(descriptor, size); });
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
