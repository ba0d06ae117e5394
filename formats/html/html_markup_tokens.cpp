// What begins with "<": tags, comments, declarations.
#include "formats/html/html_tokenizer.h"
#include "formats/html/html_units.h"

#include <algorithm>

// False without moving for a "<" that is text.
bool HtmlTokenizer::ReadMarkup() {
    const char16_t next = UnitAt(at_ + 1);
    if (IsAsciiLetter(next)) return ReadTag(HtmlTokenKind::StartTag, at_ + 1);
    if (next == u'!') return ReadDeclaration();
    if (next == u'?') return ReadBogusComment(at_ + 1);
    if (next != u'/' || at_ + 2 >= source_.size()) return false;
    if (IsAsciiLetter(source_[at_ + 2])) return ReadTag(HtmlTokenKind::EndTag, at_ + 2);
    if (source_[at_ + 2] != u'>') return ReadBogusComment(at_ + 2);
    at_ += 3; // "</>" is nothing
    return false;
}

bool HtmlTokenizer::ReadDeclaration() {
    const std::u16string_view rest = source_.substr(at_ + 2);
    if (rest.starts_with(u"--")) return ReadComment();
    if (EqualsAsciiLower(rest.substr(0, 7), u"doctype")) return ReadDoctype();
    if (!allowsCData_ || !rest.starts_with(u"[CDATA[")) return ReadBogusComment(at_ + 2);
    at_ += 9;
    content_ = HtmlContent::CData;
    return false;
}

bool HtmlTokenizer::EmitComment(std::size_t begin, std::size_t end, std::size_t next) {
    token_.text = WithoutNulls(Between(begin, end));
    at_ = next;
    return Emit(HtmlTokenKind::Comment);
}

bool HtmlTokenizer::ReadBogusComment(std::size_t begin) {
    const std::size_t end = std::min(source_.find(u'>', begin), source_.size());
    return EmitComment(begin, end, std::min(end + 1, source_.size()));
}

// Ends with "-->", as people write also "--!>"; at the end of the file with what there is of it.
bool HtmlTokenizer::ReadComment() {
    const std::size_t begin = at_ + 4;
    for (const std::u16string_view empty : {u">", u"->"})
        if (source_.substr(begin, empty.size()) == empty)
            return EmitComment(begin, begin, begin + empty.size());

    std::size_t end = begin;
    for (; (end = source_.find(u"--", end)) != source_.npos; ++end) {
        if (UnitAt(end + 2) == u'>') return EmitComment(begin, end, end + 3);
        if (UnitAt(end + 2) == u'!' && UnitAt(end + 3) == u'>')
            return EmitComment(begin, end, end + 4);
    }
    std::u16string_view rest = source_.substr(begin);
    for (const std::u16string_view part : {u"--!", u"--", u"-"})
        if (rest.ends_with(part)) {
            rest.remove_suffix(part.size());
            break;
        }
    return EmitComment(begin, begin + rest.size(), source_.size());
}
