#include "common/profile_text.h"

#include "common/text.h"
#include "common/utf.h"

#include <algorithm>

LineWalk::LineWalk(std::string_view text, std::size_t begin, std::size_t end)
    : text_(text.substr(0, end)), next_(begin), lf_(text_.find('\n', begin)),
      cr_(text_.find('\r', begin)) {}

bool LineWalk::Next() {
    if (next_ >= text_.size()) return false;
    begin_ = next_;
    if (lf_ < begin_) lf_ = text_.find('\n', begin_);
    if (cr_ < begin_) cr_ = text_.find('\r', begin_);
    end_ = std::min({lf_, cr_, text_.size()});
    const bool crLf = cr_ == end_ && lf_ == end_ + 1;
    next_ = std::min(end_ + (crLf ? 2 : 1), text_.size());
    return true;
}

std::string_view HeaderName(std::string_view header) {
    header.remove_prefix(1);
    return Trim(header.substr(0, header.find(']')));
}

std::string_view WithoutQuotes(std::string_view text) {
    if (text.size() < 2 || text.front() != text.back()) return text;
    if (text.front() != '"' && text.front() != '\'') return text;
    return text.substr(1, text.size() - 2);
}

std::u16string FoldedName(std::string_view name) {
    std::u16string folded = Utf8ToUtf16(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
    return folded;
}

bool NameIs(std::string_view name, std::u16string_view foldedName) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < foldedName.size(); ++i) {
        if (at == name.size()) return false;
        const char32_t codePoint = NextUtf8Character(name, at);
        if (codePoint < 0x10000) {
            if (FoldCase(static_cast<char16_t>(codePoint)) != foldedName[i]) return false;
            continue;
        }
        if (foldedName[i] != HighSurrogateOf(codePoint)) return false;
        if (++i == foldedName.size() || foldedName[i] != LowSurrogateOf(codePoint)) return false;
    }
    return at == name.size();
}

std::u16string OnOneLine(std::u16string_view text) {
    std::u16string line(text);
    for (char16_t& unit : line) {
        if (unit == u'\r' || unit == u'\n' || unit == u'\0') unit = u' ';
    }
    return line;
}

std::string SectionNameOnDisk(std::u16string_view name) {
    std::u16string onDisk = OnOneLine(Trim(name));
    std::replace(onDisk.begin(), onDisk.end(), u']', u'}');
    return Utf16ToUtf8(onDisk);
}

std::string KeyOnDisk(std::u16string_view key) {
    const std::u16string_view trimmed = Trim(key);
    if (trimmed.empty() || trimmed.front() == u';' || trimmed.front() == u'[') return {};
    if (trimmed.find(u'=') != std::u16string_view::npos) return {};
    return Utf16ToUtf8(OnOneLine(trimmed));
}
