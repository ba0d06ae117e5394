#include "formats/rtf/rtf_fields.h"

#include "common/text.h"
#include "formats/rtf/rtf_field_words.h"

namespace {

std::u16string Quoted(std::u16string_view text) {
    std::u16string quoted = u"\"";
    for (const char16_t c : text) {
        if (c == u'"' || c == u'\\') quoted += u'\\';
        quoted += c;
    }
    return quoted + u'"';
}

} // namespace

std::u16string LinkOfField(std::u16string_view instruction) {
    RtfFieldWords field(instruction);
    if (!field.Next() || !EqualIgnoringCase(field.Word(), u"HYPERLINK")) return {};
    std::u16string address, place;
    while (field.Next()) {
        if (field.IsSwitch(u'l')) {
            if (field.Next()) place = field.Word();
        } else if (field.IsSwitch(u'o') || field.IsSwitch(u't')) {
            field.Next(); // a tip or a frame's name
        } else if (!field.IsAnySwitch() && address.empty()) {
            address = field.Word();
        }
    }
    return place.empty() ? address : address + u'#' + place;
}

std::u16string FieldOfLink(std::u16string_view address) {
    return u"HYPERLINK " + Quoted(address);
}
