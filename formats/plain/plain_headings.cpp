#include "formats/plain/plain_headings.h"

#include "common/unicode.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t keptOfLine = 200;   // units, more than a heading has
constexpr std::size_t maxSecondLine = 60; // units; a longer one begins a paragraph
} // namespace

void PlainHeadings::Add(std::u16string_view units) {
    while (!units.empty()) {
        const std::size_t end = std::min(units.find(u'\n'), units.size());
        const std::size_t room = keptOfLine - std::min(keptOfLine, current_.text.size());
        const std::u16string_view part = units.substr(0, end);
        current_.text += part.substr(0, room);
        current_.blank = current_.blank && std::ranges::all_of(part, IsSpaceCharacter);
        length_ += static_cast<TextPos>(end);
        units.remove_prefix(end);
        if (units.empty()) return;
        EndLine();
        ++length_;
        units.remove_prefix(1);
        current_.start = length_;
    }
}

void PlainHeadings::EndLine() {
    if (!current_.blank) current_.heading = HeadingLineOf(current_.text);
    std::rotate(lines_.begin(), lines_.begin() + 1, lines_.end());
    lines_.back() = std::exchange(current_, {});
    Judge();
}

void PlainHeadings::Finish() {
    for (int rest = 0; rest < 3; ++rest)
        EndLine();
}

// Whether it is closed off from what comes after, perhaps with a second line of its title.
bool PlainHeadings::StandsAlone() const {
    const Line &next = lines_[2], &second = lines_[3];
    if (next.blank) return true;
    return !next.heading && next.text.size() <= maxSecondLine && second.blank;
}

bool PlainHeadings::IsHeading() const {
    const Line &before = lines_[0], &line = lines_[1], &next = lines_[2];
    if (!line.heading) return false;
    if (made_ == Made::OfParagraphs) return true;
    // One of many lines in a row is of a table of contents.
    if (!before.blank || next.heading) return false;
    return !line.heading.needsSpaceAfter || StandsAlone();
}

void PlainHeadings::Judge() {
    const Line &line = lines_[1], &next = lines_[2], &second = lines_[3];
    if (line.blank || std::exchange(isTitle_, false)) return;
    if (!line.heading) withText_ = found_.size();
    if (!IsHeading()) return;
    isTitle_ = made_ == Made::OfLines && !next.blank && second.blank &&
               next.text.size() <= maxSecondLine && !next.heading;
    Add(line, isTitle_);
}

// Headings with nothing but other headings after them are a table of contents, too.
void PlainHeadings::Add(const Line& line, bool takesNext) {
    while (found_.size() > withText_ && found_.back().level >= line.heading.level)
        found_.pop_back();
    if (found_.size() >= maxHeadings) return;
    const std::u16string text = takesNext ? line.text + u' ' + lines_[2].text : line.text;
    found_.push_back({line.start, line.heading.level, HeadingText(text)});
}
