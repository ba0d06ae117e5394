// When some hundreds of fonts are cached, Qt 6.4 deletes those without a reference, even one that a
// layout uses while it breaks a line. So a layout keeps copies of its fonts.
#pragma once

#include <QFont>
#include <QTextLayout>

#include <vector>

// The fonts of the formats, resolved with the layout's font and loaded.
std::vector<QFont> PinFonts(const QFont& layoutFont,
                            const QList<QTextLayout::FormatRange>& formats);
