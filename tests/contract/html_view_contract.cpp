// What every HTML view must do with a page: loading, counting, kept values.
#include "tests/contract/html_view_contract.h"

#include "tests/contract/page_text_cases.h"

#include <cstdio>
#include <fstream>
#include <random>

PageTest::PageTest(HtmlViewBench& given)
    : bench(given), view(given.View()),
      folder(std::filesystem::canonical(std::filesystem::temp_directory_path()) /
             ("pages-" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directory(folder);
    view.onLoaded = [this](int number, const std::u16string& url) {
        CHECK(view.HasBody());
        loaded.emplace_back(number, url);
    };
    view.onLink = [this](const std::u16string& url, const std::u16string& path) {
        links.emplace_back(url, path);
    };
    view.onJump = [this](const PageTop& from) { jumps.push_back(from.offset); };
    view.onGone = [this] { ++gone; };
}

PageTest::~PageTest() {
    view.Clear();
    std::error_code error;
    std::filesystem::remove_all(folder, error);
}

std::filesystem::path PageTest::Write(const std::string& name, std::string_view bytes) const {
    std::filesystem::path path = folder / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

void PageTest::Navigate(const std::filesystem::path& path) {
    view.Navigate(path.u16string(), ++page);
}

void PageTest::Open(std::string_view body, std::string_view head) {
    std::string source = "<!DOCTYPE html><html><head><meta charset=utf-8>";
    source += head;
    source += "</head><body>";
    source += body;
    Navigate(Write("page.htm", source + "</body></html>"));
    REQUIRE(WaitFor([this] { return !loaded.empty() && loaded.back().first == page; }));
}

bool PageTest::WaitFor(const std::function<bool()>& condition, std::chrono::seconds timeout) const {
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        bench.ProcessEvents();
    }
    return true;
}

std::u16string PageTest::Text(PageSpan span) {
    const auto texts = view.TextsOf({span});
    return texts.size() == 1 ? texts[0] : u"(no answer)";
}

std::string NumberedParagraphs(int count) {
    std::string source;
    for (int i = 0; i < count; ++i) {
        char line[40];
        std::snprintf(line, sizeof line, "<p>line %04d</p>\n", i);
        source += line;
    }
    return source;
}

TEST_CASE("html view: a page is counted as its text") {
    OnEachBackEnd([](PageTest& test) {
        for (const PageTextCase& sample : pageTextCases) {
            CAPTURE(sample.body);
            test.Open(sample.body);
            const std::u16string text(sample.text);
            CHECK(test.Text() == text);
            CHECK(test.view.HasText() == !text.empty());
            test.view.SelectAll();
            CHECK(test.view.SelectedText() == text);
            CHECK(test.view.Selection().span == PageSpan{0, TextPos(text.size())});
        }
    });
}

TEST_CASE("html view: every character of a page can be selected, and nothing else") {
    OnEachBackEnd([](PageTest& test) {
        test.Open("one <b> two</b><p>three<br><br>four</p><pre> five\n six</pre> seven "
                  "<i></i> eight<ul><li>nine<li>ten</ul>");
        const std::u16string text = test.Text();
        REQUIRE(text == u"one two\nthree\n\nfour\n five\n six\nseven eight\nnine\nten");
        for (TextPos start = 0; start < TextPos(text.size()); ++start) {
            CAPTURE(start);
            test.view.Select({start, 3});
            // A blank or break at an edge may be left out: it has no place of its own in the page.
            const std::u16string wanted = text.substr(start, 3), got = test.view.SelectedText();
            CHECK(wanted.find(got) != wanted.npos);
            CHECK(got.size() + 2 >= wanted.size());
        }
    });
}

TEST_CASE("html view: a load is reported once, and only the page asked for last" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        CHECK_FALSE(test.view.HasBody());
        CHECK(test.view.Charset().empty());
        CHECK(test.view.TextsOf({{0, 1}}).empty());
        CHECK(test.view.StartAtTop() == -1);
        const auto first = test.Write("one.htm", "<title>One</title>" + NumberedParagraphs(5000));
        const auto second = test.Write("two.htm", "<title>Two &amp; more</title>two");
        test.Navigate(first);
        test.Navigate(second);
        CHECK(test.loaded.empty()); // no event comes from within an order
        REQUIRE(test.WaitFor([&] { return !test.loaded.empty(); }));
        CHECK(test.Text() == u"two");
        CHECK(test.loaded.size() == 1);
        CHECK(test.loaded[0].first == 2);
        CHECK(test.loaded[0].second.starts_with(u"file:///"));
        CHECK(test.loaded[0].second.ends_with(u"/two.htm"));
        CHECK(test.view.Title() == u"Two & more");
        test.view.Clear();
        CHECK_FALSE(test.view.HasBody());
        CHECK(test.view.TextsOf({{0, 1}}).empty());
        CHECK(test.gone == 0);
    });
}

