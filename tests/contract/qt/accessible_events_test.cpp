// What the text view on Qt tells a screen reader unasked, and what a very long text costs it.
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

#include <QElapsedTimer>
#include <QFocusEvent>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <functional>

namespace {
// What was told since a test asked last, and how often that another part of the text is seen.
std::string heard;
int seen = 0;

std::string Quoted(const QString& text) {
    return '"' + text.toStdString() + '"';
}

std::string Described(const QAccessibleEvent& event) {
    switch (event.type()) {
    case QAccessible::TextCaretMoved:
        return "caret " +
               std::to_string(
                   static_cast<const QAccessibleTextCursorEvent&>(event).cursorPosition());
    case QAccessible::TextSelectionChanged: {
        const auto& selection = static_cast<const QAccessibleTextSelectionEvent&>(event);
        return "selection " + std::to_string(selection.selectionStart()) + ' ' +
               std::to_string(selection.selectionEnd());
    }
    case QAccessible::TextUpdated: {
        const auto& update = static_cast<const QAccessibleTextUpdateEvent&>(event);
        CHECK(update.changePosition() == 0);
        return "text " + Quoted(update.textRemoved()) + ' ' + Quoted(update.textInserted());
    }
    case QAccessible::DocumentLoadComplete: return "loaded";
    case QAccessible::Focus: return "focus";
    case QAccessible::NameChanged: return "name";
    default: return {};
    }
}

void Listen(QAccessibleEvent* event) {
    seen += event->type() == QAccessible::VisibleDataChanged;
    const std::string told = Described(*event);
    if (!told.empty()) heard += (heard.empty() ? "" : ", ") + told;
}

void SetListening(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

struct ListeningBench : QtViewBench {
    ListeningBench() {
        SetListening(true);
        QAccessible::installUpdateHandler(Listen);
        heard.clear();
        seen = 0;
    }
    ~ListeningBench() {
        QAccessible::installUpdateHandler(nullptr);
        SetListening(false);
    }
    std::string Heard() { return std::exchange(heard, {}); }
    QAccessibleTextInterface& Text() {
        return *QAccessible::queryAccessibleInterface(&Widget())->textInterface();
    }
};

bool BecomesSeen() {
    QElapsedTimer time;
    time.start();
    while (seen == 0 && time.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return seen > 0;
}

// A text of 1,500 million units that nobody holds: the number of each line is in it.
class EndlessText : public TextSource {
  public:
    static constexpr TextPos lineLength = 64, pieceUnits = 64 * 1024;

    TextPos Length() const override { return 1'500'000'000 / pieceUnits * pieceUnits; }
    TextPiece PieceAt(TextPos position) const override {
        ++pieces;
        const TextPos start = position / pieceUnits * pieceUnits;
        if (start != start_ || units_.empty()) {
            units_.clear();
            for (TextPos at = start; at < start + pieceUnits; at += lineLength)
                units_ += Line(at / lineLength);
            start_ = start;
        }
        return {start, units_};
    }
    TextPos FindWhile(std::u16string_view, TextPos, FindOptions,
                      const std::function<bool()>&) const override {
        return -1;
    }

    static std::u16string Line(TextPos number) {
        std::u16string line =
            QStringLiteral("This is line %1 of the text.").arg(number).toStdU16String();
        line.resize(lineLength - 1, u'.');
        return line + u'\n';
    }

    mutable int pieces = 0; // asked for

  private:
    mutable std::u16string units_;
    mutable TextPos start_ = -1;
};
} // namespace

TEST_CASE("accessible events: caret and selection are told when they change, and only then") {
    ListeningBench bench;
    bench.view.LoadPlainText(u"one two three\nfour");
    bench.Heard();
    bench.Press(Qt::Key_Right);
    CHECK(bench.Heard() == "caret 1");
    bench.Press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    CHECK(bench.Heard() == "caret 4, selection 1 4");
    bench.view.Select(1, 3); // as it is
    CHECK(bench.Heard() == "");
    bench.Press(Qt::Key_End);
    CHECK(bench.Heard() == "caret 13, selection 13 13");
    bench.Text().setSelection(0, 14, 16);
    CHECK(bench.Heard() == "caret 16, selection 14 16");
    bench.Text().removeSelection(0);
    CHECK(bench.Heard() == "selection 16 16");
    bench.view.SetName(u"A Book");
    CHECK(bench.Heard() == "name");
}

TEST_CASE("accessible events: another text is told, the beginning of a long one") {
    ListeningBench bench;
    bench.view.LoadPlainText(u"the old text");
    CHECK(bench.Heard() == "text \"\" \"the old text\", loaded");
    bench.view.Select(4, 3);
    bench.Heard();
    bench.view.LoadPlainText(u"");
    CHECK(bench.Heard() == "text \"the old text\" \"\", caret 0, selection 0 0");
    bench.view.LoadPlainText(u"");
    CHECK(bench.Heard() == "");
    bench.view.LoadRichText("{\\rtf1 new}", 1252);
    CHECK(bench.Heard() == "text \"\" \"new\", loaded");
    bench.view.LoadText(std::make_shared<EndlessText>());
    const std::string last = bench.Heard();
    CHECK(last.starts_with("text \"new\" \"This is line 0 "));
    CHECK(last.size() < 5000);
}

TEST_CASE("accessible events: scrolling is told, but not at every step") {
    ListeningBench bench;
    bench.view.LoadPlainText(RepeatedText(u"A line of the book.\n", 2000));
    REQUIRE(BecomesSeen());
    seen = 0;
    for (int i = 0; i < 100; ++i)
        bench.Press(Qt::Key_Space);
    CHECK(seen == 0); // not yet
    REQUIRE(BecomesSeen());
    CHECK(seen == 1);
}

TEST_CASE("accessible events: the keyboard's coming back from a menu is told") {
    ListeningBench bench;
    bench.Heard();
    QFocusEvent fromMenu(QEvent::FocusIn, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&bench.Widget(), &fromMenu);
    CHECK(bench.Heard() == "focus");
}

TEST_CASE("accessible events: nothing is read for them while nobody listens") {
    ListeningBench bench;
    const auto text = std::make_shared<EndlessText>();
    SetListening(false);
    bench.view.LoadText(text);
    bench.view.LoadText(text);
    CHECK(text->pieces == 0);
    SetListening(true);
    bench.view.LoadText(text);
    CHECK(text->pieces > 0);
}

TEST_CASE("accessible text: a very long text is told in parts, each as fast as of a short one") {
    QtViewBench bench;
    const auto text = std::make_shared<EndlessText>();
    bench.view.LoadText(text);
    QAccessibleTextInterface& told =
        *QAccessible::queryAccessibleInterface(&bench.Widget())->textInterface();
    const int length = text->Length(), middle = length / 2 / 64 * 64;
    CHECK(told.characterCount() == length);
    text->pieces = 0;
    const int layouts = bench.view.LayoutsMade();

    CHECK(told.text(0, -1).size() == AccessibleText::maxAnswerLength);
    CHECK(told.text(middle, length).size() == AccessibleText::maxAnswerLength);
    CHECK(told.text(length - 100, -1).size() == 100);
    int start = 0, end = 0;
    const QString line = QString::fromStdU16String(EndlessText::Line(middle / 64));
    CHECK(told.textAtOffset(middle + 10, QAccessible::ParagraphBoundary, &start, &end) == line);
    CHECK(start == middle);
    CHECK(end == middle + 64);
    CHECK(told.textAtOffset(middle, QAccessible::WordBoundary, &start, &end) == "This ");
    CHECK(told.textAfterOffset(middle, QAccessible::WordBoundary, &start, &end) == "is ");
    CHECK(told.textBeforeOffset(middle, QAccessible::CharBoundary, &start, &end) == "\n");
    CHECK(
        told.textAtOffset(middle + 3, QAccessible::LineBoundary, &start, &end).startsWith("This"));
    const QString all = told.textAtOffset(middle, QAccessible::NoBoundary, &start, &end);
    CHECK(all.size() == AccessibleText::maxAnswerLength);
    CHECK(start <= middle);
    CHECK(end > middle);
    CHECK(told.attributes(middle, &start, &end).contains("font-size"));
    told.setCursorPosition(length);
    told.setSelection(0, 0, length);
    CHECK(text->pieces < 2000);
    CHECK(bench.view.LayoutsMade() - layouts < 200);
}

TEST_CASE("accessible text: asking for a long text's characters one by one lays nothing out") {
    QtViewBench bench;
    const auto text = std::make_shared<EndlessText>();
    bench.view.LoadText(text);
    QAccessibleTextInterface& told =
        *QAccessible::queryAccessibleInterface(&bench.Widget())->textInterface();
    told.characterRect(0);
    text->pieces = 0;
    const int layouts = bench.view.LayoutsMade();
    QRect all;
    for (int at = 100'000; at < 1'100'000; ++at)
        all |= told.characterRect(at);
    CHECK(all.top() > bench.Widget().height());
    CHECK(text->pieces == 0);
    CHECK(bench.view.LayoutsMade() == layouts);
}
