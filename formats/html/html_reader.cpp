#include "formats/html/html_reader.h"

#include "common/line_ends.h"
#include "formats/html/html_tree_builder.h"

#include <utility>

HtmlTree ReadHtml(std::u16string text) {
    UnifyLineEnds(text);
    HtmlTree tree;
    HtmlTreeBuilder(tree, std::move(text)).Build();
    return tree;
}
