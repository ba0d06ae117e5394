#include "formats/rtf/rtf_tokenizer.h"

#include "common/hex_digits.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

using namespace std::string_view_literals;
using Kind = RtfToken::Kind;

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Which bytes end a stretch of text: what has a meaning, and control bytes, which have none.
constexpr auto endsText = [] {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < 0x20; ++i)
        table[i] = true;
    table['\\'] = table['{'] = table['}'] = true;
    return table;
}();

constexpr auto hexDigits = [] {
    std::array<signed char, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<signed char>(HexDigitOf(static_cast<char16_t>(i)));
    return table;
}();

RtfToken SymbolToken(char c) {
    RtfToken token;
    token.kind = Kind::Symbol;
    token.byte = static_cast<unsigned char>(c);
    return token;
}

// The data of a group whose length is wrong: up to a brace that rich text follows; all of it when
// there is none, as in a file that was cut. A file that was not ends with a brace.
std::string_view DataOfGroup(std::string_view rest) {
    constexpr std::size_t enough = 64; // bytes: data has some control byte among so many
    const auto isText = [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 || c == '\r' || c == '\n' || c == '\t';
    };
    const bool isWhole = rest.find_last_not_of(" \r\n\t\0"sv) == rest.rfind('}');
    for (std::size_t end = isWhole ? rest.find('}') : rest.npos; end != rest.npos;
         end = rest.find('}', end + 1)) {
        const std::string_view after = rest.substr(end + 1, enough);
        if (std::all_of(after.begin(), after.end(), isText)) return rest.substr(0, end);
    }
    return rest;
}

} // namespace

int HexDigit(unsigned char byte) {
    return hexDigits[byte];
}

RtfToken RtfTokenizer::Next() {
    while (at_ != end_) {
        const char c = *at_;
        if (!endsText[static_cast<unsigned char>(c)]) return ReadText();
        ++at_;
        RtfToken token;
        switch (c) {
        case '{': token.kind = Kind::GroupStart; return token;
        case '}': token.kind = Kind::GroupEnd; return token;
        case '\\': return ReadControl();
        case '\t': return SymbolToken(c);
        default: break; // line ends are layout of the file; other control bytes mean nothing
        }
    }
    return {};
}

RtfToken RtfTokenizer::ReadText() {
    const char* start = at_;
    while (at_ != end_ && !endsText[static_cast<unsigned char>(*at_)])
        ++at_;
    RtfToken token;
    token.kind = Kind::Text;
    token.text = {start, static_cast<std::size_t>(at_ - start)};
    return token;
}

RtfToken RtfTokenizer::ReadControl() {
    if (at_ == end_) return {};
    if (IsLetter(*at_)) return ReadWord();
    const char c = *at_++;
    if (c == '\'') return ReadHex();
    if (c == '\r') {
        if (at_ != end_ && *at_ == '\n') ++at_;
        return SymbolToken('\n');
    }
    return SymbolToken(c);
}

RtfToken RtfTokenizer::ReadHex() {
    RtfToken token;
    token.kind = Kind::Hex;
    for (int digits = 0; digits < 2; ++digits) {
        const int value = at_ == end_ ? -1 : HexDigit(static_cast<unsigned char>(*at_));
        if (value < 0)
            return SymbolToken('\''); // has no meaning; what follows is read as it stands
        token.byte = static_cast<unsigned char>(token.byte << 4 | value);
        ++at_;
    }
    return token;
}

RtfToken RtfTokenizer::ReadWord() {
    const char* start = at_;
    while (at_ != end_ && IsLetter(*at_))
        ++at_;
    RtfToken token;
    token.kind = Kind::Word;
    token.text = {start, static_cast<std::size_t>(at_ - start)};
    ReadParameter(token);
    if (at_ != end_ && *at_ == ' ') ++at_; // one blank belongs to the word
    if (token.text == "bin") return ReadBinary(token.parameter);
    return token;
}

void RtfTokenizer::ReadParameter(RtfToken& token) {
    const bool negative = end_ - at_ >= 2 && *at_ == '-' && IsDigit(at_[1]);
    if (negative) ++at_;
    std::int64_t value = 0;
    for (; at_ != end_ && IsDigit(*at_); ++at_) {
        token.hasParameter = true;
        value = value * 10 + (*at_ - '0');
        if (value > std::numeric_limits<std::int32_t>::max())
            value = std::numeric_limits<std::int32_t>::max();
    }
    token.parameter = static_cast<std::int32_t>(negative ? -value : value);
}

RtfToken RtfTokenizer::ReadBinary(std::int32_t length) {
    const auto left = static_cast<std::size_t>(end_ - at_);
    const auto size = length < 0 ? 0 : static_cast<std::size_t>(length);
    RtfToken token;
    token.kind = Kind::Binary;
    token.text = size <= left ? std::string_view(at_, size) : DataOfGroup({at_, left});
    at_ += token.text.size();
    return token;
}
