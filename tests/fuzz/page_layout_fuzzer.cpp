// Any bytes as a page in its style sheets, laid out at two widths: all its text is in its lines
// once and in order, a part of it that is laid out by itself is as it is in the whole, all places
// are finite, and no work is out of proportion. The first byte says how low the limits are, so that
// a small input is beyond them.
#include "common/utf.h"
#include "formats/css/css_page_sheets.h"
#include "formats/css/css_page_styles.h"
#include "formats/css/css_parser.h"
#include "formats/html/html_reader.h"
#include "formats/html/html_units.h"
#include "platform/none/none_line_layout.h"
#include "view/page/box_generation.h"
#include "view/page/page_box_builder.h"
#include "view/page/page_flow.h"
#include "view/page/page_text.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {
void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

// Counts what is given to it.
class CountedLayout : public NoneLineLayout {
  public:
    std::unique_ptr<TextLines> BreakLines(const ParagraphText& text) override {
        units += text.text.size();
        return NoneLineLayout::BreakLines(text);
    }
    std::uint64_t units = 0;
};

std::vector<CssSheet> SheetsOf(const HtmlTree& tree) {
    std::vector<CssSheet> sheets;
    for (const CssPageSheet& sheet : FindCssSheets(tree, CssMedium{}))
        sheets.push_back(ReadCss(sheet.text));
    return sheets;
}

struct Page {
    Page(std::u16string source, const PageLimits& limits)
        : tree(ReadHtml(std::move(source))), sheets(SheetsOf(tree)),
          styles(StylePage(tree, sheets, {})), boxes(BoxesOf(tree, styles, limits)) {}

    HtmlTree tree;
    std::vector<CssSheet> sheets;
    CssPageStyles styles;
    PageBoxes boxes;
};

// Laid out by a system of its own, so that no layout knows of another.
struct PageLayout {
    explicit PageLayout(const Page& page)
        : fonts(system, page.styles, 1, 96), text(page.tree, page.styles, page.boxes, fonts),
          layouter(page.boxes, text, system, 1), flow(layouter) {
        text.pictureSize = [](const PageBox& box) {
            return Size{int(box.node % 50), int(box.node % 40)};
        };
    }

    CountedLayout system;
    PageFonts fonts;
    PageText text;
    PageLayouter layouter;
    PageFlow flow;
};

// Units that are no space, of each node in document order; the same of the tree and of the lines.
class TextDigest {
  public:
    void Add(HtmlNodeId node, std::size_t unit) {
        digest_ = (digest_ ^ (node * 2654435761u + unit)) * 1099511628211u;
        ++count_;
    }
    bool operator==(const TextDigest&) const = default;
    std::size_t Count() const { return count_; }

  private:
    std::uint64_t digest_ = 14695981039346656037u;
    std::size_t count_ = 0;
};

bool IsShown(const Page& page, HtmlNodeId id) {
    const HtmlNode& node = page.tree[id];
    if (!node.IsElement()) return true;
    const CssBoxStyle& style = *page.styles.Of(id).box;
    return !IsNotShown(node) && !IsNotShown(style) && !node.Is(HtmlName::Img) &&
           style.display != CssDisplay::TableColumn &&
           style.display != CssDisplay::TableColumnGroup;
}

TextDigest TextOfTree(const Page& page) {
    TextDigest digest;
    const HtmlNodeId root = page.tree.RootElement();
    for (HtmlNodeId id = root; id != noHtmlNode;) {
        const bool shown = IsShown(page, id);
        const std::u16string_view text =
            page.tree[id].IsText() ? page.tree[id].Text() : std::u16string_view();
        for (std::size_t i = 0; i < text.size(); ++i)
            if (!IsHtmlSpace(text[i])) digest.Add(id, i);
        id = shown ? page.tree.Next(id, root) : page.tree.NextAfter(id, root);
    }
    return digest;
}

// Places of lines are those of their box; the boxes in them come before what is after.
class TextOfLines {
  public:
    TextOfLines(const Page& page, PageText& text) : page_(page), text_(text) {}

    TextDigest Read() {
        ReadBoxes(rootPageBox, page_.boxes.End());
        return digest_;
    }

  private:
    void ReadBoxes(PageBoxId from, PageBoxId end) {
        for (PageBoxId box = from; box < end;) {
            const PageBox& read = page_.boxes[box];
            Require(read.end > box && read.end <= end, "boxes within boxes");
            if (read.kind == PageBoxKind::Lines) ReadLines(box);
            box = read.kind == PageBoxKind::Lines ? read.end : box + 1;
        }
    }

