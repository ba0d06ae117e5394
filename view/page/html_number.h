// Attributes that are integers (HTML, "Rules for parsing integers").
#pragma once

#include "formats/html/html_tree.h"

#include <optional>

// Nothing if there is none; within a million.
std::optional<int> HtmlNumber(const HtmlNode& element, HtmlName attribute);
