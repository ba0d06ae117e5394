// What the core's work costs, each beside a peer on the same bytes in the same run.
//
//   core_bench [folder of books]        War and Peace as text and as rich text are looked for there
#include "app/book_state.h"
#include "app/data_file.h"
#include "app/main_form.h"
#include "app/start_up.h"
#include "bench/bench_folder.h"
#include "bench/stopwatch.h"
#include "books/book_record.h"
#include "books/history.h"
#include "common/text.h"
#include "datafile/list_persistence.h"
#include "formats/plain/plain_text.h"
#include "formats/rtf/rtf_reader.h"

#include <filesystem>

namespace {

constexpr int books = 5000;
constexpr int windowsLatin = 1252;
const std::u16string section = u"Default\\mFileList";

// Many small books, and the data file that remembers them all.
void MakeHistory(const std::filesystem::path& folder) {
    std::string data = "[mProfileList]\r\n0=Default\r\n[Default\\mFileList]\r\n";
    for (int i = 0; i < books; ++i) {
        const auto book = folder / ("A book of some length, volume " + std::to_string(i) + ".txt");
        WriteFile(book, "Once upon a time.\n");
        data += book.string() + "=2026:11:21:10:20:30=0=Noto Sans=12=0=0=0=0=0=1=0=0=16777215=" +
                std::to_string(i * 17) + "=18=A title=" + std::to_string(i) + ",5|\r\n";
    }
    WriteFile(folder / "Norvaset.dat", data);
}

std::u16string DecodeLatin(int, std::string_view bytes) {
    return std::u16string(bytes.begin(), bytes.end());
}

void BenchAutosave(const std::filesystem::path& folder) {
    MainForm form(PortsIn(folder));
    if (!Form_Load(form)) return;
    Files& files = *form.ports.files;
    const std::string data = ReadFile(folder / "Norvaset.dat");
    const std::u16string spare = Utf8ToUtf16((folder / "peer.dat").string());

    TableHead("Autosave with 5,000 books, of which it writes the first", "plain write");
    // The peer: the same bytes written, flushed and renamed, and nothing else.
    const double peer = Time([&] { files.Replace(spare, data, WriteTime::Now); });
    // Each run has another title to save; so the record always differs.
    int number = 0;
    const auto autosave = [&] {
        BookRecord record = BookRecord::Parse(form.menu.mFileList[0].tag);
        record[Field::Title] = NumberText(++number);
        form.menu.mFileList[0].tag = record.ToText();
        SaveBookState(form, 0);
    };
    Row("the whole (SaveBookState)", Time(autosave), peer);
    {
        const IniBatch inMemory(*form.dataFile);
        Row("  all of it but the write", Time(autosave), peer);
    }
    Row("  the write: write, flush, rename, flush (the peer)", peer, peer);
    Row("  of which without the flushes", Time([&] { WriteFile(folder / "unflushed.dat", data); }),
        peer);

    ProfileFile file = ProfileFile::Parse(data, windowsLatin, DecodeLatin);
    const std::u16string first = GetBookPath(form.history, 0),
                         last = GetBookPath(form.history, books - 1);
    Row("find and compare the first record", Time([&] { Keep(file.Value(section, first)); }), peer);
    Row("find and compare the last record", Time([&] { Keep(file.Value(section, last)); }), peer);
    int edits = 0;
    Row("edit the first record in memory",
        Time([&] { file.SetValue(section, first, NumberText(++edits)); }), peer);
    Row("edit the last record in memory",
        Time([&] { file.SetValue(section, last, NumberText(++edits)); }), peer);
}

void BenchStartUp(const std::filesystem::path& folder) {
    const std::string data = ReadFile(folder / "Norvaset.dat");
    TableHead("Start-up with 5,000 books", "copying the data file");
    const double copy = Time([&] { Keep(std::string(data)); });
    Row("parse the data file", Time([&] { ProfileFile::Parse(data, windowsLatin, DecodeLatin); }),
        copy);

    MainForm form(PortsIn(folder));
    if (!Form_Load(form)) return;
    const auto records = LoadSectionLines(*form.dataFile, section);
    Row("list the records", Time([&] { Keep(LoadSectionLines(*form.dataFile, section)); }), copy);
    Row("fill the menu: captions and a look at each file",
        Time([&] { FillHistory(form.history, records); }), copy);
    const Files& files = *form.ports.files;
    Row("  of which the looks at the files", Time([&] {
            for (int i = 0; i < form.history.Count(); ++i)
                Keep(files.FileExists(GetBookPath(form.history, i)));
        }),
        copy);
}

void BenchBooks(const std::filesystem::path& folder) {
    const std::string text = ReadFile(folder / "txt/War and Peace.txt");
    const std::string rich = ReadFile(folder / "rtf/War and Peace (word processor).rtf");
    TableHead("Reading War and Peace", "memcpy");
    if (text.empty() || rich.empty()) {
        Note("left out: no such books in " + folder.string());
        return;
    }
    const double textCopy = Time([&] { Keep(std::string(text)); });
    const double richCopy = Time([&] { Keep(std::string(rich)); });
    const auto decode = [&] { Keep(DecodePlainText(text, windowsLatin, windowsLatin)); };
    RowOf("decode UTF-8", Time(decode), textCopy, text.size());
    RowOf("copy its bytes (the peer)", textCopy, textCopy, text.size());
    RowOf("read RTF", Time([&] { Keep(ReadRtf(rich, windowsLatin)); }), richCopy, rich.size());
    RowOf("copy its bytes (the peer)", richCopy, richCopy, rich.size());
}

} // namespace

int main(int argc, char** argv) {
    const TemporaryFolder folder;
    MakeHistory(folder.path);
    BenchStartUp(folder.path);
    BenchAutosave(folder.path);
    BenchBooks(argc > 1 ? argv[1] : "../shared/books");
    return 0;
}
