// Copying from the text view, and its context menu.
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

#include <QContextMenuEvent>

namespace {
bool Has(const std::string& rtf, const char* words) {
    return rtf.find(words) != std::string::npos;
}

void RequestMenu(QtViewBench& bench, QContextMenuEvent::Reason reason, QPoint at) {
    QContextMenuEvent event(reason, at, bench.Widget().viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(bench.Widget().viewport(), &event);
}

QPoint PlaceOf(QtViewBench& bench, TextPos position) {
    bench.view.Select(position, 0);
    return bench.Widget().CaretRect().center();
}
} // namespace

TEST_CASE("qt text view: plain text is copied in the view's font, rich text in its own") {
    QtViewBench bench;
    bench.view.SetFont({u"Some Face", 12.5, 0, true});
    bench.view.LoadPlainText(u"plain text");
    bench.view.Select(0, 5);
    const std::string plain = bench.view.SelectionAsRtf();
    CHECK(Has(plain, "Some Face;"));
    CHECK(Has(plain, "\\fs25"));
    CHECK(Has(plain, "\\b"));
    CHECK(Has(plain, "plain"));
    CHECK_FALSE(Has(plain, "text"));

    bench.view.LoadRichText(
        "{\\rtf1\\deff0{\\fonttbl{\\f0 Other Face;}}\\f0\\fs40 rich {\\i slanted}}", 1252);
    bench.view.Select(3, 9);
    const std::string rich = bench.view.SelectionAsRtf();
    CHECK(Has(rich, "Other Face;"));
    CHECK(Has(rich, "\\fs40"));
    CHECK(Has(rich, "\\i"));
    CHECK_FALSE(Has(rich, "Some Face"));
}

TEST_CASE("qt text view: a context menu is requested by mouse and keyboard") {
    QtViewBench bench;
    int asked = 0;
    bench.view.onContextMenu = [&] { ++asked; };
    bench.view.LoadPlainText(u"one two three\nfour five six");
    const QPoint inOne = PlaceOf(bench, 1), inFive = PlaceOf(bench, 20);

    bench.view.Select(0, 7);
    RequestMenu(bench, QContextMenuEvent::Mouse, inOne); // on the selection, which is kept
    CHECK(asked == 1);
    CHECK(bench.view.SelStart() == 0);
    CHECK(bench.view.SelLength() == 7);
    CHECK(bench.view.ContextMenuPoint() == bench.Widget().viewport()->mapToGlobal(inOne));

    RequestMenu(bench, QContextMenuEvent::Mouse, inFive);
    CHECK(asked == 2);
    CHECK(bench.view.SelStart() == 20);
    CHECK(bench.view.SelLength() == 0);

    bench.view.Select(0, 7);
    RequestMenu(bench, QContextMenuEvent::Keyboard, inFive); // independent of the pointer
    CHECK(bench.Press(Qt::Key_F10, Qt::ShiftModifier));
    CHECK(asked == 4);
    CHECK(bench.view.SelLength() == 7);
    CHECK_FALSE(bench.Press(Qt::Key_F10));
}
