#include "view/page/inline_layout.h"

#include "common/text_words.h"
#include "view/page/break_width.h"
#include "view/page/line_box.h"

#include <algorithm>
#include <cmath>

namespace {
// Units that are broken in one go: systems take more than twice the time for twice the text. Fewer
// beside floats, where each float breaks what follows again: more only if a line has more.
constexpr TextPos maxAtOnce = 16 * 1024, minBesideFloats = 256, maxBesideFloats = 2048;
// Units in which the first place to break is looked for; a longer word goes beside floats as it
// comes.
constexpr std::size_t maxFirstWord = 256;

class InlineLayouter {
  public:
    InlineLayouter(LineLayout& system, const InlineContent& content, InlineEdges room, double top,
                   FloatContext& floats)
        : system_(system), content_(content), room_(room), top_(top), context_(floats),
          end_(static_cast<TextPos>(content.text.text.size())) {
        result_.atoms.resize(content.atoms.size());
        if (!content.firstLine) return;
        first_ = content;
        first_->text.text = content.firstLine->text;
        first_->text.runs = content.firstLine->styles;
        first_->runs = content.firstLine->runs;
    }

    InlineLayout Run() {
        PlaceFloatsTo(0);
        while (at_ < end_) {
            BreakOn();
            PlaceFloatsTo(at_);
        }
        result_.bottom = top_;
        return std::move(result_);
    }

  private:
    bool HasFloats() const { return nextFloat_ < content_.floats.size(); }
    TextPos NextFloat() const { return content_.floats[nextFloat_].at; }
    InlineEdges RoomFor(double height) const { return context_.RoomAt(top_, top_ + height, room_); }

    void PlaceFloat() {
        const InlineFloat& box = content_.floats[nextFloat_++];
        const double top = context_.ClearedTop(box.belowLeft, box.belowRight, top_);
        const auto place = context_.Add(box.side, box.width, box.height, top, room_);
        result_.floats.push_back({place.left, place.top});
    }

    void PlaceFloatsTo(TextPos position) {
        while (HasFloats() && NextFloat() <= position)
            PlaceFloat();
    }

    // Breaks what follows for the room at this height and places its lines as long as they have
    // that room. At least a line or a float is placed, or the next one begins further down or is
    // expected to be higher.
    void BreakOn() {
        height_ = std::max(height_, StrutBox(system_, content_).Height());
        const InlineEdges edges = RoomFor(height_);
        const bool isFirst = IsFirstApart();
        const bool besideFloats = isFirst || HasFloats() || context_.NextChange(top_) > top_;
        const TextPos end = std::min(end_, at_ + (besideFloats ? besideFloats_ : maxAtOnce));
        InlinePiece piece{at_, system_.BreakLines(Paragraph(edges, end))};
        const std::size_t before = result_.lines.size();
        // A break at the end begins no line.
        for (int i = 0; at_ < end_ && i < piece.lines->Count() && isFirst == IsFirstApart(); ++i) {
            const TextPos lineEnd = piece.start + piece.lines->Line(i).end;
            const LineBox box = LineBoxOf(system_, Content(), at_, lineEnd);
            if (!CanPlace(piece, i, edges, box.Height())) break;
            Place(piece, i, edges, box);
        }
        if (result_.lines.size() > before) result_.pieces.push_back(std::move(piece));
    }

    // Whether the next line is the first one and has styles of its own.
    bool IsFirstApart() const { return at_ == 0 && first_; }
    const InlineContent& Content() const { return IsFirstApart() ? *first_ : content_; }

    ParagraphText Paragraph(InlineEdges edges, TextPos end) const {
        ParagraphText text = TextFrom(Content(), at_, end);
        const double indent = Indent(at_), hanging = std::max(0.0, -indent);
        text.firstIndent = int(std::lround(std::max(0.0, indent)));
        text.indent = int(std::lround(hanging));
        text.width = content_.wraps ? BreakWidth(edges.Width() + hanging) : maxBreakWidth;
        text.justified = content_.wraps && content_.alignment == Alignment::Justified;
        return text;
    }

    double Indent(TextPos lineStart) const { return lineStart == 0 ? content_.textIndent : 0; }

