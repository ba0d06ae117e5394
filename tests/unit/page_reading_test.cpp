// What a page is for assistive technology, without a toolkit: its units, formats and structure.
#include "common/utf.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"
#include "tests/unit/page_pane_bench.h"
#include "view/reading_units.h"

#include <doctest/doctest.h>

namespace {
constexpr char16_t path[] = u"/books/page.htm";
constexpr char sheet[] = "<!DOCTYPE html><style>body,p,h1,h2,ul,ol,table,td{margin:0;padding:0}"
                         "</style>";

class ReadPage {
  public:
    explicit ReadPage(const std::string& body, int width = 600, int height = 400) {
        files.AddFile(path, sheet + body);
        view = std::make_unique<PagePaneBench>(files, width, height);
        view->Navigate(path, 1);
        for (int i = 0; i < 10; ++i)
            view->ProcessEvents();
        REQUIRE(Pane().Page());
    }
    PagePane& Pane() { return view->Pane(); }
    std::vector<std::u16string> All(ReadingUnit unit) {
        ReadingUnits units(Pane());
        std::vector<std::u16string> all;
        const TextPos length = Pane().Source().Length();
        for (TextPos at = 0; at < length && all.size() < 1000; at = units.Next(at, unit))
            all.push_back(ReadableText(Pane(), units.At(at, unit)));
        return all;
    }
    TextPos Find(std::u16string_view what) { return Pane().Source().Find(what, 0, {}); }

    NoneClock clock;
    NoneFiles files{clock};
    std::unique_ptr<PagePaneBench> view;
};

using Texts = std::vector<std::u16string>;

std::u16string Joined(const Texts& texts) {
    std::u16string all;
    for (const std::u16string& text : texts)
        all += text;
    return all;
}

// Kind, name and how deep it lies.
std::string Described(ReadPage& page) {
    static const char* const names[] = {"heading", "link",  "picture", "list",
                                        "item",    "table", "row",     "cell"};
    std::string all;
    const ReadingObjects& objects = page.Pane().Objects();
    for (const ReadingObject& object : objects) {
        for (std::size_t in = object.parent; in != noReadingObject; in = objects[in].parent)
            all += "  ";
        all += names[int(object.kind)];
        const std::u16string name = ReadingName(page.Pane(), object);
        if (!name.empty()) all += ' ' + Utf16ToUtf8(name);
        all += '\n';
    }
    return all;
}
} // namespace

TEST_CASE("page reading: the units of a page tile its text") {
    ReadPage page("<h1>The quay</h1><p>Nine letters and <i>then</i> some.<p>Last", 160, 48);
    CHECK(page.All(ReadingUnit::Paragraph) ==
          Texts{u"The quay\n", u"Nine letters and then some.\n", u"Last"});
    CHECK(page.All(ReadingUnit::Line) ==
          Texts{u"The quay\n", u"Nine letters and ", u"then some.\n", u"Last"});
    CHECK(page.All(ReadingUnit::Word).front() == u"The ");
    for (const ReadingUnit unit :
         {ReadingUnit::Character, ReadingUnit::Word, ReadingUnit::Sentence, ReadingUnit::Format,
          ReadingUnit::Line, ReadingUnit::Paragraph, ReadingUnit::Page}) {
        CAPTURE(int(unit));
        CHECK(Joined(page.All(unit)) == page.Pane().Page()->Text());
    }
    CHECK(page.All(ReadingUnit::Page).size() > 1);
    ReadingUnits units(page.Pane());
    const TextPos last = page.Find(u"Last");
    CHECK(units.Previous(last, ReadingUnit::Page) > 0);
    CHECK(units.Previous(last, ReadingUnit::Page) < last);
}

TEST_CASE("page reading: lists, tables and generated text tile, too") {
    ReadPage page("<ul><li>one<li>two <b>three</b></ul><table><tr><td>a<td>b b<tr><td>c<td>d"
                  "</table><p>soft\u00ADhyphen <span style='display:none'>gone</span>seen<br>next"
                  "<p>\u05D0\u05D1\u05D2 <a href='#x'>link</a>",
                  200, 60);
    for (const ReadingUnit unit : {ReadingUnit::Character, ReadingUnit::Word, ReadingUnit::Format,
                                   ReadingUnit::Line, ReadingUnit::Paragraph, ReadingUnit::Page}) {
        CAPTURE(int(unit));
        CHECK(Joined(page.All(unit)) == page.Pane().Page()->Text());
    }
}

