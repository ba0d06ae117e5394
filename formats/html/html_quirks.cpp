#include "formats/html/html_quirks.h"

#include "formats/html/html_units.h"

#include <algorithm>
#include <span>

namespace {

// The lists of the standard's section "The initial insertion mode", in small letters.
constexpr std::u16string_view oldPublicIds[] = {u"-//w3o//dtd w3 html strict 3.0//en//",
                                                u"-/w3c/dtd html 4.0 transitional/en", u"html"};

constexpr std::u16string_view oldSystemId =
    u"http://www.ibm.com/data/dtd/v11/ibmxhtml1-transitional.dtd";

constexpr std::u16string_view oldPublicStarts[] = {
    u"+//silmaril//dtd html pro v0r11 19970101//",
    u"-//as//dtd html 3.0 aswedit + extensions//",
    u"-//advasoft ltd//dtd html 3.0 aswedit + extensions//",
    u"-//ietf//dtd html 2.0 level 1//",
    u"-//ietf//dtd html 2.0 level 2//",
    u"-//ietf//dtd html 2.0 strict level 1//",
    u"-//ietf//dtd html 2.0 strict level 2//",
    u"-//ietf//dtd html 2.0 strict//",
    u"-//ietf//dtd html 2.0//",
    u"-//ietf//dtd html 2.1e//",
    u"-//ietf//dtd html 3.0//",
    u"-//ietf//dtd html 3.2 final//",
    u"-//ietf//dtd html 3.2//",
    u"-//ietf//dtd html 3//",
    u"-//ietf//dtd html level 0//",
    u"-//ietf//dtd html level 1//",
    u"-//ietf//dtd html level 2//",
    u"-//ietf//dtd html level 3//",
    u"-//ietf//dtd html strict level 0//",
    u"-//ietf//dtd html strict level 1//",
    u"-//ietf//dtd html strict level 2//",
    u"-//ietf//dtd html strict level 3//",
    u"-//ietf//dtd html strict//",
    u"-//ietf//dtd html//",
    u"-//metrius//dtd metrius presentational//",
    u"-//microsoft//dtd internet explorer 2.0 html strict//",
    u"-//microsoft//dtd internet explorer 2.0 html//",
    u"-//microsoft//dtd internet explorer 2.0 tables//",
    u"-//microsoft//dtd internet explorer 3.0 html strict//",
    u"-//microsoft//dtd internet explorer 3.0 html//",
    u"-//microsoft//dtd internet explorer 3.0 tables//",
    u"-//netscape comm. corp.//dtd html//",
    u"-//netscape comm. corp.//dtd strict html//",
    u"-//o'reilly and associates//dtd html 2.0//",
    u"-//o'reilly and associates//dtd html extended 1.0//",
    u"-//o'reilly and associates//dtd html extended relaxed 1.0//",
    u"-//sq//dtd html 2.0 hotmetal + extensions//",
    u"-//softquad software//dtd hotmetal pro 6.0::19990601::extensions to html 4.0//",
    u"-//softquad//dtd hotmetal pro 4.0::19971010::extensions to html 4.0//",
    u"-//spyglass//dtd html 2.0 extended//",
    u"-//sun microsystems corp.//dtd hotjava html//",
    u"-//sun microsystems corp.//dtd hotjava strict html//",
    u"-//w3c//dtd html 3 1995-03-24//",
    u"-//w3c//dtd html 3.2 draft//",
    u"-//w3c//dtd html 3.2 final//",
    u"-//w3c//dtd html 3.2//",
    u"-//w3c//dtd html 3.2s draft//",
    u"-//w3c//dtd html 4.0 frameset//",
    u"-//w3c//dtd html 4.0 transitional//",
    u"-//w3c//dtd html experimental 19960712//",
    u"-//w3c//dtd html experimental 970421//",
    u"-//w3c//dtd w3 html//",
    u"-//w3o//dtd w3 html 3.0//",
    u"-//webtechs//dtd mozilla html 2.0//",
    u"-//webtechs//dtd mozilla html//",
};

// Quirks without a system identifier, limited quirks with one.
constexpr std::u16string_view html4Starts[] = {u"-//w3c//dtd html 4.01 frameset//",
                                               u"-//w3c//dtd html 4.01 transitional//"};
constexpr std::u16string_view xhtmlStarts[] = {u"-//w3c//dtd xhtml 1.0 frameset//",
                                               u"-//w3c//dtd xhtml 1.0 transitional//"};

bool StartsWithOne(std::u16string_view id, std::span<const std::u16string_view> starts) {
    return std::ranges::any_of(starts, [&](std::u16string_view start) {
        return EqualsAsciiLower(id.substr(0, start.size()), start);
    });
}

bool IsOne(std::u16string_view id, std::span<const std::u16string_view> ids) {
    return std::ranges::any_of(ids,
                               [&](std::u16string_view one) { return EqualsAsciiLower(id, one); });
}

} // namespace

HtmlQuirks QuirksOf(const HtmlDoctypeToken& doctype) {
    const std::u16string& id = doctype.ids.publicId;
    if (doctype.forceQuirks || doctype.ids.name != u"html") return HtmlQuirks::Full;
    if (IsOne(id, oldPublicIds) || StartsWithOne(id, oldPublicStarts) ||
        EqualsAsciiLower(doctype.ids.systemId, oldSystemId))
        return HtmlQuirks::Full;
    if (StartsWithOne(id, html4Starts))
        return doctype.hasSystemId ? HtmlQuirks::Limited : HtmlQuirks::Full;
    return StartsWithOne(id, xhtmlStarts) ? HtmlQuirks::Limited : HtmlQuirks::None;
}
