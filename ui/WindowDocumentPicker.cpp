// SPDX-License-Identifier: MIT
#include "ui/WindowDocumentPicker.h"

#include "platform/SystemFileDialog.h"
#include "ui/DocumentChoice.h"
#include "ui/Navigator.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <array>
#include <utility>

namespace giggle {

namespace {

struct Place {
    const char* name;
    QStandardPaths::StandardLocation location;
};

constexpr std::array Places{
    Place{"Home", QStandardPaths::HomeLocation},
    Place{"Documents", QStandardPaths::DocumentsLocation},
    Place{"Downloads", QStandardPaths::DownloadLocation},
};

/// Empty where the user has none; a desktop may have the home folder stand for it.
QString folderOf(const Place& place)
{
    const QString folder = QDir::cleanPath(QStandardPaths::writableLocation(place.location));
    const bool isHome = place.location == QStandardPaths::HomeLocation;
    return QFileInfo(folder).isDir() && (isHome || folder != QDir::homePath()) ? folder : QString();
}

QString firstFolder()
{
    const QString documents = folderOf(Places[1]);
    return documents.isEmpty() ? QDir::homePath() : documents;
}

} // namespace

WindowDocumentPicker::WindowDocumentPicker(Navigator& navigator)
    : m_navigator(navigator), m_folder(firstFolder())
{
}

void WindowDocumentPicker::pickDocument(Answer answer)
{
    open({}, std::move(answer));
}

void WindowDocumentPicker::pickPlace(const QString& suggestedName, Answer answer)
{
    open(suggestedName, std::move(answer));
}

void WindowDocumentPicker::open(const QString& suggestedName, Answer answer)
{
    if (isOpen())
        return;
    // The desktop's dialog was not to be found, or never came.
    const bool isLost = m_isWithSystem;
    if (isLost) {
        m_systemDialog->close();
        finish({});
    }
    m_answer = std::move(answer);
    m_suggestedName = suggestedName;
    enter(DocumentChoice::toEnter(m_folder).problem.isEmpty() ? m_folder : firstFolder());
    offerName();
    if (m_systemDialog && m_systemDialog->isOffered() && !isLost)
        askSystem();
    else
        setShown(true);
}

void WindowDocumentPicker::askSystem()
{
    m_isWithSystem = true;
    emit openChanged();
    m_systemDialog->open({title(), folder(), m_fileName},
                         [self = QPointer(this)](const std::optional<QUrl>& chosen) {
                             if (self && chosen)
                                 self->finish(*chosen);
                             else if (self)
                                 self->setShown(true);
                         });
}

void WindowDocumentPicker::setShown(bool isShown)
{
    m_isShown = isShown;
    m_isWithSystem = false;
    emit openChanged();
}

QString WindowDocumentPicker::title() const
{
    return isForSaving() ? QStringLiteral("Save to Files") : QStringLiteral("Load File");
}

void WindowDocumentPicker::setFileName(const QString& name)
{
    if (std::exchange(m_fileName, name) == name)
        return;
    setProblem({});
    emit fileNameChanged();
}

int WindowDocumentPicker::stemLength() const
{
    return static_cast<int>(giggle::stemLength(m_fileName));
}

QStringList WindowDocumentPicker::places() const
{
    QStringList names;
    for (const Place& place : Places)
        if (!folderOf(place).isEmpty())
            names += QLatin1StringView(place.name);
    return names;
}

void WindowDocumentPicker::goToPlace(const QString& name)
{
    for (const Place& place : Places)
        if (name == QLatin1StringView(place.name))
            take(DocumentChoice::toEnter(folderOf(place)));
}

void WindowDocumentPicker::goUp()
{
    if (canGoUp())
        take(DocumentChoice::toEnter(QFileInfo(m_folder).path()));
}

void WindowDocumentPicker::press(const QString& name)
{
    if (m_fileName == name)
        activate(name);
    else if (const QString path = QDir(m_folder).filePath(name); QFileInfo(path).isDir())
        take(DocumentChoice::toEnter(path));
    else
        setFileName(name);
}

void WindowDocumentPicker::activate(const QString& name)
{
    if (const QString path = QDir(m_folder).filePath(name); QFileInfo(path).isDir()) {
        take(DocumentChoice::toEnter(path));
        return;
    }
    setFileName(name);
    if (!isForSaving())
        accept();
}

void WindowDocumentPicker::accept()
{
    const DocumentChoice choice = isForSaving() ? DocumentChoice::toSave(m_fileName, m_folder)
                                                : DocumentChoice::toLoad(m_fileName, m_folder);
    if (choice.kind == DocumentChoice::Kind::Folder)
        m_offeredName = m_fileName; // it was no name for the file
    take(choice);
}

void WindowDocumentPicker::take(const DocumentChoice& choice)
{
    if (!m_isShown)
        return;
    setProblem(choice.problem);
    switch (choice.kind) {
    case DocumentChoice::Kind::Refused:
        break;
    case DocumentChoice::Kind::Folder:
        enter(choice.path);
        break;
    case DocumentChoice::Kind::File:
        if (isForSaving() && QFileInfo::exists(choice.path))
            askToReplace(choice.path);
        else
            finish(QUrl::fromLocalFile(choice.path));
        break;
    }
}

void WindowDocumentPicker::enter(const QString& folder)
{
    const bool isOwnName = isForSaving() && m_fileName != m_offeredName;
    m_folder = folder;
    emit folderChanged();
    if (!isOwnName)
        offerName();
}

void WindowDocumentPicker::offerName()
{
    m_offeredName = isForSaving() ? freeName(m_suggestedName, m_folder) : QString();
    setFileName(m_offeredName);
    setProblem({});
    emit nameOffered();
}

void WindowDocumentPicker::setProblem(const QString& problem)
{
    // Gone for a moment, so that the same words are said again.
    if (!std::exchange(m_problem, {}).isEmpty())
        emit problemChanged();
    m_problem = problem;
    if (!problem.isEmpty())
        emit problemChanged();
}

void WindowDocumentPicker::askToReplace(const QString& path)
{
    setShown(false);
    const auto replace = [self = QPointer(this), path] {
        if (self)
            self->finish(QUrl::fromLocalFile(path));
    };
    const auto keep = [self = QPointer(this)] {
        if (self)
            self->setShown(true);
    };
    m_navigator.present({QStringLiteral("Replace File?"),
                         QStringLiteral("\"%1\" is there already.").arg(QFileInfo(path).fileName()),
                         {{QStringLiteral("Replace"), replace}, {QStringLiteral("Keep"), keep, true}}});
}

void WindowDocumentPicker::cancel()
{
    if (m_isShown)
        finish({});
}

void WindowDocumentPicker::finish(const QUrl& chosen)
{
    if (!m_answer)
        return;
    const Answer answer = std::exchange(m_answer, {});
    if (chosen.isLocalFile())
        m_folder = QFileInfo(chosen.toLocalFile()).path();
    setShown(false);
    answer(chosen);
}

} // namespace giggle
