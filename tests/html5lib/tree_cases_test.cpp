// The tree construction's cases: a page and its tree. Parse errors are not compared: a reader of
// books does not report them.
#include "test_files.h"
#include "tree_dump.h"

#include "common/utf.h"
#include "formats/html/html_reader.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>

namespace {

// The parts of a case by their headings ("#data"), each without its last line end.
using Case = std::map<std::string, std::string>;

std::vector<Case> ReadCases(const std::string& file) {
    std::vector<Case> cases;
    std::string heading;
    for (std::size_t at = 0; at < file.size();) {
        const std::size_t end = std::min(file.find('\n', at), file.size());
        const std::string line = file.substr(at, end - at);
        at = end + 1;
        const bool isData = heading == "#data" && line != "#errors";
        if (line == "#data") cases.emplace_back();
        if (!isData && line.starts_with("#") && (heading != "#document" || line == "#data")) {
            heading = line;
            cases.back()[heading];
        } else if (!cases.empty()) {
            cases.back()[heading] += line + "\n";
        }
    }
    return cases;
}

std::string WithoutLastLineEnds(std::string text) {
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace

// Left out: "#document-fragment" is what a script makes of a string (`innerHTML`), "#script-on"
// what a program that runs scripts makes of `noscript`; the folder "scripted" has scripts that
// write.
TEST_CASE("html5lib: tree construction") {
    if (!HasTestFiles()) return;
    int count = 0, fragments = 0, scriptOn = 0;
    for (const std::string& path : TestFiles("tree-construction", ".dat")) {
        CAPTURE(path);
        for (const Case& test : ReadCases(ReadTestFile(path))) {
            if (test.contains("#document-fragment"))
                ++fragments;
            else if (test.contains("#script-on"))
                ++scriptOn;
            if (test.contains("#document-fragment") || test.contains("#script-on")) continue;
            ++count;
            std::string data = test.at("#data");
            if (!data.empty()) data.pop_back();
            CAPTURE(data);
            CHECK(WithoutLastLineEnds(DumpTree(ReadHtml(Utf8ToUtf16(data)))) ==
                  WithoutLastLineEnds(test.at("#document")));
        }
    }
    CHECK(count >= 1'550);
    CHECK(fragments <= 200);
    CHECK(scriptOn <= 20);
}
