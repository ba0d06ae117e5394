// Kinds of HTML elements that several rules of the tree construction name together.
#pragma once

#include "formats/html/html_names.h"

bool IsHeadPart(HtmlName name); // what belongs to the head, wherever it stands
bool IsHeading(HtmlName name);  // `h1` to `h6`
// Formatting elements but `a` and `nobr`, which have rules of their own.
bool IsFormatting(HtmlName name);
// Blocks whose tags mean no more than that, but for `p`.
bool IsPlainBlock(HtmlName name);
