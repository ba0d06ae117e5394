// A plain text read in pieces: any bytes, cut anywhere, must give the text that decoding them as a
// whole gives.
#include "common/find_text.h"
#include "common/line_ends.h"
#include "formats/codepages/escaped_text.h"
#include "formats/plain/plain_text_source.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace {
// A stretch of the text, some of it in other cases.
std::u16string SearchFrom(const std::u16string& text, std::size_t from) {
    std::u16string what = text.substr(from, 1 + from % 11);
    for (std::size_t i = from % 3; i < what.size(); i += 3) {
        const auto forms = CaseForms(what[i]);
        what[i] = forms[(from + i) % forms.size()];
    }
    return what;
}

void CheckFind(const PlainTextSource& source, const std::u16string& text, std::size_t from) {
    const std::u16string what = SearchFrom(text, from);
    for (const bool wholeWord : {false, true})
        for (const bool matchCase : {false, true}) {
            const FindOptions options{wholeWord, matchCase};
            const std::size_t at = FindText(text, what, from / 2, options);
            const TextPos expected = at == text.npos ? -1 : static_cast<TextPos>(at);
            Require(source.Find(what, static_cast<TextPos>(from / 2), options) == expected);
        }
}

void CheckBytes(const PlainTextSource& source, TextPos position) {
    const std::uint64_t byte = source.ByteOf(position);
    const TextPos back = source.PositionOf(byte);
    // Within a surrogate pair the byte is that of its first half.
    Require(back == position ||
            (back == position - 1 && (source.UnitAt(position) & 0xFC00) == 0xDC00));
}
} // namespace

// The first byte says how large a piece is and which code page a book without a mark has.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    constexpr int pages[] = {0, 932, 936, 1251, 949, 28598, 65001, 70003};
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const int page = pages[data[0] % 8];
    const DecodedText decoded = DecodePlainText(bytes, page, 1252);
    std::u16string text = decoded.text;
    UnifyLineEnds(text);
    const PlainTextSource source(std::make_shared<BytesReader>(bytes), page, 1252, 1 + data[0] / 8);
    // What escape sequences switch between is read as Unicode: no piece of it decodes by itself.
    Require(source.CodePage() == (IsEscapedPage(decoded.codePage) ? 0 : decoded.codePage));
    Require(source.Range(0, source.Length()) == text);
    if (text.empty()) return 0;
    const std::size_t somewhere = (size * 31 + data[0]) % text.size();
    CheckFind(source, text, somewhere);
    CheckBytes(source, static_cast<TextPos>(somewhere));
    return 0;
}
