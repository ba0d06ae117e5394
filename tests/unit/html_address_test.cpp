#include "formats/html/html_address.h"
#include "formats/html/html_data_address.h"

#include <doctest/doctest.h>

TEST_CASE("html address: references of a page") {
    const struct {
        const char16_t *page, *base, *reference, *url, *path, *fragment;
    } cases[] = {
        {u"/b/one.htm", u"", u"two.htm#x", u"file:///b/two.htm#x", u"/b/two.htm", u"x"},
        {u"/b/one.htm", u"", u"#n%20t", u"file:///b/one.htm#n%20t", u"/b/one.htm", u"n t"},
        {u"/b/one.htm", u"", u"../a%20b/./c.htm?q", u"file:///a%20b/c.htm?q", u"/a b/c.htm", u""},
        {u"/b/one.htm", u"", u"../../../x", u"file:///x", u"/x", u""},
        {u"/b/one.htm", u"", u" mailto:a@b.c?subject=d&e=f ", u"mailto:a@b.c?subject=d&e=f", u"",
         u""},
        {u"/b/one.htm", u"", u"file:///c/d%25.htm", u"file:///c/d%25.htm", u"/c/d%.htm", u""},
        {u"/b/one.htm", u"", u"file://localhost/c", u"file:///c", u"/c", u""},
        {u"/b/one.htm", u"", u"file://server/c", u"", u"", u""},
        {u"/b/one.htm", u"", u"//server/c", u"", u"", u""},
        {u"/b/one.htm", u"http://a.b/c/d", u"e.png", u"http://a.b/c/e.png", u"", u""},
        {u"/b/one.htm", u"http://a.b/c/d", u"#e", u"file:///b/one.htm#e", u"/b/one.htm", u"e"},
        {u"/b/one.htm", u"sub/", u"e.png", u"file:///b/sub/e.png", u"/b/sub/e.png", u""},
        {u"C:\\b\\one.htm", u"", u"x/two.htm", u"file:///C:/b/x/two.htm", u"C:\\b\\x\\two.htm",
         u""},
        {u"C:\\b\\one.htm", u"", u"/two.htm", u"file:///C:/two.htm", u"C:\\two.htm", u""},
        {u"C:\\b\\one.htm", u"", u"file:///D:/e%20f", u"file:///D:/e%20f", u"D:\\e f", u""},
        {u"\\\\nas\\b\\one.htm", u"", u"two.htm", u"file://nas/b/two.htm", u"\\\\nas\\b\\two.htm",
         u""},
    };
    for (const auto& sample : cases) {
        CAPTURE(sample.page);
        const HtmlAddress address = ResolveHtmlAddress(sample.page, sample.base, sample.reference);
        CHECK(address.url == sample.url);
        CHECK(address.path == sample.path);
        CHECK(address.fragment == sample.fragment);
    }
}

TEST_CASE("html address: data in an address") {
    CHECK(HtmlDataOf(u"data:text/plain;base64,SGVsbG8=") == "Hello");
    CHECK(HtmlDataOf(u"data:text/plain;base64,SGVsbG8=", 3) == "Hel");
    CHECK(HtmlDataOf(u"DATA:,a%20b") == "a b");
    CHECK(HtmlDataOf(u"data:,\u00e9%e9%4%zz%") == "\xC3\xA9\xE9%4%zz%");
    CHECK(HtmlDataOf(u"data:nothing").empty());
    CHECK(HtmlDataOf(u"http://a.b/,c").empty());
}

TEST_CASE("html address: long data, whose parts end within an escape or a character") {
    for (std::size_t before = 0; before < 8; ++before) {
        std::u16string url = u"data:,";
        std::string bytes;
        for (std::size_t i = 0; i < before; ++i, bytes += 'a')
            url += u'a';
        for (int i = 0; i < 50'000; ++i, bytes += "A\xF0\x9F\x98\x80")
            url += u"%41\U0001F600";
        CAPTURE(before);
        CHECK(HtmlDataOf(url) == bytes);
        CHECK(HtmlDataOf(url, 100'001) == bytes.substr(0, 100'001));
    }
}
