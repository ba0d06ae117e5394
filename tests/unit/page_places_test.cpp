// Places of pages: by their pixels while these say the same line, else by the words there.
#include "html_form.h"

#include "app/shown_book.h"
#include "app/view_menu.h"
#include "common/utf.h"
#include "tests/unit/text_edits.h"

#include <doctest/doctest.h>

namespace {
constexpr const char16_t* path = u"/b/p.htm";
constexpr const char* section = "[Default\\/b/p.htm]";

NonePage PageOf(std::u16string text) {
    NonePage page;
    page.title = u"A Page";
    page.text = std::move(text);
    return page;
}

// Of lines that stand nowhere else.
std::u16string PageText() {
    std::mt19937 random(7);
    std::u16string text;
    while (text.size() < 20'000)
        text += RandomBook(random, 20);
    return text;
}

struct Reading : HtmlForm {
    Reading() {
        PutPage(path, PageOf(text));
        Start();
        OpenLoaded(path);
    }
    // The next run of the program, with the same pages in another font.
    Reading(Reading& earlier, int lineHeight) : HtmlForm(earlier), text(earlier.text) {
        Page().pages[path] = PageOf(text);
        Page().lineHeight = lineHeight;
        Start();
        Page().FinishLoading();
    }
    void Put(const std::u16string& changed, std::string_view bytes = "<html><p>another</p>") {
        Files().EditInPlace(path, std::string(bytes) + std::to_string(++edits));
        Page().pages[path] = PageOf(changed);
    }
    void DefineAt(TextPos start) {
        Page().Select({start, 10});
        Page().ScrollSpanToTop({start, 10});
        Choose(Menu().mBookmark, Menu().mBookmarkNew);
    }
    void Refresh() {
        mViewRefresh_Click(form, 0);
        Page().FinishLoading();
    }
    std::u16string TextAt(TextPos place, TextPos length = 20) {
        return Page().pages[path].text.substr(std::size_t(place), std::size_t(length));
    }
    std::u16string Top() { return TextAt(Page().Top().start); }
    std::u16string Mark(std::size_t index) {
        return TextAt(ParseMark(Menu().mBookmarkList[index].tag)->start);
    }
    std::string Section() {
        const std::string bytes = DataFile();
        const std::size_t at = bytes.find(section);
        return at == bytes.npos ? "" : bytes.substr(at);
    }
    void Wait(int seconds = 1) {
        for (int i = 0; i < seconds; ++i) {
            ChangeTimer().Tick();
            Timer().Tick();
            FileWatch().Deliver();
        }
    }

    std::u16string text = PageText();
    int edits = 0;
};

const std::u16string added = u"A chapter that was not there before.\nNobody had missed it.\n\n";
} // namespace

TEST_CASE("page places: the words stand in the book's own section, beside the pixels") {
    Reading test;
    test.DefineAt(5000);
    test.Page().ScrollByHand(1234);
    test.Close();
    CHECK(test.Record(0)[Field::LastPos] == u"1234");
    const std::string kept = test.Section();
    CHECK(kept.find("PagePlace=") != kept.npos);
    CHECK(kept.find("PageTop=1234,") != kept.npos);
    CHECK(kept.find("PageMark-5000=") != kept.npos);
}

TEST_CASE("page places: the pixel, when nothing differs, and nothing is asked for it") {
    Reading test;
    test.Page().ScrollByHand(1234);
    test.Close();
    Reading again(test, NoneHtmlView::LineHeight);
    CHECK(again.Page().ScrollTop() == 1234);
    CHECK(again.Page().questions == 0);
}

TEST_CASE("page places: the words in another font, there and back") {
    Reading test;
    test.Page().ScrollByHand(1234);
    const std::u16string words = test.Top();
    test.Close();
    Reading larger(test, 23);
    CHECK(larger.Page().ScrollTop() > 1500);
    CHECK(larger.Top() == words);
    larger.Close();
    Reading back(larger, NoneHtmlView::LineHeight);
    CHECK(back.Top() == words);
}

TEST_CASE(
    "page places: of one that could not be measured the words alone, to the pixel of their line") {
    Reading test;
    test.Page().isMeasured = false;
    test.Page().isTooLong = true;
    test.Page().ScrollByHand(1234);
    const int above = test.Page().Top().above;
    REQUIRE(above > 0);
    test.Close();
    CHECK(test.Record(0)[Field::LastPos] == u""); // as it was: what nobody measured is no pixel
    Reading again(test, NoneHtmlView::LineHeight);
    CHECK(again.Page().ScrollTop() == 1234);
    again.Close();
    const std::string kept = again.Section();
    CHECK(kept.find("PageTop=1234,") != kept.npos);
    CHECK(kept.find(",words") == kept.npos);
    Reading measured(again, NoneHtmlView::LineHeight);
    CHECK(measured.Page().ScrollTop() == 1234);
    CHECK(again.Record(0)[Field::LastPos] == u"1234");
}

TEST_CASE("page places: found in an edited page by Refresh") {
    Reading test;
    test.DefineAt(5000);
    test.DefineAt(9000);
    test.Page().ScrollByHand(2345);
    const std::u16string words = test.Top(), first = test.Mark(0), second = test.Mark(1);
    const int above = test.Page().Top().above;
    test.Put(added + test.text);
    test.Refresh();
    CHECK(test.Top() == words);
    CHECK(test.Page().Top().above == above); // not a pixel up or down
    CHECK(test.Mark(0) == first);
    CHECK(test.Mark(1) == second);
    CHECK(test.Record(0)[Field::Marks].starts_with(NumberText(5000 + TextPos(added.size()))));
}

TEST_CASE("page places: found in an edited page when the program starts again") {
    Reading test;
    test.DefineAt(5000);
    test.Page().ScrollByHand(2345);
    const std::u16string words = test.Top(), mark = test.Mark(0);
    test.Close();
    test.Files().EditInPlace(path, "<html>edited");
    test.text = added + test.text;
    Reading again(test, 20);
    CHECK(again.Top() == words);
    CHECK(again.Mark(0) == mark);
    again.Close();
    Reading third(again, 20);
    CHECK(third.Top() == words);
    CHECK(third.Page().questions == 1); // for the bookmark's excerpt, as ever
}

TEST_CASE("page places: a bookmark whose words have gone is uncertain until they come back") {
    Reading test;
    test.DefineAt(5000);
    const std::u16string mark = test.Mark(0);
    std::u16string cut = test.text;
    cut.erase(4000, 2000);
    test.Put(cut);
    test.Refresh();
    CHECK(test.Menu().mBookmarkList[0].caption.find(u'?') != std::u16string::npos);
    test.Put(test.text);
    test.Refresh();
    CHECK(test.Mark(0) == mark);
    CHECK(test.Menu().mBookmarkList[0].caption.find(u'?') == std::u16string::npos);
}

TEST_CASE("page places: one that an older version has left since counts alone") {
    Reading test;
    test.Page().ScrollByHand(1234);
    test.Close();
    std::string data = test.DataFile();
    const std::size_t at = data.find("=1234=");
    REQUIRE(at != data.npos);
    test.Files().EditInPlace(test.form.DataFilePath, data.replace(at, 6, "=800="));
    Reading again(test, NoneHtmlView::LineHeight);
    CHECK(again.Page().ScrollTop() == 800);
}

TEST_CASE("page places: a page that does not answer keeps its words for the next time") {
    Reading test;
    test.Page().ScrollByHand(2345);
    const std::u16string words = test.Top();
    test.Put(added + test.text);
    test.Page().answers = false;
    test.Refresh();
    test.Close();
    test.text = added + test.text;
    Reading again(test, NoneHtmlView::LineHeight);
    CHECK(again.Top() == words);
}

TEST_CASE("changed page: shown again by itself after a second of quiet, at the same words") {
    for (const bool told : {true, false}) {
        CAPTURE(told);
        Reading test;
        test.FileWatch().seesAll = told;
        test.DefineAt(5000);
        test.Page().Select({7000, 12});
        test.Page().ScrollByHand(2345);
        const std::u16string words = test.Top(), mark = test.Mark(0);
        const std::size_t loads = test.Page().loads.size();
        test.Put(added + test.text);
        test.Wait();
        CHECK(test.Page().loads.size() == loads); // perhaps there is more to come
        test.Wait();
        REQUIRE(test.Page().loads.size() == loads + 1);
        test.Page().FinishLoading();
        CHECK(test.Top() == words);
        CHECK(test.Mark(0) == mark);
        CHECK(test.Page().Selection().span == PageSpan{7000 + TextPos(added.size()), 12});
        test.Wait(3);
        CHECK(test.Page().loads.size() == loads + 1);
        CHECK(test.Dialogs().messages.empty());
    }
}

TEST_CASE("page places: a book that is shown as another kind takes its places along") {
    Reading test;
    test.DefineAt(5000);
    test.DefineAt(9000);
    test.Page().ScrollSpanToTop({7000, 0});
    const std::u16string words = test.Top(), first = test.Mark(0), second = test.Mark(1);
    const auto edited = [&](std::u16string text) { return added + text.erase(8500, 1000); };
    test.Files().EditInPlace(path, Utf16ToUtf8(edited(test.text)));
    OpenBook(test.form, path, BookKind::Text);
    REQUIRE_FALSE(IsPageShown(test.form));
    const auto textAt = [&](TextPos at) { return test.View().TextRange(at, 20); };
    const auto start = [&](std::size_t i) {
        return ParseMark(test.Menu().mBookmarkList[i].tag)->start;
    };
    CHECK(textAt(test.View().LineAround(test.View().FirstVisibleChar()).start) == words);
    CHECK(textAt(start(0)) == first);
    CHECK(test.Record(0)[Field::Marks].find(u'|') == std::u16string::npos); // the other has gone
    OpenBook(test.form, path, BookKind::Html); // which has kept them all
    test.Page().FinishLoading();
    CHECK(test.Top() == words);
    CHECK(test.Mark(1) == second);
}

TEST_CASE("page places: a text that is shown as a page takes its places along") {
    HtmlForm test;
    const std::u16string text = PageText(), book = u"/b/t.txt";
    test.PutBook(book, Utf16ToUtf8(text));
    test.Page().pages[book] = PageOf(added + text);
    REQUIRE(test.Start());
    OpenBook(test.form, book);
    test.View().Select(5000, 10);
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkNew);
    test.View().ScrollLineToTop(9000);
    const TextPos top = test.View().FirstVisibleChar();
    OpenBook(test.form, book, BookKind::Html);
    test.Page().FinishLoading();
    REQUIRE(IsPageShown(test.form));
    CHECK(test.Page().Top().start == top + TextPos(added.size()));
    CHECK(test.Record(0)[Field::Marks] == NumberText(5000 + TextPos(added.size())) + u",10");
}

