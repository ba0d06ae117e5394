// When some hundreds of fonts are cached, Qt 6.4 deletes those without a reference, even one that a
// layout uses while it breaks a line. So a layout keeps copies of its fonts.
#pragma once

#include <QFont>
#include <QTextLayout>

#include <cstddef>
#include <vector>

// Qt's own hash of a font leaves out its size in points: sets of many sizes would be lists.
struct FontHash {
    std::size_t operator()(const QFont& font) const;
};

// The fonts of the formats, resolved with the layout's font and loaded.
std::vector<QFont> PinFonts(const QFont& layoutFont,
                            const QList<QTextLayout::FormatRange>& formats);
