// The profile-file (INI) engine: sections, keys and values of one file held in memory, edited in
// place with everything else (comments, order, spelling) kept. The rules are those of the
// private-profile functions.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Names are compared without case. Blanks around names, values and lines (all units up to U+0020)
// do not count. The first of several sections or keys of one name is the one that is read and
// written.
//
// Any text may be asked for or written; what a file cannot hold is changed or left out, so that no
// write spoils another entry: CR, LF and NUL become blanks, "]" in a section's name becomes "}",
// and a key that is empty, has a "=" or begins with ";" or "[" is never found and not written.
class ProfileFile {
  public:
    ProfileFile() = default;
    // `bytes` as on disk: UTF-8 or UTF-16, with or without a mark. A line that is not UTF-8 is text
    // in `ansiCodePage`, whose decoder the caller gives, unless most of its letters are UTF-8: then
    // single bytes of it are damaged and become U+FFFD. Any bytes at all are accepted, a NUL among
    // them is a character like others.
    using Decoder = std::u16string (*)(int codePage, std::string_view bytes);
    static ProfileFile Parse(std::string_view bytes, int ansiCodePage, Decoder);

    // The value of a key; one pair of quotes around it, single or double, is removed.
    std::optional<std::u16string> Value(std::u16string_view section, std::u16string_view key) const;
    // The lines of a section as the section function gives them: "key=value" trimmed, no comments,
    // no blanks, quotes left on. A line without "=" is listed too.
    std::vector<std::u16string> SectionLines(std::u16string_view section) const;
    std::vector<std::u16string> SectionNames() const; // in file order, with duplicates

    // Replaces the value in place, or appends the key at the end of the section (made at the end of
    // the file).
    void SetValue(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    // Replaces the entries of the section by these lines. Its comments stay and stand first. A line
    // that would not be listed (blank, a comment, the head of a section) is left out. One that the
    // section has already in another encoding keeps its bytes.
    void SetSection(std::u16string_view section, const std::vector<std::u16string>& lines);
    // Takes its header out; one with entries or comments stays.
    void RemoveEmptySection(std::u16string_view section);

    // UTF-8; a line that came in another encoding stays as it came until its value changes. New
    // lines end in CR LF.
    const std::string& ToBytes() const { return text_; }

  private:
    // Offsets in `text_`.
    struct Section {
        std::u16string foldedName;
        std::size_t header = 0, body = 0; // the line "[Name]" and the one after it
        std::size_t end = 0;              // the next header
    };
    struct Entry {
        std::size_t line = 0;           // where its line begins
        std::size_t value = 0, end = 0; // what follows the "=", and where the line ends
    };

    void Index();
    // A line as UTF-8; `converted` holds it where it is not.
    std::string_view Utf8Of(std::string_view line, std::string& converted) const;
    void FinishLastLine();
    void KeepApartFromUtf16();
    std::size_t FindSection(std::u16string_view name) const; // index, or the number of sections
    std::size_t FindOrAddSection(std::u16string_view name);
    std::optional<Entry> FindKey(const Section&, std::u16string_view key) const;
    std::size_t EndOfEntries(const Section&) const; // after its last line that is not blank
    std::string Comments(const Section&) const;
    std::map<std::u16string, std::string> LinesNotUtf8(const Section&) const;
    void Splice(std::size_t section, std::size_t at, std::size_t length, std::string_view bytes);

    std::string text_;      // as it goes to disk
    bool allIsUtf8_ = true; // no line has to be converted; the others are in
    int ansiCodePage_ = 0;
    Decoder decoder_ = nullptr;
    std::vector<Section> sections_;
};
