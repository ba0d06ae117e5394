// Where the page layout puts everything on a page, as JSON.
//
//   page_boxes FILE WIDTH                        its boxes to the standard output
//   page_boxes FILE WIDTH PICTURE TOP HEIGHT     what is seen of it into a file
//
// Run with QT_QPA_PLATFORM=offscreen, and FONTCONFIG_FILE for its fonts.
//
// "boxes" are border boxes [element, left, top, width, height], "lines" [element, left, top, width,
// height, first text, letter, last text, letter]. Elements and texts are numbered in document
// order from 0; letters are the units of a text without white space. "text" is counted as
// platform/html_view.h says.
#include "formats/html/html_page_text.h"
#include "formats/html/html_units.h"
#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "tests/fidelity/page_picture.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>

namespace {
class BoxWriter {
  public:
    explicit BoxWriter(LaidOutPage& page) : page_(page), numbers_(page.tree.NodeCount() + 1) {
        int elements = 0, texts = 0;
        const HtmlTree& tree = page.tree;
        for (HtmlNodeId id = tree.RootElement(); id != noHtmlNode; id = tree.Next(id))
            if (tree[id].IsElement())
                numbers_[id] = elements++;
            else if (tree[id].IsText())
                numbers_[id] = texts++;
    }

    QByteArray Write() {
        double top = 0;
        PageFlow& flow = page_.flow;
        for (std::size_t zone = 0; zone < flow.ZoneCount(); ++zone) {
            const PageFragmentPtr fragment = flow.LayOut(zone);
            Add(*fragment, 0, top);
            top += fragment->height;
        }
        QJsonArray boxes;
        for (const auto& [element, box] : boxes_)
            boxes.append(
                QJsonArray{element, box.left, box.top, box.right - box.left, box.bottom - box.top});
        const std::u16string text = HtmlPageText(page_.tree).text;
        const QJsonObject all{{"text", QString::fromStdU16String(text)},
                              {"height", top},
                              {"boxes", boxes},
                              {"lines", lines_}};
        return QJsonDocument(all).toJson(QJsonDocument::Compact);
    }

  private:
    struct Edges {
        double left = 0, top = 0, right = 0, bottom = 0;
    };
    struct Letter {
        int text = 0, letter = 0;
    };

    void Add(const PageFragment& fragment, double left, double top) {
        for (const PlacedBox& box : fragment.boxes)
            if (!box.isColumnRule) AddBox(box, left + box.left, top + box.top);
        for (const PlacedLines& lines : fragment.lines)
            for (const InlineLine& line : lines.layout.lines)
                AddLine(lines, line, left, top);
        for (const PlacedPart& part : fragment.parts)
            Add(*part.fragment, left + part.left, top + part.top);
    }

    // A box may go on in the next zone.
    void AddBox(const PlacedBox& box, double left, double top) {
        if (page_.boxes[box.box].node == noHtmlNode) return; // none of Chromium's elements
        const Edges edges{left, top, left + box.width, top + box.height};
        const int element = numbers_[page_.boxes[box.box].node];
        const auto [known, isNew] = boxes_.try_emplace(element, edges);
        if (isNew) return;
        known->second.top = std::min(known->second.top, edges.top);
        known->second.bottom = std::max(known->second.bottom, edges.bottom);
    }

    int ElementOf(PageBoxId box) const {
        while (page_.boxes[box].node == noHtmlNode)
            box = page_.boxes[box].parent;
        return numbers_[page_.boxes[box].node];
    }

    // The unit of the page that a unit of the lines shows, if it is none of its white space.
    std::optional<Letter> LetterAt(const InlineContent& content, TextPos at) {
        const auto after =
            std::upper_bound(content.origins.begin(), content.origins.end(), at,
                             [](TextPos pos, const InlineOrigin& o) { return pos < o.start; });
        if (after == content.origins.begin()) return std::nullopt;
        const InlineOrigin& origin = *std::prev(after);
        if (origin.node == noHtmlNode || !page_.tree[origin.node].IsText()) return std::nullopt;
        const std::u16string_view text = page_.tree[origin.node].Text();
        const std::size_t unit = origin.unit + std::size_t(at - origin.start);
        if (unit >= text.size() || IsHtmlSpace(text[unit])) return std::nullopt;
        const auto before = text.substr(0, unit);
        const auto spaces = std::count_if(before.begin(), before.end(), IsHtmlSpace);
        return Letter{numbers_[origin.node], int(unit) - int(spaces)};
    }

    void AddLine(const PlacedLines& lines, const InlineLine& line, double left, double top) {
        const InlineContent& content = *lines.content;
        std::optional<Letter> first, last;
        for (TextPos at = line.start; at < line.end && !first; ++at)
            first = LetterAt(content, at);
        for (TextPos at = line.end; at > line.start && !last; --at)
            last = LetterAt(content, at - 1);
        if (!first || !last) return;
        const TextLine& laidOut = lines.layout.pieces[line.piece].lines->Line(line.line);
        lines_.append(QJsonArray{ElementOf(lines.box), left + line.left, top + line.top,
                                 laidOut.width, line.height, first->text, first->letter, last->text,
                                 last->letter});
    }

    LaidOutPage& page_;
    std::vector<int> numbers_; // of each node
    std::map<int, Edges> boxes_;
    QJsonArray lines_;
};
} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3 && arguments.size() != 6) {
        std::fputs("page_boxes FILE WIDTH [PICTURE TOP HEIGHT]\n", stderr);
        return 2;
    }
    QtLineLayout system;
    LaidOutPage page(arguments[1].toStdString(), system, arguments[2].toDouble());
    if (arguments.size() == 6) {
        const QImage picture = PictureOf(page, arguments[4].toInt(), arguments[5].toInt());
        return picture.save(arguments[3]) ? 0 : 1;
    }
    const QByteArray json = BoxWriter(page).Write();
    std::fwrite(json.data(), 1, std::size_t(json.size()), stdout);
    return 0;
}
