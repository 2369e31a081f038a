// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TableDataSource.h"
#include "ui/TablePlace.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace giggle {

/// Hands a screen's table to its page: one row per cell, under the role `cell`. The screen says what has
/// changed in its data; between two such calls the number of rows stays as it was last announced.
class TableModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen makes its tables.")
    Q_PROPERTY(QString headerText READ headerText NOTIFY headerTextChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { CellRole = Qt::UserRole };

    /// @p source must outlive the model; its rows are first asked for by reload().
    explicit TableModel(const TableDataSource& source);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] QString headerText() const { return m_source.headerText(); }

    [[nodiscard]] int count() const { return m_count; }

    /// The rows are other ones than before: the page starts again at the top.
    void reload();

    /// The rows are the same ones, but may look different: the page stays where it is.
    void redraw();

    /// Takes one row away. @p removeFromSource does so in the data source and changes nothing else.
    void removeRow(int row, const std::function<void()>& removeFromSource);

    /// Puts one row in. @p insertIntoSource does so in the data source and changes nothing else.
    void insertRow(int row, const std::function<void()>& insertIntoSource);

    /// @name Where the page's list was left
    /// A list stands where it was left when its rows are replaced behind the user's back, and when it is
    /// opened again. Its first row is looked for by what it shows; where that is gone the row's number
    /// counts.
    /// @{

    /// Keeps the place in @p place, which outlives the model; until then it lasts as long as the model.
    void keepPlaceIn(ListPlace& place) { m_place = &place; }

    /// The page tells where its list stands.
    Q_INVOKABLE void keepPlace(int topRow, double offset, int currentRow);
    [[nodiscard]] Q_INVOKABLE giggle::TablePlace keptPlace() const;

    /// @}

signals:
    void headerTextChanged();
    void countChanged();

private:
    [[nodiscard]] RowAnchor anchorAt(int row) const;
    [[nodiscard]] int rowOf(const RowAnchor& anchor) const;

    const TableDataSource& m_source;
    int m_count = 0;
    ListPlace m_ownPlace;
    ListPlace* m_place = &m_ownPlace;
};

} // namespace giggle
