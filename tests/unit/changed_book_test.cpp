// The file of the shown book is changed by another program.
#include "places_form.h"

#include <doctest/doctest.h>

namespace {
// Told by the system, and on a drive of which it does not tell all.
void OnEachDrive(const std::function<void(Places&)>& check) {
    for (const bool told : {true, false}) {
        CAPTURE(told);
        Places test;
        test.FileWatch().seesAll = told;
        test.Define(5000);
        test.View().ScrollLineToTop(9000);
        check(test);
    }
}

// After a change that was seen: the same words, once, and nothing more happens.
void CheckShown(Places& test, const std::u16string& words, int loadsBefore) {
    CHECK(test.View().loads > loadsBefore);
    CHECK(test.TextAt(test.Mark(0)) == words);
    const int shown = test.View().loads;
    test.Wait(3);
    CHECK(test.View().loads == shown);
    CHECK(test.Dialogs().messages.empty());
}
} // namespace

TEST_CASE("changed book: shown again when it has been left alone for a second") {
    OnEachDrive([](Places& test) {
        const std::u16string words = test.TextAt(5000);
        const int loads = test.View().loads;
        test.Put(added + test.text);
        test.Wait();
        CHECK(test.View().loads == loads); // perhaps there is more to come
        test.Wait();
        CheckShown(test, words, loads);
    });
}

TEST_CASE("changed book: written little by little") {
    OnEachDrive([](Places& test) {
        const std::u16string words = test.TextAt(5000), changed = added + test.text;
        const int loads = test.View().loads;
        for (std::size_t i = 1; i <= 5; ++i) {
            test.Put(changed.substr(0, changed.size() * i / 5));
            test.Wait();
        }
        CHECK(test.View().loads == loads);
        test.Wait();
        CheckShown(test, words, loads);
    });
}

TEST_CASE("changed book: written again before the system tells of it") {
    Places test;
    test.Define(5000);
    const std::u16string words = test.TextAt(5000);
    const int loads = test.View().loads;
    test.Put(added);
    test.FileWatch().Deliver();
    test.Put(added + test.text);
    test.ChangeTimer().Tick(2); // the first sees another file than the one told of
    CheckShown(test, words, loads);
}

TEST_CASE("changed book: one that looks half written is waited for") {
    OnEachDrive([](Places& test) {
        const std::u16string words = test.TextAt(5000);
        const int loads = test.View().loads;
        const std::string_view halves[] = {"", "caf\xC3", "{\\rtf1 A word",
                                           std::string_view("\xFF\xFE\x41\x00\x42", 5),
                                           std::string_view("\xFE\xFF\x00\x41\xD8\x3D", 6)};
        for (const std::string_view half : halves) {
            test.Files().EditInPlace(Places::path, half);
            test.Wait(4);
            CHECK(test.View().loads == loads);
        }
        test.Put(added + test.text);
        test.Wait(2);
        CheckShown(test, words, loads);
    });
}

TEST_CASE("changed book: gone for a moment, as some editors save") {
    OnEachDrive([](Places& test) {
        const std::u16string words = test.TextAt(5000);
        const int loads = test.View().loads;
        test.Files().Remove(Places::path);
        test.Wait(3);
        CHECK(test.View().loads == loads);
        test.Files().AddFile(Places::path, Utf16ToUtf8(added + test.text));
        test.Wait(2);
        CheckShown(test, words, loads);
    });
}

TEST_CASE("changed book: the caret and the selection stay on their words") {
    OnEachDrive([](Places& test) {
        const std::u16string words = test.TextAt(5000), top = test.TextAt(9000);
        const int loads = test.View().loads;
        TextPos length = 0;
        SUBCASE("a caret") {}
        SUBCASE("a selection") {
            length = 300;
        }
        test.View().Select(11'000, length);
        const std::u16string caret = test.TextAt(11'000, 40);
        test.Put(test.text.substr(0, 2000) + added + test.text.substr(2000));
        test.Wait(2);
        const auto shift = static_cast<TextPos>(added.size());
        CHECK(test.View().SelStart() == 11'000 + shift);
        CHECK(test.View().SelLength() == length);
        CHECK(test.TextAt(test.View().SelStart(), 40) == caret);
        CHECK(test.View().FirstVisibleChar() > 8900 + shift);
        CHECK(test.View().FirstVisibleChar() <= 9000 + shift);
        CheckShown(test, words, loads);
    });
}

TEST_CASE("changed book: of a selection that was cut in two a caret is left") {
    Places test;
    test.View().ScrollLineToTop(9000);
    test.View().Select(11'000, 2'000);
    test.Put(test.text.substr(0, 10'000) + test.text.substr(12'000));
    test.Wait(2);
    CHECK(test.View().SelLength() == 0);
    CHECK(test.View().SelStart() >= 9'500);
    CHECK(test.View().SelStart() <= 11'500);
}

TEST_CASE("changed book: a new time alone moves nothing") {
    Places test;
    test.View().ScrollLineToTop(9000);
    test.View().Select(11'000, 30);
    test.Put(test.text);
    test.Wait(2);
    CHECK(test.View().SelStart() == 11'000);
    CHECK(test.View().SelLength() == 30);
}

TEST_CASE("changed book: while the system tells nobody looks at the file") {
    const auto looksWhile = [](auto& test) {
        const int before = test.Files().versionCalls;
        test.ChangeTimer().Tick(20);
        test.Timer().Tick(20); // together less than a minute
        return test.Files().versionCalls - before;
    };
    TestForm noBook;
    noBook.Start();
    const int ofDataFile = looksWhile(noBook);
    Places test;
    test.Wait(2);
    const std::size_t read = test.Files().readCalls.size();
    CHECK(looksWhile(test) == ofDataFile);
    test.FileWatch().seesAll = false;
    CHECK(looksWhile(test) == ofDataFile + 20);
    CHECK(test.Files().readCalls.size() == read);
}

TEST_CASE("changed book: the one that is shown by now is watched") {
    Places test;
    CHECK(test.FileWatch().watched == Places::path);
    test.PutBook(u"/b/other.txt");
    OpenBook(test.form, u"/b/other.txt");
    CHECK(test.FileWatch().watched == u"/b/other.txt");
    test.Files().Remove(Places::path);
    test.Menus().Click(test.Menu().mFileList, 1); // and is not shown, as it has gone
    CHECK(test.FileWatch().watched == u"/b/other.txt");
}

TEST_CASE("changed book: one that changes while a dialog waits is shown afterwards") {
    Places test;
    const int loads = test.View().loads;
    test.Dialogs().whileOpen = [&] {
        test.Put(added + test.text);
        test.Wait(4);
        CHECK(test.View().loads == loads);
    };
    test.Menus().Click(test.Menu().mFileOpen);
    test.Wait(2);
    CHECK(test.View().loads > loads);
}
