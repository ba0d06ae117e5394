#include "reading/letter_seeds.h"

#include <algorithm>
#include <bit>

namespace {
constexpr std::uint32_t base = 0x01000193;
constexpr std::size_t ringSize = 16;
constexpr int presentBits = 20;
constexpr int maxHits = 64; // of one seed: more tell nothing
constexpr TextPos unitsPerQuestion = 1 << 20;

std::uint32_t Mixed(std::uint32_t hash) {
    return hash * 0x9E3779B1u;
}
} // namespace

LetterSeeds::LetterSeeds(std::size_t length)
    : length_(std::min(length, ringSize)), present_((std::size_t{1} << presentBits) / 64) {
    for (std::size_t i = 0; i < length_; ++i)
        lastPower_ *= base;
}

void LetterSeeds::Add(std::u16string_view letters, LetterSeed seed) {
    std::uint32_t hash = 0;
    for (const char16_t letter : letters)
        hash = hash * base + letter;
    entries_.push_back({hash, seed});
    const std::uint32_t bit = Mixed(hash) >> (32 - presentBits);
    present_[bit / 64] |= std::uint64_t{1} << bit % 64;
}

void LetterSeeds::MakeSlots() {
    slots_.assign(std::bit_ceil(entries_.size() * 2 + 1), -1);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        std::int32_t& slot = slots_[Mixed(entries_[i].hash) & (slots_.size() - 1)];
        entries_[i].next = slot;
        slot = static_cast<std::int32_t>(i);
    }
}

void LetterSeeds::Note(std::uint32_t hash, std::int64_t letter, TextPos end,
                       std::vector<SeedHit>& hits) {
    for (std::int32_t i = slots_[Mixed(hash) & (slots_.size() - 1)]; i >= 0;) {
        Entry& entry = entries_[static_cast<std::size_t>(i)];
        i = entry.next;
        if (entry.hash == hash && ++entry.hits <= maxHits)
            hits.push_back({entry.seed, letter, end});
    }
}

std::vector<SeedHit> LetterSeeds::FindIn(const TextSource& text,
                                         const std::function<bool()>& shouldContinue) {
    MakeSlots();
    const LetterTable& table = LettersOfUnits();
    std::vector<SeedHit> hits;
    std::array<char16_t, ringSize> ring{};
    std::int64_t letters = 0;
    std::uint32_t hash = 0;
    TextPos nextQuestion = 0;
    for (TextPos at = 0; at < text.Length();) {
        if (at >= nextQuestion) {
            if (!shouldContinue()) return {};
            nextQuestion = at + unitsPerQuestion;
        }
        const TextPiece piece = text.PieceAt(at);
        for (std::size_t i = static_cast<std::size_t>(at - piece.start); i < piece.units.size();
             ++i) {
            const char16_t letter = table[piece.units[i]];
            if (letter == 0) continue;
            // The ring begins with zeros, so that the first letters push out nothing.
            const auto leaving = static_cast<std::size_t>(letters) + ringSize - length_;
            hash = hash * base + letter - lastPower_ * ring[leaving % ringSize];
            ring[static_cast<std::size_t>(letters) % ringSize] = letter;
            ++letters;
            const std::uint32_t bit = Mixed(hash) >> (32 - presentBits);
            if ((present_[bit / 64] >> bit % 64 & 1) == 0) continue;
            const auto first = letters - static_cast<std::int64_t>(length_);
            if (first >= 0) Note(hash, first, piece.start + static_cast<TextPos>(i) + 1, hits);
        }
        at = piece.End();
    }
    return hits;
}
