// The lists of rich text (RTF 1.9.1, \listtable and \listoverridetable): numbers and bullets of
// paragraphs that name a list, for writers that do not write them out.
#pragma once

#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_state.h"

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

struct RtfListLevel {
    std::int32_t kind = 0; // \levelnfc
    std::int32_t start = 1;
    std::int32_t follow = 0; // after the number: 0 a tab, 1 a space, 2 nothing
    bool isLegal = false;    // numbers of the levels above are decimal in it, too
    bool restarts = true;    // after a paragraph of a level above
    bool startsAnew = false; // with the first paragraph of an override
    std::u16string text;     // a unit below 9 stands for the number of that level, from 0
    std::int32_t leftIndent = 0, firstLineIndent = 0; // twips
};

class RtfLists {
  public:
    // Building, group by group: a list has levels; an override, which paragraphs name, has a list
    // and perhaps levels of its own in place of the list's first ones.
    void BeginList();
    void BeginLevel() { level_ = {}; }
    std::u16string& LevelText() { return level_.text; }
    void EndLevel(const RtfState& ended); // the level's font and indents are in the state
    void EndList();
    void BeginOverrideLevel();
    void EndOverrideLevel();
    void EndOverride();
    void Apply(const RtfWordEntry& entry, bool on, std::int32_t parameter);

    // Of a paragraph with \ls and \ilvl; nullptr when there is no such list.
    const RtfListLevel* Level(std::int32_t number, std::int32_t level) const;
    // Counts the paragraph and gives what stands before its text, "" for nothing.
    std::u16string TextOfParagraph(std::int32_t number, std::int32_t level);

  private:
    struct List {
        std::int32_t id = 0;
        std::vector<RtfListLevel> levels;
    };
    struct Numbers {
        std::array<std::int32_t, maxRtfListLevels> last{};
        std::array<bool, maxRtfListLevels> hasBegun{};
    };
    void Count(List& list, std::size_t level);
    std::u16string NumberText(const List& list, std::size_t level) const;

    std::unordered_map<std::int32_t, std::vector<RtfListLevel>> lists_; // by id
    std::unordered_map<std::int32_t, List> overrides_;                  // by \ls
    std::unordered_map<std::int32_t, Numbers> numbers_;                 // by the list's id
    std::size_t count_ = 0;                                             // of paragraphs

    // What is being read.
    RtfListLevel level_;
    List list_;
    std::int32_t number_ = 0;
    std::vector<RtfListLevel> ownLevels_; // of the override
    std::vector<bool> hasOwnFormat_;
};
