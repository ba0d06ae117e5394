// Which books the desktop is told of.
#include "test_form.h"

#include "app/open_book.h"

#include <doctest/doctest.h>

namespace {
using Paths = std::vector<std::u16string>;

struct Opening : TestForm {
    Opening() {
        for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt", u"/b/c.txt"})
            PutBook(path);
        Start();
    }
    const Paths& Told() { return Shell().recent; }
};
} // namespace

TEST_CASE("recent documents: a book is reported a second after it was opened, once") {
    Opening test;
    OpenBook(test.form, u"/b/a.txt", BookKind::Text);
    CHECK(test.Told().empty());
    test.Timer().Tick(5);
    CHECK(test.Told() == Paths{u"/b/a.txt"});
    test.Menus().Click(test.Menu().mViewRefresh);
    test.Timer().Tick(5);
    CHECK(test.Told().size() == 1);
}

TEST_CASE("recent documents: of books opened one after the other the last is reported") {
    Opening test;
    for (const char16_t* path : {u"/b/a.txt", u"/b/b.txt", u"/b/c.txt"})
        OpenBook(test.form, path, BookKind::Text);
    test.Timer().Tick();
    CHECK(test.Told() == Paths{u"/b/c.txt"});
    test.Menus().Click(test.Menu().mFileList, 1);
    test.Timer().Tick();
    CHECK(test.Told() == Paths{u"/b/c.txt", u"/b/b.txt"});
}

TEST_CASE("recent documents: a book that cannot be opened is not reported") {
    Opening test;
    OpenBook(test.form, u"/b/gone.txt", BookKind::Text);
    test.Timer().Tick(5);
    CHECK(test.Told().empty());
}
