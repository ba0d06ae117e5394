#include "formats/rtf/rtf_parser.h"

#include "common/decode_pieces.h"
#include "common/utf.h"
#include "formats/codepages/code_pages.h"

#include <algorithm>
#include <string>
#include <utility>

int RtfParser::CodePageOfText() const {
    int page = 0;
    if (State().destination == RtfDestination::Fonts)
        page = fonts_.CodePageOfName();
    else if (const RtfFont* font = FontOfText())
        page = font->codePage;
    if (escapesUtf8_ && page == 1252) page = utf8Page;
    return page != 0 ? page : codePage_;
}

// Rich text should have no such bytes, but some programs write their text as UTF-8, whatever code
// page the file names. Characters of two bytes may look like UTF-8 by chance when they are few.
int RtfParser::CodePageOfRawText() const {
    constexpr std::size_t certain = 8;
    const int page = CodePageOfText();
    const bool isUtf8 = rawUtf8_ >= (IsSingleBytePage(page) ? 1 : certain);
    return isUtf8 && !decoder_.IsPending() ? utf8Page : page;
}

SymbolSet RtfParser::SymbolsOfText() const {
    const RtfDestination destination = State().destination;
    const bool isShown =
        destination == RtfDestination::Body || destination == RtfDestination::NumberBefore;
    const RtfFont* const font = isShown ? FontOfText() : nullptr;
    return font ? font->symbols : SymbolSet::None;
}

// Where text of the current group is appended; nullptr when it is discarded.
std::u16string* RtfParser::Sink() {
    switch (State().destination) {
    case RtfDestination::Body:
        if (State().isHidden) return nullptr;
        if (State().numberFormat != 0 || State().list != 0 || !blankNumber_.empty())
            AddParagraphNumber();
        Story().UseCharStyle(CharStyleNow());
        return &Story().text;
    case RtfDestination::Fonts: return &fonts_.Name();
    case RtfDestination::Styles: return &styles_.Name();
    case RtfDestination::FieldInstruction: return &fieldInstruction_;
    case RtfDestination::ShapePropertyName: return &shapeProperty_;
    case RtfDestination::NumberBefore: return &numbering_.Before();
    case RtfDestination::NumberAfter: return &numbering_.After();
    case RtfDestination::ListLevelText: return &lists_.LevelText();
    case RtfDestination::FormEntry: return &formField_.Entry();
    case RtfDestination::FormDefaultText: return &formField_.DefaultText();
    case RtfDestination::AttachedPicture: return &attachedFile_;
    default: return nullptr;
    }
}

std::size_t RtfParser::MaxLengthOfSink() const {
    switch (State().destination) {
    case RtfDestination::Body: return body_.text.max_size();
    case RtfDestination::NumberBefore:
    case RtfDestination::NumberAfter: return maxRtfNumberTextLength;
    case RtfDestination::ListLevelText: return maxRtfLevelTextLength;
    default: return maxRtfFieldLength;
    }
}

bool RtfParser::SkipsFallback() {
    if (fallbackLeft_ == 0) return false;
    --fallbackLeft_;
    return true;
}

void RtfParser::HandleText(std::string_view bytes) {
    const auto skipped = std::min(bytes.size(), static_cast<std::size_t>(fallbackLeft_));
    fallbackLeft_ -= static_cast<std::int32_t>(skipped);
    bytes.remove_prefix(skipped);
    if (bytes.empty()) return;
    switch (State().destination) {
    case RtfDestination::Picture: return picture_.AddHex(bytes);
    case RtfDestination::Colors:
        for (auto ends = std::count(bytes.begin(), bytes.end(), ';'); ends > 0; --ends)
            colors_.EndColor();
        return;
    default: return AddBytes(bytes, CodePageOfRawText());
    }
}

void RtfParser::HandleHexByte(unsigned char byte) {
    if (SkipsFallback()) return;
    const char c = static_cast<char>(byte);
    if (byte >= 0x20)
        AddBytes({&c, 1}, CodePageOfText());
    else if (c == '\t' || State().destination == RtfDestination::ListLevelText)
        AddUnit(byte);
}

void RtfParser::HandleLiteral(char16_t unit) {
    if (SkipsFallback()) return;
    FinishCharacter();
    AddUnit(unit);
}

