// Breaks a line of a QTextLayout for a width, and stretches it where it is justified.
#pragma once

#include "platform/line_layout.h"

#include <QTextLayout>

// Whether lines are as wide as the advances of their letters. QTextLayout itself wants room for the
// ink of the last letter, too.
bool GoesByAdvances(const ParagraphText& paragraph);

bool EndsWith(const QString& text, const QTextLine& line, QChar unit);

// Breaks the line at most `width` wide, in pixels of the device; returns whether it is stretched.
bool BreakLine(const ParagraphText& paragraph, QTextLayout& text, QTextLine& line, int width,
               bool byAdvances);
