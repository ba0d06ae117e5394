// What a file that means harm costs: memory in proportion to its size, and as many allocations.
// Work that allocates nothing shows in the time limit of rtf_fuzzer alone.
#include "allocations.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {

AllocationCounts CostOfReading(const std::string& rtf) {
    AllocationCounter counter;
    const Document document = ReadRtf(rtf, 1252);
    const AllocationCounts cost = counter.Counts();
    CHECK(document_check::FirstFault(document) == "");
    return cost;
}

std::string Repeat(const std::string& start, const std::string& piece, std::size_t size) {
    std::string rtf = start;
    while (rtf.size() < size)
        rtf += piece;
    return rtf;
}

struct NastyFile {
    std::string start, piece;
};

const NastyFile nastyFiles[] = {
    {"{\\rtf1 ", "x"},
    {"{\\rtf1 ", "\xE9"},
    {"{\\rtf1\\ansicpg932 ", "\x83\x65"},
    {"{\\rtf1\\ansicpg65001 ", "\xE2\x82\xAC"},
    {"{\\rtf1\\ansicpg65001 ", "\xE2x"},
    {"{\\rtf1 ", "\\b0\\b1x"},
    {"{\\rtf1 ", "{\\b.}."},
    {"{\\rtf1 ", "{\\b.\\qc\\\n}.\\\n"},
    {"{\\rtf1 ", "\\\n"},
    {"{\\rtf1 ", "{"},
    {"{\\rtf1 ", "{}"},
    {"{\\rtf1\\tx1\\tx2\\tx3\\tx4\\tx5\\tx6\\tx7\\tx8\\tx9", "{}"},
    {"{\\rtf1 ", "}"},
    {"{\\rtf1 ", "{\\*\\x"},
    {"{\\rtf1 ", "\\u1x"},
    {"{\\rtf1\\uc0 ", "\\u9"},
    {"{\\rtf1 ", "\\u-10179?"},
    {"{\\rtf1 ", "\\'e9"},
    {"{\\rtf1 ", "\\'"},
    {"{\\rtf1 ", "\\'cf\\'f0 "},
    {"{\\rtf1\\ansicpg65001", "\\'c3\\'a9"},
    {"{\\rtf1{\\pict\\pngblip ", "41"},
    {"{\\rtf1 ", "{\\pict}"},
    {"{\\rtf1 ", "{\\pict\\pngblip 4}"},
    {"{\\rtf1 ", "{\\pict\\picwgoal1}"},
    {"{\\rtf1 ", "{\\pict\\jpegblip\\bin99999999 "},
    {"{\\rtf1 ", "\\trowd"},
    {"{\\rtf1\\trowd", "\\cellx1"},
    {"{\\rtf1 ", "\\cell"},
    {"{\\rtf1 ", "\\row"},
    {"{\\rtf1 ", "\\cell\\row"},
    {"{\\rtf1\\intbl ", "\\cell\\cell\\row"},
    {"{\\rtf1\\intbl ", "\\cell\\pard\\par\\intbl"},
    {"{\\rtf1\\trowd\\cellx1\\clmrg\\cellx2", "\\cell\\cell x\\row"},
    {"{\\rtf1 ", "\\nestcell\\nestrow"},
    {"{\\rtf1{\\fonttbl", "{\\f1 a;}"},
    {"{\\rtf1{\\fonttbl\\f1 ", "a"},
    {"{\\rtf1{\\colortbl", ";"},
    {"{\\rtf1 ", "\\tx9"},
    {"{\\rtf1 ", "{\\field{\\*\\fldinst HYPERLINK a}{\\fldrslt b}}"},
    {"{\\rtf1{\\*\\fldinst ", "\\\\"},
    {"{\\rtf1 ", "{\\footnote x}"},
    {"{\\rtf1{\\footnote ", "{\\b.}."},
    {"{\\rtf1{\\footnote ", "x"},
    {"{\\rtf1 ", "{\\upr{x}{\\*\\ud y}}"},
    {"{\\rtf1 ", "\\chftn"},
    {"{\\rtf1{\\*\\pn\\pnlcrm\\pnstart3888{\\pntxtb ((((((((((((((((}}", "x\\par"},
    {"{\\rtf1 ", "{\\*\\pn\\pndec}"},
    {"{\\rtf1{\\*\\formfield", "{\\*\\ffl x}"},
    {"{\\rtf1 ", "{\\NeXTGraphic a}"},
    {"{\\rtf1\\v ", "x\\par"},
};

// Pieces that differ from each other: fonts, colours, styles.
std::string DifferentPieces(const std::string& start, const std::string& before,
                            const std::string& after, std::size_t size) {
    std::string rtf = start;
    for (int i = 0; rtf.size() < size; ++i)
        rtf.append(before).append(std::to_string(i)).append(after);
    return rtf;
}

constexpr std::size_t nastySize = 1'000'000;
constexpr std::size_t constantCost = 16'000'000;
constexpr std::size_t costPerByte = 10;

