// SPDX-License-Identifier: MIT
#include "jokes/JokeComposition.h"

namespace giggle {

AttributedText composeJokes(const std::vector<Jokes*>& jokes)
{
    constexpr int JokeSize = 18;
    constexpr int DashCount = 34;
    QFont bold;
    bold.setPixelSize(JokeSize);
    bold.setBold(true);
    const TextAttributes jokeLooks{.foregroundColor = Qt::black, .font = bold, .alignment = Qt::AlignHCenter};
    const TextAttributes dashLooks{.foregroundColor = {}, .font = {}, .alignment = Qt::AlignHCenter};
    const TextAttributes roomLooks{.foregroundColor = Qt::black, .font = {}, .alignment = {}};
    const QString dashes = u'\n' + QString(DashCount, u'-');
    const QString room = QStringLiteral("\n\n\n");

    AttributedText composition;
    for (const Jokes* joke : jokes) {
        composition.append(QString::fromUtf8(joke->joke().value_or("")), jokeLooks);
        composition.append(dashes, dashLooks);
        composition.append(room, roomLooks);
    }
    return composition;
}

} // namespace giggle
