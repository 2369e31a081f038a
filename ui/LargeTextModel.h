// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace giggle {

/// A text of any size, UTF-8, for a page that draws the part of it that can be seen: one row for each line,
/// under the role `line`. Lines of more than LongestPiece bytes take several rows.
///
/// The text is kept here as it is, to the last byte; what a page shows of it is a copy.
class LargeTextModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen makes its texts.")
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY textChanged)

public:
    enum Role { LineRole = Qt::UserRole };

    /// In bytes. Laying out a line takes more than its length in time, so that lines have to end somewhere.
    static constexpr std::size_t LongestPiece = 1000;

    using Text = std::shared_ptr<const std::string>;

    LargeTextModel() : m_text(std::make_shared<const std::string>()) {}

    /// Never null. It is shared, because a copy of a large one takes its time.
    [[nodiscard]] const Text& text() const { return m_text; }

    /// @p text must not be null.
    void setText(Text text);

    void setText(std::string text) { setText(std::make_shared<const std::string>(std::move(text))); }

    [[nodiscard]] bool isEmpty() const { return m_text->empty(); }

    /// Puts the whole text on the clipboard. An empty one leaves the clipboard as it is.
    Q_INVOKABLE void copy();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

signals:
    void textChanged();
    void copied();

private:
    [[nodiscard]] std::string_view line(std::size_t row) const;

    Text m_text;
    int m_count = 0;
    /// Where every 64th row begins: to keep the beginning of each would take more room than a text of empty
    /// lines.
    std::vector<std::size_t> m_anchors;
};

} // namespace giggle
