// Whether a text can be read on a background, and a line be seen.
#pragma once

#include "common/geometry.h"

// From 1, the same colour, to 21: as the guidelines for accessible pages (WCAG) define it.
double Contrast(Color a, Color b);

bool IsReadable(Color text, Color background); // in letters of some size

bool CanBeSeen(Color line, Color background); // of a line, a caret or a border
Color LegibleOn(Color background);            // black or white, the one that differs more

// The text colour where it can be read. Otherwise a shade of grey becomes black or white, and
// another colour is lightened or darkened as far as it takes.
Color ReadableOn(Color background, Color text);