TEST_CASE("html view: whoever hears of a load may order and ask at once" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        std::u16string text;
        test.view.onLoaded = [&](int, const std::u16string&) {
            test.view.SendZoomKey(true);
            test.view.ScrollTo(0, 300);
            text = test.Text({0, 9});
        };
        test.Navigate(test.Write("page.htm", NumberedParagraphs(200)));
        REQUIRE(test.WaitFor([&] { return !text.empty(); }));
        CHECK(text == u"line 0000");
        CHECK(test.view.ScrollTop() == 300);
    });
}

TEST_CASE("html view: charsets and files of all kinds") {
    struct {
        const char *name, *bytes, *charset;
        const char16_t* text;
    } const cases[] = {
        {"a.htm", "<meta charset=windows-1251>\xCA\xED\xE8\xE3\xE0", "windows-1251", u"Книга"},
        {"b.htm", "<meta charset=shift_jis>\x93\xFA\x96\x7B", "Shift_JIS", u"日本"},
        {"c.htm", "\xEF\xBB\xBF<p>\xC3\xA4", "UTF-8", u"ä"},
        {"no body.htm", "<title>x</title>", "windows-1252", u""},
        {"empty.htm", "", "windows-1252", u""},
        {"100% #1?.htm", "percent", "windows-1252", u"percent"},
        {"é ü.html", "accents", "windows-1252", u"accents"},
    };
    OnEachBackEnd([&](PageTest& test) {
        for (const auto& sample : cases) {
            CAPTURE(sample.name);
            // The port of the file system knows no such name; an engine reads files by itself.
            const bool hasMark = std::string_view(sample.name).find('?') != std::string_view::npos;
            if (hasMark && !test.bench.HasEngine()) continue;
            const auto loads = test.loaded.size();
            test.Navigate(test.Write(sample.name, sample.bytes));
            REQUIRE(test.WaitFor([&] { return test.loaded.size() > loads; }));
            CHECK(test.view.Charset() == sample.charset);
            CHECK(test.Text() == sample.text);
        }
    });
}

TEST_CASE(
    "html view: a dead engine is reported, answers nothing, and comes back with the next page" *
    plainPages) {
    OnEachEngine([](PageTest& test) {
        test.Open(NumberedParagraphs(300));
        test.view.ScrollTo(0, 500);
        test.Settle();
        test.bench.KillEngine();
        REQUIRE(test.WaitFor([&] { return test.gone > 0; }));
        CHECK(test.gone == 1);
        CHECK(test.view.HasBody()); // kept values are the last ones known
        CHECK(test.view.ScrollTop() == 500);
        CHECK(test.view.TextsOf({{0, 1}}).empty());
        test.Open("again");
        CHECK(test.Text() == u"again");
    });
}

TEST_CASE("html view: the close of the window ends a wait" * plainPages) {
    OnEachBackEnd([](PageTest& test) {
        test.Open(NumberedParagraphs(20000));
        test.view.onLoaded = nullptr;
        const auto start = std::chrono::steady_clock::now();
        test.bench.CloseWindow();
        test.view.TextsOf({{0, 1}});
        CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(3));
        CHECK(test.view.HasBody());
    });
}
