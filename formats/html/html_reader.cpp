#include "formats/html/html_reader.h"

#include "common/line_ends.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_tree_builder.h"

#include <utility>

HtmlTree ReadHtml(std::u16string text) {
    UnifyLineEnds(text);
    HtmlTree tree;
    HtmlTreeBuilder(tree, std::move(text)).Build();
    return tree;
}

HtmlFile ReadHtmlFile(std::string bytes, int bookCodePage, int systemCodePage) {
    DecodedHtml decoded = DecodeHtml(bytes, bookCodePage, systemCodePage);
    bytes = std::string();
    HtmlFile file{ReadHtml(std::move(decoded.text)), decoded.codePage};
    if (IsVisualOrder(decoded.codePage)) file.tree.SetVisualOrder();
    return file;
}
