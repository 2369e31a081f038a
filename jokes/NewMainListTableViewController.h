// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/NewMainListTableViewCell.h"
#include "jokes/SegmentedJokeListController.h"

namespace giggle {

/// The joke list, under a header that counts the whole list as a search result after a fetch with a search
/// text. A joke that is deleted while searching vanishes from the search result alone: it is back, with its
/// last values, when the text is cleared before the next fetch.
class NewMainListTableViewController : public giggle::SegmentedJokeListController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::TableModel* JokeTableView READ jokeTableView CONSTANT)

public:
    explicit NewMainListTableViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Joke List"); }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override { return route == UnwindRoute::ToList; }

    void viewDidLoad() override;
    void viewDidAppear() override;
    void unwound(UnwindRoute route) override;

    [[nodiscard]] QVariant cellForRow(int row) const override;
    [[nodiscard]] QString headerText() const override;

    [[nodiscard]] TableModel* jokeTableView() { return &table(); }

    Q_INVOKABLE bool canPerform(giggle::Segues::Id segue) const;

public slots:
    void AddTapped();

    /// Turns the direction round. Before the screen is loaded there is none, which ends the program.
    void SortJokesTapped();

    /// Offers the jokes on show as one text; on a device that cannot send text messages it only says so.
    void shareButtonClicked();

    /// Prints the jokes on show.
    void PrintJokes();

    /// The row was chosen: leaves its joke in the shared selection and leads on to the editor. Here as below,
    /// a row that the list does not have (any more) is none.
    void selectRow(int row);

    /// The swipe action: deletes the row's joke from the collection, and offers to undo that. A failed save
    /// ends the program, so that nothing is offered then.
    void deleteRow(int row);

    /// Puts the joke's text on the clipboard as it is stored.
    void copyRow(int row);

    /// The row's check box was ticked or cleared, which the collection does not notice.
    void checkBoxClicked(int row, bool isChecked);

protected:
    [[nodiscard]] SortDescriptors sortDescriptors(SortOrder direction) const override;

private:
    [[nodiscard]] NewMainListTableViewCell cellAt(int row) const;
    [[nodiscard]] QString categoryLabel(const Jokes& joke) const;
};

} // namespace giggle
