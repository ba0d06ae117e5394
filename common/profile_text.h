// The lines, blanks and names of a profile file's UTF-8 text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Walks the lines of `text` from `begin` to `end`. Lines end in LF, CR LF or CR.
class LineWalk {
  public:
    LineWalk(std::string_view text, std::size_t begin, std::size_t end);
    bool Next(); // to the first or next line; false when there is none

    std::size_t LineBegin() const { return begin_; }
    std::size_t LineEnd() const { return end_; }   // without the line end
    std::size_t LineNext() const { return next_; } // with it
    std::string_view Line() const { return text_.substr(begin_, end_ - begin_); }

  private:
    std::string_view text_; // up to the end of the walk
    std::size_t begin_ = 0, end_ = 0, next_ = 0;
    std::size_t lf_, cr_; // the next of each at or after `next_`: each byte is searched once
};

// Of a trimmed line.
inline bool IsComment(std::string_view line) {
    return !line.empty() && line.front() == ';';
}
inline bool IsHeader(std::string_view line) {
    return !line.empty() && line.front() == '[';
}
std::string_view HeaderName(std::string_view header); // up to the first "]" or the end of the line

// One pair of equal quotes around the text, single or double, is removed.
std::string_view WithoutQuotes(std::string_view text);

std::u16string FoldedName(std::string_view name);
// Whether a name in valid UTF-8 is this one but for its case.
bool NameIs(std::string_view name, std::u16string_view foldedName);

// CR, LF and NUL become blanks.
std::u16string OnOneLine(std::u16string_view text);
// What stands in the file, as UTF-8, for a section or a key of this name.
std::string SectionNameOnDisk(std::u16string_view name);
std::string KeyOnDisk(std::u16string_view key); // "" if the file cannot hold it
