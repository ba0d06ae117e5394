// A long search in the text view: the window stays responsive, and the user can cancel it.
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

#include <QElapsedTimer>
#include <QTimer>

namespace {
constexpr TextPos gaveNoAnswer = -99;

// A text whose search runs until it is cancelled, or fails the test.
class EndlessText : public TextSource {
  public:
    TextPos Length() const override { return static_cast<TextPos>(text_.size()); }
    TextPiece PieceAt(TextPos) const override { return {0, text_}; }
    TextPos FindWhile(std::u16string_view, TextPos, FindOptions,
                      const std::function<bool()>& isContinued) const override {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 60'000)
            if (!isContinued()) return findGivenUp;
        return gaveNoAnswer;
    }

  private:
    std::u16string text_ = RepeatedText(u"a line of it\n", 100);
};

struct EndlessBench : QtViewBench {
    EndlessBench() { view.LoadText(std::make_shared<EndlessText>()); }

    void Post(int key) {
        QCoreApplication::postEvent(view.Widget(),
                                    new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    }
};
} // namespace

TEST_CASE("long find on Qt: Escape cancels it, other keys are discarded") {
    EndlessBench bench;
    bench.view.Select(5, 0);
    bench.Post(Qt::Key_Right);
    bench.Post(Qt::Key_Escape);
    CHECK(bench.view.Find(u"nowhere", 0, {}) == findGivenUp);
    CHECK(bench.view.SelStart() == 5);
    CHECK(bench.Press(Qt::Key_Right)); // unchanged
    CHECK(bench.view.SelStart() == 6);
}

TEST_CASE("long find on Qt: closing the window cancels it") {
    EndlessBench bench;
    QTimer::singleShot(0, bench.view.Widget(), &QWidget::close);
    CHECK(bench.view.Find(u"nowhere", 0, {}) == findGivenUp);
}

TEST_CASE("long find on Qt: the view is painted meanwhile") {
    struct Paints : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int count = 0;
    } paints;
    EndlessBench bench;
    QCoreApplication::processEvents();
    bench.Widget().viewport()->installEventFilter(&paints);
    bench.Widget().viewport()->update();
    QTimer::singleShot(0, &paints, [&] { bench.Post(Qt::Key_Escape); });
    CHECK(bench.view.Find(u"nowhere", 0, {}) == findGivenUp);
    CHECK(paints.count > 0);
}
