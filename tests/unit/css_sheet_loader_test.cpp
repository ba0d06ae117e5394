// The texts of a page's style sheets, and which files are asked for.
#include "formats/css/css_sheet_loader.h"

#include "common/utf.h"
#include "formats/html/html_reader.h"

#include <doctest/doctest.h>

#include <map>

namespace {
struct Folder {
    std::map<std::u16string, std::string> files;
    std::string asked; // "a.css b/c.css"

    std::vector<std::u16string> Load(const std::u16string& html) {
        const auto read = [this](std::u16string_view address) {
            asked += (asked.empty() ? "" : " ") + Utf16ToUtf8(address);
            const auto found = files.find(std::u16string(address));
            return found == files.end() ? std::string() : found->second;
        };
        return LoadCssTexts(ReadHtml(html), CssMedium{}, 65001, read);
    }

    // What is asked for by a page with these links.
    std::string Asked(const std::u16string& html) {
        asked.clear();
        Load(html);
        return asked;
    }
};

std::u16string LinkTo(const std::u16string& address) {
    return u"<link rel=stylesheet href='" + address + u"'>";
}
} // namespace

TEST_CASE("css sheets: files and what they import, in the order in which they hold") {
    Folder folder;
    folder.files = {{u"a.css", "@import 'sub/b.css'; a{}"},
                    {u"sub/b.css", "@import url(c.css); b{}"},
                    {u"sub/c.css", "c{}"}};
    const auto texts = folder.Load(LinkTo(u"a.css") + u"<style>d{}</style>");
    CHECK(folder.asked == "a.css sub/b.css sub/c.css");
    std::u16string last;
    for (const std::u16string& text : texts)
        last += text[text.size() - 3];
    CHECK(last == u"cbad");
}

TEST_CASE("css sheets: a page's own style element imports from where the page is") {
    Folder folder;
    CHECK(folder.Asked(u"<style>@import 'x.css'; p{}</style>") == "x.css");
    CHECK(folder.Asked(u"<style>@IMPORT \"x.css\"; p{}</style>") == "x.css");
    CHECK(folder.Asked(u"<style>p{} @import 'x.css';</style>") == "");
    CHECK(folder.Asked(u"<style>@import 'x.css' print;</style>") == "");
}

TEST_CASE("css sheets: addresses in a sheet are relative to it") {
    CHECK(AddressFrom(u"sub/a.css?x=/1", u" b.css ") == u"sub/b.css");
    CHECK(AddressFrom(u"a.css", u"sub/b.css") == u"sub/b.css");
    CHECK(AddressFrom(u"sub/a.css", u"../b.css") == u"sub/../b.css");
    CHECK(AddressFrom(u"", u"b.css") == u"b.css");
    // Those that lead elsewhere are left as they are: who reads refuses them.
    for (const char16_t* address : {u"http://example.com/b.css", u"//example.com/b.css", u"/b.css",
                                    u"C:\\b.css", u"\\\\host\\b.css", u"file:///b.css"})
        CHECK(AddressFrom(u"sub/a.css", address) == address);
    CHECK(AddressFrom(u"data:text/css,p{}", u"b.css") == u"");
}

TEST_CASE("css sheets: imports in a circle end, and so do many and deep ones") {
    Folder folder;
    folder.files = {{u"a.css", "@import 'b.css'; p{}"}, {u"b.css", "@import 'a.css'; p{}"}};
    CHECK(folder.Load(LinkTo(u"a.css")).size() == 2);

    folder.files.clear();
    for (char16_t name = u'a'; name <= u'z'; ++name)
        folder.files[std::u16string(1, name)] =
            "@import '" + std::string(1, char(name + 1)) + "'; p{}";
    CHECK(folder.Load(LinkTo(u"a")).size() == 8);

    // Each imports the next one twice.
    for (auto& [name, text] : folder.files)
        text = text.substr(0, text.find(';') + 1) + text;
    CHECK(folder.Load(LinkTo(u"a")).size() <= 64);
}

TEST_CASE("css sheets: all files together are bounded") {
    Folder folder;
    std::u16string html;
    for (char16_t name = u'a'; name <= u'd'; ++name) {
        folder.files[std::u16string(1, name)] = std::string(std::size_t{6} << 20, ' ');
        html += LinkTo(std::u16string(1, name));
    }
    CHECK(folder.Load(html).size() == 2);
}
