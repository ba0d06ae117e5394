#include "formats/codepages/escaped_text.h"

#include "formats/codepages/double_byte_pages.h"

#include <algorithm>
#include <iterator>

namespace {
// What bytes from 0x21 to 0x7E are, after a sequence.
enum class Set { Ascii, Roman, Katakana, Jis0208, Jis0212, Gb2312, Ksc5601, Cns1, Cns2, None };

struct Sequence {
    std::string_view bytes;
    Set set;
    bool shifted; // for what stands after a shift-out
};

using namespace std::string_view_literals;

// RFC 1468, 1554, 1557, 1922.
constexpr Sequence sequences[] = {
    {"\x1B(B"sv, Set::Ascii, false},    {"\x1B(J"sv, Set::Roman, false},
    {"\x1B(I"sv, Set::Katakana, false}, {"\x1B$@"sv, Set::Jis0208, false},
    {"\x1B$B"sv, Set::Jis0208, false},  {"\x1B$(D"sv, Set::Jis0212, false},
    {"\x1B$A"sv, Set::Gb2312, false},   {"\x1B$(C"sv, Set::Ksc5601, false},
    {"\x1B$)C"sv, Set::Ksc5601, true},  {"\x1B$)A"sv, Set::Gb2312, true},
    {"\x1B$)G"sv, Set::Cns1, true},     {"\x1B$*H"sv, Set::Cns2, true},
};
constexpr char shiftOut = '\x0E', shiftIn = '\x0F';
constexpr std::string_view singleShift = "\x1BN"; // one pair of CNS plane 2

const Sequence* SequenceAt(std::string_view bytes) {
    const auto* const found = std::ranges::find_if(
        sequences, [=](const Sequence& each) { return bytes.starts_with(each.bytes); });
    return found == std::end(sequences) ? nullptr : found;
}

bool IsGraphic(char byte) {
    return byte > 0x20 && byte < 0x7F;
}

char High(char byte) {
    return static_cast<char>(static_cast<unsigned char>(byte) | 0x80);
}

void AppendPair(Set set, char first, char second, std::u16string& text) {
    std::string bytes;
    int page = 0;
    switch (set) {
    case Set::Jis0208: page = 51932; break;
    case Set::Jis0212: page = 51932, bytes = "\x8F"; break;
    case Set::Gb2312: page = 936; break;
    case Set::Ksc5601: page = 949; break;
    case Set::Cns1: page = 51950; break;
    case Set::Cns2: page = 51950, bytes = "\x8E\xA2"; break;
    default: text += u'\uFFFD'; return;
    }
    bytes += {High(first), High(second)};
    DecodeDoubleBytes(*FindDoubleBytePage(page), bytes, text);
}

void AppendSingle(Set set, char byte, std::u16string& text) {
    if (set == Set::Katakana && byte >= 0x21 && byte < 0x60)
        text += static_cast<char16_t>(0xFF40 + byte);
    else if (set == Set::Roman && byte == '\\')
        text += u'\u00A5';
    else if (set == Set::Roman && byte == '~')
        text += u'\u203E';
    else if (static_cast<unsigned char>(byte) >= 0x80)
        text += u'\uFFFD';
    else
        text += static_cast<char16_t>(byte);
}

bool IsSingle(Set set) {
    return set == Set::Ascii || set == Set::Roman || set == Set::Katakana;
}

class Reader {
  public:
    Reader(int page, std::string_view bytes, std::u16string& text)
        : hz_(page == hzPage), shifted_(page == iso2022KrPage ? Set::Ksc5601 : Set::None),
          rest_(bytes), text_(text) {}

    void Read() {
        while (!rest_.empty())
            if (hz_ ? !ReadHzSequence() : !ReadEscapeSequence()) ReadCharacter();
    }

  private:
    void Drop(std::size_t count) { rest_.remove_prefix(count); }

