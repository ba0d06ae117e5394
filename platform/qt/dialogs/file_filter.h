// Filters of the file dialog in Qt's form.
#pragma once

#include "platform/dialogs.h"

#include <QStringList>

// "Name|pattern|Name|pattern|" and what is listed for each become one "Name (pattern pattern)"
// each. A pattern fits a name in any case, whichever desktop's dialog reads it.
QStringList QtNameFilters(const OpenFileRequest&);

// The number, from 1, of the filter that a dialog calls selected: by all of it, or by its name
// where the patterns are hidden. The last one when it is none of them.
int NumberOfNameFilter(const QStringList& filters, const QString& selected);
