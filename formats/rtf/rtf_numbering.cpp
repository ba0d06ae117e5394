#include "formats/rtf/rtf_numbering.h"

#include "common/roman_numerals.h"
#include "common/text.h"
#include "formats/codepages/symbol_fonts.h"
#include "formats/rtf/rtf_limits.h"

#include <algorithm>

namespace {

// After z follows aa, then bb.
std::u16string LetterText(std::int32_t number, char16_t first) {
    constexpr std::int32_t letters = 26, maxInRow = 8;
    if (number <= 0 || number > letters * maxInRow) return NumberText(number);
    return std::u16string(static_cast<std::size_t>((number - 1) / letters + 1),
                          static_cast<char16_t>(first + (number - 1) % letters));
}

} // namespace

std::u16string NumberText(RtfNumberKind kind, std::int32_t number) {
    switch (kind) {
    case RtfNumberKind::Decimal: return NumberText(number);
    case RtfNumberKind::UpperRoman: return UpperRoman(number);
    case RtfNumberKind::LowerRoman: return LowerRoman(number);
    case RtfNumberKind::UpperLetter: return LetterText(number, u'A');
    case RtfNumberKind::LowerLetter: return LetterText(number, u'a');
    case RtfNumberKind::TwoDigits: return (number < 10 ? u"0" : u"") + NumberText(number);
    default: return {};
    }
}

std::u16string NumberText(const RtfNumberFormat& format, std::int32_t number) {
    return format.before + NumberText(format.kind, number) + format.after;
}

void RtfNumbering::Begin() {
    format_ = {};
    isBullet_ = isContinued_ = false;
}

void RtfNumbering::Apply(const RtfWordEntry& entry, std::int32_t parameter) {
    switch (entry.word) {
    case RtfWord::NumberKind: format_.kind = static_cast<RtfNumberKind>(entry.value); break;
    case RtfWord::NumberStart: format_.start = std::clamp(parameter, 0, maxRtfNumber); break;
    case RtfWord::NumberedParagraph: // its kind may come later, or never
        if (format_.kind == RtfNumberKind::None) format_.kind = RtfNumberKind::Decimal;
        break;
    case RtfWord::BulletedParagraph: isBullet_ = true; break;
    case RtfWord::ContinuedParagraph: isContinued_ = true; break;
    default: break;
    }
}

std::size_t RtfNumbering::End() {
    if (isBullet_) format_.kind = RtfNumberKind::Bullet;
    if (isContinued_ || format_.kind == RtfNumberKind::None) return 0;
    // A sign that only a symbol font has is some bullet.
    std::ranges::replace_if(format_.before, IsSymbolFontUnit, u'\u2022');
    if (format_.kind == RtfNumberKind::Bullet && format_.before.empty()) format_.before = u"\u2022";
    const auto known = numbers_.find(format_);
    if (known != numbers_.end()) return known->second;
    if (formats_.size() == maxRtfNumberFormats) return 0;
    formats_.push_back(format_);
    return numbers_[format_] = formats_.size();
}

std::u16string RtfNumbering::TextOfParagraph(std::size_t format, std::uint32_t paragraphStart) {
    if (count_ == maxRtfNumberedParagraphs) return {};
    ++count_;
    const RtfNumberFormat& found = formats_[format - 1];
    const bool continues =
        lastFormat_ == format && lastEnd_ == paragraphStart && lastEnd_ > lastStart_;
    lastNumber_ = continues && lastNumber_ < maxRtfNumber ? lastNumber_ + 1 : found.start;
    lastFormat_ = format;
    lastStart_ = lastEnd_ = paragraphStart;
    return NumberText(found, lastNumber_) + u'\t';
}

void RtfNumbering::EndParagraph(std::uint32_t start, std::uint32_t end) {
    if (lastFormat_ != 0 && start == lastStart_) lastEnd_ = end;
}
