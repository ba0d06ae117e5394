#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "tests/document_check.h"
#include "tests/unit/golden.h"
#include "tests/unit/rtf_dump.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

namespace {

constexpr const char* goldenNames[] = {"characters", "paragraphs", "table", "objects"};

Document ReadGolden(const std::string& name) {
    const std::string rtf =
        ReadWholeFile((SourceFolder() / "tests/golden/rtf" / (name + ".rtf")).string());
    REQUIRE(LooksLikeRtf(rtf));
    return ReadRtf(rtf, 1252);
}

} // namespace

TEST_CASE("rtf golden: what the reader makes of our own files") {
    for (const std::string name : goldenNames) {
        const Document document = ReadGolden(name);
        CHECK(document_check::FirstFault(document) == "");
        CheckGolden("rtf/" + name + ".expected", DumpDocument(document));
    }
}

TEST_CASE("rtf golden: what the writer makes of them") {
    for (const std::string name : goldenNames)
        CheckGolden("rtf/" + name + ".written", WriteRtf(ReadGolden(name)));
}
