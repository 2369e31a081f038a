// SPDX-License-Identifier: MIT
#include "tests/support/SimulatedDisk.h"

#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <fcntl.h>

namespace giggle {

namespace {

constexpr qsizetype SectorSize = 512;

/// A change of a file's bytes, or of its size alone.
struct Write {
    qsizetype offset = 0;
    QByteArray bytes;
    bool isTruncation = false;

    void applyTo(QByteArray& content) const
    {
        if (content.size() < offset)
            content.append(QByteArray(offset - content.size(), '\0'));
        if (isTruncation)
            content.truncate(offset);
        else
            content.replace(offset, bytes.size(), bytes);
    }
};

} // namespace

struct SimulatedDisk::File {
    QByteArray durable;
    QByteArray live;
    std::vector<Write> unsynced;

    void change(Write write)
    {
        write.applyTo(live);
        unsynced.push_back(std::move(write));
    }

    [[nodiscard]] QByteArray withSomeOfItsWrites(std::mt19937& random) const
    {
        QByteArray content = durable;
        for (const Write& write : unsynced) {
            if (write.isTruncation) {
                if (random() % 2)
                    write.applyTo(content);
                continue;
            }
            // Mostly whole or not at all, now and then torn between sectors.
            const bool isTorn = random() % 4 == 0;
            const bool isKept = random() % 2;
            for (qsizetype at = 0; at < write.bytes.size();) {
                const qsizetype end = std::min((write.offset + at) / SectorSize * SectorSize + SectorSize,
                                               write.offset + write.bytes.size());
                const qsizetype size = end - write.offset - at;
                if (isTorn ? random() % 2 : isKept)
                    Write{write.offset + at, write.bytes.mid(at, size)}.applyTo(content);
                at += size;
            }
        }
        return content;
    }
};

SimulatedDisk* SimulatedDisk::s_current = nullptr;

SimulatedDisk::SimulatedDisk(const QString& folder) : m_folder(QFileInfo(folder).canonicalFilePath())
{
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        if (!isModelled(name))
            continue;
        const QByteArray bytes = readBytes(QDir(folder).filePath(name));
        m_live[name] = std::make_shared<File>(File{bytes, bytes, {}});
    }
    m_durable = m_live;
    s_current = this;
}

SimulatedDisk::~SimulatedDisk()
{
    s_current = nullptr;
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
    Entries entries = unsynced == Unsynced::Kept ? m_live : m_durable;
    if (unsynced == Unsynced::Random)
        for (const EntryChange& change : m_unsyncedChanges)
            if (random() % 2)
                applyTo(entries, change);
    Image image;
    for (const auto& [name, file] : entries)
        image[name] = unsynced == Unsynced::Kept   ? file->live
                      : unsynced == Unsynced::Lost ? file->durable
                                                   : file->withSomeOfItsWrites(random);
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

bool SimulatedDisk::isModelled(const QString& name)
{
    return !name.endsWith(QLatin1StringView("-shm"));
}

void SimulatedDisk::applyTo(Entries& entries, const EntryChange& change) const
{
    if (!change.removed.isEmpty())
        entries.erase(change.removed);
    if (!change.made.isEmpty())
        entries[change.made] = change.file;
}

void SimulatedDisk::change(EntryChange change)
{
    applyTo(m_live, change);
    m_unsyncedChanges.push_back(std::move(change));
}

void SimulatedDisk::opened(int descriptor, const QString& name, int flags)
{
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    FilePointer file = name.isEmpty() && !isUnnamed ? nullptr : std::make_shared<File>();
    if (file && !isUnnamed && isModelled(name)) {
        if (!m_live.contains(name))
            change({{}, name, file});
        file = m_live[name];
        if (flags & O_TRUNC && !file->live.isEmpty())
            file->change({0, {}, true});
    }
    m_files[descriptor] = file;
}

void SimulatedDisk::changed(int descriptor, qsizetype offset, const QByteArray& bytes, bool isTruncation)
{
    m_files[descriptor]->change({offset, bytes, isTruncation});
}

void SimulatedDisk::synced(int descriptor)
{
    if (const FilePointer file = m_files[descriptor]) {
        file->durable = file->live;
        file->unsynced.clear();
    } else {
        m_durable = m_live;
        m_unsyncedChanges.clear();
    }
}

} // namespace giggle
