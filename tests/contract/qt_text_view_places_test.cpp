// Where the text view on Qt finds characters: what the toolkit leaves to whoever asks it.
#include "tests/contract/qt_text_view_bench.h"

#include <doctest/doctest.h>

TEST_CASE("qt text view: the hyphen at a line's end has its width before it is painted") {
    QtViewBench bench(200, 400);
    const std::u16string text = u"\u05D0" + RepeatedText(u"syl\u00AD", 30);
    bench.view.LoadPlainText(text);
    const TextPos end = bench.view.LineAround(0).length;
    REQUIRE(end < bench.view.TextLength());
    const BlockLayout& layout = *bench.Widget().Layouts().At(0);
    std::vector<int> before, after;
    for (TextPos at = 0; at < end; ++at)
        before.push_back(CaretBox(layout, at).x());
    bench.Widget().grab();
    for (TextPos at = 0; at < end; ++at)
        after.push_back(CaretBox(layout, at).x());
    CHECK(before == after);
}
