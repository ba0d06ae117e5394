#include "view/layout_cost.h"

#include "common/text_characters.h"
#include "common/unicode.h"
#include "common/utf.h"
#include "view/capitals.h"
#include "view/style_runs.h"

#include <algorithm>

namespace {
constexpr TextPos maxWordLength = 512; // units without a line break opportunity

bool IsExtender(char32_t character) {
    if (character >= u' ' && character < 0x7F) return false;
    if (IsMarkOrFormat(character)) return true;
    if (IsControlCode(character)) return character != u'\t' && character != u'\v';
    const bool jamo = (character >= 0x1160 && character < 0x1200) ||
                      (character >= 0xD7B0 && character < 0xD800); // vowels and finals
    return jamo || (character >= 0x1F3FB && character <= 0x1F3FF); // skin tones
}

bool IsLeadingJamo(char32_t character) {
    return (character >= 0x1100 && character < 0x1160) ||
           (character >= 0xA960 && character < 0xA980);
}

bool JoinsNext(char32_t character) {
    return character == 0x200D || IsLeadingJamo(character) || IsVirama(character);
}

bool HasNoFont(char32_t character) {
    return character >= 0x300 && IsUnassignedOrPrivate(character);
}

// Replaces a unit that is not shaped: zero width, and nothing combines with it. A surrogate pair is
// replaced by a pair, so that there is no caret position within it.
constexpr char16_t omittedUnit = u'\u200B';
constexpr char16_t omittedPair[] = u"\U000E0001";

bool IsDirectionControl(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

// In scripts that separate words by spaces; others may break anywhere.
bool IsLetterOfWord(char32_t character) {
    return character > u' ' && character < 0x0900 && character != u'-' && character != 0xAD;
}

// Counts the costly units of a text.
class UnitCounter {
  public:
    void Add(char16_t unit) {
        if (IsHighSurrogate(unit)) {
            high_ = unit;
        } else if (IsLowSurrogate(unit) && high_ != 0) {
            AddCharacter(0x10000 + (char32_t(high_ & 0x3FF) << 10 | (unit & 0x3FF)), 2);
            high_ = 0;
        } else {
            AddCharacter(unit, 1);
        }
    }
    TextPos Costly() const { return costly_; }

  private:
    void AddCharacter(char32_t character, TextPos units) {
        wordLength_ = IsLetterOfWord(character) ? wordLength_ + units : 0;
        const bool isDeepInCluster = cluster_.Add(character) >= maxClusterLength;
        // Font fallback tries one font after the other.
        const bool rare = units > 1 || HasNoFont(character);
        const bool startsRun = character == u'\t' || IsDirectionControl(character);
        if (isDeepInCluster || rare || startsRun || wordLength_ > maxWordLength) costly_ += units;
    }

    ClusterLength cluster_;
    TextPos wordLength_ = 0, costly_ = 0;
    char16_t high_ = 0;
};

TextPos CostlyInText(const TextSource& text, TextPos start, TextPos end) {
    UnitCounter counter;
    while (start < end) {
        const TextPiece piece = text.PieceAt(start);
        const TextPos to = std::min(end, piece.End());
        for (TextPos at = start; at < to; ++at)
            counter.Add(piece.units[static_cast<std::size_t>(at - piece.start)]);
        start = to;
    }
    return counter.Costly();
}

template <class Items, class Position>
TextPos CountBetween(const Items& items, TextPos start, TextPos end, Position position) {
    const auto before = [&](const auto& item, TextPos at) { return position(item) < at; };
    const auto first = std::lower_bound(items.begin(), items.end(), start, before);
    return TextPos(std::lower_bound(first, items.end(), end, before) - first);
}

TextPos CapitalChanges(const TextSource& text, TextPos start, TextPos end) {
    TextPos changes = 0;
    const std::u16string units = text.Range(start, end);
    for (std::size_t i = 1; i < units.size(); ++i)
        changes += HasCapital(units[i]) != HasCapital(units[i - 1]);
    return changes;
}

// Each change of size within small capitals starts a new run.
TextPos CostlyInCapitals(const TextSource& text, const Document& document, TextPos start,
                         TextPos end) {
    TextPos changes = 0;
    const auto& runs = document.charRuns;
    for (std::size_t i = RunAt(runs, start); i < runs.size() && runs[i].start < end; ++i) {
        const auto style = std::min<std::size_t>(runs[i].style, document.charStyles.size() - 1);
        if (document.charStyles[style].capitals != Capitals::Small) continue;
        const TextPos runEnd = i + 1 < runs.size() ? std::min(end, runs[i + 1].start) : end;
        changes += CapitalChanges(text, std::max(start, runs[i].start), runEnd);
    }
    return changes;
}
} // namespace

int ClusterLength::Add(char32_t character) {
    const bool extends = joinsNext_ || IsExtender(character);
    joinsNext_ = character >= 0x300 && JoinsNext(character);
    const int before = extends ? units_ : 0;
    units_ = before + (character > 0xFFFF ? 2 : 1);
    return before;
}

void TruncateClusters(std::u16string& text) {
    ClusterLength cluster;
    for (std::size_t at = 0, next = 0; at < text.size(); at = next) {
        const char32_t character = FirstCharacter(std::u16string_view(text).substr(at, 2));
        const bool pair = character > 0xFFFF;
        next = at + (pair ? 2 : 1);
        if (cluster.Add(character) < maxClusterLength) continue;
        if (IsDirectionControl(character)) continue; // keeps pairs of them balanced
        text[at] = pair ? omittedPair[0] : omittedUnit;
        if (pair) text[at + 1] = omittedPair[1];
    }
}

TextPos CostlyUnits(const TextSource& text, const Document& document, TextPos start, TextPos end) {
    const TextPos runs =
        CountBetween(document.charRuns, start, end, [](const StyleRun& run) { return run.start; });
    const TextPos pictures = CountBetween(document.pictures, start, end,
                                          [](const Picture& picture) { return picture.position; });
    return runs + pictures + CostlyInText(text, start, end) +
           CostlyInCapitals(text, document, start, end);
}

bool IsDense(std::u16string_view piece) {
    UnitCounter counter;
    for (const char16_t unit : piece)
        counter.Add(unit);
    return 4 * counter.Costly() >= TextPos(piece.size());
}

bool IsDenseBefore(const TextSource& text, const Document& document, TextPos position) {
    return 4 * CostlyUnits(text, document, position - densePiece, position) >= densePiece;
}
