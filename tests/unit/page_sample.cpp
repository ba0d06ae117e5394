#include "tests/unit/page_sample.h"

#include "common/utf.h"
#include "formats/css/css_parser.h"

namespace {
const char* NameOf(PageBoxKind kind) {
    constexpr const char* names[] = {"Block",  "Lines",    "Picture", "Table", "Caption", "Columns",
                                     "Column", "RowGroup", "Row",     "Cell",  "Ruby"};
    return names[std::size_t(kind)];
}

std::string Shown(std::u16string_view text) {
    std::string shown;
    for (const char16_t unit : text)
        shown += unit == u'\u2028' ? '/' : unit == u'\uFFFC' ? '#' : unit < 128 ? char(unit) : '?';
    return shown;
}
} // namespace

std::vector<CssSheet> PageSample::SheetsOf(const HtmlTree& tree) {
    std::vector<CssSheet> sheets;
    for (const CssPageSheet& sheet : FindCssSheets(tree, CssMedium{}))
        sheets.push_back(ReadCss(sheet.text));
    return sheets;
}

std::string PageSample::BoxText(PageBoxId id) {
    const PageBox& box = boxes[id];
    std::string shown = NameOf(box.kind);
    if (box.kind == PageBoxKind::Lines)
        shown += "[" + Shown(text.TextOf(id).content->text.text) + "]";
    std::string within;
    for (PageBoxId child = boxes.FirstChild(id); child != noPageBox;
         child = boxes[child].nextSibling)
        within += (within.empty() ? "" : " ") + BoxText(child);
    return within.empty() ? shown : shown + "(" + within + ")";
}

void PageSample::AddLines(const PageFragment& fragment, double left, double top,
                          std::string& lines) {
    for (const PlacedLines& placed : fragment.lines)
        for (const InlineLine& line : placed.layout.lines) {
            const std::u16string_view all = placed.content->text.text;
            std::string shown =
                Shown(all.substr(std::size_t(line.start), std::size_t(line.end - line.start)));
            while (!shown.empty() && shown.back() == ' ')
                shown.pop_back();
            lines += (lines.empty() ? "" : "|") + std::to_string(int(left + line.left)) + "," +
                     std::to_string(int(top + line.top)) + " " + shown;
        }
    for (const PlacedPart& part : fragment.parts)
        AddLines(*part.fragment, left + part.left, top + part.top, lines);
}

std::string PageSample::Lines(double width) {
    std::string lines;
    flow.SetWidth(width);
    double top = 0;
    for (std::size_t zone = 0; zone < flow.ZoneCount(); ++zone) {
        const PageFragmentPtr fragment = flow.LayOut(zone);
        AddLines(*fragment, 0, top, lines);
        top += fragment->height;
    }
    return lines;
}
