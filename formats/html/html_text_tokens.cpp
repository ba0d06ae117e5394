// The states of text: data, RCDATA, RAWTEXT, script data, PLAINTEXT and CDATA sections.
#include "formats/html/html_char_ref.h"
#include "formats/html/html_tokenizer.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

// Four units at a time, in the lanes of a number.
constexpr std::uint64_t ones = 0x0001'0001'0001'0001;

// The highest bit of each lane that is zero, and perhaps of lanes above one.
constexpr std::uint64_t ZeroLanes(std::uint64_t lanes) {
    return (lanes - ones) & ~lanes & (ones << 15);
}

constexpr std::uint64_t MarkupLanes(std::uint64_t lanes) {
    return ZeroLanes(lanes) | ZeroLanes(lanes ^ (ones * u'<')) | ZeroLanes(lanes ^ (ones * u'&'));
}

// The next unit that is no plain text; most of a page is.
std::size_t FindMarkup(std::u16string_view source, std::size_t at) {
    std::uint64_t lanes = 0;
    for (; source.size() - at >= 4; at += 4) {
        std::memcpy(&lanes, source.data() + at, sizeof lanes);
        if (MarkupLanes(lanes) != 0) break;
    }
    while (at < source.size() && source[at] != u'<' && source[at] != u'&' && source[at] != u'\0')
        ++at;
    return at;
}

} // namespace

bool HtmlTokenizer::ReadText() {
    if (AtEnd()) return EmitEndOfFile();
    switch (content_) {
    case HtmlContent::Data: return ReadData();
    case HtmlContent::Rcdata: return ReadRcdata();
    case HtmlContent::Rawtext: return ReadRawtext();
    case HtmlContent::ScriptData: return ReadScriptData();
    case HtmlContent::Plaintext: return ReadPlaintext();
    case HtmlContent::CData: return ReadCData();
    }
    return EmitEndOfFile();
}

bool HtmlTokenizer::EmitText(std::size_t end) {
    token_.text = Between(tokenBegin_, end);
    at_ = end;
    return Emit(HtmlTokenKind::Characters);
}

// All that stand here.
bool HtmlTokenizer::ReadNulls(Nulls nulls) {
    while (UnitAt(at_) == u'\0')
        ++at_;
    const std::u16string_view units = Between(tokenBegin_, at_);
    token_.text = nulls == Nulls::Replaced ? WithoutNulls(units) : units;
    return Emit(HtmlTokenKind::Characters);
}

// A "&" that begins no reference is text.
bool HtmlTokenizer::ReadCharRef() {
    const HtmlCharRef ref = ReadHtmlCharRef(source_.substr(at_));
    if (ref.unitCount == 0) return EmitText(at_ + 1);
    at_ += ref.length;
    token_.text = Keep({ref.units, ref.unitCount});
    return Emit(HtmlTokenKind::Characters);
}

bool HtmlTokenizer::ReadData() {
    std::size_t end = at_;
    switch (source_[at_]) {
    case u'\0': return ReadNulls(Nulls::Kept);
    case u'&': return ReadCharRef();
    case u'<':
        if (ReadMarkup()) return true;
        if (at_ != tokenBegin_ || content_ != HtmlContent::Data) return false;
        ++end; // a "<" that begins nothing
        break;
    default: break;
    }
    return EmitText(FindMarkup(source_, end));
}

// Of "</name" that ends the present element, with what follows it unread; 0 when it stands not
// here.
std::size_t HtmlTokenizer::EndTagLength() const {
    const std::u16string_view name = names_.TextOf(lastStartTag_);
    const std::size_t length = 2 + name.size();
    if (lastStartTag_ == HtmlName::None || UnitAt(at_ + 1) != u'/') return 0;
    if (!EqualsAsciiLower(source_.substr(at_ + 2, name.size()), name)) return 0;
    const char16_t next = UnitAt(at_ + length);
    return IsHtmlSpace(next) || next == u'/' || next == u'>' ? length : 0;
}

bool HtmlTokenizer::ReadRcdata() {
    const char16_t first = source_[at_];
    if (first == u'\0') return ReadNulls(Nulls::Replaced);
    if (first == u'&') return ReadCharRef();
    if (first == u'<' && EndTagLength() > 0) return ReadTag(HtmlTokenKind::EndTag, at_ + 2);
    return EmitText(
        std::min(source_.find_first_of(std::u16string_view(u"\0&<", 3), at_ + 1), source_.size()));
}

bool HtmlTokenizer::ReadRawtext() {
    const char16_t first = source_[at_];
    if (first == u'\0') return ReadNulls(Nulls::Replaced);
    if (first == u'<' && EndTagLength() > 0) return ReadTag(HtmlTokenKind::EndTag, at_ + 2);
    return EmitText(
        std::min(source_.find_first_of(std::u16string_view(u"\0<", 2), at_ + 1), source_.size()));
}

bool HtmlTokenizer::ReadPlaintext() {
    if (source_[at_] == u'\0') return ReadNulls(Nulls::Replaced);
    return EmitText(std::min(source_.find(u'\0', at_), source_.size()));
}

bool HtmlTokenizer::ReadCData() {
    if (source_.substr(at_, 3) == u"]]>") {
        at_ += 3;
        content_ = HtmlContent::Data;
        return false;
    }
    if (source_[at_] == u'\0') return ReadNulls(Nulls::Kept);
    std::size_t end = at_;
    while (end < source_.size() && source_[end] != u'\0' && source_.substr(end, 3) != u"]]>")
        ++end;
    return EmitText(end);
}

// "<script" or "</script" with what may follow a tag's name.
bool HtmlTokenizer::IsScriptTag(std::size_t at) const {
    constexpr std::u16string_view name = u"script";
    if (!EqualsAsciiLower(source_.substr(at, name.size()), name)) return false;
    const char16_t next = UnitAt(at + name.size());
    return IsHtmlSpace(next) || next == u'/' || next == u'>';
}

// Old pages hide scripts in comments. Within one, an end tag ends the script all the same, unless
// another script has begun there.
void HtmlTokenizer::PassScriptUnit(std::size_t at) {
    if (source_[at] == u'<') {
        if (scriptEscape_ == ScriptEscape::None && source_.substr(at, 4) == u"<!--") {
            scriptEscape_ = ScriptEscape::Once;
        } else if (scriptEscape_ == ScriptEscape::Once && IsScriptTag(at + 1)) {
            scriptEscape_ = ScriptEscape::Twice;
        } else if (scriptEscape_ == ScriptEscape::Twice && UnitAt(at + 1) == u'/' &&
                   IsScriptTag(at + 2)) {
            scriptEscape_ = ScriptEscape::Once;
        }
    } else if (source_[at] == u'>' && scriptEscape_ != ScriptEscape::None &&
               source_.substr(at - 2, 2) == u"--") {
        scriptEscape_ = ScriptEscape::None; // the dashes may be those of "<!--"
    }
}

bool HtmlTokenizer::ReadScriptData() {
    if (source_[at_] == u'\0') return ReadNulls(Nulls::Replaced);
    const auto endsHere = [&] {
        return source_[at_] == u'<' && scriptEscape_ != ScriptEscape::Twice && EndTagLength() > 0;
    };
    if (endsHere()) return ReadTag(HtmlTokenKind::EndTag, at_ + 2);
    for (; !AtEnd() && source_[at_] != u'\0' && !endsHere(); ++at_)
        PassScriptUnit(at_);
    return EmitText(at_);
}
