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

/// Names that count as lost.
bool isShared(const QString& name)
{
    return name.endsWith(QLatin1StringView("-shm"));
}

} // namespace

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

SimulatedDisk* SimulatedDisk::s_current = nullptr;

SimulatedDisk::SimulatedDisk(const QString& folder) : m_folder(QFileInfo(folder).canonicalFilePath())
{
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        if (isShared(name))
            continue;
        change({.file = ++m_lastFile, .made = name, .isSynced = true});
        change({m_lastFile, 0, readBytes(QDir(folder).filePath(name)), {}, {}, true});
    }
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

void SimulatedDisk::opened(int descriptor, const QString& name, int flags)
{
    const bool isUnnamed = (flags & O_TMPFILE) == O_TMPFILE;
    if (name.isEmpty() && !isUnnamed) {
        m_files[descriptor] = Folder;
        return;
    }
    const auto known = m_names.find(name);
    const int file = m_files[descriptor] = known == m_names.end() ? ++m_lastFile : known->second;
    if (known == m_names.end() && !isUnnamed && !isShared(name))
        change({.file = file, .made = name});
    else if (flags & O_TRUNC)
        change({file, 0});
}

void SimulatedDisk::synced(int file)
{
    for (Change& change : m_changes)
        if (file == Folder ? change.isOfEntries() : !change.isOfEntries() && change.file == file)
            change.isSynced = true;
}

} // namespace giggle
