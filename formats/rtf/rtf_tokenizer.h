// The bytes of rich text (RTF 1.9.1) as groups, control words and text, without any meaning.
#pragma once

#include <cstdint>
#include <string_view>

struct RtfToken {
    enum class Kind : std::uint8_t {
        End,
        GroupStart,
        GroupEnd,
        Word,   // `text` is the name without its backslash
        Symbol, // `byte` follows the backslash; a line end is '\n'; a bare tab comes as '\t', too
        Text,   // `text` has no control bytes, braces and backslashes
        Hex,    // `byte` is the value of \'hh
        Binary, // `text` is the data of \bin
    };
    Kind kind = Kind::End;
    bool hasParameter = false;
    unsigned char byte = 0;
    std::int32_t parameter = 0; // kept in 32 bits
    std::string_view text;
};

// Views into the bytes given; they must outlive it.
class RtfTokenizer {
  public:
    explicit RtfTokenizer(std::string_view bytes)
        : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}
    RtfToken Next();

  private:
    RtfToken ReadText();
    RtfToken ReadControl();
    RtfToken ReadWord();
    RtfToken ReadHex();
    RtfToken ReadBinary(std::int32_t length);
    void ReadParameter(RtfToken& token);

    const char* at_;
    const char* end_;
};

// `HexDigitOf` by a table: pictures have millions of digits.
int HexDigit(unsigned char byte);
