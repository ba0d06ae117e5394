// Style sheets of a page from files, and which files are asked for.
#include "formats/css/css_sheet_loader.h"

#include "common/utf.h"
#include "formats/css/css_page_styles.h"
#include "formats/html/html_reader.h"

#include <doctest/doctest.h>

#include <map>

namespace {
struct Folder {
    std::map<std::u16string, std::string> files;
    std::string asked; // "a.css b/c.css"

    std::vector<CssSheet> Load(const std::u16string& html) {
        CssLoading loading;
        loading.readFile = [this](const std::u16string& path) -> std::optional<std::string> {
            asked += (asked.empty() ? "" : " ") + Utf16ToUtf8(path);
            const auto found = files.find(path);
            if (found == files.end()) return std::nullopt;
            return found->second;
        };
        return LoadCssSheets(ReadHtml(html), loading);
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
    folder.files = {{u"a.css", "@import 'sub/b.css'; p { color: #000001 }"},
                    {u"sub/b.css", "@import url(c.css); p { color: #000002 }"},
                    {u"sub/c.css", "p { color: #000003 }"}};
    const auto sheets = folder.Load(LinkTo(u"a.css") + u"<style>p{color:#000004}</style>");
    CHECK(folder.asked == "a.css sub/b.css sub/c.css");
    REQUIRE(sheets.size() == 4);
    std::string blues;
    for (const CssSheet& sheet : sheets)
        blues += std::to_string(sheet.block.declarations[0].value.AsColor().blue);
    CHECK(blues == "3214");
}

TEST_CASE("css sheets: a page's own style element imports from the page's folder") {
    Folder folder;
    CHECK(folder.Asked(u"<style>@import 'x.css'; p{}</style>") == "x.css");
    CHECK(folder.Asked(u"<style>p{} @import 'x.css';</style>") == "");
    CHECK(folder.Asked(u"<style>@import 'x.css' print;</style>") == "");
}

TEST_CASE("css sheets: nothing outside of the page's folder is asked for") {
    Folder folder;
    for (const char16_t* address :
         {u"http://example.com/a.css", u"//example.com/a.css", u"/etc/a.css", u"../a.css",
          u"a/../../b.css", u"file:///a.css", u"C:/a.css", u"C:\\a.css", u"\\\\host\\a.css",
          u"%2e%2e/a.css", u"..%2Fa.css", u"data:text/css,p{}", u"a.css:stream", u"a%00.css", u"#x",
          u"."})
        CHECK(folder.Asked(LinkTo(address)) == "");
    folder.files = {{u"sub/a.css", "@import '../b.css'; @import '../../c.css';"}};
    CHECK(folder.Asked(LinkTo(u"sub/a.css")) == "sub/a.css b.css");
}

TEST_CASE("css sheets: addresses as pages write them") {
    Folder folder;
    CHECK(folder.Asked(LinkTo(u" ./a%20b.css?x=1#y ")) == "a b.css");
    CHECK(folder.Asked(LinkTo(u"s//%C3%A4.css")) == Utf16ToUtf8(u"s/\u00E4.css"));
    CHECK(folder.Asked(LinkTo(u"50%.css")) == "50%.css");
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
