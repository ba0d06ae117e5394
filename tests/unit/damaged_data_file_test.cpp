// The program on data files that are damaged, edited by hand or not of its own making.
#include "test_form.h"

#include "app/open_book.h"

#include <doctest/doctest.h>

#include <random>

namespace {
const std::string record =
    "/b/a.txt=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=7=2048==\r\n";
const std::string profile = "[mProfileList]\r\n0=A\r\n";
const std::string history = "[A\\mFileList]\r\n" + record;

std::u16string FirstBook(const std::string& dataFile) {
    TestForm test;
    test.PutDataFile(dataFile);
    test.PutBook(u"/b/a.txt", NumberedLines(50));
    if (!test.Start()) return u"did not start";
    test.Timer().Tick(60);
    test.Close();
    TestForm next(test);
    return next.Start() ? GetBookPath(next.form.history, 0) : u"did not start again";
}
} // namespace

TEST_CASE("damaged data file: the reader starts and keeps every record it can read") {
    const std::pair<const char*, std::string> table[] = {
        {"only the history", profile + history},
        {"a megabyte line before it", profile + std::string(1 << 20, 'x') + "\r\n" + history},
        {"a megabyte line in it",
         profile + "[A\\mFileList]\r\n" + std::string(1 << 20, 'x') + "\r\n" + record},
        {"ANSI bytes", "[mProfileList]\r\n0=A\r\n1=Z\xFC"
                       "rich\r\n" +
                           history},
        {"NUL bytes", profile + std::string("a\0b\0\r\n", 6) + history},
        {"line feeds only", "[mProfileList]\n0=A\n[A\\mFileList]\n" + record},
        {"no line end at the end", profile + history.substr(0, history.size() - 2)},
        {"the section twice", profile + history + "[A\\mFileList]\r\n/other=1\r\n"},
        {"names in capitals", "[MPROFILELIST]\r\n0=A\r\n[a\\MFILELIST]\r\n" + record},
        {"blanks and comments", "\r\n  ; mine\r\n [mProfileList] \r\n 0 = A \r\n\r\n" + history},
        {"a mark of UTF-8", "\xEF\xBB\xBF" + profile + history},
    };
    for (const auto& [what, dataFile] : table) {
        CAPTURE(what);
        const std::u16string first = FirstBook(dataFile);
        const bool kept = first == u"/b/a.txt" || what == std::string("a megabyte line in it");
        CHECK(kept);
    }
}

TEST_CASE("damaged data file: random bytes and random cuts never stop the reader") {
    std::mt19937 random(20261121);
    for (int round = 0; round < 200; ++round) {
        std::string dataFile = round % 2 ? profile + history + history : std::string(300, ' ');
        for (int change = 0; change < 20; ++change)
            dataFile[random() % dataFile.size()] = static_cast<char>(random());
        dataFile.resize(random() % (dataFile.size() + 1));
        const std::u16string first = FirstBook(dataFile);
        CHECK(first != u"did not start");
        CHECK(first != u"did not start again");
    }
}

TEST_CASE(
    "damaged data file: 5,000 books start quickly enough to be usable, and keep their order") {
    std::string dataFile = profile + "[A\\mFileList]\r\n";
    TestForm test;
    for (int i = 0; i < 5000; ++i) {
        const std::string path = "/b/" + std::to_string(i) + ".txt";
        dataFile += path + "=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=0=5==\r\n";
        if (i % 2) test.PutBook(std::u16string(path.begin(), path.end()), "book");
    }
    test.PutDataFile(dataFile);
    REQUIRE(test.Start());
    CHECK(test.form.history.Count() == 5000);
    CHECK(GetBookPath(test.form.history, 0) == u"/b/1.txt"); // the first that exists
    CHECK(GetBookPath(test.form.history, 1) == u"/b/0.txt");
    CHECK(test.Menu().mFileRemoveList.Count() == 5000);
    test.Menus().Click(test.Menu().mFileList, 4999);
    CHECK(GetBookPath(test.form.history, 0) == u"/b/4999.txt");
    CHECK(LoadSectionLines(*test.form.dataFile, u"A\\mFileList").size() == 5000);
}