    // False when the lines from this one on are to be broken again.
    bool CanPlace(const InlinePiece& piece, int number, InlineEdges edges, double height) {
        const TextLine& line = piece.lines->Line(number);
        const TextPos end = piece.start + line.end;
        const bool cut = number + 1 == piece.lines->Count() && end < end_;
        if (cut && number > 0) return false; // more of the text may belong into it
        if (cut && end - piece.start == besideFloats_ && besideFloats_ < maxBesideFloats) {
            besideFloats_ *= 2;
            return false;
        }
        if (RoomFor(height) != edges) {
            // Broken for the height of the block's font; now for its own.
            if (number > 0) return false;
            if (height_ < height) {
                height_ = height;
                return false;
            }
        }
        if (edges != room_ && MovesBelowFloats(height, edges)) return false;
        if (!HasFloats() || NextFloat() >= EndOfFloats(end) || !FitsBeside(piece, number, edges))
            return true;
        PlaceFloat();
        return false;
    }

    // Where floats leave too little room for the first word, a line begins further down.
    bool MovesBelowFloats(double height, InlineEdges edges) {
        const double word = FirstWordWidth() + std::max(0.0, Indent(at_));
        if (word <= edges.Width()) return false;
        const double top = context_.FittingTop(top_, height, word, room_);
        if (top <= top_) return false;
        top_ = top;
        return true;
    }

    double FirstWordWidth() const {
        const auto window =
            std::u16string_view(Content().text.text).substr(std::size_t(at_), maxFirstWord);
        const std::vector<bool> breaks = LineBreaks(window);
        const auto next = std::find(breaks.begin() + 1, breaks.begin() + window.size(), true);
        ParagraphText word = TextFrom(Content(), at_, at_ + TextPos(next - breaks.begin()));
        word.width = maxBreakWidth;
        return system_.BreakLines(word)->Line(0).width;
    }

    // Floats before that unit may stand beside a line that ends there: of the last line also those
    // after it.
    TextPos EndOfFloats(TextPos lineEnd) const {
        const bool isLast = lineEnd == end_ && content_.text.text.back() != u'\u2028';
        return isLast ? lineEnd + 1 : lineEnd;
    }

    // Whether the next float fits beside what is before it in the line.
    bool FitsBeside(const InlinePiece& piece, int number, InlineEdges edges) const {
        if (NextFloat() <= at_) return true;
        const double caret = piece.lines->CaretX(number, NextFloat() - piece.start);
        const double width = piece.lines->Line(number).width;
        const double before = content_.text.rightToLeft ? width - caret : caret;
        return before + content_.floats[nextFloat_].width <= edges.Width();
    }

    void Place(const InlinePiece& piece, int number, InlineEdges edges, const LineBox& box) {
        const TextLine& line = piece.lines->Line(number);
        const TextPos end = piece.start + line.end;
        const double left = edges.left + Shift(line, edges);
        for (; nextAtom_ < content_.atoms.size(); ++nextAtom_) {
            const InlineAtom& atom = content_.atoms[nextAtom_];
            if (atom.at >= end) break;
            const TextExtent extent = piece.lines->CharacterExtent(number, atom.at - piece.start);
            result_.atoms[nextAtom_] = {left + extent.left, top_ + AtomTop(content_, atom, box)};
        }
        result_.lines.push_back(
            {result_.pieces.size(), number, at_, end, left, top_, box.Height(), top_ + box.above});
        top_ += box.Height();
        at_ = end;
        height_ = 0;
        PlaceFloatsTo(end - 1); // those that did not fit beside the line
        for (; nextClear_ < content_.clears.size(); ++nextClear_) {
            const InlineClear& clear = content_.clears[nextClear_];
            if (clear.at > end) break;
            top_ = context_.ClearedTop(clear.left, clear.right, top_);
        }
    }

    // Of the visible text from the left edge of the room.
    double Shift(const TextLine& line, InlineEdges edges) const {
        const bool rightToLeft = content_.text.rightToLeft;
        const double indent = Indent(at_), left = rightToLeft ? 0 : indent;
        if (line.justified) return left;
        const double free = std::max(0.0, edges.Width() - indent - line.width);
        switch (content_.alignment) {
        case Alignment::Right: return left + free;
        case Alignment::Center: return left + free / 2;
        case Alignment::Left: return left;
        case Alignment::Justified: break; // a last line
        }
        return rightToLeft ? free : left;
    }

    LineLayout& system_;
    const InlineContent& content_;
    std::optional<InlineContent> first_;
    const InlineEdges room_;
    double top_;
    FloatContext& context_;
    InlineLayout result_;
    TextPos at_ = 0;
    const TextPos end_;
    TextPos besideFloats_ = minBesideFloats; // to be broken in one go
    double height_ = 0;                      // that the next line is expected to have
    std::size_t nextFloat_ = 0, nextAtom_ = 0, nextClear_ = 0;
};
} // namespace

InlineLayout LayOutInline(LineLayout& system, const InlineContent& content, InlineEdges room,
                          double top, FloatContext& floats) {
    return InlineLayouter(system, content, room, top, floats).Run();
}
