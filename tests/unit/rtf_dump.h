// A document as lines that a person can check: each paragraph with its style, each run with its
// own.
#pragma once

#include "formats/document.h"

std::string DumpDocument(const Document& document);
