// SPDX-License-Identifier: MIT
#include "ui/WindowDocumentPicker.h"

#include <QDir>
#include <QStandardPaths>

#include <utility>

namespace giggle {

WindowDocumentPicker::WindowDocumentPicker()
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
    QUrl document = chosen;
    if (document.isRelative() && !document.isEmpty())
        document = QUrl::fromLocalFile(chosen.toString(QUrl::FullyDecoded));
    if (document.isLocalFile())
        m_folder = document.adjusted(QUrl::RemoveFilename | QUrl::StripTrailingSlash);
    emit openChanged();
    answer(document);
}

} // namespace giggle
