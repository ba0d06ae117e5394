#include "view/page/bidi_isolation.h"

namespace {
// A block has the direction of its lines by itself.
bool IsInline(CssStyle element) {
    return element.box->display == CssDisplay::Inline;
}
} // namespace

std::u16string_view OpeningControls(CssStyle element) {
    if (!IsInline(element)) return {};
    const bool rightToLeft = element.inherited->direction == CssDirection::RightToLeft;
    switch (element.box->unicodeBidi) {
    case CssUnicodeBidi::Normal: break;
    case CssUnicodeBidi::Embed: return rightToLeft ? u"\u202B" : u"\u202A";
    case CssUnicodeBidi::Isolate: return rightToLeft ? u"\u2067" : u"\u2066";
    case CssUnicodeBidi::Override: return rightToLeft ? u"\u202E" : u"\u202D";
    case CssUnicodeBidi::IsolateOverride: return rightToLeft ? u"\u2068\u202E" : u"\u2068\u202D";
    case CssUnicodeBidi::Plaintext: return u"\u2068";
    }
    return {};
}

std::u16string_view ClosingControls(CssStyle element) {
    if (!IsInline(element)) return {};
    switch (element.box->unicodeBidi) {
    case CssUnicodeBidi::Normal: break;
    case CssUnicodeBidi::Embed:
    case CssUnicodeBidi::Override: return u"\u202C";
    case CssUnicodeBidi::IsolateOverride: return u"\u202C\u2069";
    case CssUnicodeBidi::Isolate:
    case CssUnicodeBidi::Plaintext: return u"\u2069";
    }
    return {};
}
