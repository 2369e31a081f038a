// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/JokeComposition.h"
#include "jokes/NewMainListTableViewCell.h"
#include "jokes/SegmentedJokeListController.h"
#include "ui/LargeTextModel.h"

#include <memory>

namespace giggle {

using PrintListTableViewCell = NewMainListTableViewCell;

/// Chooses jokes, composes one document of them, and prints, mails or shares it. The document follows the
/// list on show; what is handed on is always the document on show. A joke without a text in the list ends the
/// program.
class PrintViewController : public giggle::SegmentedJokeListController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::TableModel* PrintTableView READ printTableView CONSTANT)
    Q_PROPERTY(giggle::LargeTextModel* PrintTextView READ printTextView CONSTANT)

public:
    explicit PrintViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Print"); }

    [[nodiscard]] QVariant cellForRow(int row) const override;

    /// The table has no header but the search.
    [[nodiscard]] QString headerText() const override { return {}; }

    [[nodiscard]] TableModel* printTableView() { return &table(); }

    [[nodiscard]] LargeTextModel* printTextView() { return &m_printTextView; }

public slots:
    /// Writes the document to the console and opens the print panel for it. The console hears, too, what came
    /// of it; failures are ignored.
    void PrintNotes();

    /// Writes the document to a file in the documents folder and composes a mail with it. A mail without the
    /// file is composed where it cannot be written or read.
    void EmailFile();

    /// Offers the document's text; on a device that cannot send text messages it only says so.
    void shareButtonClicked();

protected:
    [[nodiscard]] SortDescriptors sortDescriptors(SortOrder direction) const override;
    void jokesFetched() override;
    void listOnShowChanged() override;

private:
    std::shared_ptr<const JokeComposition> m_jokeString; // never null
    LargeTextModel m_printTextView;
};

} // namespace giggle
