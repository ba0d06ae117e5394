// What commands cost: changing the profile, defining a bookmark, finding a word.
//
//   command_bench [folder of books]     War and Peace as text is looked for there
#include "app/book_state.h"
#include "app/data_file.h"
#include "app/main_form.h"
#include "app/open_book.h"
#include "app/start_up.h"
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "books/history.h"
#include "common/find_text.h"
#include "common/text.h"
#include "formats/plain/plain_text.h"
#include "reading/bookmarks.h"

#include <filesystem>
#include <string>

namespace {

constexpr int books = 5000, marks = 1000, windowsLatin = 1252;

std::string HistoryOf(const std::filesystem::path& folder, const std::string& profile) {
    std::string section = "[" + profile + "\\mFileList]\r\n";
    for (int i = 0; i < books; ++i) {
        const auto book = folder / (profile + ", volume " + std::to_string(i) + ".txt");
        WriteFile(book, "Once upon a time.\n");
        section += book.string() +
                   "=2026:11:21:10:20:30=0=Noto Sans=12=0=0=0=0=0=1=0=0=16777215=0=18==\r\n";
    }
    return section;
}

// There and back: two changes, each with 5,000 books on both sides.
void BenchProfiles() {
    const TemporaryFolder folder;
    WriteFile(folder.path / "Norvaset.dat", "[mProfileList]\r\n0=Ann\r\n1=Ben\r\n" +
                                                HistoryOf(folder.path, "Ann") +
                                                HistoryOf(folder.path, "Ben"));
    MainForm form(PortsIn(folder.path));
    if (!Form_Load(form)) return;
    TableHead("Changing the profile, 5,000 books in each", "looking at 5,000 files");
    const double looks = Time([&] {
        for (int i = 0; i < form.history.Count(); ++i)
            Keep(form.ports.files->FileExists(GetBookPath(form.history, i)));
    });
    auto& menus = static_cast<NoneMenuBar&>(*form.ports.menuBar);
    // The profile that was left is second.
    Row("one change (mProfileList_Click)", Time([&] { menus.Click(form.menu.mProfileList, 1); }),
        looks);
    Row("look at each file of one history (the peer)", looks, looks);
}

// The book's line of the history, with 1,000 marks.
std::string LineOfMarkedBook(const std::filesystem::path& book) {
    std::string places;
    for (int i = 1; i <= marks; ++i)
        places += std::to_string(i * 3000) + ",40|";
    return book.string() +
           "=2026:11:21:10:20:30=0=Noto Sans=12=0=0=0=0=0=1=0=0=16777215=0=18==" + places + "\r\n";
}

// A book of its own with 1,000 marks, and one more that comes and goes.
void BenchBookmarks(const std::string& text) {
    const TemporaryFolder folder;
    const auto book = folder.path / "book.txt";
    WriteFile(book, text);
    WriteFile(folder.path / "Norvaset.dat",
              "[mProfileList]\r\n0=Ann\r\n[Ann\\mFileList]\r\n" + LineOfMarkedBook(book));
    MainForm form(PortsIn(folder.path));
    if (!Form_Load(form)) return;
    auto& menus = static_cast<NoneMenuBar&>(*form.ports.menuBar);
    form.ports.textView->Select(1500, 20);
    menus.Open(form.menu.mBookmark);
    TableHead("A bookmark in War and Peace, which has 1,000", "a copy of the text");
    const double copy = Time([&] { Keep(std::string(text)); });
    Row("define one and delete it again", Time([&] {
            menus.Click(form.menu.mBookmarkNew);
            menus.Click(form.menu.mBookmarkDeleteList, 0);
        }),
        copy);
}

// What each minute costs: the record, the words around the place, and the whole file written.
void BenchAutosave(const std::string& text) {
    const TemporaryFolder folder;
    const auto book = folder.path / "book.txt";
    WriteFile(book, text);
    const std::string sections = HistoryOf(folder.path, "Ann");
    WriteFile(folder.path / "Norvaset.dat",
              "[mProfileList]\r\n0=Ann\r\n" + sections + LineOfMarkedBook(book));
    MainForm form(PortsIn(folder.path));
    if (!Form_Load(form)) return;
    OpenBook(form, Utf8ToUtf16(book.string()));
    SaveBookState(form, 0); // the words around the bookmarks, once
    const std::string file = ReadFile(folder.path / "Norvaset.dat");
    TableHead("Autosave, 5,000 books, 1,000 bookmarks in War and Peace", "writing the file");
    const double write = Time([&] {
        form.ports.files->Replace(form.DataFilePath, file, WriteTime::Keep);
        Keep(form.dataFile->Content().ToBytes().size());
    });
    int line = 0;
    Row("SaveBookState at another place", Time([&] {
            form.ports.textView->ScrollLineToTop(++line * 1000);
            SaveBookState(form, 0);
        }),
        write);
    Row("write the file and read it again (the peer)", write, write);
}

void BenchFind(const std::string& bytes) {
    const std::u16string text =
        DecodePlainText(bytes, windowsLatin, windowsLatin).text + u"\nquodlibetical";
    const std::u16string_view word = u"quodlibetical";
    TableHead("Finding a word that stands only at the end of War and Peace", "a plain search");
    // Read and written for all to see, else the compiler leaves the search out.
    const std::u16string* volatile place = &text;
    volatile std::size_t found = 0;
    const double plain = Time([&] { found = place->find(word); });
    Row("std::u16string::find (the peer)", plain, plain);
    for (const bool matchCase : {true, false})
        for (const bool wholeWord : {false, true}) {
            const std::string name = std::string(matchCase ? "match case" : "any case") +
                                     (wholeWord ? ", whole word" : "");
            Row(name.c_str(), Time([&] {
                    Keep(FindText(text, word, 0, {wholeWord, matchCase}));
                }),
                plain);
        }
}

} // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : "../shared/books";
    BenchProfiles();
    const std::string text = ReadFile(folder / "txt/War and Peace.txt");
    if (text.empty()) {
        Note("bookmarks and find left out: no War and Peace in " + folder.string());
        return 0;
    }
    BenchBookmarks(text);
    BenchAutosave(text);
    BenchFind(text);
    return 0;
}
