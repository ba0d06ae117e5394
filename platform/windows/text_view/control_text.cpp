#include "platform/windows/text_view/control_text.h"

#include <algorithm>

namespace {
char16_t ControlUnit(char16_t unit) {
    switch (unit) {
    case u'\n': return u'\r';
    case u'\f':
    case u'\u2028':
    case u'\u2029': return u'\v'; // a line end inside a paragraph
    case u'\0':
    case u'\a':     // the end of a cell
    case u'\uFFF9': // the marks around a row
    case u'\uFFFA':
    case u'\uFFFB': return u' ';
    case u'\uFFFC': return u'\uFFFD';                                    // a picture
    default: return unit >= 0xFDD0 && unit <= 0xFDEF ? u'\uFFFD' : unit; // marks of formulas
    }
}
} // namespace

std::u16string ToControlText(std::u16string_view text) {
    std::u16string result(text.size(), u'\0');
    std::transform(text.begin(), text.end(), result.begin(), ControlUnit);
    return result;
}
