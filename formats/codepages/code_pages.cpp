#include "formats/codepages/code_pages.h"

#include "common/utf.h"
#include "formats/codepages/code_page_tables.h"
#include "formats/codepages/double_byte_pages.h"
#include "formats/codepages/escaped_text.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {

constexpr int fallbackPage = 1252;

template <class Page, std::size_t count>
const Page* FindPage(const Page (&pages)[count], int codePage) {
    const auto* const found = std::find_if(std::begin(pages), std::end(pages),
                                           [=](const Page& page) { return page.page == codePage; });
    return found == std::end(pages) ? nullptr : found;
}

struct VisualPage {
    int page, logicalPage;
};
constexpr VisualPage visualPages[] = {
    {visualIsoPage, logicalIsoPage}, {visualDosPage, 862}, {visualWindowsPage, 1255}};

const SingleBytePage* FindSingleBytePage(int codePage) {
    const int letters = LogicalOrderPage(codePage);
    return FindPage(singleBytePages, letters == logicalIsoPage ? visualIsoPage : letters);
}

void DecodeSingleBytes(const SingleBytePage& page, std::string_view bytes, std::u16string& text) {
    char16_t units[0x100];
    std::iota(units, units + 0x80, u'\0');
    std::copy(std::begin(page.units), std::end(page.units), units + 0x80);
    const std::size_t begin = text.size();
    text.resize(begin + bytes.size());
    std::transform(bytes.begin(), bytes.end(), text.begin() + static_cast<std::ptrdiff_t>(begin),
                   [&units](char byte) { return units[static_cast<unsigned char>(byte)]; });
}

// Nearly every text has none of them.
void ReplaceControlCharacters(int codePage, std::u16string& text, std::size_t begin) {
    const ControlLetters* const letters = FindPage(controlLetters, codePage);
    if (!letters) return;
    for (std::size_t i = begin; i < text.size(); ++i)
        if (text[i] < 0x20 && letters->units[text[i]] != 0) text[i] = letters->units[text[i]];
}

} // namespace

bool IsVisualOrder(int codePage) {
    return FindPage(visualPages, codePage) != nullptr;
}

int LogicalOrderPage(int codePage) {
    const VisualPage* const visual = FindPage(visualPages, codePage);
    return visual ? visual->logicalPage : codePage;
}

int OtherOrderPage(int codePage) {
    for (const VisualPage& each : visualPages) {
        if (each.page == codePage) return each.logicalPage;
        if (each.logicalPage == codePage) return each.page;
    }
    return 0;
}

bool HasCodePage(int codePage) {
    return codePage == utf8Page || IsEscapedPage(codePage) || FindSingleBytePage(codePage) ||
           FindDoubleBytePage(codePage);
}

void DecodeCodePage(int codePage, std::string_view bytes, std::u16string& text) {
    if (codePage == utf8Page && text.empty())
        text = Utf8ToUtf16(bytes); // a whole book is not held twice
    else if (codePage == utf8Page)
        text += Utf8ToUtf16(bytes);
    else if (IsEscapedPage(codePage))
        DecodeEscaped(codePage, bytes, text);
    else if (const DoubleBytePage* pairs = FindDoubleBytePage(codePage))
        DecodeDoubleBytes(*pairs, bytes, text);
    else if (const SingleBytePage* single = FindSingleBytePage(codePage)) {
        const std::size_t begin = text.size();
        DecodeSingleBytes(*single, bytes, text);
        ReplaceControlCharacters(codePage, text, begin);
    } else
        DecodeCodePage(fallbackPage, bytes, text);
}

const char16_t* UpperHalf(int codePage) {
    const SingleBytePage* const page = FindSingleBytePage(codePage);
    return page ? page->units : nullptr;
}

bool IsSingleBytePage(int codePage) {
    return codePage != utf8Page && !IsEscapedPage(codePage) && !FindDoubleBytePage(codePage);
}

std::size_t SequenceLength(int codePage, std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (codePage == utf8Page)
        return static_cast<std::size_t>(std::max(Utf8SequenceLength(first), 1));
    const DoubleBytePage* const page = FindDoubleBytePage(codePage);
    return page ? SequenceLength(*page, bytes) : 1;
}

std::size_t CharacterEnd(int codePage, std::string_view bytes, std::size_t place) {
    if (codePage == utf8Page) return Utf8CharacterEnd(bytes, place);
    const DoubleBytePage* const page = FindDoubleBytePage(codePage);
    return page ? CharacterEnd(*page, bytes, place) : place;
}

bool IsLeadByte(int codePage, unsigned char byte) {
    const DoubleBytePage* const page = FindDoubleBytePage(codePage);
    return page && IsLeadByte(*page, byte);
}
