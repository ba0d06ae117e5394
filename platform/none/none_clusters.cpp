#include "platform/none/none_clusters.h"

#include "common/text_characters.h"
#include "common/text_clusters.h"
#include "common/text_words.h"
#include "common/unicode.h"

#include <algorithm>

namespace {
using Kind = NoneCluster::Kind;

constexpr char16_t objectReplacement = u'\uFFFC', softHyphen = 0xAD;

std::u16string TextWithBoxes(const ParagraphText& paragraph) {
    std::u16string text = paragraph.text;
    for (const InlineBox& box : paragraph.boxes)
        text[std::size_t(box.at)] = objectReplacement;
    return text;
}

// Nothing joins a box.
std::vector<TextPos> StartsWithBoxes(const ParagraphText& paragraph, std::u16string_view text) {
    std::vector<TextPos> starts = ClusterStarts(text);
    for (const InlineBox& box : paragraph.boxes) {
        starts.push_back(box.at);
        starts.push_back(box.at + 1);
    }
    std::sort(starts.begin(), starts.end());
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());
    return starts;
}

Kind KindOf(char16_t unit) {
    if (unit == u'\t') return Kind::Tab;
    if (unit == u'\u2028') return Kind::Break;
    if (unit == softHyphen) return Kind::SoftHyphen;
    return IsBreakingSpace(unit) ? Kind::Space : Kind::Visible;
}

bool IsWordSpace(char16_t unit) {
    return unit == u' ' || unit == u'\u00A0';
}

double Spacing(char16_t first, const TextStyle& style) {
    return style.letterSpacing + (IsWordSpace(first) ? style.wordSpacing : 0);
}

// That of its first character with a width: of syllables and joined pictographs the first one's.
double WidthOf(std::u16string_view cluster, const NoneStyle& style) {
    double width = 0;
    ForEachCharacter(cluster, [&](TextPos, char32_t character) {
        if (width > 0 || IsControlCode(character) || IsMarkOrFormat(character)) return;
        width = style.CharacterWidth() * (IsWide(character) ? 2 : 1);
    });
    return width > 0 ? std::max(0.0, width + Spacing(cluster.front(), style.Style())) : 0;
}

NoneCluster Shape(std::u16string_view cluster, TextPos start, const NoneStyle& style) {
    NoneCluster shaped;
    shaped.kind = KindOf(cluster.front());
    shaped.start = start;
    shaped.style = &style;
    if (shaped.kind != Kind::Tab && shaped.kind != Kind::Break)
        shaped.width = WidthOf(cluster, style);
    return shaped;
}

bool IsJoined(std::u16string_view text, TextPos at) {
    constexpr char16_t wordJoiner = u'\u2060';
    return text[std::size_t(at)] == wordJoiner ||
           (at > 0 && text[std::size_t(at) - 1] == wordJoiner);
}

void PlaceBoxes(const ParagraphText& paragraph, NoneClusters& clusters) {
    for (const InlineBox& box : paragraph.boxes) {
        const std::size_t index = clusters.IndexAt(box.at);
        clusters.all[index].kind = Kind::Box;
        clusters.all[index].width = box.width;
        clusters.all[index].mayBreak = !IsJoined(clusters.text, box.at);
        if (index + 1 == clusters.Count() || IsJoined(clusters.text, box.at + 1)) continue;
        NoneCluster& after = clusters.all[index + 1];
        if (after.kind != Kind::Space && after.kind != Kind::Break) after.mayBreak = true;
    }
}
} // namespace

std::size_t NoneClusters::IndexAt(TextPos position) const {
    if (position >= TextPos(text.size())) return all.size();
    const auto after =
        std::upper_bound(all.begin(), all.end(), position,
                         [](TextPos at, const NoneCluster& each) { return at < each.start; });
    return after == all.begin() ? 0 : std::size_t(after - all.begin() - 1);
}

NoneClusters ShapeClusters(const ParagraphText& paragraph) {
    NoneClusters clusters;
    clusters.text = TextWithBoxes(paragraph);
    clusters.levels = BidiLevels(clusters.text, paragraph.rightToLeft);
    const std::u16string_view text = clusters.text;
    const std::vector<TextPos> starts = StartsWithBoxes(paragraph, text);
    const std::vector<bool> breaks = LineBreaks(text);
    std::size_t run = 0;
    for (std::size_t i = 0; i + 1 < starts.size(); ++i) {
        while (run + 1 < paragraph.runs.size() && paragraph.runs[run + 1].start <= starts[i])
            ++run;
        const auto& style = static_cast<const NoneStyle&>(*paragraph.runs[run].style);
        const auto start = std::size_t(starts[i]), length = std::size_t(starts[i + 1]) - start;
        clusters.all.push_back(Shape(text.substr(start, length), starts[i], style));
        clusters.all.back().mayBreak = breaks[start] || clusters.all.back().kind == Kind::Tab;
    }
    PlaceBoxes(paragraph, clusters);
    return clusters;
}
