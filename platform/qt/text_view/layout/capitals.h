// Displays text in capitals without changing it.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"

bool HasCapital(QChar unit); // a different uppercase form of one unit

// Changes a copy of the text from `start` on, unit by unit, and adds the smaller fonts of small
// capitals to `formats`.
void ApplyCapitals(const LayoutContext& context, TextPos start, QString& text,
                   QList<QTextLayout::FormatRange>& formats);
