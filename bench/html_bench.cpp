// What reading HTML costs, beside a copy of the same bytes and the decoding of the same text.
//
//   html_bench [folder of books]        War and Peace as a page is looked for there
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "common/line_ends.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_reader.h"
#include "formats/html/html_tokenizer.h"

#include <filesystem>

namespace {

constexpr int windowsLatin = 1252;

void Tokenize(const std::u16string& text) {
    HtmlNames names;
    HtmlArena arena;
    HtmlTokenizer tokenizer(names, arena, text);
    int count = 0;
    while (tokenizer.Next().kind != HtmlTokenKind::EndOfFile)
        ++count;
    Keep(count);
}

} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : "../shared/books";
    const std::string bytes = ReadFile(folder / "htm/War and Peace.htm");
    TableHead("Reading War and Peace as a page", "memcpy");
    if (bytes.empty()) {
        Note("left out: no such book in " + folder.string());
        return 0;
    }
    const double copy = Time([&] { Keep(std::string(bytes)); });
    std::u16string text = DecodeHtml(bytes, 0, windowsLatin).text;
    RowOf("bytes to tree", Time([&] { Keep(ReadHtmlFile(bytes, 0, windowsLatin)); }), copy,
          bytes.size());
    RowOf("  of which decode", Time([&] { Keep(DecodeHtml(bytes, 0, windowsLatin)); }), copy,
          bytes.size());
    RowOf("  of which text to tree (with a copy of it)", Time([&] { Keep(ReadHtml(text)); }), copy,
          bytes.size());
    UnifyLineEnds(text);
    RowOf("  of which tokens", Time([&] { Tokenize(text); }), copy, bytes.size());
    const HtmlTree tree = ReadHtml(text);
    Note(std::to_string(tree.NodeCount()) + " nodes of " + std::to_string(sizeof(HtmlNode)) +
         " bytes");
    return 0;
}
