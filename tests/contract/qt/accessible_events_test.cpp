// Accessibility events of the text view, and their cost for a very long text.
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
// Events since the last call of Events(), and the number of VisibleDataChanged.
std::string events;
int visible = 0;

std::string Quoted(const QString& text) {
    return '"' + text.toStdString() + '"';
}

std::string Describe(const QAccessibleEvent& event) {
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
    visible += event->type() == QAccessible::VisibleDataChanged;
    const std::string accessible = Describe(*event);
    if (!accessible.empty()) events += (events.empty() ? "" : ", ") + accessible;
}

void SetListening(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

struct ListeningBench : QtViewBench {
    ListeningBench() {
        SetListening(true);
        QAccessible::installUpdateHandler(Listen);
        events.clear();
        visible = 0;
    }
    ~ListeningBench() {
        QAccessible::installUpdateHandler(nullptr);
        SetListening(false);
    }
    std::string Events() { return std::exchange(events, {}); }
    QAccessibleTextInterface& Text() {
        return *QAccessible::queryAccessibleInterface(&Widget())->textInterface();
    }
};

bool BecomesSeen() {
    QElapsedTimer time;
    time.start();
    while (visible == 0 && time.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return visible > 0;
}

// 1,500 million units, generated on demand: each line contains its number.
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

    mutable int pieces = 0; // requested

  private:
    mutable std::u16string units_;
    mutable TextPos start_ = -1;
};
} // namespace

TEST_CASE("accessible events: caret and selection are sent when they change, and only then") {
    ListeningBench bench;
    bench.view.LoadPlainText(u"one two three\nfour");
    bench.Events();
    bench.Press(Qt::Key_Right);
    CHECK(bench.Events() == "caret 1");
    bench.Press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    CHECK(bench.Events() == "caret 4, selection 1 4");
    bench.view.Select(1, 3); // unchanged
    CHECK(bench.Events() == "");
    bench.Press(Qt::Key_End);
    CHECK(bench.Events() == "caret 13, selection 13 13");
    bench.Text().setSelection(0, 14, 16);
    CHECK(bench.Events() == "caret 16, selection 14 16");
    bench.Text().removeSelection(0);
    CHECK(bench.Events() == "selection 16 16");
    bench.view.SetName(u"A Book");
    CHECK(bench.Events() == "name");
}

TEST_CASE("accessible events: a new text is sent, the beginning of a long one") {
    ListeningBench bench;
    bench.view.LoadPlainText(u"the old text");
    CHECK(bench.Events() == "text \"\" \"the old text\", loaded");
    bench.view.Select(4, 3);
    bench.Events();
    bench.view.LoadPlainText(u"");
    CHECK(bench.Events() == "text \"the old text\" \"\", caret 0, selection 0 0");
    bench.view.LoadPlainText(u"");
    CHECK(bench.Events() == "");
    bench.view.LoadRichText("{\\rtf1 new}", 1252);
    CHECK(bench.Events() == "text \"\" \"new\", loaded");
    bench.view.LoadText(std::make_shared<EndlessText>());
    const std::string last = bench.Events();
    CHECK(last.starts_with("text \"new\" \"This is line 0 "));
    CHECK(last.size() < 5000);
}

TEST_CASE("accessible events: scrolling is sent, but not at every step") {
    ListeningBench bench;
    bench.view.LoadPlainText(RepeatedText(u"A line of the book.\n", 2000));
    REQUIRE(BecomesSeen());
    visible = 0;
    for (int i = 0; i < 100; ++i)
        bench.Press(Qt::Key_Space);
    CHECK(visible == 0); // scheduled only
    REQUIRE(BecomesSeen());
    CHECK(visible == 1);
}

TEST_CASE("accessible events: a focus event is sent when a menu returns the focus") {
    ListeningBench bench;
    bench.Events();
    QFocusEvent fromMenu(QEvent::FocusIn, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&bench.Widget(), &fromMenu);
    CHECK(bench.Events() == "focus");
}

TEST_CASE("accessible events: the text is not read for events while no client is active") {
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

TEST_CASE("accessible text: parts of a very long text are read as fast as of a short one") {
    QtViewBench bench;
    const auto text = std::make_shared<EndlessText>();
    bench.view.LoadText(text);
    QAccessibleTextInterface& accessible =
        *QAccessible::queryAccessibleInterface(&bench.Widget())->textInterface();
    const int length = text->Length(), middle = length / 2 / 64 * 64;
    CHECK(accessible.characterCount() == length);
    text->pieces = 0;
    const int layouts = bench.view.LayoutsMade();

    CHECK(accessible.text(0, -1).size() == maxReadingReach);
    CHECK(accessible.text(middle, length).size() == maxReadingReach);
    CHECK(accessible.text(length - 100, -1).size() == 100);
    int start = 0, end = 0;
    const QString line = QString::fromStdU16String(EndlessText::Line(middle / 64));
    CHECK(accessible.textAtOffset(middle + 10, QAccessible::ParagraphBoundary, &start, &end) ==
          line);
    CHECK(start == middle);
    CHECK(end == middle + 64);
    CHECK(accessible.textAtOffset(middle, QAccessible::WordBoundary, &start, &end) == "This ");
    CHECK(accessible.textAfterOffset(middle, QAccessible::WordBoundary, &start, &end) == "is ");
    CHECK(accessible.textBeforeOffset(middle, QAccessible::CharBoundary, &start, &end) == "\n");
    CHECK(accessible.textAtOffset(middle + 3, QAccessible::LineBoundary, &start, &end)
              .startsWith("This"));
    const QString all = accessible.textAtOffset(middle, QAccessible::NoBoundary, &start, &end);
    CHECK(all.size() == maxReadingReach);
    CHECK(start <= middle);
    CHECK(end > middle);
    CHECK(accessible.attributes(middle, &start, &end).contains("font-size"));
    accessible.setCursorPosition(length);
    accessible.setSelection(0, 0, length);
    CHECK(text->pieces < 2000);
    CHECK(bench.view.LayoutsMade() - layouts < 200);
}

TEST_CASE("accessible text: reading a long text by character lays nothing out") {
    QtViewBench bench;
    const auto text = std::make_shared<EndlessText>();
    bench.view.LoadText(text);
    QAccessibleTextInterface& accessible =
        *QAccessible::queryAccessibleInterface(&bench.Widget())->textInterface();
    accessible.characterRect(0);
    text->pieces = 0;
    const int layouts = bench.view.LayoutsMade();
    QRect all;
    for (int at = 100'000; at < 1'100'000; ++at)
        all |= accessible.characterRect(at);
    CHECK(all.top() > bench.Widget().height());
    CHECK(text->pieces == 0);
    CHECK(bench.view.LayoutsMade() == layouts);
}
