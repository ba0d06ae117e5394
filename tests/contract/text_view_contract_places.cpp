// How far a text is scrolled, and its headings, on every back end.
#include "tests/contract/text_view_contract.h"

#include <cstring>

namespace {
std::u16string Book() {
    std::u16string text;
    for (const char16_t* number : {u"I", u"II", u"III", u"IV"}) {
        text += std::u16string(u"\n\nCHAPTER ") + number + u"\n\n";
        for (int line = 0; line < 100; ++line)
            text += u"a line of this chapter\n";
    }
    return text;
}
} // namespace

TEST_CASE("text view: per cents go from the start to where the end is in view") {
    OnEachBackEnd([](TextView& view) {
        view.LoadPlainText(Book());
        CHECK(view.Percent() == 0);
        view.ScrollToPercent(100);
        CHECK(view.Percent() >= 99);
        view.ScrollToPercent(50);
        CHECK(view.Percent() >= 48);
        CHECK(view.Percent() <= 52);
        CHECK(view.FirstVisibleChar() > view.TextLength() * 2 / 5);
        view.ScrollToPercent(0);
        CHECK(view.FirstVisibleChar() == 0);
        view.LoadPlainText(u"short");
        CHECK(view.Percent() == 100);
    });
}

TEST_CASE("text view: scrolling down by pixels moves until the end is in view") {
    OnEachBackEnd([](TextView& view) {
        view.LoadPlainText(Book());
        TextPos before = 0;
        int steps = 0;
        for (; view.ScrollDown(40) && steps < 1000; ++steps) {
            CHECK(view.FirstVisibleChar() >= before);
            before = view.FirstVisibleChar();
        }
        CHECK(steps > 3);
        CHECK(steps < 1000);
        CHECK(view.Percent() == 100);
        CHECK_FALSE(view.ScrollDown(1));
    });
}

TEST_CASE("text view: the headings of plain and of rich text") {
    for (const TextViewBackEnd& backEnd : TextViewBackEnds()) {
        if (std::strcmp(backEnd.name, "none") == 0) continue; // has those that a test gives it
        CAPTURE(backEnd.name);
        const std::unique_ptr<TextView> view = backEnd.make();
        view->LoadPlainText(Book());
        const std::vector<Heading> plain = view->Headings();
        REQUIRE(plain.size() == 4);
        CHECK(plain[3].text == u"CHAPTER IV");
        CHECK(view->TextRange(plain[3].position, 10) == u"CHAPTER IV");
        view->LoadRichText("{\\rtf1\\pard\\outlinelevel1 A\\par\\pard b\\par}", 1252);
        CHECK(view->Headings() == std::vector<Heading>{{0, 2, u"A"}});
        view->LoadPlainText(u"no heading");
        CHECK(view->Headings().empty());
    }
}
