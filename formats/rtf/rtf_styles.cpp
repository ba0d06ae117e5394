#include "formats/rtf/rtf_styles.h"

#include "common/text.h"
#include "formats/rtf/rtf_limits.h"

std::uint8_t OutlineLevelOfName(std::u16string_view name) {
    constexpr std::u16string_view heading = u"heading";
    const std::u16string_view trimmed = TrimBlanks(name);
    if (EqualIgnoringCase(trimmed, u"title")) return 1;
    if (!EqualIgnoringCase(trimmed.substr(0, heading.size()), heading)) return 0;
    const std::u16string_view number = TrimBlanks(trimmed.substr(heading.size()));
    const bool isDigit = number.size() == 1 && number[0] >= u'1' && number[0] <= u'9';
    if (number.empty()) return 1;
    return isDigit ? static_cast<std::uint8_t>(number[0] - u'0') : std::uint8_t{0};
}

void RtfStyleSheet::EndNames(std::int32_t number, std::uint8_t outlineLevel) {
    const std::size_t end = name_.find(u';');
    if (end == name_.npos) return;
    const std::uint8_t level =
        outlineLevel != 0 ? outlineLevel : OutlineLevelOfName(name_.substr(0, end));
    if (level != 0 && levels_.size() < maxRtfParagraphStyles) levels_[number] = level;
    name_.clear();
}

std::uint8_t RtfStyleSheet::OutlineLevel(std::int32_t number) const {
    const auto found = levels_.find(number);
    return found == levels_.end() ? std::uint8_t{0} : found->second;
}
