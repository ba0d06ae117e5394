// Pictures beside a book.
#include "app/open_book.h"
#include "books/book_pictures.h"
#include "platform/none/none_files.h"
#include "tests/unit/test_form.h"

#include <doctest/doctest.h>

#include <algorithm>

TEST_CASE("book pictures: only of the book's folder and below") {
    TestForm test;
    NoneFiles& files = test.Files();
    for (const char16_t* path :
         {u"/books/a.png", u"/books/sub/b.png", u"/secret.png", u"/booksx.png"})
        files.AddFile(path, "picture");
    struct {
        const char16_t* name;
        bool isRead;
    } const cases[] = {
        {u"a.png", true},
        {u"./a.png", true},
        {u"sub/b.png", true},
        {u"sub\\b.png", true},
        {u"missing.png", false},
        {u"sub", false},
        {u"", false},
        {u".", false},
        {u"../secret.png", false},
        {u"sub/../../secret.png", false},
        {u"sub\\..\\..\\secret.png", false},
        {u"/secret.png", false},
        {u"/books/a.png", false},
        {u"\\\\host\\share\\a.png", false},
        {u"//host/share/a.png", false},
        {u"C:\\a.png", false},
        {u"a.png:stream", false},
        {u"http://example.org/a.png", false},
        {u"file:///books/a.png", false},
    };
    for (const auto& each : cases) {
        const std::u16string name = each.name;
        CAPTURE(Utf16ToUtf8(name));
        CHECK((ReadBookPicture(files, u"/books/book.rtf", name) == "picture") == each.isRead);
    }
    CHECK(ReadBookPicture(files, u"book.rtf", u"a.png").empty());
}

TEST_CASE("book pictures: the text view asks for those of the book that it is given") {
    TestForm test;
    REQUIRE(test.Start());
    NoneFiles& files = test.Files();
    files.AddFile(u"/books/beside.png", "\x89PNG\r\n\x1A\n");
    REQUIRE(test.form.ports.textView->onPictureFile);
    files.AddFile(u"/books/rich.rtf", "{\\rtf1{\\field{\\*\\fldinst INCLUDEPICTURE beside.png}}}");
    files.readCalls.clear();
    OpenBook(test.form, u"/books/rich.rtf", std::nullopt);
    CHECK(std::count(files.readCalls.begin(), files.readCalls.end(), u"/books/beside.png") == 1);
}
