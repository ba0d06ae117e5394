// Where the caret goes from a place.
#include "platform/windows/line_layout/win_text_lines.h"

#include <algorithm>

TextPos WinTextLines::NextPosition(TextPos position) const {
    const std::size_t at = Limit(position);
    return static_cast<TextPos>(at == text_.Size() ? at : CaretFrom(at + 1));
}

TextPos WinTextLines::PreviousPosition(TextPos position) const {
    const std::size_t at = Limit(position);
    return static_cast<TextPos>(at == 0 ? at : CaretTo(at - 1));
}

// The places in a line from left to right. Those at the same x, as of trailing spaces, follow each
// other in the paragraph's direction.
std::vector<TextPos> WinTextLines::PlacesByX(int index) const {
    const TextLine& line = Line(index);
    const bool last = index + 1 == Count();
    std::vector<std::pair<double, TextPos>> places;
    const auto add = [&](double x, TextPos at) {
        places.push_back({x, text_.baseLevel ? -at : at});
    };
    for (const VisualPiece& piece : At(index).pieces)
        for (std::size_t at = piece.start; at < piece.end; ++at)
            if (text_.units[at].caret) add(EdgeX(piece, at), static_cast<TextPos>(at));
    if (last) add(CaretX(index, line.end), line.end);
    std::sort(places.begin(), places.end());
    std::vector<TextPos> sorted;
    sorted.reserve(places.size());
    for (const auto& place : places)
        sorted.push_back(text_.baseLevel ? -place.second : place.second);
    return sorted;
}

TextPos WinTextLines::Beside(TextPos position, bool right) const {
    const auto at = static_cast<TextPos>(CaretTo(Limit(position)));
    const int line = LineOf(static_cast<std::size_t>(at));
    std::vector<TextPos> places = PlacesByX(line);
    if (!right) std::reverse(places.begin(), places.end());
    const auto here = std::find(places.begin(), places.end(), at);
    if (here != places.end() && here + 1 != places.end()) return *(here + 1);
    const int beyond = line + (right != (text_.baseLevel != 0) ? 1 : -1);
    if (beyond < 0 || beyond >= Count()) return at;
    const std::vector<TextPos> others = PlacesByX(beyond);
    return right ? others.front() : others.back();
}

TextPos WinTextLines::NextWord(TextPos position) const {
    std::size_t at = Limit(position);
    while (at < text_.Size()) {
        ++at;
        if (at < text_.Size() && text_.units[at].startsWord) break;
    }
    return static_cast<TextPos>(at);
}

TextPos WinTextLines::PreviousWord(TextPos position) const {
    std::size_t at = Limit(position);
    while (at > 0) {
        --at;
        if (text_.units[at].startsWord) break;
    }
    return static_cast<TextPos>(at);
}

CharSpan WinTextLines::WordAt(TextPos position) const {
    if (text_.Size() == 0) return {};
    std::size_t start = std::min(Limit(position), text_.Size() - 1);
    std::size_t end = start + 1;
    while (start > 0 && !text_.units[start].startsStretch)
        --start;
    while (end < text_.Size() && !text_.units[end].startsStretch)
        ++end;
    return {static_cast<TextPos>(start), static_cast<TextPos>(end - start)};
}
