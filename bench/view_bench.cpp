// What the text view on Qt costs, without a screen: opening, and whatever must be one screen's work
// on a book of any size.
//
//   view_bench [folder of books]     War and Peace as text is looked for there
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "formats/plain/plain_text_source.h"
#include "platform/qt/text_view/qt_text_view.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QWheelEvent>

#include <algorithm>
#include <cstring>
#include <functional>

namespace {
constexpr int windowsLatin = 1252;
constexpr std::size_t longBook = 100'000'000; // bytes
const std::string lastWord = "quodlibetical";

class View {
  public:
    explicit View(const std::filesystem::path& book) : path_(Utf8ToUtf16(book.string())) {
        view.SetBounds({0, 0, 1150, 800});
        view.SetVisible(true);
        Open();
    }
    void Open() {
        ReadStatus status;
        const std::shared_ptr<const FileReader> file = PosixFiles().Open(path_, status);
        view.LoadText(std::make_shared<PlainTextSource>(file, windowsLatin, windowsLatin));
        Paint();
    }
    void Paint() {
        Widget().render(&page_); // into the same pixels each time, as on a screen
    }
    void Press(int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&Widget(), &event);
        Paint();
    }
    void TurnWheel() {
        const QPoint middle = Widget().rect().center();
        QWheelEvent event(middle, Widget().mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Widget().viewport(), &event);
        Paint();
    }
    void Show(TextPos position) {
        view.ScrollLineToTop(position);
        Paint();
    }
    QAbstractScrollArea& Widget() const {
        return static_cast<QAbstractScrollArea&>(*view.Widget());
    }

    QtTextView view{nullptr};

  private:
    std::u16string path_;
    QPixmap page_{1150, 800};
};

// Each turn does what the one before undid.
struct Step {
    const char* name;
    std::function<void(View&, int turn)> work;
};

const Step steps[] = {
    {"a font step",
     [](View& view, int turn) {
         view.view.SetFont({u"", 12.0 + turn % 2});
         view.Paint();
     }},
    {"word wrap off, on",
     [](View& view, int turn) {
         view.view.SetRightMargin(turn % 2 ? 491520 : 0);
         view.Paint();
     }},
    {"a change of size",
     [](View& view, int turn) {
         view.view.SetBounds({0, 0, 1000 + turn % 2 * 100, 800});
         view.Paint();
     }},
    {"Ctrl+End, Ctrl+Home",
     [](View& view, int turn) {
         view.Press(turn % 2 ? Qt::Key_End : Qt::Key_Home, Qt::ControlModifier);
     }},
    {"a jump to another place",
     [](View& view, int turn) {
         const auto length = static_cast<std::int64_t>(view.view.TextLength());
         view.Show(static_cast<TextPos>(length * (turn * 37 % 100) / 100));
     }},
};

void BenchSteps(const char* title, const std::filesystem::path& book) {
    View view(book);
    TableHead(title, "opening it");
    const double opening = Time([&] { view.Open(); });
    Row("open it and show the first page (the peer)", opening, opening);
    view.Show(view.view.TextLength() / 2);
    for (const Step& step : steps) {
        int turn = 0;
        Row(step.name, Time([&] { step.work(view, turn++); }), opening);
    }
}

void BenchWheel(const std::filesystem::path& book) {
    View view(book);
    using Ticks = std::chrono::steady_clock;
    double longest = 0, sum = 0;
    int frames = 0, late = 0;
    for (TextPos before = -1; before != view.view.FirstVisibleChar(); ++frames) {
        before = view.view.FirstVisibleChar();
        const auto start = Ticks::now();
        view.TurnWheel();
        const double time = std::chrono::duration<double, std::milli>(Ticks::now() - start).count();
        longest = std::max(longest, time);
        late += time > 16;
        sum += time;
    }
    std::printf("\nThrough War and Peace by wheel: %d notches, %.2f ms each, the longest %.1f, "
                "%d above 16\n",
                frames, sum / frames, longest, late);
}

void BenchFind(const std::filesystem::path& book) {
    const View view(book);
    const std::string bytes = ReadFile(book);
    TableHead("Finding a word that stands only at the end of 100 MB", "memmem over its bytes");
    const std::string* volatile all = &bytes; // read again, else the compiler searches once only
    const void* volatile place = nullptr;
    const double memory =
        Time([&] { place = memmem(all->data(), all->size(), lastWord.data(), lastWord.size()); });
    volatile std::size_t found = 0;
    Row("memmem (the peer)", memory, memory);
    Row("std::string::find", Time([&] { found = all->find(lastWord); }), memory);
    for (const bool matchCase : {true, false})
        for (const bool wholeWord : {false, true}) {
            const std::string name = std::string(matchCase ? "match case" : "any case") +
                                     (wholeWord ? ", whole word" : "");
            Row(name.c_str(), Time([&] {
                    Keep(view.view.Find(Utf8ToUtf16(lastWord), 0, {wholeWord, matchCase}));
                }),
                memory);
        }
}

std::filesystem::path LongBook(const std::filesystem::path& folder, const std::string& text) {
    std::string bytes;
    while (bytes.size() < longBook)
        bytes += text;
    bytes.resize(longBook);
    WriteFile(folder / "long.txt", bytes + "\n" + lastWord + "\n");
    return folder / "long.txt";
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::filesystem::path books = argc > 1 ? argv[1] : "../shared/books";
    const auto book = books / "txt/War and Peace.txt";
    const std::string text = ReadFile(book);
    if (text.empty()) {
        Note("left out: no War and Peace in " + books.string());
        return 0;
    }
    const TemporaryFolder folder;
    const auto longer = LongBook(folder.path, text);
    BenchSteps("War and Peace", book);
    BenchWheel(book);
    BenchSteps("A text of 100 MB", longer);
    BenchFind(longer);
    return 0;
}
