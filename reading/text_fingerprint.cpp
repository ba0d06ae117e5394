#include "reading/text_fingerprint.h"

#include "common/text.h"

#include <algorithm>
#include <bit>

namespace {
// Whatever the pieces are that the units come in, four of them make a step.
class UnitHash {
  public:
    void Add(std::u16string_view units) {
        for (; !units.empty() && count_ % 4 != 0; units.remove_prefix(1))
            AddUnit(units.front());
        for (; units.size() >= 4; units.remove_prefix(4)) {
            Step(std::uint64_t{units[0]} | std::uint64_t{units[1]} << 16 |
                 std::uint64_t{units[2]} << 32 | std::uint64_t{units[3]} << 48);
            count_ += 4;
        }
        for (; !units.empty(); units.remove_prefix(1))
            AddUnit(units.front());
    }

    std::uint64_t Value() const {
        std::uint64_t value = state_ ^ partial_ ^ count_;
        for (int i = 0; i < 2; ++i)
            value = (value ^ value >> 32) * factor;
        return value ^ value >> 29;
    }

  private:
    static constexpr std::uint64_t factor = 0x9FB21C651E98DF25u;

    void AddUnit(char16_t unit) {
        partial_ |= std::uint64_t{unit} << 16 * (count_ % 4);
        if (++count_ % 4 != 0) return;
        Step(partial_);
        partial_ = 0;
    }
    void Step(std::uint64_t units) { state_ = std::rotl((state_ ^ units) * factor, 29); }

    std::uint64_t state_ = 0, partial_ = 0, count_ = 0;
};

void AddRange(UnitHash& hash, const TextSource& text, TextPos start, TextPos end) {
    while (start < end) {
        const TextPiece piece = text.PieceAt(start);
        const TextPos to = std::min(end, piece.End());
        hash.Add(piece.units.substr(static_cast<std::size_t>(start - piece.start),
                                    static_cast<std::size_t>(to - start)));
        start = to;
    }
}
} // namespace

TextFingerprint FingerprintOf(const TextSource& text) {
    constexpr TextPos stretches = 64, stretch = 8 << 10; // the last one ends with the text
    const TextPos length = text.Length();
    UnitHash hash;
    if (length <= maxHashed) {
        AddRange(hash, text, 0, length);
        return {length, hash.Value()};
    }
    for (std::int64_t i = 0; i < stretches; ++i) {
        const auto start = static_cast<TextPos>((length - stretch) * i / (stretches - 1));
        AddRange(hash, text, start, start + stretch);
    }
    return {length, hash.Value()};
}

std::u16string StoredFingerprint(const TextFingerprint& fingerprint) {
    std::u16string stored = NumberText(fingerprint.length) + u',';
    for (int shift = 60; shift >= 0; shift -= 4)
        stored += u"0123456789abcdef"[fingerprint.hash >> shift & 15];
    return stored;
}

std::optional<TextFingerprint> ParseFingerprint(std::u16string_view stored) {
    const auto parts = Split(stored, u",");
    if (parts.size() != 2 || parts[1].size() != 16) return std::nullopt;
    TextFingerprint fingerprint{WholeNumber(parts[0]), 0};
    for (const char16_t digit : parts[1]) {
        const bool decimal = digit >= u'0' && digit <= u'9';
        if (!decimal && (digit < u'a' || digit > u'f')) return std::nullopt;
        const int value = decimal ? digit - u'0' : digit - u'a' + 10;
        fingerprint.hash = fingerprint.hash << 4 | static_cast<std::uint64_t>(value);
    }
    return fingerprint;
}
