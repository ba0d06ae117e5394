// Any bytes as RTF: the document is sound, and what the writer makes of it reads as the same text.
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "tests/document_check.h"
#include "tests/fuzz/require.h"

#include <algorithm>

namespace {
std::size_t Paragraphs(const Document& document) {
    const auto ends = [](char16_t unit) { return unit == u'\n' || unit == u'\a'; };
    return 1 + static_cast<std::size_t>(std::ranges::count_if(document.text, ends));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Document document = ReadRtf(bytes, 1251);
    Require(document.text.size() <= size + Paragraphs(document) * maxRtfListNumberLength,
            "more text than bytes and numbers of lists");
    const std::string fault = document_check::FirstFault(document);
    Require(fault.empty(), "document", fault);

    const Document again = ReadRtf(WriteRtf(document), 1252);
    Require(again.text == document.text, "rewritten text");
    Require(again.rows.size() == document.rows.size(), "rewritten rows");
    Require(again.pictures.size() == document.pictures.size(), "rewritten pictures");

    const auto textSize = static_cast<TextPos>(document.text.size());
    const Document part = ReadRtf(WriteRtf(document, textSize / 3, textSize / 3), 1252);
    const std::string partFault = document_check::FirstFault(part);
    Require(partFault.empty(), "part", partFault);
    return 0;
}
