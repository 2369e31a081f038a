// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/NewMainListTableViewController.h"
#include "tests/support/ScreenFixture.h"

#include <QAbstractItemModelTester>

#include <string>
#include <vector>

namespace giggle {

/// A joke list over the jokes that a test adds before it loads the screen.
class JokeListFixture : public ScreenFixture {
protected:
    using Mode = NewMainListTableViewController::Mode;
    using enum NewMainListTableViewController::Mode;

    [[nodiscard]] NewMainListTableViewCell cell(int row) const
    {
        return list.cellForRow(row).value<NewMainListTableViewCell>();
    }

    /// The jokes' texts in the order of their rows, without the line feeds. Rows without content are "".
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        const TableModel& table = *list.jokeTableView();
        for (int row = 0; row < table.rowCount(); ++row)
            texts.push_back(table.data(table.index(row), TableModel::CellRole)
                                .value<NewMainListTableViewCell>()
                                .JokeLabel.trimmed()
                                .toStdString());
        return texts;
    }

    [[nodiscard]] std::string header() const { return list.jokeTableView()->headerText().toStdString(); }

    mutable NewMainListTableViewController list{environment};
    QAbstractItemModelTester tester{list.jokeTableView(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace giggle
