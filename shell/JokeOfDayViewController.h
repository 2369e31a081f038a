// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Screen.h"

#include <cstdint>
#include <vector>

namespace giggle {

class Jokes;

/// One joke chosen at random among all, every time anew. An empty collection ends the program.
class JokeOfDayViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString CategoryTextField READ categoryTextField NOTIFY jokeChanged)
    Q_PROPERTY(QString RatingTextField READ ratingTextField NOTIFY jokeChanged)
    Q_PROPERTY(QString JokeTextView READ jokeTextView NOTIFY jokeChanged)

public:
    using Screen::Screen;

    [[nodiscard]] QString title() const override { return QStringLiteral("Joke of the Day"); }

    void viewDidLoad() override;

    [[nodiscard]] const QString& categoryTextField() const { return m_categoryTextField; }

    [[nodiscard]] const QString& ratingTextField() const { return m_ratingTextField; }

    /// The text as it is stored.
    [[nodiscard]] const QString& jokeTextView() const { return m_jokeTextView; }

public slots:
    /// Shows another joke, which may be the same.
    void ShuffleJokes();

signals:
    void jokeChanged();

private:
    void loadList();

    std::vector<Jokes*> m_jokeList;
    std::int32_t m_selectedJoke = 0;
    QString m_categoryTextField;
    QString m_ratingTextField;
    QString m_jokeTextView;
};

} // namespace giggle
