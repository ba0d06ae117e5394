#include "common/tab_stop.h"

#include "common/unicode.h"

#include <algorithm>
#include <cmath>

namespace {
bool IsDigit(char16_t unit) {
    const BidiClass kind = BidiClassOf(unit);
    return kind == BidiClass::EN || kind == BidiClass::AN;
}

bool IsSeparator(char16_t unit) {
    constexpr char16_t arabicDecimal = 0x66B, arabicThousands = 0x66C;
    return unit == u'.' || unit == u',' || unit == arabicDecimal || unit == arabicThousands;
}

bool IsLetter(char16_t unit) {
    return StrongDirection(unit) != Direction::Neutral;
}

// The end of the digits from `at` on, with separators between them.
std::size_t NumberEnd(std::u16string_view text, std::size_t at) {
    while (at < text.size() &&
           (IsDigit(text[at]) ||
            (IsSeparator(text[at]) && at + 1 < text.size() && IsDigit(text[at + 1]))))
        ++at;
    return at;
}

// A comma alone in front of three digits divides thousands, and so does any that is there twice.
bool DividesThousands(std::u16string_view number, std::size_t separator) {
    const char16_t unit = number[separator];
    if (number.find(unit) != separator) return true;
    const bool isOnly = std::count_if(number.begin(), number.end(), IsSeparator) == 1;
    return unit == u',' && isOnly && number.size() - separator == 4 && separator <= 3;
}
} // namespace

const TabStop* NextTabStop(std::span<const TabStop> ascending, double from) {
    const auto next = std::find_if(ascending.begin(), ascending.end(),
                                   [&](const TabStop& each) { return each.position >= from + 1; });
    return next == ascending.end() ? nullptr : &*next;
}

const TabStop* StopAfterWrap(std::span<const TabStop> ascending, double from) {
    for (std::size_t i = ascending.size(); i-- > 0 && ascending[i].position >= from + 1;)
        if (ascending[i].alignment != TabAlignment::Left) return &ascending[i];
    return NextTabStop(ascending, from);
}

namespace {
double WidthBeforeStop(TabAlignment alignment, const TabbedText& text) {
    switch (alignment) {
    case TabAlignment::Left: break;
    case TabAlignment::Right: return text.width;
    case TabAlignment::Center: return text.width / 2;
    case TabAlignment::Decimal: return text.beforeDecimals;
    }
    return 0;
}
} // namespace

double TabGap(const TabStop& stop, double pen, double lineEnd, const TabbedText& text,
              double minGap) {
    const double at = std::min<double>(stop.position, lineEnd);
    const double widest = lineEnd - pen - text.width;
    return std::max(minGap, std::min(at - pen - WidthBeforeStop(stop.alignment, text), widest));
}

std::size_t UnitsBeforeDecimals(std::u16string_view text) {
    const auto digit = std::find_if(text.begin(), text.end(), IsDigit);
    if (std::any_of(text.begin(), digit, IsLetter)) return text.size();
    const auto start = std::size_t(digit - text.begin());
    const std::u16string_view number = text.substr(start, NumberEnd(text, start) - start);
    for (std::size_t at = number.size(); at-- > 0;)
        if (IsSeparator(number[at]))
            return DividesThousands(number, at) ? start + number.size() : start + at;
    return start + number.size();
}

char16_t LeaderCharacter(TabLeader leader) {
    switch (leader) {
    case TabLeader::None: return 0;
    case TabLeader::Dots: return u'.';
    case TabLeader::MiddleDots: return u'\u00B7';
    case TabLeader::Hyphens: return u'-';
    case TabLeader::Underscores: return u'_';
    case TabLeader::EqualSigns: return u'=';
    }
    return 0;
}

LeaderSpan LeaderIn(double left, double right, double advance, double startEdge) {
    constexpr double rounding = 1e-3;
    if (advance <= 0) return {};
    const double first = std::ceil((left - startEdge) / advance - rounding);
    const double end = std::floor((right - startEdge) / advance + rounding);
    if (end <= first) return {};
    return {int(end - first), startEdge + first * advance};
}
