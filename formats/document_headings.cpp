#include "formats/document_headings.h"

#include "formats/plain/plain_headings.h"

namespace {

// Of a stretch of paragraphs in one style; the text of an empty paragraph is none.
void AddParagraphs(std::vector<Heading>& headings, const std::u16string& text, TextPos start,
                   TextPos end, int level) {
    while (start < end && headings.size() < maxHeadings) {
        const std::size_t found = text.find_first_of(u"\n\a", static_cast<std::size_t>(start));
        const TextPos stop =
            found == text.npos ? static_cast<TextPos>(text.size()) : static_cast<TextPos>(found);
        const auto line = HeadingText(std::u16string_view(text).substr(
            static_cast<std::size_t>(start), static_cast<std::size_t>(stop - start)));
        if (!line.empty()) headings.push_back({start, level, line});
        start = stop + 1;
    }
}

std::vector<Heading> ByOutline(const Document& document) {
    std::vector<Heading> headings;
    const auto& runs = document.paragraphRuns;
    const auto size = static_cast<TextPos>(document.text.size());
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const int level = document.paragraphStyles[runs[i].style].outlineLevel;
        if (level == 0) continue;
        // A run begins with its paragraph, or within it where the style holds at its end.
        const std::size_t before =
            runs[i].start == 0
                ? document.text.npos
                : document.text.find_last_of(u"\n\a", static_cast<std::size_t>(runs[i].start) - 1);
        const TextPos start = before == document.text.npos ? 0 : static_cast<TextPos>(before) + 1;
        AddParagraphs(headings, document.text, start,
                      i + 1 < runs.size() ? runs[i + 1].start : size, level);
    }
    return headings;
}

} // namespace

std::vector<Heading> HeadingsOf(const Document& document) {
    std::vector<Heading> headings = ByOutline(document);
    if (!headings.empty()) return headings;
    PlainHeadings plain(PlainHeadings::Made::OfParagraphs);
    plain.Add(document.text);
    plain.Finish();
    return plain.Found();
}
