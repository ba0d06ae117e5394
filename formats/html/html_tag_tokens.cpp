// The states of tags and their attributes.
#include "formats/html/html_char_ref.h"
#include "formats/html/html_limits.h"
#include "formats/html/html_tokenizer.h"
#include "formats/html/html_units.h"

#include <algorithm>

// A tag that the file ends in is left out.
bool HtmlTokenizer::ReadTag(HtmlTokenKind kind, std::size_t nameBegin) {
    at_ = nameBegin;
    while (!AtEnd() && !IsHtmlSpace(source_[at_]) && source_[at_] != u'/' && source_[at_] != u'>')
        ++at_;
    token_.name = InternLower(Between(nameBegin, at_));
    ++tagCount_;
    if (!ReadAttributes()) return EmitEndOfFile();
    if (kind == HtmlTokenKind::StartTag) lastStartTag_ = token_.name;
    content_ = HtmlContent::Data;
    return Emit(kind);
}

// To after the ">".
bool HtmlTokenizer::ReadAttributes() {
    while (true) {
        SkipSpaces();
        if (AtEnd()) return false;
        if (source_[at_] == u'>') {
            ++at_;
            return true;
        }
        if (source_[at_] != u'/') {
            ReadAttribute();
            continue;
        }
        ++at_;
        token_.selfClosing = UnitAt(at_) == u'>';
    }
}

void HtmlTokenizer::ReadAttribute() {
    const std::size_t begin = at_++; // a "=" that begins a name belongs to it
    while (!AtEnd() && !IsHtmlSpace(source_[at_]) && source_[at_] != u'/' && source_[at_] != u'>' &&
           source_[at_] != u'=')
        ++at_;
    const std::u16string_view name = Between(begin, at_);
    SkipSpaces();
    std::u16string_view value;
    if (UnitAt(at_) == u'=') {
        ++at_;
        value = ReadAttributeValue();
    }
    if (!AtEnd()) AddAttribute(InternLower(name), value);
}

std::u16string_view HtmlTokenizer::ReadAttributeValue() {
    SkipSpaces();
    const char16_t quote = UnitAt(at_);
    std::size_t begin = at_, end = at_;
    if (quote == u'"' || quote == u'\'') {
        end = std::min(source_.find(quote, ++begin), source_.size());
        at_ = std::min(end + 1, source_.size());
    } else {
        while (end < source_.size() && !IsHtmlSpace(source_[end]) && source_[end] != u'>')
            ++end;
        at_ = end;
    }
    if (AtEnd()) return {}; // the tag is left out
    return WithReferences(Between(begin, end));
}

void HtmlTokenizer::AddAttribute(HtmlName name, std::u16string_view value) {
    const auto place = std::size_t(name);
    if (place >= tagOfName_.size()) tagOfName_.resize(names_.Count() + names_.Count() / 2);
    if (tagOfName_[place] == tagCount_ || token_.attributes.size() >= maxHtmlAttributes) return;
    tagOfName_[place] = tagCount_;
    value = value.substr(0, maxHtmlAttributeLength);
    token_.attributes.push_back(
        {.name = name, .length = static_cast<std::uint32_t>(value.size()), .units = value.data()});
}

HtmlName HtmlTokenizer::InternLower(std::u16string_view name) {
    const auto changes = [](char16_t unit) { return IsAsciiUpper(unit) || unit == u'\0'; };
    if (std::ranges::none_of(name, changes)) return names_.Intern(name);
    buffer_ = name;
    for (char16_t& unit : buffer_)
        unit = unit == u'\0' ? u'\uFFFD' : AsciiLower(unit);
    return names_.Intern(buffer_);
}

std::u16string_view HtmlTokenizer::WithReferences(std::u16string_view value) {
    std::size_t at = value.find(u'&');
    if (at == value.npos) return WithoutNulls(value);
    buffer_.clear();
    while (at != value.npos) {
        buffer_ += value.substr(0, at);
        value.remove_prefix(at);
        const HtmlCharRef ref = ReadHtmlAttributeCharRef(value);
        if (ref.unitCount == 0)
            buffer_ += u'&';
        else
            buffer_.append(ref.units, ref.unitCount);
        value.remove_prefix(std::max<std::size_t>(ref.length, 1));
        at = value.find(u'&');
    }
    buffer_ += value;
    std::ranges::replace(buffer_, u'\0', u'\uFFFD');
    return Keep(buffer_);
}