TEST_CASE("page reading: a paragraph without an end is read in parts") {
    ReadPage page("<p>" + std::string(300'000, 'x'));
    const Texts parts = page.All(ReadingUnit::Paragraph);
    CHECK(parts.size() == 5);
    CHECK(Joined(parts).size() == 300'000);
    CHECK(page.All(ReadingUnit::Word).front().size() <= 64 * 1024);
}

TEST_CASE("page reading: the page's structure") {
    ReadPage page("<h1>The quay</h1><p>See <a href='b.htm'>the <i>other</i> page</a>.<h3>Below</h3>"
                  "<ul><li>one<li>two<ol><li>deep</ol></ul>"
                  "<table><tr><th>a<th>b<tr><td colspan=2>c</table>"
                  "<img src=a.png alt='A lantern'><img src=b.png alt=''><img src=c.png>"
                  "<div hidden><h2>Hidden</h2></div><div style='display:none'><h2>No</h2></div>"
                  "<a name=anchor>no link</a><a href='#x'><img src=d.png alt='Up'></a>");
    CHECK(Described(page) == "heading The quay\n"
                             "link the other page\n"
                             "heading Below\n"
                             "list\n"
                             "  item one\n"
                             "  item two\ndeep\n"
                             "    list\n"
                             "      item deep\n"
                             "table\n"
                             "  row\n"
                             "    cell a\n"
                             "    cell b\n"
                             "  row\n"
                             "    cell c\n"
                             "picture A lantern\n"
                             "picture\n"
                             "link Up\n"
                             "  picture Up\n");
    const ReadingObjects& objects = page.Pane().Objects();
    CHECK(objects[0].level == 1);
    CHECK(objects[2].level == 3);
    CHECK(objects[1].address == u"b.htm");
    CHECK_FALSE(objects[3].isNumbered);
    CHECK(objects[6].isNumbered);
    CHECK(objects[8].rows == 2);
    CHECK(objects[8].columns == 2);
    CHECK(ReadingChildren(objects).size() == 8);
    CHECK(ReadingChildren(objects, 8) == std::vector<std::size_t>{9, 12});
    for (std::size_t i = 0; i < objects.size(); ++i) {
        CAPTURE(i);
        CHECK(page.Pane().ObjectRect(i).width > 0);
    }

    std::vector<std::u16string> links;
    page.view->onLink = [&](const std::u16string& url, const std::u16string&) {
        links.push_back(url);
    };
    page.Pane().FollowObject(0); // no link
    page.Pane().FollowObject(1);
    page.view->ProcessEvents();
    REQUIRE(links.size() == 1);
    CHECK(links[0].ends_with(u"b.htm"));
    const int version = page.Pane().ObjectsVersion();
    page.view->SendZoomKey(true);
    page.view->ProcessEvents();
    page.view->ProcessEvents();
    CHECK(page.Pane().ObjectsVersion() != version);
}

TEST_CASE("page reading: how its text looks") {
    ReadPage page(
        "<body style='background:#102030'><h2>Head</h2><p style='color:#ff0000;text-align:"
        "right'>red <b>bold</b> x<sup>2</sup> <a href='b.htm'>link</a>"
        "<p dir=rtl>\u05D0<ol><li>item</ol>");
    const auto format = [&](std::u16string_view what) {
        return page.Pane().CharacterFormatAt(page.Find(what));
    };
    const auto paragraph = [&](std::u16string_view what) {
        return page.Pane().ParagraphFormatAt(page.Find(what));
    };
    CHECK(paragraph(u"Head").headingLevel == 2);
    CHECK(format(u"Head").style.font.bold);
    CHECK(format(u"Head").style.font.points == doctest::Approx(18));
    CHECK(format(u"Head").background == 0x302010);
    CHECK(format(u"red").foreground == 0x0000FF);
    CHECK_FALSE(format(u"red").style.font.bold);
    CHECK(format(u"red").link.empty());
    CHECK(format(u"bold").style.font.bold);
    CHECK(format(u"bold").span.end - format(u"bold").span.start >= 4);
    CHECK(format(u"2").style.baseline == TextBaseline::Superscript);
    CHECK(format(u"link").link == u"b.htm");
    CHECK(paragraph(u"red").alignment == Alignment::Right);
    CHECK(paragraph(u"red").headingLevel == 0);
    CHECK(paragraph(u"\u05D0").rightToLeft);
    CHECK(paragraph(u"item").isListItem);
    CHECK(paragraph(u"item").isNumbered);
    CHECK_FALSE(paragraph(u"red").isListItem);
}

TEST_CASE("page reading: where characters are, and what is in view") {
    std::string body;
    for (int i = 0; i < 300; ++i)
        body += "<p>some line " + std::to_string(i);
    ReadPage page(body, 400, 100);
    const TextPos place = page.Find(u"line 100\n");
    page.Pane().ScrollLineToTop(place);
    const TextSpan shown = page.Pane().VisibleText();
    CHECK(shown.start == page.Find(u"some line 100\n"));
    CHECK(shown.end > shown.start + 60);
    CHECK(shown.end < shown.start + 130);
    const Rect box = page.Pane().CharacterRect(place);
    CHECK(box.left == 5 * 8);
    CHECK(box.width == 8);
    CHECK(page.Pane().CharacterAtPoint({box.left + 1, box.top + 1}) == place);
    CHECK(page.Pane().CharacterRect(0).top < 0);
    CHECK(page.Pane().CharacterRect(page.Find(u"line 250")).top > 100);
    const auto boxes = page.Pane().VisibleBoxes({place, place + 20});
    REQUIRE(boxes.size() == 2);
    CHECK(boxes[0] == Rect{40, box.top, 64, 16});
    CHECK(boxes[1].left == 0);
    CHECK(boxes[1].top == box.top + 16);
    CHECK(page.Pane().VisibleBoxes({0, 20}).empty());
}

TEST_CASE("page reading: the text of a missing picture is none of what is in view") {
    ReadPage page("<p>one<p>two<p><img src=no.png alt='A lantern'>");
    CHECK(page.Pane().VisibleText().end == 7);
    CHECK(page.Pane().VisibleBoxes({0, 7}).size() == 2);
    ReadPage bare("<img src=no.png alt='A lantern'>");
    CHECK(bare.Pane().VisibleText().end == 0);
}

TEST_CASE("page reading: without a page there is nothing") {
    NoneClock clock;
    NoneFiles files{clock};
    PagePaneBench view(files);
    PagePane& pane = view.Pane();
    CHECK(pane.Source().Length() == 0);
    CHECK(pane.Objects().empty());
    CHECK(pane.VisibleBoxes({0, 10}).empty());
    CHECK(pane.VisibleText().end == 0);
    CHECK(pane.CharacterAtPoint({5, 5}) == 0);
    CHECK(pane.CharacterFormatAt(0).span.end == 0);
    CHECK(pane.ParagraphFormatAt(0).headingLevel == 0);
    CHECK(ReadingUnits(pane).At(0, ReadingUnit::Line).end == 0);
    CHECK(ReadingUnits(pane).MoveBy(0, ReadingUnit::Page, 3).units == 0);
}

TEST_CASE("page reading: the cost of an answer does not depend on the length of the page") {
    std::string body;
    for (int i = 0; i < 3000; ++i)
        body += "<p>some line " + std::to_string(i);
    ReadPage page(body, 400, 100);
    ReadingUnits units(page.Pane());
    const TextPos middle = page.Find(u"line 1500");
    units.At(middle, ReadingUnit::Page);
    page.Pane().CharacterRect(middle);
    units.MoveBy(middle, ReadingUnit::Line, 5);
    const int before = page.Pane().LayoutsMade();
    units.MoveBy(middle, ReadingUnit::Page, 5);
    units.MoveBy(middle, ReadingUnit::Page, -5);
    CHECK(page.Pane().LayoutsMade() - before < 100);
}
