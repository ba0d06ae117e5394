// The headings of a styled text.
#pragma once

#include "common/heading.h"
#include "formats/document.h"

// The paragraphs with an outline level; of a text without any those that are headings by their
// words, each a paragraph of its own.
std::vector<Heading> HeadingsOf(const Document& document);