    bool ReadEscapeSequence() {
        if (const Sequence* const sequence = SequenceAt(rest_)) {
            if (sequence->set == Set::Cns2) {
            } else if (sequence->shifted) {
                shifted_ = sequence->set;
            } else {
                set_ = sequence->set;
            }
            Drop(sequence->bytes.size());
            return true;
        }
        if (rest_.starts_with(singleShift) && rest_.size() >= 4) {
            AppendPair(Set::Cns2, rest_[2], rest_[3], text_);
            Drop(4);
            return true;
        }
        if (rest_[0] != shiftOut && rest_[0] != shiftIn) return false;
        out_ = rest_[0] == shiftOut;
        Drop(1);
        return true;
    }

    bool ReadHzSequence() {
        if (rest_[0] != '~' || rest_.size() < 2) return false;
        const char second = rest_[1];
        if (second != '{' && second != '}' && second != '~' && second != '\n') return false;
        if (second == '{') set_ = Set::Gb2312;
        if (second == '}') set_ = Set::Ascii;
        if (second == '~' && set_ != Set::Ascii) return false;
        if (second == '~') text_ += u'~';
        Drop(2);
        return true;
    }

    void ReadCharacter() {
        const Set set = out_ ? shifted_ : set_;
        if (rest_[0] == '\n') set_ = Set::Ascii, out_ = false; // each line begins again
        if (IsSingle(set) || !IsGraphic(rest_[0])) {
            AppendSingle(IsSingle(set) ? set : Set::Ascii, rest_[0], text_);
            Drop(1);
        } else if (rest_.size() < 2 || !IsGraphic(rest_[1])) {
            text_ += u'\uFFFD';
            Drop(1);
        } else {
            AppendPair(set, rest_[0], rest_[1], text_);
            Drop(2);
        }
    }

    bool hz_;
    Set set_ = Set::Ascii, shifted_;
    bool out_ = false;
    std::string_view rest_;
    std::u16string& text_;
};

// By the first sequence that only one of them has.
std::optional<int> PageOfSequences(std::string_view text) {
    for (std::size_t at = text.find('\x1B'); at != text.npos; at = text.find('\x1B', at + 1)) {
        const Sequence* const sequence = SequenceAt(text.substr(at));
        if (!sequence || sequence->set == Set::Ascii) continue;
        if (!sequence->shifted) return iso2022JpPage;
        return sequence->set == Set::Ksc5601 ? iso2022KrPage : iso2022CnPage;
    }
    return std::nullopt;
}

// Pairs between "~{" and "~}" on one line, and no other tilde but a doubled one.
bool LooksLikeHz(std::string_view text) {
    std::size_t pairs = 0;
    for (std::size_t at = text.find('~'); at != text.npos; at = text.find('~', at)) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("~~") || rest.starts_with("~\n")) {
            at += 2;
        } else if (rest.starts_with("~{")) {
            const std::size_t end = rest.find("~}");
            if (end == rest.npos) return pairs > 0; // cut
            const std::string_view inside = rest.substr(2, end - 2);
            if (inside.size() % 2 != 0 || !std::ranges::all_of(inside, IsGraphic)) return false;
            pairs += inside.size() / 2;
            at += end + 2;
        } else {
            return false;
        }
    }
    return pairs > 0;
}

bool ReadsWell(int page, std::string_view start) {
    const auto line = start.rfind('\n');
    std::u16string text;
    DecodeEscaped(page, line == start.npos ? start : start.substr(0, line), text);
    const auto bad = std::ranges::count(text, u'\uFFFD') + std::ranges::count(text, u'\x1B');
    return static_cast<std::size_t>(bad) * 50 <= text.size();
}
} // namespace

bool IsEscapedPage(int codePage) {
    return codePage == iso2022JpPage || codePage == iso2022KrPage || codePage == iso2022CnPage ||
           codePage == hzPage;
}

std::optional<int> EscapedPage(std::string_view start) {
    const bool hz = start.find("~{") != start.npos;
    if (!hz && start.find('\x1B') == start.npos) return std::nullopt;
    const auto isHigh = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    if (std::ranges::any_of(start, isHigh)) return std::nullopt;
    std::optional<int> page = PageOfSequences(start);
    if (!page && hz && LooksLikeHz(start)) page = hzPage;
    return page && ReadsWell(*page, start) ? page : std::nullopt;
}

void DecodeEscaped(int codePage, std::string_view bytes, std::u16string& text) {
    Reader(codePage, bytes, text).Read();
}
