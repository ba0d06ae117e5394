// The profile-file (INI) engine: sections, keys and values of one file held in memory, edited in place with
// everything else (comments, order, spelling) kept. The rules are those of the private-profile functions.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ProfileFile {
  public:
    ProfileFile() = default;
    // `bytes` as on disk: UTF-8 with or without a mark, UTF-16 with one; else text in `ansiCodePage`, whose
    // decoder the caller gives. Any bytes at all are accepted.
    using Decoder = std::u16string (*)(int codePage, std::string_view bytes);
    static ProfileFile Parse(std::string_view bytes, int ansiCodePage, Decoder);

    // The value of the first key of this name in the first section of this name, names compared without
    // case, both trimmed; one pair of quotes around a value is taken off.
    std::optional<std::u16string> Value(std::u16string_view section, std::u16string_view key) const;
    // The lines of a section as the section function gives them: "key=value" trimmed, no comments, no blanks.
    std::vector<std::u16string> SectionLines(std::u16string_view section) const;
    std::vector<std::u16string> SectionNames() const;

    // Replaces the value in place, or appends the key at the end of the section (made at the end of the file).
    void SetValue(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    void RemoveKey(std::u16string_view section, std::u16string_view key);
    // Replaces all lines of the section by these.
    void SetSection(std::u16string_view section, const std::vector<std::u16string>& lines);
    void RemoveSection(std::u16string_view section);

    std::string ToBytes() const; // UTF-8, CR LF line ends

  private:
    std::vector<std::u16string> lines_; // without line ends
};
