// SPDX-License-Identifier: MIT
#include "ui/TableModel.h"

#include <algorithm>

namespace giggle {

TableModel::TableModel(const TableDataSource& source) : m_source(source) {}

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_count;
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    const bool isCell = role == CellRole && index.isValid() && index.row() < m_count;
    return isCell ? m_source.cellForRow(index.row()) : QVariant();
}

QHash<int, QByteArray> TableModel::roleNames() const
{
    return {{CellRole, QByteArrayLiteral("cell")}};
}

void TableModel::reload()
{
    beginResetModel();
    m_count = m_source.numberOfRows();
    endResetModel();
    emit countChanged();
    emit headerTextChanged();
}

void TableModel::redraw()
{
    if (m_source.numberOfRows() != m_count) {
        reload();
        return;
    }
    if (m_count > 0)
        emit dataChanged(index(0), index(m_count - 1));
    emit headerTextChanged();
}

void TableModel::insertRow(int row, const std::function<void()>& insertIntoSource)
{
    beginInsertRows({}, row, row);
    insertIntoSource();
    ++m_count;
    endInsertRows();
    emit countChanged();
    emit headerTextChanged();
}

void TableModel::removeRow(int row, const std::function<void()>& removeFromSource)
{
    beginRemoveRows({}, row, row);
    removeFromSource();
    --m_count;
    endRemoveRows();
    emit countChanged();
    emit headerTextChanged();
}

void TableModel::keepPlace(int topRow, double offset, int currentRow)
{
    *m_place = {anchorAt(topRow), offset, anchorAt(currentRow)};
}

TablePlace TableModel::keptPlace() const
{
    return {rowOf(m_place->top), m_place->offset, rowOf(m_place->current)};
}

RowAnchor TableModel::anchorAt(int row) const
{
    return row >= 0 && row < m_count ? RowAnchor{m_source.identityOfRow(row), row} : RowAnchor();
}

int TableModel::rowOf(const RowAnchor& anchor) const
{
    const int sameNumber = std::min(anchor.row, m_count - 1);
    if (sameNumber < 0 || anchor.identity == NoIdentity ||
        m_source.identityOfRow(sameNumber) == anchor.identity)
        return std::max(sameNumber, -1);
    for (int row = 0; row < m_count; ++row)
        if (m_source.identityOfRow(row) == anchor.identity)
            return row;
    return sameNumber;
}

} // namespace giggle
