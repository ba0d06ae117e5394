// The reference layout of table rows.
#pragma once

#include "tests/contract/reference_view/reference_builder.h"

// Whether it is laid out as a row; otherwise as paragraphs.
bool IsReferenceRow(const TableRow& row);

// `index` is the first row of a block; adds the rows that share cells with it, too.
void AddReferenceRows(ReferenceBuilder& maker, std::size_t index);
