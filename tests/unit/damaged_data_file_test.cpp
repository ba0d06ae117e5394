// The program on data files that are damaged, edited by hand or not of its own making.
#include "test_form.h"

#include "app/open_book.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

namespace {
const std::string record =
    "/b/a.txt=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=7=2048==\r\n";
const std::string second =
    "/b/b.txt=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=9=99==5,6\r\n";
const std::string profile = "[mProfileList]\r\n0=A\r\n";
const std::string history = "[A\\mFileList]\r\n" + record + second;
const std::string megabyte(1 << 20, 'x');

// What is there after two starts, the first of which wrote the file.
struct Outcome {
    bool starts = false;
    std::vector<std::u16string> books;
    std::u16string place, size, marksOfSecond;
};

Outcome AfterTwoStarts(const std::string& dataFile) {
    TestForm test;
    test.PutDataFile(dataFile);
    test.PutBook(u"/b/a.txt", NumberedLines(50));
    if (!test.Start()) return {};
    test.Timer().Tick(60);
    test.Close();
    TestForm next(test);
    Outcome outcome{next.Start(), next.Order(), {}, {}, {}};
    if (outcome.books.size() < 2) return outcome;
    outcome.place = next.Record(0)[Field::LastPos];
    outcome.size = next.Record(0)[Field::Size];
    outcome.marksOfSecond = next.Record(next.form.history.Count() - 1)[Field::Marks];
    return outcome;
}
} // namespace

TEST_CASE("damaged data file: the reader starts and keeps every record it can read") {
    using Books = std::vector<std::u16string>;
    const Books both{u"/b/a.txt", u"/b/b.txt"};
    const struct {
        const char* what;
        std::string dataFile;
        Books books;
    } table[] = {
        {"only the history", profile + history, both},
        {"a megabyte line before it", profile + megabyte + "\r\n" + history, both},
        {"a megabyte line in it",
         profile + "[A\\mFileList]\r\n" + megabyte + "\r\n" + record + second,
         {u"/b/a.txt", std::u16string(megabyte.begin(), megabyte.end()), u"/b/b.txt"}},
        {"ANSI bytes",
         "[mProfileList]\r\n0=A\r\n1=Z\xFC"
         "rich\r\n" +
             history,
         both},
        {"NUL bytes", profile + std::string("a\0b\0\r\n", 6) + history, both},
        {"line feeds only", "[mProfileList]\n0=A\n[A\\mFileList]\n" + record + second, both},
        {"no line end at the end", profile + history.substr(0, history.size() - 2), both},
        {"the section twice", profile + history + "[A\\mFileList]\r\n/other=1\r\n", both},
        {"names in capitals", "[MPROFILELIST]\r\n0=A\r\n[a\\MFILELIST]\r\n" + record + second,
         both},
        {"blanks and comments", "\r\n  ; mine\r\n [mProfileList] \r\n 0 = A \r\n\r\n" + history,
         both},
        {"a mark of UTF-8", "\xEF\xBB\xBF" + profile + history, both},
    };
    for (const auto& [name, dataFile, books] : table) {
        const std::string what = name; // a binding cannot be captured
        CAPTURE(what);
        const Outcome outcome = AfterTwoStarts(dataFile);
        CHECK(outcome.starts);
        CHECK((outcome.books == books));
        CHECK(outcome.place == u"7");
        CHECK(outcome.size == u"2048");
        CHECK(outcome.marksOfSecond == u"5,6");
    }
}

TEST_CASE("damaged data file: random bytes and random cuts never stop the reader") {
    std::mt19937 random(20261121);
    for (int round = 0; round < 200; ++round) {
        std::string dataFile(300, ' ');
        if (round % 2) dataFile.assign(profile).append(history).append(history);
        for (int change = 0; change < 20; ++change)
            dataFile[random() % dataFile.size()] = static_cast<char>(random());
        dataFile.resize(random() % (dataFile.size() + 1));
        CHECK(AfterTwoStarts(dataFile).starts);
    }
}

TEST_CASE(
    "damaged data file: each of 5,000 books is looked at once or twice, and keeps its place") {
    std::string dataFile = profile + "[A\\mFileList]\r\n";
    TestForm test;
    std::vector<std::u16string> order;
    for (int i = 0; i < 5000; ++i) {
        const std::string path = "/b/" + std::to_string(i) + ".txt";
        order.emplace_back(path.begin(), path.end());
        dataFile += path + "=2021:07:04:18:05:30=0=Serif=12=0=0=0=0=0=1=0=0=16777215=0=5==\r\n";
        if (i % 2) test.PutBook(order.back(), "book");
    }
    test.PutDataFile(dataFile);
    test.Files().existsCalls = 0;
    REQUIRE(test.Start());
    CHECK(test.Files().existsCalls < 2 * 5000 + 100);
    CHECK(std::ranges::count(test.Files().readCalls, TestForm::dataPath) == 1);
    CHECK(test.Files().replaceCalls.size() <= 1);
    std::swap(order[0], order[1]); // the first that exists is shown
    CHECK((test.Order() == order));
    CHECK(test.Menu().mFileRemoveList.Count() == 5000);
    test.Menus().Click(test.Menu().mFileList, 4999);
    std::rotate(order.begin(), order.end() - 1, order.end());
    CHECK((test.Order() == order));
    CHECK(LoadSectionLines(*test.form.dataFile, u"A\\mFileList").size() == 5000);
}
