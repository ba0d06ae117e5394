// Filters of the file dialog in Qt's form.
#pragma once

#include <QStringList>

// "Name|pattern;pattern|Name|pattern|" becomes one "Name (pattern pattern)" each. A pattern fits a
// name in any case, whichever desktop's dialog reads it.
QStringList QtNameFilters(const QString& filter);
