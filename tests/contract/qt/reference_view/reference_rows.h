// Table rows of a text that is laid out as a whole.
#pragma once

#include "tests/contract/qt/reference_view/reference_builder.h"

// Whether its cells stand side by side; else it is shown as paragraphs.
bool WholeRowStands(const TableRow& row);

// This row, which is the first of its block, and those that share cells with it.
void AddWholeRows(WholeMaker& maker, std::size_t index);
