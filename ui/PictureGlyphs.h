// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

class QPainter;
class QTextLayout;
class QTextLine;

namespace giggle {

/// Draws a line of @p layout, as QTextLine::draw does. Characters that a font has only as coloured pictures
/// go as pictures to devices that cannot draw them otherwise (a PDF file).
void drawWithPictures(QPainter& painter, const QTextLayout& layout, const QTextLine& line, QPointF origin);

} // namespace giggle
