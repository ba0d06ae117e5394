// Qt 6.4 drops fonts that nobody has when there are some hundreds of them, even one that a layout
// uses while it breaks a line. So whoever lays out text has its fonts for as long as the layout.
#pragma once

#include <QFont>
#include <QTextLayout>

#include <vector>

// The fonts of the formats in a layout of that font, loaded.
std::vector<QFont> HeldFonts(const QFont& layoutFont,
                             const QList<QTextLayout::FormatRange>& formats);
