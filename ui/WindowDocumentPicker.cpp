// SPDX-License-Identifier: MIT
#include "ui/WindowDocumentPicker.h"

#include "ui/Navigator.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace giggle {

namespace {

/// A name that was typed comes as a path, in which the dialog has taken some characters for an address's.
QUrl addressOf(const QUrl& chosen)
{
    if (!chosen.isRelative() || chosen.isEmpty())
        return chosen;
    QString path = chosen.path(QUrl::FullyDecoded);
    if (chosen.hasQuery())
        path += u'?' + chosen.query(QUrl::FullyDecoded);
    if (chosen.hasFragment())
        path += u'#' + chosen.fragment(QUrl::FullyDecoded);
    return QUrl::fromLocalFile(path);
}

} // namespace

WindowDocumentPicker::WindowDocumentPicker(Navigator& navigator) : m_navigator(navigator)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    m_folder = QUrl::fromLocalFile(QDir(documents).exists() ? documents : QDir::homePath());
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
    if (m_answer)
        return;
    m_answer = std::move(answer);
    m_suggestedName = suggestedName;
    emit openChanged();
}

QUrl WindowDocumentPicker::suggestedFile() const
{
    return isForSaving() ? QUrl::fromLocalFile(m_folder.toLocalFile() + u'/' + m_suggestedName) : QUrl();
}

void WindowDocumentPicker::close(const QUrl& chosen)
{
    if (!m_answer)
        return;
    const Answer answer = std::exchange(m_answer, {});
    const bool wasForSaving = isForSaving();
    const QUrl document = addressOf(chosen);
    const QUrl folder = document.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash);
    if (document.isLocalFile() && QDir(folder.toLocalFile()).exists())
        m_folder = folder;
    emit openChanged();
    if (wasForSaving && document.isLocalFile() && QFile::exists(document.toLocalFile()))
        askToReplace(document, answer);
    else
        answer(document);
}

void WindowDocumentPicker::askToReplace(const QUrl& place, Answer answer)
{
    m_navigator.present({QStringLiteral("Replace File?"),
                         QStringLiteral("\"%1\" is there already.").arg(place.fileName()),
                         {{QStringLiteral("Replace"), [answer, place] { answer(place); }},
                          {QStringLiteral("Keep"), [answer] { answer({}); }, true}}});
}

} // namespace giggle
