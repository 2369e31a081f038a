// SPDX-License-Identifier: MIT
// Replaces the system's calls on files in the executable that links this file.
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

void SimulatedDisk::Change::applyTo(Names& names, std::map<int, QByteArray>& contents) const
{
    if (isOfEntries()) {
        names.erase(removed);
        if (!made.isEmpty())
            names[made] = file;
        return;
    }
    QByteArray& content = contents[file];
    if (content.size() < offset)
        content.append(QByteArray(offset - content.size(), '\0'));
    if (bytes.isEmpty())
        content.truncate(offset);
    else
        content.replace(offset, bytes.size(), bytes);
}

SimulatedDisk::SimulatedDisk(const QString& folder) : m_folder(QFileInfo(folder).canonicalFilePath())
{
    s_current = this;
}

void SimulatedDisk::failAt(int call, Fault fault, Lasting lasting, bool withReads)
{
    m_failAt = call;
    m_fault = fault;
    m_lasting = lasting;
    m_countsReads = withReads;
    m_calls = 0;
    m_hasFailed = m_nextWriteFails = false;
}

SimulatedDisk::Image SimulatedDisk::afterPowerCut(Unsynced unsynced, std::mt19937& random) const
{
    constexpr qsizetype SectorSize = 512;
    Names names;
    std::map<int, QByteArray> contents;
    for (const Change& change : m_changes) {
        const bool isCertain = change.isSynced || unsynced == Unsynced::Kept;
        if (!isCertain && unsynced == Unsynced::Lost)
            continue;
        // Mostly whole or not at all, now and then torn between sectors.
        const bool isTorn = !isCertain && !change.bytes.isEmpty() && random() % 4 == 0;
        if (!isTorn && (isCertain || random() % 2))
            change.applyTo(names, contents);
        for (qsizetype at = 0; isTorn && at < change.bytes.size();) {
            const qsizetype start = change.offset + at;
            const QByteArray part = change.bytes.mid(at, SectorSize - start % SectorSize);
            if (random() % 2)
                Change{change.file, start, part}.applyTo(names, contents);
            at += part.size();
        }
    }
    Image image;
    for (const auto& [name, file] : names)
        image[name] = contents[file];
    return image;
}

SimulatedDisk::Outcome SimulatedDisk::nextCall(Kind kind, bool grows)
{
    if (m_observer && kind != Kind::Read)
        m_observer();
    if (kind == Kind::Read && !m_countsReads)
        return Outcome::Normal;
    ++m_calls;
    if (m_failAt == 0)
        return Outcome::Normal;
    const bool isWrite = kind == Kind::Write;
    if (m_nextWriteFails && isWrite && grows) {
        m_nextWriteFails = m_lasting == Lasting::FromThenOn;
        return Outcome::Fails;
    }
    const bool isDue = m_lasting == Lasting::Once ? m_calls == m_failAt : m_calls >= m_failAt;
    if (!isDue || (m_fault == Fault::NoSpace && !grows) || (m_fault == Fault::Short && !isWrite))
        return Outcome::Normal;
    m_hasFailed = true;
    if (isWrite && (m_fault == Fault::NoSpace || m_fault == Fault::Short)) {
        m_nextWriteFails = m_fault == Fault::NoSpace;
        return Outcome::ComesOutShort;
    }
    return m_fault == Fault::ErrorButDone ? Outcome::FailsAfterwards : Outcome::Fails;
}

QString SimulatedDisk::nameOf(const char* path) const
{
    const QString name = QFile::decodeName(path);
    return name.startsWith(m_folder + u'/') ? name.mid(m_folder.size() + 1) : QString();
}

void SimulatedDisk::change(Change change)
{
    std::map<int, QByteArray> notLookedAt;
    if (change.isOfEntries())
        change.applyTo(m_names, notLookedAt);
    m_changes.push_back(std::move(change));
}

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

    static off_t sizeOf(int descriptor)
    {
        struct stat status = {};
        return ::fstat(descriptor, &status) == 0 ? status.st_size : 0;
    }

    static int open(const char* path, int flags, mode_t mode)
    {
        static auto* const real = system<int(const char*, int, ...)>("open64");
        const auto call = [&] { return real(path, flags, mode); };
        const bool isFolder = s_current && QFile::decodeName(path) == s_current->m_folder;
        const QString name = s_current ? s_current->nameOf(path) : QString();
        if (name.isEmpty() && !isFolder)
            return call();
        const bool makes = (flags & O_CREAT) && ::access(path, F_OK) != 0;
        const Outcome outcome = s_current->nextCall(Kind::Other, makes);
        return perform(outcome, call, [&](int opened) {
            if (outcome == Outcome::FailsAfterwards)
                ::close(opened);
            else
                noteOpened(opened, name, flags);
        });
    }

    static void noteOpened(int descriptor, const QString& name, int flags)
    {
        const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
        int& file = s_current->m_files[descriptor] = Folder;
        if (name.isEmpty() && !isUnnamed)
            return;
        const auto known = s_current->m_names.find(name);
        const bool isNew = known == s_current->m_names.end();
        file = isNew ? ++s_current->m_lastFile : known->second;
        // What lies in shared memory counts as lost.
        if (isNew && !isUnnamed && !name.endsWith(QLatin1StringView("-shm")))
            s_current->change({.file = file, .made = name});
        else if (flags & O_TRUNC)
            s_current->change({file, 0});
    }

    static int close(int descriptor)
    {
        static auto* const real = system<int(int)>("close");
        if (s_current)
            s_current->m_files.erase(descriptor);
        return real(descriptor);
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
        const auto note = [&](int) {
            const int file = s_current->m_files[descriptor];
            for (Change& change : s_current->m_changes)
                if (change.isOfEntries() ? file == Folder : change.file == file)
                    change.isSynced = true;
        };
        return performOn(
            descriptor, Kind::Other, true, [&] { return real(descriptor); }, note);
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
    return Calls::close(descriptor);
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
