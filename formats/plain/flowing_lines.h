// Which line ends of a plain text only broke what was too long for its page.
#pragma once

#include <span>
#include <string_view>
#include <vector>

// What the answer for a line end depends on: so many lines on each side of it, and among them none
// after a line that is longer than any page was wide.
constexpr std::size_t linesAround = 40;

std::vector<std::u16string_view> LinesOf(std::u16string_view text); // without their ends

// For each of the lines, which follow each other in the text and are without their ends, whether it
// continues in the next one. Not so, whatever their length: lines that are blank, indented, in
// capitals, items of a list, rows of a table or rules, and what ends in front of one; and verse.
std::vector<bool> FlowingLines(std::span<const std::u16string_view> lines);
