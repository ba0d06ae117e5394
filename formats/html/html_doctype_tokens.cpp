// The states of DOCTYPE.
#include "formats/html/html_tokenizer.h"
#include "formats/html/html_units.h"

#include <algorithm>

namespace {

std::u16string Lower(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& unit : lower)
        unit = unit == u'\0' ? u'\uFFFD' : AsciiLower(unit);
    return lower;
}

} // namespace

bool HtmlTokenizer::ReadDoctype() {
    HtmlDoctypeToken& doctype = token_.doctype;
    doctype = {};
    at_ += 9;
    SkipSpaces();
    const std::size_t name = at_;
    while (!AtEnd() && !IsHtmlSpace(source_[at_]) && source_[at_] != u'>')
        ++at_;
    doctype.hasName = at_ > name;
    doctype.ids.name = Lower(Between(name, at_));
    if (!doctype.hasName) doctype.forceQuirks = true;
    SkipSpaces();
    if (UnitAt(at_) != u'>') ReadDoctypeIds();
    if (AtEnd()) doctype.forceQuirks = true;
    at_ = std::min(source_.find(u'>', at_), source_.size() - 1) + 1;
    return Emit(HtmlTokenKind::Doctype);
}

// What is not understood is passed over by the caller.
void HtmlTokenizer::ReadDoctypeIds() {
    HtmlDoctypeToken& doctype = token_.doctype;
    if (SkipWord(u"public")) {
        if (!ReadDoctypeId(doctype.ids.publicId, doctype.hasPublicId)) {
            doctype.forceQuirks = true;
            return;
        }
        SkipSpaces();
        if (UnitAt(at_) == u'>') return;
    } else if (!SkipWord(u"system")) {
        doctype.forceQuirks = true;
        return;
    }
    if (!ReadDoctypeId(doctype.ids.systemId, doctype.hasSystemId)) {
        doctype.forceQuirks = true;
        return;
    }
    SkipSpaces();
}

// In quotes. False when there is none, or when it ends with the declaration or the file.
bool HtmlTokenizer::ReadDoctypeId(std::u16string& id, bool& has) {
    SkipSpaces();
    const char16_t quote = UnitAt(at_);
    if (quote != u'"' && quote != u'\'') return false;
    const std::size_t begin = ++at_;
    while (!AtEnd() && source_[at_] != quote && source_[at_] != u'>')
        ++at_;
    has = true;
    id = WithoutNulls(Between(begin, at_));
    if (UnitAt(at_) != quote) return false;
    ++at_;
    return true;
}

bool HtmlTokenizer::SkipWord(std::u16string_view lower) {
    if (!EqualsAsciiLower(source_.substr(at_, lower.size()), lower)) return false;
    at_ += lower.size();
    return true;
}
