#include "formats/plain/distinctive_line.h"

#include "common/decode_pieces.h"
#include "common/find_text.h"
#include "formats/plain/plain_text_pieces.h"

#include <algorithm>
#include <functional>

namespace {
constexpr std::size_t maxStretch = 100; // bytes, of which a list shows what has room
constexpr int maxOfAKind = 3;
constexpr int maxJudged = 2000; // stretches, for the time that it takes

int LettersBeyondAscii(std::u16string text) {
    std::erase_if(text, [](char16_t unit) { return unit < 0x80 || !IsWordUnit(unit); });
    std::ranges::sort(text);
    int count = 0, ofAKind = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        ofAKind = i > 0 && text[i] == text[i - 1] ? ofAKind + 1 : 1;
        count += ofAKind <= maxOfAKind;
    }
    return count;
}

// At a blank where there is one, else within no character.
std::size_t EndOfStretch(std::string_view line, const PlainTextForm& form) {
    if (line.size() <= maxStretch) return line.size();
    const std::size_t blank = line.rfind(' ', maxStretch);
    if (blank != line.npos && blank > maxStretch / 2) return blank + 1;
    return std::max<std::size_t>(CharactersEnd(form, line.substr(0, 2 * maxStretch), maxStretch),
                                 1);
}

// The place after the first blank or line end: a sample from within may begin in a character.
std::string_view FromWholeWord(std::string_view sample) {
    const std::size_t blank = sample.find_first_of(" \t\r\n");
    return blank == sample.npos ? std::string_view() : sample.substr(blank + 1);
}

// Until the call returns false.
bool ForEachStretch(std::string_view sample, const PlainTextForm& form,
                    const std::function<bool(std::string_view)>& call) {
    while (!sample.empty()) {
        std::string_view line = sample.substr(0, sample.find_first_of("\r\n"));
        sample.remove_prefix(std::min(line.size() + 1, sample.size()));
        while (!line.empty()) {
            const std::size_t end = EndOfStretch(line, form);
            if (!call(line.substr(0, end))) return false;
            line.remove_prefix(end);
        }
    }
    return true;
}
// A list may have room for its start only.
std::string_view FromNearFirstLetter(std::string_view stretch) {
    constexpr std::size_t maxBefore = 16;
    const auto high = std::ranges::find_if(
        stretch, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
    const auto before = static_cast<std::size_t>(high - stretch.begin());
    if (before <= maxBefore) return stretch;
    const std::size_t blank = stretch.find(' ', before - maxBefore);
    return stretch.substr(blank < before ? blank + 1 : before);
}
} // namespace

std::string DistinctiveLine(std::span<const std::string_view> samples, const PlainTextForm& form) {
    std::string_view best;
    int maxLetters = -1, judged = 0;
    const auto judge = [&](std::string_view stretch) {
        if (IsAscii(stretch)) return true;
        const int letters = LettersBeyondAscii(DecodeAs(form, stretch));
        if (letters > maxLetters) {
            maxLetters = letters;
            best = stretch;
        }
        return ++judged < maxJudged;
    };
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (!ForEachStretch(i == 0 ? samples[i] : FromWholeWord(samples[i]), form, judge)) break;
    return std::string(FromNearFirstLetter(best));
}
