#include "common/direction_controls.h"

#include "common/find_text.h"

#include <algorithm>

namespace {
constexpr char16_t leftToRightMark = 0x200E, rightToLeftEmbedding = 0x202B, popDirection = 0x202C;

// Hebrew, Arabic and their neighbours, with their presentation forms.
bool IsRightToLeftLetter(char16_t unit) {
    return (unit >= 0x0590 && unit < 0x0900) || (unit >= 0xFB1D && unit < 0xFE00) ||
           (unit >= 0xFE70 && unit < 0xFF00);
}
} // namespace

bool HasRightToLeft(std::u16string_view text) {
    return std::ranges::any_of(text, IsRightToLeftLetter);
}

bool IsRightToLeft(std::u16string_view text) {
    const auto isLetter = [](char16_t unit) {
        return IsWordUnit(unit) && !(unit >= u'0' && unit <= u'9') && unit != u'_';
    };
    const auto first = std::ranges::find_if(text, isLetter);
    return first != text.end() && IsRightToLeftLetter(*first);
}

// With few marks: some systems draw them as narrow blanks.
std::u16string DirectedPath(std::u16string_view path) {
    std::u16string directed;
    if (IsRightToLeft(path)) directed += leftToRightMark;
    bool rightToLeftBefore = false; // in the folder before a separator
    for (const char16_t unit : path) {
        directed += unit;
        rightToLeftBefore = rightToLeftBefore || IsRightToLeftLetter(unit);
        if (unit != u'/' && unit != u'\\') continue;
        if (rightToLeftBefore) directed += leftToRightMark;
        rightToLeftBefore = false;
    }
    return directed;
}

std::u16string DirectedText(std::u16string_view text) {
    if (!IsRightToLeft(text)) return std::u16string(text);
    return rightToLeftEmbedding + std::u16string(text) + popDirection;
}

std::u16string DirectedWords(std::u16string_view words) {
    std::u16string directed;
    for (const char16_t unit : words) {
        if (unit == u' ' && !directed.empty() && IsRightToLeftLetter(directed.back()))
            directed += leftToRightMark;
        directed += unit;
    }
    return directed;
}

std::u16string WithoutDirectionControls(std::u16string text) {
    std::erase_if(text, [](char16_t unit) {
        return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x206F);
    });
    return text;
}
