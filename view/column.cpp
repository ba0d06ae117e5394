#include "view/column.h"

#include "common/unicode.h"
#include "formats/plain/flowing_lines.h"
#include "view/paragraph_shape.h"
#include "view/style_runs.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {
// Letters and spaces about as often as in a book.
constexpr std::u16string_view sample =
    u"He laid the book aside, went to the window and looked for a long time at the rain";
constexpr int wideLine = 1 << 24; // pixels

constexpr std::size_t maxRuns = 4096; // looked at for the font of most of a text

// Rows farther apart are never on one screen.
constexpr std::ptrdiff_t maxRowsAround = 256;

// A place in the style of most of the text's beginning.
TextPos UsualStylePosition(const LayoutContext& context) {
    const auto& runs = context.document.charRuns;
    struct Use {
        TextPos length = 0, first = 0;
    };
    std::map<std::uint32_t, Use> uses;
    const Use* longest = nullptr;
    for (std::size_t i = 0; i < std::min(runs.size(), maxRuns); ++i) {
        const TextPos end = i + 1 < runs.size() ? runs[i + 1].start : context.text->Length();
        Use& use = uses.try_emplace(runs[i].style, Use{0, runs[i].start}).first->second;
        use.length += end - runs[i].start;
        if (!longest || use.length > longest->length) longest = &use;
    }
    return longest ? longest->first : 0;
}

StyleHandle UsualStyle(const LayoutContext& context) {
    if (context.plain || context.viewStyle.fontForAll) return context.styles.Plain().handle;
    return context.styles.At(UsualStylePosition(context)).handle;
}

std::vector<std::u16string_view> LongestFlowingLines(std::u16string_view text, std::size_t count) {
    const std::vector<std::u16string_view> lines = LinesOf(text);
    const std::vector<bool> flowing = FlowingLines(lines);
    std::vector<std::u16string_view> longest;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (flowing[i]) longest.push_back(lines[i]);
    count = std::min(count, longest.size());
    std::ranges::partial_sort(longest, longest.begin() + static_cast<std::ptrdiff_t>(count),
                              std::ranges::greater(), &std::u16string_view::size);
    longest.resize(count);
    return longest;
}

double WidthOf(const LayoutContext& context, std::u16string_view line) {
    ParagraphText text;
    text.text = line;
    text.runs = {{0, UsualStyle(context)}};
    text.width = wideLine;
    return context.lines.BreakLines(text)->Line(0).width;
}

BlockPlace Centered(const LayoutContext& context, int width) {
    width = std::clamp(width, context.columnWidth, context.viewWidth);
    return {(context.viewWidth - width) / 2, width};
}

// The widest picture of a paragraph that is nothing but pictures and spaces; 0 of another one.
int WidestLonePicture(const LayoutContext& context, const ParagraphPart& part) {
    const auto& pictures = context.document.pictures;
    const auto first =
        std::lower_bound(pictures.begin(), pictures.end(), part.start,
                         [](const Picture& p, TextPos at) { return p.position < at; });
    int widest = 0;
    TextPos at = part.start;
    const auto areSpaces = [&](TextPos to) {
        const std::u16string between = context.text->Range(at, to);
        return std::all_of(between.begin(), between.end(), IsSpaceCharacter);
    };
    for (auto picture = first; picture != pictures.end() && picture->position < part.end;
         ++picture) {
        if (!areSpaces(picture->position)) return 0;
        widest = std::max(widest, PictureSize(context, *picture, context.viewWidth).width);
        at = picture->position + 1;
    }
    return widest > 0 && areSpaces(part.end) ? widest : 0;
}

int Indents(const LayoutContext& context, ParagraphPart part) {
    part.breakWidth = part.alignWidth = context.viewWidth;
    return context.viewWidth - ShapeOf(context, part, {}).TextWidth();
}

int TableWidth(const LayoutContext& context, const TableRow& row) {
    const std::int32_t right = row.cells.empty() ? 0 : row.cells.back().rightEdge;
    return context.Pixels(right) - std::min(0, context.Pixels(row.leftEdge)) + context.Hairline();
}
} // namespace

std::vector<std::u16string> PageLines(const TextSource& text) {
    constexpr TextPos samples = 8, sampleLength = 4 * 1024, taken = 3;
    const TextPos step = text.Length() / samples;
    std::vector<std::u16string> longest;
    for (TextPos i = 0; i < samples && (i == 0 || step > 0); ++i) {
        const std::u16string stretch = text.Range(i * step, i * step + sampleLength);
        for (const std::u16string_view line : LongestFlowingLines(stretch, taken))
            longest.emplace_back(line);
    }
    return longest;
}

int ColumnWidth(const LayoutContext& context, int letters,
                std::span<const std::u16string> pageLines) {
    const double ofSample = WidthOf(context, sample);
    double width = std::max(1.0, ofSample * letters / static_cast<double>(sample.size()));
    for (const std::u16string& line : pageLines)
        width = std::max(width, WidthOf(context, line));
    return static_cast<int>(std::ceil(width));
}

BlockPlace PlaceOfParagraph(const LayoutContext& context, const ParagraphPart& part) {
    if (context.columnWidth >= context.viewWidth) return {0, context.columnWidth};
    const int picture = WidestLonePicture(context, part);
    if (picture <= context.columnWidth) return Centered(context, context.columnWidth);
    return Centered(context, picture + Indents(context, part));
}

// All rows of a table are put in the same place.
BlockPlace PlaceOfRows(const LayoutContext& context, std::span<const TableRow> rows) {
    const TableRow* const all = context.document.rows.data();
    const TableRow* const end = all + context.document.rows.size();
    const TableRow *first = rows.data(), *last = rows.data() + rows.size();
    for (std::ptrdiff_t i = 0; i < maxRowsAround && first > all && first[-1].end == first->start;
         ++i)
        --first;
    for (std::ptrdiff_t i = 0; i < maxRowsAround && last < end && last[-1].end == last->start; ++i)
        ++last;
    int widest = 0;
    for (const TableRow* row = first; row < last; ++row)
        widest = std::max(widest, TableWidth(context, *row));
    return Centered(context, widest);
}
