// The cases of encodings: bytes and the charset by which they are read. Those without a declaration
// expect Windows 1252, where our guess is free.
#include "test_files.h"

#include "formats/html/html_declaration.h"
#include "formats/html/html_decode.h"
#include "formats/html/html_labels.h"

#include <doctest/doctest.h>

// Left out: the folder "scripted" has a script that writes the declaration.
TEST_CASE("html5lib: encodings") {
    if (!HasTestFiles()) return;
    int count = 0;
    for (const std::string& path : TestFiles("encoding", ".dat")) {
        const std::string file = ReadTestFile(path);
        for (std::size_t at = file.find("#data\n"); at != file.npos;) {
            const std::size_t next = file.find("#data\n", at + 6);
            const std::size_t encoding = file.find("#encoding\n", at);
            const std::string data = file.substr(at + 6, encoding - at - 7);
            const std::size_t label = encoding + 10;
            const std::string expected = file.substr(label, file.find('\n', label) - label);
            CAPTURE(path);
            CAPTURE(data);
            CAPTURE(expected);
            const bool isMarked = data.starts_with("\xEF\xBB\xBF");
            const int page =
                isMarked ? DecodeHtml(data, 0, 1252).codePage : DeclaredHtmlCodePage(data);
            CHECK((page == 0 ? 1252 : page) == HtmlLabelCodePage(expected));
            ++count;
            at = next;
        }
    }
    CHECK(count >= 80);
}
