// The book record: any bytes as the rest of a record, and as the whole data file, of a program that
// starts, saves, ends and starts again.
#include "app/main_form.h"
#include "app/start_up.h"
#include "books/book_record.h"
#include "books/history.h"
#include "platform/none/none_ports.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

constexpr const char16_t* dataPath = u"/app/Norvaset.dat";
constexpr const char16_t* bookPath = u"/b/book.txt";

void CheckRecord(std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes)
        text += static_cast<unsigned char>(byte);
    const BookRecord record = BookRecord::Parse(text);
    Require(BookRecord::Parse(record.ToText()) == record);
}

// Runs the program once on a data file, and leaves the file as the program did.
void Run(std::string& dataFile, bool bookIsFirst) {
    MainForm form(MakeNonePorts());
    auto& files = static_cast<NoneFiles&>(*form.ports.files);
    files.AddFile(dataPath, dataFile);
    files.AddFile(bookPath, "Once upon a time there was\na book.\n");
    Require(Form_Load(form));
    if (bookIsFirst) Require(GetBookPath(form.history, 0) == bookPath);
    auto& html = static_cast<NoneHtmlView&>(*form.ports.htmlView); // the record may say so
    html.pages[bookPath] = {
        u"Once upon a time there was\na book.", u"A = B", "windows-1251", true, {}};
    if (!html.navigations.empty()) html.FinishLoading();
    static_cast<NoneTimer&>(*form.ports.saveTimer).Tick(60);
    form.ports.window->Close();
    dataFile = files.Bytes(dataPath);
}

// A record that line ends cannot cut: it stays the one of its book.
void CheckProgram(std::string_view bytes) {
    std::string dataFile = "[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/book.txt=";
    for (const char byte : bytes)
        dataFile += byte == '\r' || byte == '\n' || byte == '\0' ? ' ' : byte;
    dataFile += "\r\n";
    Run(dataFile, true);
    Run(dataFile, true);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckRecord(bytes);
    CheckProgram(bytes);
    std::string dataFile(bytes);
    Run(dataFile, false);
    Run(dataFile, false);
    return 0;
}
