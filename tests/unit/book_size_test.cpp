// Books that are larger than the view or the memory.
#include "test_form.h"

#include "app/open_book.h"

#include <doctest/doctest.h>

#include <new>

namespace {
// A view whose memory runs out on a text of this length.
class SmallTextView : public NoneTextView {
  public:
    void LoadPlainText(std::u16string text) override {
        if (text.size() > 1000) throw std::bad_alloc();
        NoneTextView::LoadPlainText(std::move(text));
    }
};
} // namespace

namespace {
class TenMegabyteView : public NoneTextView {
  public:
    std::uint64_t MaxTextSize() const override { return 10u << 20; }
};
} // namespace

// A book of more than 8 MB is not read into memory before its kind is known.
TEST_CASE("open: large books, and the largest plain text that the view can show") {
    TestForm test;
    test.form.ports.textView = std::make_unique<TenMegabyteView>();
    const std::string nineMegabytes(9u << 20, '\n'), elevenMegabytes(11u << 20, '\n');
    test.PutBook(u"/b/nine.txt", nineMegabytes + "the end");
    test.PutBook(u"/b/eleven.txt", elevenMegabytes + "the end");
    test.PutBook(u"/b/eleven.rtf", "{\\rtf1{\\info " + elevenMegabytes + "}all of it}");
    test.PutBook(u"/b/rich", "{\\rtf1{\\info " + elevenMegabytes + "}also all}");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/nine.txt");
    CHECK(test.View().TextLength() == (9 << 20) + 7);
    CHECK(test.View().TextRange(9 << 20, 7) == u"the end");
    OpenBook(test.form, u"/b/eleven.rtf");
    CHECK(test.View().TextRange(0, 20) == u"all of it");
    OpenBook(test.form, u"/b/rich"); // by its first bytes
    CHECK(test.View().TextRange(0, 20) == u"also all");
    CHECK(test.Dialogs().messages.empty());
    OpenBook(test.form, u"/b/eleven.txt");
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text ==
          u"/b/eleven.txt\r\nis too large: a book may have up to 10 MB.");
    CHECK(test.View().TextRange(0, 20) == u"also all");
}

TEST_CASE("open: a book that memory does not hold is reported, and keeps its record") {
    TestForm test;
    test.form.ports.textView = std::make_unique<SmallTextView>();
    test.PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n/b/"
                     "a.txt=2021:1:1:1:1:1=0=Serif=14=0=0=0=0=0=1=0=0"
                     "=16777215=77=9==\r\n");
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    REQUIRE(test.Start());
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK(test.Dialogs().messages[0].text == u"There is not enough memory for this.");
    CHECK_FALSE(test.form.LoadingBook);
    CHECK_FALSE(test.form.ProfileChanging);
    CHECK_FALSE(test.form.ProfileSwitching);
    test.Timer().Tick(60);
    test.Close();
    CHECK(test.DataFile().find("=77=9==") != std::string::npos);
}

TEST_CASE("open: a refresh that memory does not hold leaves no flag behind") {
    TestForm test;
    test.form.ports.textView = std::make_unique<SmallTextView>();
    test.PutBook(u"/b/a.txt", "short");
    test.PutBook(u"/b/b.txt", "another");
    REQUIRE(test.Start());
    OpenBook(test.form, u"/b/a.txt");
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    test.Menus().Open(test.Menu().mView);
    test.Menus().Click(test.Menu().mViewRefresh);
    REQUIRE(test.Dialogs().messages.size() == 1);
    CHECK_FALSE(test.form.Refreshing);
    OpenBook(test.form, u"/b/b.txt");
    CHECK(test.DataFile().find("\r\n/b/b.txt=2026") < test.DataFile().find("\r\n/b/a.txt="));
}
