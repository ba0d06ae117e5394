// Any bytes as a page: the tree is sound, within its limits, and no work in it is out of
// proportion.
#include "common/line_ends.h"
#include "common/utf.h"
#include "formats/html/html_declaration.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_page_text.h"
#include "formats/html/html_tree_builder.h"
#include "tests/fuzz/require.h"
#include "tests/html_tree_check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    // The guess has a fuzzer of its own, and takes a hundred times as long as the rest.
    const bool isGuessed = DeclaredHtmlCodePage(bytes) == 0 && !IsValidUtf8(bytes);
    std::u16string text = isGuessed ? Utf8ToUtf16(bytes) : DecodeHtml(bytes, 0, 1252).text;
    Require(text.size() <= 2 * size, "more text than bytes");
    UnifyLineEnds(text);
    const std::size_t units = text.size();
    HtmlTree tree;
    HtmlTreeBuilder builder(tree, std::move(text));
    builder.Build();
    const std::string fault = html_tree_check::FirstFault(tree);
    Require(fault.empty(), "tree", fault);
    Require(tree.NodeCount() <= 100'000 + 8 * units, "nodes");
    Require(builder.Steps() <= 1'000'000 + 1000 * units, "steps");
    Require(HtmlPageText(tree).text.size() <= 16 + 2 * units, "text of the page");
    return 0;
}
