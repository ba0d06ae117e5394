// Letters shown as capitals, while the text keeps them as they were written.
#pragma once

#include "platform/qt/text_view/layout/paragraph_layout.h"

bool HasCapital(QChar unit); // another one, in as many units

// Changes what is to be laid out of the text from `start` on, unit for unit, and adds the smaller
// fonts of small capitals to `formats`.
void ShowCapitals(const LayoutContext& context, TextPos start, QString& text,
                  QList<QTextLayout::FormatRange>& formats);
