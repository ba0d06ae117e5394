#define CINTERFACE
#include "tests/contract/stand_in/stand_in_document.h"

#include <algorithm>

int StandInContent::LineFromChar(int position) const {
    const auto end = page.text.begin() + std::clamp(position, 0, Length());
    return static_cast<int>(std::count(page.text.begin(), end, L'\n'));
}

int StandInContent::LineStart(int line) const {
    std::size_t start = 0;
    for (; line > 0; --line) {
        const std::size_t end = page.text.find(L'\n', start);
        if (end == std::wstring::npos) return Length();
        start = end + 1;
    }
    return static_cast<int>(start);
}

int StandInContent::TopOf(int position) const {
    const int first = StandIn::Edge + world.ownMargin + world.textTop;
    return first + LineFromChar(position) * StandIn::LineHeight;
}

int StandInContent::LeftOf(int position) const {
    return StandIn::Edge + (position - LineStart(LineFromChar(position))) * StandIn::CellWidth;
}

int StandInContent::At(int left, int top) const {
    const int line = std::max(top - TopOf(0), 0) / StandIn::LineHeight;
    const int start = LineStart(line), end = std::max(LineStart(line + 1) - 1, start);
    return std::min(start + std::max(left - StandIn::Edge, 0) / StandIn::CellWidth, end);
}

int StandInContent::MaxTop(int viewHeight) const {
    const int height = TopOf(Length()) + StandIn::LineHeight + StandIn::Edge;
    return std::max(height - viewHeight, 0);
}
