// SPDX-License-Identifier: MIT
#include "exchange/PrintViewController.h"

#include "platform/Platform.h"
#include "store/Console.h"
#include "store/FatalError.h"
#include "ui/AtomicFile.h"
#include "ui/DisplayText.h"
#include "ui/TextOutput.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace giggle {

namespace {

QString labelText(const char* prefix, OptionalText name)
{
    return QString::fromLatin1(prefix) + textOrEmpty(name.value_or("N/A"));
}

void sayOnConsole(const PrintOutcome& outcome)
{
    if (outcome.failure.isEmpty())
        printToConsole(outcome.isCompleted ? QStringLiteral("Image is Printed") : QString());
}

} // namespace

PrintViewController::PrintViewController(ScreenEnvironment& environment)
    : SegmentedJokeListController(environment, QStringLiteral("Search by Name"), QStringLiteral("print")),
      m_jokeString(std::make_shared<const JokeComposition>())
{
    confirmCopies(m_printTextView, environment.navigator);
}

auto PrintViewController::sortDescriptors(SortOrder direction) const -> SortDescriptors
{
    switch (selectedSegment()) {
    case CategoryMode:
        return {{"category", direction}, {"joke", SortOrder::Ascending}};
    case RatingMode:
        return {{"rating", direction}, {"joke", SortOrder::Ascending}};
    case JokeMode:
    case FavoritesMode:
        return {{"joke", direction}};
    default:
        return {};
    }
}

void PrintViewController::jokesFetched()
{
    if (jokeList().empty())
        presentLater(*this, environment(),
                     information(QStringLiteral("Print Jokes"),
                                 QStringLiteral("There are no Jokes entered to print.")));
}

void PrintViewController::listOnShowChanged()
{
    if (std::ranges::any_of(listOnShow(), [](const Jokes* joke) { return !joke->joke(); }))
        fatalError(QStringLiteral("A joke without a text cannot be printed."), __FILE__, __LINE__);
    auto document = std::make_shared<JokeComposition>();
    document->appendHeader();
    document->appendJokes(listOnShow());
    m_jokeString = document;
    m_printTextView.setText(LargeTextModel::Text(m_jokeString, &m_jokeString->text()));
}

QVariant PrintViewController::cellForRow(int row) const
{
    PrintListTableViewCell cell;
    cell.cellIndexPath = row;
    if (hasRow(row)) {
        const Jokes& joke = jokeAt(row);
        cell.hasContent = true;
        cell.CategoryLabel = labelText("Category: ", joke.category());
        cell.showJoke(joke.joke(), displaySettings(),
                      displaySettings().fontOrDefault(environment().platform.fonts));
        cell.RatingLabel = labelText("Rating: ", joke.rating());
    }
    return QVariant::fromValue(cell);
}

void PrintViewController::PrintNotes()
{
    printToConsole(m_jokeString->plainText());
    printText(environment(), m_jokeString->attributedText(), sayOnConsole);
}

void PrintViewController::EmailFile()
{
    const QString folder = environment().platform.documentsFolder;
    const QString path = folder + QStringLiteral("/GiggleArchives.txt");
    // Where it cannot be made the file says so.
    QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString failure = writeAtomically(path, m_jokeString->text());
    if (!failure.isEmpty())
        printFailure(failure);
    sendMail(environment(), [&] {
        Mail mail;
        mail.subject = QStringLiteral("Giggle Archives");
        if (failure.isEmpty())
            mail.attachments = attachmentOf(path, QStringLiteral("text/txt"), path);
        return mail;
    });
}

void PrintViewController::shareButtonClicked()
{
    shareText(*this, environment(), [this] { return m_jokeString->plainText(); });
}

} // namespace giggle
