// A list that two programs keep in one file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

using ListLines = std::vector<std::u16string>;

// What distinguishes the lines of a list.
std::u16string_view KeyOfLine(std::u16string_view line); // what stands before the first "="
std::u16string_view WholeLine(std::u16string_view line); // the line itself

// A three-way merge: `base` is the list as this program last read or wrote it, `ours` what this
// program has made of it, `theirs` what another program has. Lines and order are ours, but for
// lines that only the other one has changed; its new lines are inserted after the first. What it
// removed stays, so that nothing is lost; what we removed is removed.
ListLines MergedList(const ListLines& base, const ListLines& ours, const ListLines& theirs,
                     std::u16string_view (*keyOf)(std::u16string_view));
