#include "formats/html/html_tokenizer.h"

#include "formats/html/html_units.h"

#include <algorithm>

HtmlTokenizer::HtmlTokenizer(HtmlNames& names, HtmlArena& arena, const std::u16string& source)
    : names_(names), arena_(arena), source_(source) {}

HtmlToken& HtmlTokenizer::Next() {
    token_.attributes.clear();
    token_.selfClosing = false;
    do
        tokenBegin_ = at_;
    while (!ReadText());
    return token_;
}

void HtmlTokenizer::SetContent(HtmlContent content) {
    content_ = content;
    scriptEscape_ = ScriptEscape::None;
}

bool HtmlTokenizer::Emit(HtmlTokenKind kind) {
    token_.kind = kind;
    token_.source = {static_cast<std::uint32_t>(tokenBegin_), static_cast<std::uint32_t>(at_)};
    return true;
}

bool HtmlTokenizer::EmitEndOfFile() {
    at_ = tokenBegin_ = source_.size();
    return Emit(HtmlTokenKind::EndOfFile);
}

void HtmlTokenizer::SkipSpaces() {
    while (IsHtmlSpace(UnitAt(at_)))
        ++at_;
}

std::u16string_view HtmlTokenizer::Between(std::size_t begin, std::size_t end) const {
    return source_.substr(begin, end - begin);
}

std::u16string_view HtmlTokenizer::Keep(std::u16string_view units) {
    char16_t* const kept = arena_.Units(units.size());
    std::ranges::copy(units, kept);
    return {kept, units.size()};
}

// U+0000 becomes U+FFFD.
std::u16string_view HtmlTokenizer::WithoutNulls(std::u16string_view units) {
    if (units.find(u'\0') == units.npos) return units;
    buffer_ = units;
    std::ranges::replace(buffer_, u'\0', u'\uFFFD');
    return Keep(buffer_);
}
