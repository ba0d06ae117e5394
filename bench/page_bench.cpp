// What a page costs in our own view on Qt, without a screen: from its file to its first screen, at
// a place within it, and at its end.
//
//   page_bench [folder of books]        War and Peace as a page is looked for there
//   page_bench PAGE...                  these pages alone
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "formats/html/html_reader.h"
#include "platform/qt/html_view/html_widget.h"

#include <QApplication>
#include <QPixmap>

#include <ctime>
#include <functional>

namespace {
constexpr int windowsLatin = 1252;
constexpr int minRuns = 3;

// Milliseconds of the processor, the least of some runs: the machine may have other work.
template <typename Work>
double ProcessorTime(Work work) {
    double least = 0;
    for (int run = 0; run < minRuns; ++run) {
        const std::clock_t start = std::clock();
        work();
        const double time = 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        if (run == 0 || time < least) least = time;
    }
    return least;
}

class View {
  public:
    explicit View(const std::filesystem::path& page) : path_(Utf8ToUtf16(page.string())) {
        widget_.resize(1150, 800);
        widget_.show();
    }
    void Open() {
        std::string bytes;
        files_.Read(path_, std::uint64_t{1} << 30, bytes);
        Pane().Show(std::make_unique<LoadedPage>(path_, bytes, windowsLatin));
    }
    void Paint() { widget_.render(&screen_); } // into the same pixels each time
    PagePane& Pane() { return widget_.Pane(); }

  private:
    std::u16string path_;
    PosixFiles files_;
    HtmlWidget widget_{nullptr, files_};
    QPixmap screen_{1150, 800};
};

void BenchPage(const char* title, const std::filesystem::path& page) {
    const std::string bytes = ReadFile(page);
    TableHead(title, "its tree");
    const double tree = ProcessorTime([&] { Keep(ReadHtmlFile(bytes, 0, windowsLatin)); });
    Row("bytes to tree (the peer)", tree, tree);
    View view(page);
    const auto open = [&](const std::function<void()>& go) {
        return ProcessorTime([&] {
            view.Open();
            go();
            view.Paint();
        });
    };
    Row("file to first screen", open([] {}), tree);
    const auto at = [&](double part) {
        view.Pane().ScrollLineToTop(TextPos(part * view.Pane().Page()->Length()));
    };
    Row("at the words in its middle", open([&] { at(0.5); }), tree);
    Row("at its last words", open([&] { at(0.999); }), tree);
    Row("at the end, by its height", open([&] { view.Pane().ScrollToPercent(100); }), tree);
    Row("one screen more", ProcessorTime([&] {
            view.Pane().PageDown();
            view.Paint();
        }),
        tree);
}

std::string Paragraphs(int count) {
    std::string page = "<!DOCTYPE html><title>Long</title>";
    for (int i = 0; i < count; ++i) {
        page += "<p>Paragraph <b>" + std::to_string(i) + "</b> of a page";
        for (int word = 0; word < 55; ++word)
            page += " word" + std::to_string(word % 10);
        page += "</p>\n";
    }
    return page;
}

std::string Pictures(int count) {
    std::string page = "<!DOCTYPE html>";
    for (int i = 0; i < count; ++i)
        page += "<p><img src='p" + std::to_string(i % 50) + ".png'></p>\n";
    return page;
}

// One of 50 MB, one of pictures alone, and one with much style.
void BenchMadePages() {
    const TemporaryFolder folder;
    WriteFile(folder.path / "long.htm", Paragraphs(130'000));
    BenchPage("A page of 130,000 paragraphs", folder.path / "long.htm");
    QPixmap picture(200, 150);
    picture.fill(Qt::red);
    for (int i = 0; i < 50; ++i)
        picture.save(QString::fromStdString(folder.path / ("p" + std::to_string(i) + ".png")));
    WriteFile(folder.path / "pictures.htm", Pictures(10'000));
    BenchPage("A page of 10,000 pictures", folder.path / "pictures.htm");
    std::string sheet = "<!DOCTYPE html><style>";
    for (int i = 0; sheet.size() < 10'000'000; ++i)
        sheet +=
            ".c" + std::to_string(i) + " p{margin:" + std::to_string(i % 9) + "px;color:red}\n";
    WriteFile(folder.path / "styled.htm", sheet + "</style>" + Paragraphs(2'000));
    BenchPage("A page with 10 MB of style sheet", folder.path / "styled.htm");
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const std::filesystem::path books = argc > 1 ? argv[1] : "../shared/books";
    if (argc > 1 && !std::filesystem::is_directory(books)) {
        for (int i = 1; i < argc; ++i)
            BenchPage(argv[i], argv[i]);
        return 0;
    }
    const std::filesystem::path book = books / "htm/War and Peace.htm";
    if (std::filesystem::exists(book)) BenchPage("War and Peace", book);
    BenchMadePages();
    return 0;
}
