#include "common/text_sentences.h"

#include "common/find_text.h"
#include "common/text.h"
#include "common/text_characters.h"
#include "common/text_clusters.h"
#include "common/unicode.h"

namespace {
// By the annex's names: ParaSep, Sp, ATerm, STerm, SContinue.
enum class Kind {
    Break,
    Space,
    Dot,
    Terminator,
    Continuation,
    Close,
    Number,
    Lower,
    Letter,
    Other
};

bool IsOneOf(char32_t character, std::u32string_view characters) {
    return characters.find(character) != characters.npos;
}

Kind KindOfLetter(char32_t character) {
    const bool isCased = character < 0x10000;
    const char16_t unit = isCased ? char16_t(character) : u'\0';
    return isCased && FoldCase(unit) != unit ? Kind::Lower : Kind::Letter;
}

Kind KindOf(char32_t character) {
    if (IsOneOf(character, U"\n\r\v\u0085\u2028\u2029")) return Kind::Break;
    if (character < 0x10000 && IsSpaceCharacter(char16_t(character))) return Kind::Space;
    if (IsOneOf(character, U".\u2024\uFE52\uFF0E")) return Kind::Dot;
    if (IsOneOf(character, U"!?\u0589\u061F\u06D4\u0964\u0965\u203C\u203D\u2047\u2048\u2049\u3002"
                           U"\uFF01\uFF1F\uFF61"))
        return Kind::Terminator;
    if (IsOneOf(character, U",-:\u055D\u060C\u2013\u2014\u3001\uFF0C\uFF0D\uFF1A\uFF64"))
        return Kind::Continuation;
    if (IsOneOf(character, U"\"'\u00AB\u00BB") || IsOpening(character) || IsClosing(character))
        return Kind::Close;
    switch (WordPartOf(character)) {
    case WordPart::Number: return Kind::Number;
    case WordPart::Letter: return KindOfLetter(character);
    case WordPart::Mark:
    case WordPart::None: break;
    }
    return Kind::Other;
}

struct Cluster {
    TextPos start = 0;
    char32_t character = 0; // the first
    Kind kind = Kind::Other;
};

bool IsTerminator(Kind kind) {
    return kind == Kind::Dot || kind == Kind::Terminator;
}

bool IsCapital(char32_t character) {
    if (WordPartOf(character) != WordPart::Letter || character >= 0x10000) return false;
    const std::vector<char16_t> forms = CaseForms(char16_t(character));
    return forms.size() > 1 && forms.front() == character;
}

class Sentences {
  public:
    explicit Sentences(std::u16string_view text) {
        const std::vector<TextPos> starts = ClusterStarts(text);
        for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
            const char32_t first = FirstCharacter(text.substr(std::size_t(starts[i]), 2));
            const bool isPartOfBefore =
                !clusters_.empty() && IsMarkOrFormat(first) && clusters_.back().kind != Kind::Break;
            if (!isPartOfBefore) clusters_.push_back({starts[i], first, KindOf(first)});
        }
    }

    std::vector<TextPos> Starts(TextPos length) const {
        std::vector<TextPos> starts{0};
        for (std::size_t at = 0; at < clusters_.size();) {
            const std::size_t next = Next(at);
            const bool ends = next > at && next < clusters_.size();
            if (ends) starts.push_back(clusters_[next].start);
            at = next > at ? next : at + 1;
        }
        if (length > 0) starts.push_back(length);
        return starts;
    }

  private:
    Kind KindAt(std::size_t at) const {
        return at < clusters_.size() ? clusters_[at].kind : Kind::Break;
    }

    // Where the next sentence starts if one ends with the cluster, else the cluster itself.
    std::size_t Next(std::size_t at) const {
        if (KindAt(at) == Kind::Break) return at + 1;
        if (!IsTerminator(KindAt(at))) return at;
        const bool isDot = KindAt(at) == Kind::Dot;
        if (isDot && IsWithinWord(at)) return at;
        std::size_t after = at + 1;
        while (KindAt(after) == Kind::Close)
            ++after;
        while (KindAt(after) == Kind::Space)
            ++after;
        if (after >= clusters_.size()) return at;
        if (KindAt(after) == Kind::Break) return after + 1;
        const bool continues = KindAt(after) == Kind::Continuation || IsTerminator(KindAt(after)) ||
                               (isDot && LowerFollows(after));
        return continues ? at : after;
    }

    // "3.14", "U.S."
    bool IsWithinWord(std::size_t dot) const {
        if (KindAt(dot + 1) == Kind::Number) return true;
        if (dot == 0 || dot + 1 >= clusters_.size()) return false;
        const Cluster& before = clusters_[dot - 1];
        return (before.kind == Kind::Lower || IsCapital(before.character)) &&
               IsCapital(clusters_[dot + 1].character);
    }

    bool LowerFollows(std::size_t at) const {
        while (at < clusters_.size()) {
            switch (clusters_[at].kind) {
            case Kind::Lower: return true;
            case Kind::Letter:
            case Kind::Break:
            case Kind::Dot:
            case Kind::Terminator: return false;
            default: ++at;
            }
        }
        return false;
    }

    std::vector<Cluster> clusters_;
};
} // namespace

std::vector<TextPos> SentenceStarts(std::u16string_view text) {
    return Sentences(text).Starts(TextPos(text.size()));
}
