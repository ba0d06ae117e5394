#include "view/page/inline_content.h"

#include <algorithm>

namespace {
std::vector<StyledRun> RunsFrom(const std::vector<StyledRun>& runs, TextPos start, TextPos end) {
    auto run = std::upper_bound(runs.begin() + 1, runs.end(), start,
                                [](TextPos at, const StyledRun& r) { return at < r.start; });
    std::vector<StyledRun> within{{0, std::prev(run)->style}};
    for (; run != runs.end() && run->start < end; ++run)
        within.push_back({run->start - start, run->style});
    return within;
}

std::vector<InlineBox> BoxesFrom(const std::vector<InlineBox>& boxes, TextPos start, TextPos end) {
    std::vector<InlineBox> within;
    auto box = std::lower_bound(boxes.begin(), boxes.end(), start,
                                [](const InlineBox& b, TextPos at) { return b.at < at; });
    for (; box != boxes.end() && box->at < end; ++box)
        within.push_back({box->at - start, box->width});
    return within;
}
} // namespace

ParagraphText TextFrom(const InlineContent& content, TextPos start, TextPos end) {
    const ParagraphText& whole = content.text;
    ParagraphText part;
    part.text =
        whole.text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
    part.runs = RunsFrom(whole.runs, start, end);
    part.boxes = BoxesFrom(whole.boxes, start, end);
    part.rightToLeft = whole.rightToLeft;
    part.tabStops = whole.tabStops;
    part.tabDistance = whole.tabDistance;
    return part;
}

void SortBoxes(std::vector<InlineBox>& boxes) {
    std::sort(boxes.begin(), boxes.end(),
              [](const InlineBox& a, const InlineBox& b) { return a.at < b.at; });
}
