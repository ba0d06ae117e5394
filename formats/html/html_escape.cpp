#include "formats/html/html_escape.h"

#include <cstdint>

namespace {
enum class Place : std::uint8_t { Text, Attribute };

void Append(std::u16string& source, std::u16string_view text, Place place) {
    for (const char16_t unit : text) {
        if (unit == u'&')
            source += u"&amp;";
        else if (unit == u'\u00A0')
            source += u"&nbsp;";
        else if (unit == u'<' && place == Place::Text)
            source += u"&lt;";
        else if (unit == u'>' && place == Place::Text)
            source += u"&gt;";
        else if (unit == u'"' && place == Place::Attribute)
            source += u"&quot;";
        else
            source += unit;
    }
}
} // namespace

void AppendHtmlText(std::u16string& source, std::u16string_view text) {
    Append(source, text, Place::Text);
}

void AppendHtmlAttribute(std::u16string& source, std::u16string_view value) {
    Append(source, value, Place::Attribute);
}
