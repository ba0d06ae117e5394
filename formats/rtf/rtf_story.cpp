#include "formats/rtf/rtf_story.h"

#include <iterator>

namespace {

// By halves, not by doubling: these are most of what a text of many styles costs.
void AppendRun(std::vector<StyleRun>& runs, StyleRun run) {
    if (runs.size() == runs.capacity()) runs.reserve(runs.size() + runs.size() / 2 + 16);
    runs.push_back(run);
}

void StartRun(std::vector<StyleRun>& runs, TextPos start, std::uint32_t style) {
    if (runs.back().style == style) return;
    if (runs.back().start != start) return AppendRun(runs, {start, style});
    runs.back().style = style; // the run before it has no text
    if (runs.size() > 1 && runs[runs.size() - 2].style == style) runs.pop_back();
}

void DropEmptyRun(std::vector<StyleRun>& runs, TextPos textEnd) {
    if (runs.size() > 1 && runs.back().start >= textEnd) runs.pop_back();
}

void AppendRuns(std::vector<StyleRun>& runs, const std::vector<StyleRun>& others, TextPos offset) {
    runs.reserve(runs.size() + others.size());
    for (const StyleRun& run : others)
        StartRun(runs, run.start + offset, run.style);
}

} // namespace

void RtfStory::UseCharStyle(std::uint32_t style) {
    StartRun(charRuns, Size(), style);
}

void RtfStory::EndParagraph(char16_t terminator, std::uint32_t charStyle,
                            std::uint32_t paragraphStyle) {
    UseCharStyle(charStyle);
    StartRun(paragraphRuns, paragraphStart, paragraphStyle);
    text.push_back(terminator);
    paragraphStart = Size();
}

void RtfStory::EndLastParagraph(std::uint32_t paragraphStyle) {
    if (!AtParagraphStart()) StartRun(paragraphRuns, paragraphStart, paragraphStyle);
    DropEmptyRun(charRuns, Size());
}

std::u16string RtfStory::TakeParagraph() {
    std::u16string taken = text.substr(paragraphStart);
    text.resize(paragraphStart);
    while (charRuns.size() > 1 && charRuns.back().start > paragraphStart)
        charRuns.pop_back();
    return taken;
}

void RtfStory::Append(RtfStory&& other) {
    const TextPos offset = Size();
    text += other.text;
    AppendRuns(charRuns, other.charRuns, offset);
    AppendRuns(paragraphRuns, other.paragraphRuns, offset);
    for (Picture& picture : other.pictures)
        picture.position += offset;
    pictures.insert(pictures.end(), std::make_move_iterator(other.pictures.begin()),
                    std::make_move_iterator(other.pictures.end()));
    paragraphStart = other.paragraphStart + offset;
}