TEST_CASE("changed page: one that looks half written is waited for") {
    for (const char* half : {"", "<html><p>one</p><p cla", "<html><p>\xC3", "<html><!-- a"}) {
        CAPTURE(half);
        Reading test;
        const std::size_t loads = test.Page().loads.size();
        test.Files().EditInPlace(path, half);
        test.Wait(4);
        CHECK(test.Page().loads.size() == loads);
        test.Put(test.text, "<html><p>a < b");
        test.Wait(3);
        CHECK(test.Page().loads.size() == loads + 1);
    }
}

TEST_CASE("page places: Last Unmarked Position and the way back are words, too") {
    Reading test;
    test.DefineAt(5000);
    test.Page().ScrollByHand(3000);
    const std::u16string linked = test.Top();
    test.Page().onJump(test.Page().Top());
    test.Page().ScrollByHand(1234);
    const std::u16string words = test.Top();
    test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkList, 0);
    SUBCASE("in the same layout it is the pixel") {
        test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkLast);
        CHECK(test.Page().ScrollTop() == 1234);
        test.Press(37, AltKey);
        CHECK(test.Page().ScrollTop() == 3000);
    }
    SUBCASE("in another layout it is the line") {
        test.Page().lineHeight = 23;
        test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkLast);
        CHECK(test.Top() == words);
        test.Press(37, AltKey);
        CHECK(test.Top() == linked);
    }
    SUBCASE("when the page has changed it is where the words are now") {
        const TextPos half = TextPos(test.text.size()) / 4;
        test.Put(added + test.text.substr(0, half) + added + test.text.substr(half));
        test.Refresh();
        test.Choose(test.Menu().mBookmark, test.Menu().mBookmarkLast);
        CHECK(test.Top() == words);
        test.Press(37, AltKey);
        CHECK(test.Top() == linked);
    }
}

TEST_CASE("page places: the way back to a page that changed after the place of reading") {
    Reading test;
    test.Page().ScrollByHand(3000);
    const std::u16string linked = test.Top();
    test.Page().onJump(test.Page().Top());
    test.Page().ScrollByHand(0);
    test.Put(test.text.substr(0, 300) + added + test.text.substr(300));
    test.Wait(3);
    test.Page().FinishLoading();
    CHECK(test.Page().ScrollTop() == 0);
    test.Press(37, AltKey);
    CHECK(test.Top() == linked);
}