    void ReadLines(PageBoxId id) {
        const LinesText lines = text_.TextOf(id);
        const std::u16string& text = lines.content->text.text;
        Require(text.size() <= 40 * std::size_t{PageLimits().lines}, "length of lines");
        const auto& origins = lines.content->origins;
        auto place = lines.boxes.begin();
        for (std::size_t i = 0; i < origins.size(); ++i) {
            const auto end = i + 1 < origins.size() ? origins[i + 1].start : TextPos(text.size());
            Require(origins[i].start < end && end <= TextPos(text.size()), "origins");
            for (TextPos at = origins[i].start; at < end; ++at) {
                for (; place != lines.boxes.end() && place->at <= at; ++place)
                    ReadBoxes(place->box, page_.boxes[place->box].end);
                AddUnit(id, origins[i], at);
            }
        }
        for (; place != lines.boxes.end(); ++place)
            ReadBoxes(place->box, page_.boxes[place->box].end);
    }

    void AddUnit(PageBoxId lines, const InlineOrigin& origin, TextPos at) {
        if (origin.node == noHtmlNode || !page_.tree[origin.node].IsText()) return;
        const std::size_t unit = origin.unit + std::size_t(at - origin.start);
        Require(unit < page_.tree[origin.node].length, "a unit of its node");
        if (IsHtmlSpace(page_.tree[origin.node].Text()[unit])) return;
        Require(page_.boxes.BoxOf(origin.node, unit) == lines, "the lines of a unit");
        digest_.Add(origin.node, unit);
    }

    const Page& page_;
    PageText& text_;
    TextDigest digest_;
};

bool IsPlace(double length) {
    return std::isfinite(length) && std::abs(length) < 1e12;
}

// All that is laid out, in one number.
class FragmentDigest {
  public:
    void Add(const PageFragment& fragment) {
        Add({fragment.width, fragment.height});
        Require(fragment.height >= 0, "height");
        for (const PlacedBox& box : fragment.boxes)
            Add({double(box.box), box.left, box.top, box.width, box.height});
        for (const PlacedImage& picture : fragment.pictures)
            Add({double(picture.box), picture.left, picture.top, picture.width, picture.height});
        for (const PlacedLines& lines : fragment.lines)
            AddLines(lines);
        for (const PlacedPart& part : fragment.parts) {
            Add({part.left, part.top});
            Add(*part.fragment);
        }
    }
    std::uint64_t Value() const { return value_; }

  private:
    void Add(std::initializer_list<double> lengths) {
        for (const double length : lengths) {
            Require(IsPlace(length), "a finite place");
            value_ = (value_ ^ std::uint64_t(std::llround(length * 16))) * 1099511628211u;
        }
    }

    void AddLines(const PlacedLines& placed) {
        TextPos at = 0;
        for (const InlineLine& line : placed.layout.lines) {
            Require(line.start == at && line.end > line.start, "lines follow each other");
            at = line.end;
            Add({line.left, line.top, line.height, line.baseline});
            const InlinePiece& piece = placed.layout.pieces[line.piece];
            for (const double x : {-10.0, 0.0, 33.0, 1e6}) {
                const TextPos hit = piece.start + piece.lines->CharacterAt(line.line, x);
                Require(hit >= line.start && hit <= line.end, "what is hit");
                piece.lines->PositionAt(line.line, x);
            }
            Add({piece.lines->CaretX(line.line, line.start - piece.start),
                 piece.lines->CaretX(line.line, line.end - piece.start)});
        }
        Require(at == TextPos(placed.content->text.text.size()), "all text is in lines");
    }

    std::uint64_t value_ = 14695981039346656037u;
};

std::vector<std::uint64_t> DigestsOf(const Page& page, double width, bool backwards) {
    PageLayout layout(page);
    layout.flow.SetWidth(width);
    const std::size_t zones = layout.flow.ZoneCount();
    std::vector<std::uint64_t> digests(zones);
    for (std::size_t i = 0; i < zones; ++i) {
        const std::size_t zone = backwards ? zones - 1 - i : i;
        const std::uint64_t units = layout.system.units;
        FragmentDigest digest;
        digest.Add(*layout.flow.LayOut(zone));
        digests[zone] = digest.Value();
        Require(layout.system.units - units <= 64'000'000, "units laid out for a zone");
    }
    Require(layout.flow.Heights().NotMeasured() == 0, "all zones measured");
    Require(std::uint64_t(layout.system.paragraphs) <=
                1000 + 40 * page.boxes.Count() + page.tree.Source().size(),
            "texts laid out");
    return digests;
}

PageLimits Lowered(PageLimits limits, int bits) {
    return {limits.whole >> bits, limits.lines >> bits, limits.rows >> bits};
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const PageLimits limits = Lowered({}, data[0] % 4 * 4);
    const Page page(u"<!DOCTYPE html>" + Utf8ToUtf16(bytes.substr(1)), limits);
    PageLayout layout(page);
    const TextDigest shown = TextOfLines(page, layout.text).Read(), all = TextOfTree(page);
    Require(shown.Count() <= all.Count(), "text that is shown twice");
    Require(shown == all, "all text in its order");
    for (const double width : {300.0, 25.0})
        Require(DigestsOf(page, width, false) == DigestsOf(page, width, true),
                "a zone by itself is as it is in the page");
    return 0;
}
