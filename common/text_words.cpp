#include "common/text_words.h"

#include "common/text_characters.h"
#include "common/text_clusters.h"
#include "common/unicode.h"

namespace {
enum class Kind { Space, Other, Letter, Number, Ideograph };

bool IsHangulOrKatakana(char32_t character) {
    return (character >= 0x30A0 && character < 0x3100) ||
           (character >= 0x3130 && character < 0x3190) ||
           (character >= 0xAC00 && character < 0xD7A4) ||
           (character >= 0x1100 && character < 0x1200);
}

Kind KindOf(char32_t character) {
    if (character < 0x10000 && IsSpaceCharacter(char16_t(character))) return Kind::Space;
    switch (WordPartOf(character)) {
    case WordPart::Letter:
        return IsWide(character) && !IsHangulOrKatakana(character) ? Kind::Ideograph : Kind::Letter;
    case WordPart::Number: return Kind::Number;
    case WordPart::Mark:
    case WordPart::None: break;
    }
    return character == u'_' ? Kind::Letter : Kind::Other;
}

struct Cluster {
    TextPos start = 0;
    char32_t character = 0; // the first
    Kind kind = Kind::Other;
};

bool IsOfWord(const Cluster& cluster) {
    return cluster.kind == Kind::Letter || cluster.kind == Kind::Number;
}

// "don't", "3.14": a sign between two letters or two digits is part of the word.
bool IsWithinWord(const Cluster& before, const Cluster& cluster, const Cluster& after) {
    if (before.kind != after.kind || !IsOfWord(before)) return false;
    const char32_t sign = cluster.character;
    if (sign == u'\'' || sign == 0x2019 || sign == u'.') return true;
    if (before.kind == Kind::Letter) return sign == u':' || sign == 0xB7;
    return sign == u',' || sign == u';';
}

std::vector<Cluster> ClustersOf(std::u16string_view text) {
    std::vector<Cluster> clusters;
    const std::vector<TextPos> starts = ClusterStarts(text);
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        const char32_t first = FirstCharacter(text.substr(std::size_t(starts[i]), 2));
        const bool isPartOfBefore = i > 0 && IsMarkOrFormat(first) && text[starts[i] - 1] != u'\n';
        if (!isPartOfBefore) clusters.push_back({starts[i], first, KindOf(first)});
    }
    for (std::size_t i = 1; i + 1 < clusters.size(); ++i)
        if (clusters[i].kind == Kind::Other &&
            IsWithinWord(clusters[i - 1], clusters[i], clusters[i + 1]))
            clusters[i].kind = clusters[i - 1].kind;
    return clusters;
}

bool IsOneWord(const Cluster& before, const Cluster& cluster) {
    if (IsOfWord(before) && IsOfWord(cluster)) return true;
    return before.kind == Kind::Space && cluster.kind == Kind::Space;
}
} // namespace

std::vector<TextPos> WordBoundaries(std::u16string_view text) {
    const std::vector<Cluster> clusters = ClustersOf(text);
    std::vector<TextPos> boundaries;
    for (std::size_t i = 0; i < clusters.size(); ++i)
        if (i == 0 || !IsOneWord(clusters[i - 1], clusters[i]))
            boundaries.push_back(clusters[i].start);
    boundaries.push_back(TextPos(text.size()));
    return boundaries;
}

std::vector<TextPos> WordStarts(std::u16string_view text) {
    const std::vector<Cluster> clusters = ClustersOf(text);
    std::vector<TextPos> starts;
    for (std::size_t i = 0; i < clusters.size(); ++i) {
        if (clusters[i].kind == Kind::Space) continue;
        const bool inPunctuation =
            i > 0 && clusters[i].kind == Kind::Other && clusters[i - 1].kind == Kind::Other;
        if (i == 0 || (!inPunctuation && !IsOneWord(clusters[i - 1], clusters[i])))
            starts.push_back(clusters[i].start);
    }
    return starts;
}
