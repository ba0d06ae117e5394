// File dialog filters in Qt's notation.
#pragma once

#include "platform/dialogs.h"

#include <QStringList>

// Turns "Name|pattern|Name|pattern|" with the listed patterns into "Name (pattern pattern)" each.
// The patterns are case-insensitive in the dialog of every desktop.
QStringList QtNameFilters(const OpenFileRequest&);

// The 1-based number of the selected filter, compared as a whole or, if the patterns are hidden, by
// name. The last one if none matches.
int NameFilterNumber(const QStringList& filters, const QString& selected);
