// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TableDataSource.h"

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

signals:
    void headerTextChanged();
    void countChanged();

private:
    const TableDataSource& m_source;
    int m_count = 0;
};

} // namespace giggle
