// What Unicode says of a character, the same on every system.
#pragma once

#include "common/unicode_properties.h"

bool IsMarkOrFormat(char32_t);        // Mn, Mc, Me and Cf: nothing stands for it in the line
bool IsUnassignedOrPrivate(char32_t); // Cn and Co: no font is sure to have it
bool IsVirama(char32_t);              // joins the consonants around it in scripts of India
bool IsWide(char32_t);                // of East Asian text, as wide as two digits
bool IsOpening(char32_t);             // opening brackets and quotation marks
bool IsClosing(char32_t);
// Spaces, tabs and breaks of any kind, those that a line does not break at, too.
bool IsSpaceCharacter(char16_t);

Direction StrongDirection(char32_t); // neutral: takes that of what is around it
BidiClass BidiClassOf(char32_t);
ClusterJoin ClusterJoinOf(char32_t);
WordPart WordPartOf(char32_t);
