// A tree as the tree construction's cases write it.
#pragma once

#include "formats/html/html_tree.h"

#include <string>

std::string DumpTree(const HtmlTree& tree);
