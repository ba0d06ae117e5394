#include "formats/rtf/rtf_lists.h"

#include "formats/codepages/symbol_fonts.h"
#include "formats/rtf/rtf_numbering.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int32_t bullet = 23, none = 255; // \levelnfc

RtfNumberKind KindOf(std::int32_t levelKind) {
    switch (levelKind) {
    case 1: return RtfNumberKind::UpperRoman;
    case 2: return RtfNumberKind::LowerRoman;
    case 3: return RtfNumberKind::UpperLetter;
    case 4: return RtfNumberKind::LowerLetter;
    case 22: return RtfNumberKind::TwoDigits;
    case bullet: return RtfNumberKind::Bullet;
    case none: return RtfNumberKind::None;
    default: return RtfNumberKind::Decimal; // words and scripts that the reader does not write
    }
}

// The text as it is written: its length, the text, a semicolon.
std::u16string TextOfLevel(std::u16string_view written) {
    if (!written.empty() && written.front() < u' ') written.remove_prefix(1);
    if (written.ends_with(u';')) written.remove_suffix(1);
    return std::u16string(written);
}

// Signs of a symbol font are written as its bytes or in the private use range.
char16_t SignOf(char16_t unit, SymbolSet symbols) {
    if (unit < u' ') return unit;
    if (symbols != SymbolSet::None && (unit <= 0xFF || IsSymbolFontUnit(unit))) {
        const char32_t sign = SymbolOfByte(symbols, static_cast<unsigned char>(unit & 0xFF));
        unit = sign < 0x10000 ? static_cast<char16_t>(sign) : u'\u2022';
    }
    return unit >= 0xE000 && unit <= 0xF8FF ? u'\u2022' : unit; // of that font alone
}

// A sign that stands for a number is none: some writers leave a pattern there that they do not use.
void CorrectBullet(std::u16string& text) {
    if (text.empty()) text = u"\u2022";
    if (std::ranges::any_of(text, [](char16_t unit) { return unit < u' '; })) text.clear();
}

std::size_t IndexOfLevel(std::size_t count, std::int32_t level) {
    return std::min(count - 1, static_cast<std::size_t>(std::max(level, 0)));
}

} // namespace

void RtfLists::BeginList() {
    list_ = {};
    number_ = 0;
    ownLevels_.clear();
    hasOwnFormat_.clear();
}

void RtfLists::EndLevel(const RtfState& ended) {
    level_.text = TextOfLevel(level_.text);
    const SymbolSet symbols = ended.font ? ended.font->symbols : SymbolSet::None;
    for (char16_t& unit : level_.text)
        unit = SignOf(unit, symbols);
    if (level_.kind == bullet) CorrectBullet(level_.text);
    level_.leftIndent = ended.paragraph.leftIndent;
    level_.firstLineIndent = ended.paragraph.firstLineIndent;
    if (!hasOwnFormat_.empty()) {
        hasOwnFormat_.back() = true;
        level_.startsAnew = ownLevels_.back().startsAnew;
        ownLevels_.back() = level_;
    } else if (list_.levels.size() < maxRtfListLevels) {
        list_.levels.push_back(level_);
    }
}

void RtfLists::EndList() {
    if (lists_.size() < maxRtfLists && !list_.levels.empty()) lists_[list_.id] = list_.levels;
}

void RtfLists::BeginOverrideLevel() {
    if (ownLevels_.size() < maxRtfListLevels) {
        ownLevels_.emplace_back();
        hasOwnFormat_.push_back(false);
    }
    level_ = {};
}

// Its start stands in the group itself, or in that of its format.
void RtfLists::EndOverrideLevel() {
    if (!ownLevels_.empty()) ownLevels_.back().start = level_.start;
}

void RtfLists::EndOverride() {
    const auto found = lists_.find(list_.id);
    if (found == lists_.end() || overrides_.size() >= maxRtfLists) return;
    list_.levels = found->second;
    for (std::size_t i = 0; i < std::min(ownLevels_.size(), list_.levels.size()); ++i) {
        RtfListLevel& level = list_.levels[i];
        if (hasOwnFormat_[i]) level = ownLevels_[i];
        level.startsAnew = ownLevels_[i].startsAnew;
        if (level.startsAnew) level.start = ownLevels_[i].start;
    }
    overrides_[number_] = list_;
}

void RtfLists::Apply(const RtfWordEntry& entry, bool on, std::int32_t parameter) {
    switch (entry.word) {
    case RtfWord::ListId: list_.id = parameter; break;
    case RtfWord::ListNumber: number_ = parameter; break;
    case RtfWord::LevelKind: level_.kind = parameter; break;
    case RtfWord::LevelStart: level_.start = std::clamp(parameter, 0, maxRtfNumber); break;
    case RtfWord::LevelFollow: level_.follow = parameter; break;
    case RtfWord::LevelLegal: level_.isLegal = on; break;
    case RtfWord::LevelGoesOn: level_.restarts = !on; break;
    case RtfWord::LevelStartsAnew:
        if (!ownLevels_.empty()) ownLevels_.back().startsAnew = on;
        break;
    default: break;
    }
}

const RtfListLevel* RtfLists::Level(std::int32_t number, std::int32_t level) const {
    const auto found = overrides_.find(number);
    if (found == overrides_.end()) return nullptr;
    const std::vector<RtfListLevel>& levels = found->second.levels;
    return &levels[IndexOfLevel(levels.size(), level)];
}

void RtfLists::Count(List& list, std::size_t level) {
    Numbers& numbers = numbers_[list.id];
    RtfListLevel& counted = list.levels[level];
    const bool continues = numbers.hasBegun[level] && !std::exchange(counted.startsAnew, false);
    std::int32_t& last = numbers.last[level];
    last = continues ? std::min(last + 1, maxRtfNumber) : counted.start;
    numbers.hasBegun[level] = true;
    for (std::size_t below = level + 1; below < list.levels.size(); ++below)
        if (list.levels[below].restarts) numbers.hasBegun[below] = false;
}

std::u16string RtfLists::TextOfParagraph(std::int32_t number, std::int32_t level) {
    const auto found = overrides_.find(number);
    if (found == overrides_.end() || count_ == maxRtfNumberedParagraphs) return {};
    ++count_;
    List& list = found->second;
    const std::size_t index = IndexOfLevel(list.levels.size(), level);
    Count(list, index);
    const RtfListLevel& shown = list.levels[index];
    std::u16string text = NumberText(list, index);
    if (text.empty() || shown.follow == 2) return text;
    return text + (shown.follow == 1 ? u' ' : u'\t');
}

std::u16string RtfLists::NumberText(const List& list, std::size_t level) const {
    const RtfListLevel& shown = list.levels[level];
    const Numbers& numbers = numbers_.at(list.id);
    std::u16string text;
    for (const char16_t unit : shown.text) {
        const auto named = static_cast<std::size_t>(unit);
        if (unit >= u' ') text += unit;
        if (named > level || named >= list.levels.size()) continue;
        const RtfListLevel& other = list.levels[named];
        const bool isDecimal = shown.isLegal && other.kind != bullet && other.kind != none;
        const std::int32_t value = numbers.hasBegun[named] ? numbers.last[named] : other.start;
        text += ::NumberText(isDecimal ? RtfNumberKind::Decimal : KindOf(other.kind), value);
    }
    text.resize(std::min(text.size(), maxRtfListNumberLength));
    return text;
}
