#include "formats/html/html_escape.h"

namespace {
void Append(std::u16string& source, std::u16string_view text, bool inAttribute) {
    for (const char16_t unit : text) {
        if (unit == u'&')
            source += u"&amp;";
        else if (unit == u'\u00A0')
            source += u"&nbsp;";
        else if (unit == u'<' && !inAttribute)
            source += u"&lt;";
        else if (unit == u'>' && !inAttribute)
            source += u"&gt;";
        else if (unit == u'"' && inAttribute)
            source += u"&quot;";
        else
            source += unit;
    }
}
} // namespace

void AppendHtmlText(std::u16string& source, std::u16string_view text) {
    Append(source, text, false);
}

void AppendHtmlAttribute(std::u16string& source, std::u16string_view value) {
    Append(source, value, true);
}