void RtfParser::AddBytes(std::string_view bytes, int codePage) {
    std::u16string* const sink = Sink();
    if (!sink) return;
    if (std::exchange(highSurrogate_, 0)) sink->push_back(u'\uFFFD');
    const std::size_t maxLength = MaxLengthOfSink();
    bytes = bytes.substr(0, maxLength - std::min(maxLength, sink->size()));
    if (const SymbolSet symbols = SymbolsOfText(); symbols != SymbolSet::None) {
        FinishBytes();
        for (const char c : bytes)
            AddSymbol(static_cast<unsigned char>(c));
        return;
    }
    decoder_.Decode(codePage, bytes, *sink);
    EndNames();
}

void RtfParser::EndNames() {
    if (State().destination == RtfDestination::Fonts) fonts_.EndNames();
    if (State().destination == RtfDestination::Styles)
        styles_.EndNames(State().styleNumber, State().paragraph.outlineLevel);
}

void RtfParser::AddUnit(char16_t unit) {
    std::u16string* const sink = Sink();
    if (!sink) return;
    if (sink->size() >= MaxLengthOfSink()) return;
    sink->push_back(unit);
    EndNames();
}

// A character that Unicode has is in the font of the surrounding text (the state's style), others
// are in the symbol font.
void RtfParser::AddSymbol(unsigned char byte) {
    const char32_t sign = SymbolOfByte(SymbolsOfText(), byte);
    const bool isPrivateUse = sign < 0x10000 && IsSymbolFontUnit(static_cast<char16_t>(sign));
    const std::uint16_t textFont = State().chars.font;
    if (isPrivateUse) State().chars.font = FontOfText()->index;
    char16_t units[2];
    for (const char16_t *unit = units, *const end = PutUtf16(sign, units); unit != end; ++unit)
        AddUnit(*unit);
    State().chars.font = textFont;
}

// Before whatever cannot be a byte of the same character.
void RtfParser::FinishBytes() {
    if (!decoder_.IsPending()) return;
    if (std::u16string* const sink = Sink()) decoder_.Flush(*sink);
}

// Before whatever cannot be a character's next part. Between the halves of a pair and between the
// bytes of a character may be properties and groups, but no text.
void RtfParser::FinishCharacter() {
    FinishBytes();
    if (State().destination == RtfDestination::Skip) return;
    if (std::exchange(highSurrogate_, 0)) AddUnit(u'\uFFFD');
}

void RtfParser::HandleUnicode(std::int32_t parameter) {
    fallbackLeft_ = State().fallbackLength;
    // Writers give a unit as it is or as a signed 16-bit number, some a character beyond the BMP.
    if (parameter < 0x10000) return HandleUnicodeUnit(static_cast<char16_t>(parameter & 0xFFFF));
    if (parameter > 0x10FFFF) return HandleUnicodeUnit(u'\uFFFD');
    const auto character = static_cast<char32_t>(parameter);
    HandleUnicodeUnit(HighSurrogateOf(character));
    HandleUnicodeUnit(LowSurrogateOf(character));
}

void RtfParser::HandleUnicodeUnit(char16_t unit) {
    if (IsLowSurrogate(unit) && highSurrogate_ != 0) {
        AddUnit(std::exchange(highSurrogate_, 0));
        return AddUnit(unit);
    }
    FinishCharacter();
    if (IsHighSurrogate(unit))
        highSurrogate_ = unit;
    else if (IsLowSurrogate(unit) || unit == u'\uFFFC')
        AddUnit(u'\uFFFD'); // nothing of its own, or what stands for a picture
    else if (unit == u'\n' || unit == u'\r' || unit == u'\v' || unit == u'\u2028' ||
             unit == u'\u2029')
        AddUnit(u'\v');
    else if (IsSymbolFontUnit(unit) && SymbolsOfText() != SymbolSet::None)
        AddSymbol(static_cast<unsigned char>(unit & 0xFF));
    else if (unit >= 0x20 || unit == u'\t')
        AddUnit(unit);
}

