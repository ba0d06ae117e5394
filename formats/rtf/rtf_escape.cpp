#include "formats/rtf/rtf_escape.h"

#include <cstdint>

namespace {

void AppendNumberedUnit(std::string& rtf, char16_t unit) {
    rtf += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + '?';
}

} // namespace

void AppendRtfText(std::string& rtf, std::u16string_view text) {
    for (const char16_t unit : text) {
        switch (unit) {
        case u'\\':
        case u'{':
        case u'}':
            rtf += '\\';
            rtf += static_cast<char>(unit);
            break;
        case u'\t': rtf += "\\tab "; break;
        case u'\v': rtf += "\\line "; break;
        case u'\u00A0': rtf += "\\~"; break;
        case u'\u00AD': rtf += "\\-"; break;
        case u'\u2011': rtf += "\\_"; break;
        default:
            if (unit >= 0x20 && unit < 0x7F)
                rtf += static_cast<char>(unit);
            else
                AppendNumberedUnit(rtf, unit);
        }
    }
}