// Twice the size shows what a byte costs without the constants.
template <typename MakeFile>
void CheckCost(MakeFile makeFile) {
    const AllocationCounts one = CostOfReading(makeFile(nastySize));
    const AllocationCounts two = CostOfReading(makeFile(2 * nastySize));
    CHECK(one.peakBytes <= costPerByte * nastySize + constantCost);
    CHECK(two.peakBytes <= costPerByte * nastySize + std::max(one.peakBytes, constantCost));
    // What is copied again and again would be four times as much.
    CHECK(two.allBytes <= 3 * std::max(one.allBytes, constantCost));
    CHECK(two.count <= 3 * std::max<std::size_t>(one.count, 10'000));
}

} // namespace

TEST_CASE("rtf limits: memory is at most ten times the file and a constant") {
    for (const auto& c : nastyFiles) {
        CAPTURE(c.start);
        CAPTURE(c.piece);
        CheckCost([&](std::size_t size) { return Repeat(c.start, c.piece, size); });
    }
}

TEST_CASE("rtf limits: fonts, styles and links that all differ cost no more") {
    struct {
        std::string start, before, after;
    } const cases[] = {
        {"{\\rtf1 ", "\\fs", "x"},
        {"{\\rtf1 ", "\\cf1\\b\\fs", "x\\b0 y\\i z\\i0\\li7\\par"},
        {"{\\rtf1{\\fonttbl", "{\\f", " a;}"},
        {"{\\rtf1{\\fonttbl", "{\\f1 a", ";}"},
        {"{\\rtf1 ", "\\li", "\\par"},
        {"{\\rtf1 ", "\\tx", "\\par"},
        {"{\\rtf1 ", "{\\field{\\*\\fldinst HYPERLINK ", "}{\\fldrslt b}}"},
        {"{\\rtf1 ", "\\ansicpg", "\\'e9"},
        {"{\\rtf1 ", "\\u", "?"},
        {"{\\rtf1 ", "{\\*\\pn\\pndec\\pnstart", "}"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.before);
        CheckCost(
            [&](std::size_t size) { return DifferentPieces(c.start, c.before, c.after, size); });
    }
}

TEST_CASE("rtf limits: groups beyond the deepest share its state") {
    const std::string rtf = "{\\rtf1 " + std::string(maxRtfDepth, '{') + "\\b a{\\i b}c" +
                            std::string(maxRtfDepth, '}') + "d}e";
    const Document document = ReadRtf(rtf, 1252);
    CHECK(document.text == u"abcd");
    CHECK(document_check::CharStyleAt(document, 0).bold);
    CHECK_FALSE(document_check::CharStyleAt(document, 3).bold);
}

TEST_CASE("rtf limits: styles beyond the last are the default") {
    std::string rtf = "{\\rtf1 ";
    for (std::size_t i = 0; i < maxRtfParagraphStyles + 10; ++i)
        rtf += std::string("\\pard\\li").append(std::to_string(i + 1)).append("\\par ");
    for (std::size_t i = 0; i < maxRtfCharStyles + 10; ++i) {
        // Sixteen faces of a size, in both scripts.
        rtf += i % 2 ? "\\b" : "\\b0";
        rtf += i / 2 % 2 ? "\\i" : "\\i0";
        rtf += i / 4 % 2 ? "\\ul" : "\\ul0";
        rtf += i / 8 % 2 ? "\\strike" : "\\strike0";
        rtf += i / 16 % 2 ? "\\sub" : "\\super";
        rtf.append("\\fs").append(std::to_string(i / 32 + 1)).append(" x");
    }
    const Document document = ReadRtf(rtf, 1252);
    CHECK(document_check::FirstFault(document) == "");
    CHECK(document.charStyles.size() == maxRtfCharStyles);
    CHECK(document.paragraphStyles.size() == maxRtfParagraphStyles);
    const auto last = static_cast<TextPos>(document.text.size()) - 1;
    CHECK(document_check::CharStyleAt(document, last) == CharStyle{});
    const ParagraphStyle& beyond =
        document_check::ParagraphStyleAt(document, static_cast<TextPos>(maxRtfParagraphStyles));
    CHECK(beyond == ParagraphStyle{});
}

TEST_CASE("rtf limits: links and pictures beyond the last are left out") {
    std::string links = "{\\rtf1 ", pictures = "{\\rtf1 ";
    for (std::size_t i = 0; i < maxRtfLinks + 2; ++i)
        links += "{\\field{\\*\\fldinst HYPERLINK a" + std::to_string(i) + "}{\\fldrslt b}}";
    for (std::size_t i = 0; i < maxRtfPictures + 2; ++i)
        pictures += "{\\pict\\pngblip 41}";
    const Document linked = ReadRtf(links, 1252);
    CHECK(linked.links.size() == maxRtfLinks);
    const bool isLastRight = document_check::LinkAt(linked, 65'534) == u"a65534";
    CHECK(isLastRight);
    CHECK(document_check::LinkAt(linked, 65'535).empty());
    CHECK(document_check::FirstFault(linked) == "");
    CHECK(ReadRtf(pictures, 1252).pictures.size() == maxRtfPictures);
}
