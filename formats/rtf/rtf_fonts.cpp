#include "formats/rtf/rtf_fonts.h"

#include "common/text.h"
#include "formats/codepages/code_pages.h"
#include "formats/rtf/rtf_limits.h"

#include <algorithm>

namespace {

// Fonts of Windows 3.1 say their script by the name alone.
int CodePageOfFontName(std::u16string_view name) {
    constexpr struct {
        std::u16string_view end;
        int codePage;
    } scripts[] = {
        {u" CE", 1250}, {u" Cyr", 1251}, {u" Greek", 1253}, {u" Tur", 1254}, {u" Baltic", 1257}};
    for (const auto& script : scripts)
        if (name.size() > script.end.size() &&
            EqualIgnoringCase(name.substr(name.size() - script.end.size()), script.end))
            return script.codePage;
    return 0;
}

} // namespace

void RtfFontTable::Begin(std::int32_t number) {
    font_ = {};
    number_ = number;
    hasOpenFont_ = true;
    hasSymbols_ = true;
    name_.clear();
}

void RtfFontTable::SetCharset(std::int32_t charset) {
    constexpr std::int32_t symbolCharset = 2;
    hasSymbols_ = charset == symbolCharset;
    if (font_.codePage == 0) font_.codePage = CodePageOfFontCharset(charset); // \cpg wins
}

void RtfFontTable::SetCodePage(std::int32_t codePage) {
    if (HasCodePage(codePage)) font_.codePage = codePage;
}

void RtfFontTable::EndNames() {
    const std::size_t end = name_.find(u';');
    if (end == name_.npos) {
        name_.resize(std::min(name_.size(), maxRtfFontNameLength));
        return;
    }
    if (hasOpenFont_) Add(name_.substr(0, std::min(end, maxRtfFontNameLength)));
    hasOpenFont_ = false;
    name_.clear(); // a name after it has no number
}

void RtfFontTable::End() {
    if (hasOpenFont_) Add(name_);
    hasOpenFont_ = false;
    name_.clear();
}

void RtfFontTable::Add(std::u16string name) {
    if (fonts_.size() == maxRtfFonts || names_.size() == maxRtfFonts) return;
    name = TrimBlanks(name);
    if (font_.codePage == 0) font_.codePage = CodePageOfFontName(name);
    font_.symbols = hasSymbols_ ? SymbolSetOfFont(name) : SymbolSet::None;
    if (number_ == defaultNumber_ && font_.symbols == SymbolSet::None) names_[0] = name;
    if (name != names_[0]) font_.index = IndexOfName(name);
    fonts_.insert_or_assign(number_, font_);
}

std::uint16_t RtfFontTable::IndexOfName(const std::u16string& name) {
    const auto next = static_cast<std::uint16_t>(names_.size());
    const auto [found, isNew] = indexes_.try_emplace(name, next);
    if (isNew) names_.push_back(name);
    return found->second;
}

void RtfFontTable::SetDefault(std::int32_t number) {
    defaultNumber_ = number;
    const RtfFont* const font = Find(number);
    if (font && font->symbols == SymbolSet::None) names_[0] = names_[font->index];
}

const RtfFont* RtfFontTable::Find(std::int32_t number) const {
    const auto found = fonts_.find(number);
    return found == fonts_.end() ? nullptr : &found->second;
}

void RtfColorTable::SetComponent(int shift, std::int32_t value) {
    const Color component = static_cast<Color>(std::clamp(value, 0, 255));
    color_.value = (color_.value & ~(Color{255} << shift)) | component << shift;
    color_.isAutomatic = false;
}

void RtfColorTable::EndColor() {
    if (colors_.size() < maxRtfColors) colors_.push_back(color_);
    color_ = {};
}

RtfColor RtfColorTable::At(std::int32_t number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colors_.size() ? colors_[index] : RtfColor{};
}
