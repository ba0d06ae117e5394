// Paragraphs of all kinds, drawn at random.
#pragma once

#include "platform/line_layout.h"
#include "tests/random_numbers.h"

// Of words in many scripts, with several styles, boxes, tabs and indents.
ParagraphText RandomParagraph(Random& random, LineLayout& layout);
