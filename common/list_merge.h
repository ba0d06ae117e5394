// A list that two programs keep in one file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

using ListLines = std::vector<std::u16string>;

// What distinguishes the lines of a list.
std::u16string_view KeyOfLine(std::u16string_view line); // what stands before the first "="
std::u16string_view WholeLine(std::u16string_view line); // the line itself

// What becomes of a list that the file held as `base` when this program last read or wrote it, that
// this program has made into `ours` and another one into `theirs`. Lines and order are ours, but
// for what only the other one has changed; lines that are new in theirs stand behind the first.
// What the other one has taken out stays, so that nothing is lost; what this one has taken out
// goes.
ListLines MergedList(const ListLines& base, const ListLines& ours, const ListLines& theirs,
                     std::u16string_view (*keyOf)(std::u16string_view));