void RtfParser::HandleBreak(RtfWord word) {
    FinishCharacter();
    const RtfDestination destination = State().destination;
    const bool isRowEnd =
        destination == RtfDestination::NestedRowProperties && word == RtfWord::EndNestedRow;
    if (destination != RtfDestination::Body && !isRowEnd) return;
    switch (word) {
    case RtfWord::EndParagraph: return EndParagraph();
    case RtfWord::EndPage:
        if (Story().AtParagraphStart()) return;
        EndParagraph();
        if (!State().inNote) numberedStart_ = body_.paragraphStart; // the same one goes on
        return;
    case RtfWord::BreakLine: return AddUnit(u'\v');
    case RtfWord::EndCell: return EndCell();
    case RtfWord::EndRow: return EndRow();
    case RtfWord::EndNestedCell: return AddUnit(u'\t');
    case RtfWord::EndNestedRow: return EndNestedRow();
    case RtfWord::NoteNumber: return AddNoteNumber();
    default: return;
    }
}

void RtfParser::EndParagraph() {
    if (State().isHidden) return;
    if (State().inShape) return AddUnit(u'\v');
    if (IsDropCap()) return;
    CountListParagraph();
    if (!State().inNote) rows_.BeforeParagraphEnd(body_, State().inTable);
    if (!State().inNote) blankNumber_.clear();
    const TextPos start = Story().paragraphStart;
    Story().EndParagraph(u'\n', CharStyleNow(), ParagraphStyleNow());
    if (!State().inNote) numbering_.EndParagraph(start, Story().Size());
}

// Whether the paragraph that ends is the first letter of the next one.
bool RtfParser::IsDropCap() {
    const RtfStory& story = Story();
    const TextPos length = story.Size() - story.paragraphStart;
    return State().dropCapLines > 0 && length > 0 && length <= maxRtfDropCapLength;
}

void RtfParser::EndCell() {
    if (!MayHoldTable()) return AddUnit(u'\t');
    CountListParagraph();
    rows_.EndCell(body_, CharStyleNow(), ParagraphStyleNow());
}

void RtfParser::EndRow() {
    if (MayHoldTable()) return rows_.EndRow(body_, CharStyleNow(), ParagraphStyleNow());
    if (!Story().AtParagraphStart()) EndParagraph();
}

// A row inside a cell is a paragraph of that cell, its own cells are separated by tabs.
void RtfParser::EndNestedRow() {
    RtfStory& story = Story();
    if (story.AtParagraphStart()) return;
    if (story.text.back() == u'\t') story.text.pop_back();
    EndParagraph();
}

// Before the first text of a paragraph, unless that is the number itself.
void RtfParser::AddParagraphNumber() {
    RtfState& state = State();
    if (!body_.AtParagraphStart() || state.inNote || state.inNumber) return;
    const std::size_t format = std::exchange(state.numberFormat, 0);
    const std::int32_t list = std::exchange(state.list, 0);
    std::u16string text = std::exchange(blankNumber_, {});
    if (list != 0 && lists_.Level(list, state.listLevel)) {
        if (std::u16string number = ListNumber(list); !number.empty()) text = std::move(number);
    } else if (format != 0) {
        text = numbering_.TextOfParagraph(format, body_.paragraphStart);
    }
    for (const char16_t unit : text)
        AddUnit(unit);
    state.numberFormat = format;
    state.list = list;
}

// "" when the paragraph has its number already.
std::u16string RtfParser::ListNumber(std::int32_t list) {
    if (std::exchange(numberedStart_, body_.paragraphStart) == body_.paragraphStart) return {};
    return lists_.TextOfParagraph(list, State().listLevel);
}

// One whose number is written out counts for those after it.
void RtfParser::CountListParagraph() {
    const RtfState& state = State();
    if (state.list == 0 || state.inNote || body_.AtParagraphStart()) return;
    ListNumber(state.list);
}

// One of blanks alone waits for the paragraph's text: what the writer could not write out may
// follow as a description.
void RtfParser::EndWrittenNumber() {
    const bool isBlank =
        !State().inNote && !body_.AtParagraphStart() &&
        body_.text.find_first_not_of(u" \t\u00A0", body_.paragraphStart) == body_.text.npos;
    if (isBlank) blankNumber_ = body_.TakeParagraph();
}

void RtfParser::AddNoteNumber() {
    const std::size_t number = State().inNote ? noteCount_ : noteCount_ + 1;
    for (const char digit : std::to_string(number))
        AddUnit(static_cast<char16_t>(digit));
}
