#include "formats/rtf/rtf_parser.h"

#include "common/utf.h"
#include "formats/codepages/charset_guess.h"
#include "formats/codepages/code_pages.h"
#include "formats/codepages/escaped_text.h"
#include "formats/rtf/rtf_math.h"

#include <algorithm>
#include <utility>

namespace {
// Characters beyond ASCII; 0 when not all of it is UTF-8.
std::size_t CountUtf8(std::string_view bytes) {
    if (!IsValidUtf8(bytes)) return 0;
    return static_cast<std::size_t>(std::count_if(
        bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xC0; }));
}

// Whether a file names UTF-8 as its code page and escapes bytes of that. Fonts may name Windows'
// Latin page all the same, of which other such files have their bytes.
bool EscapesUtf8(std::string_view bytes) {
    constexpr std::size_t headerLength = 4096;
    if (bytes.substr(0, headerLength).find("\\ansicpg65001") == bytes.npos) return false;
    RtfTokenizer tokenizer(bytes);
    std::string escaped;
    for (RtfToken token = tokenizer.Next(); token.kind != RtfToken::Kind::End;
         token = tokenizer.Next()) {
        if (token.kind == RtfToken::Kind::Hex)
            escaped += static_cast<char>(token.byte);
        else if (escaped.empty() || escaped.back() != ' ')
            escaped += ' '; // no character goes on after it
    }
    return CountUtf8(escaped) > 0;
}

// The code page of a file that names none, neither for itself nor for a font: as of a plain text.
int GuessedCodePage(std::string_view bytes, int systemCodePage) {
    constexpr std::size_t enough = 64 * 1024; // bytes of text
    for (const char* const name : {"\\ansicpg", "\\fcharset", "\\cpg", "\\mac", "\\pc"})
        if (bytes.find(name) != bytes.npos) return systemCodePage;
    RtfTokenizer tokenizer(bytes);
    std::string text;
    for (RtfToken token = tokenizer.Next();
         token.kind != RtfToken::Kind::End && text.size() < enough; token = tokenizer.Next()) {
        if (token.kind == RtfToken::Kind::Hex) text += static_cast<char>(token.byte);
        if (token.kind == RtfToken::Kind::Text) text += token.text;
        if (token.kind == RtfToken::Kind::Word && (token.text == "par" || token.text == "line"))
            text += '\n';
    }
    const std::string_view samples[] = {text};
    const int page = GuessCharsets(samples, systemCodePage).front().page;
    return IsVisualOrder(page) ? systemCodePage : page;
}
} // namespace

RtfParser::RtfParser(std::string_view bytes, int systemCodePage)
    : tokenizer_(bytes), codePage_(GuessedCodePage(bytes, systemCodePage)),
      rawUtf8_(CountUtf8(bytes)), escapesUtf8_(EscapesUtf8(bytes)) {
    // A file's text is mostly less than half of it; growing to the rest costs one copy.
    body_.text.reserve(bytes.size() / 2);
}

Document RtfParser::Parse() {
    RtfToken token = tokenizer_.Next();
    while (token.kind != RtfToken::Kind::End && token.kind != RtfToken::Kind::GroupStart)
        token = tokenizer_.Next();
    stack_.emplace_back();
    for (token = tokenizer_.Next(); token.kind != RtfToken::Kind::End && !stack_.empty();
         token = tokenizer_.Next())
        HandleToken(token);
    if (!stack_.empty()) CloseAllGroups();
    return ReleaseDocument();
}

void RtfParser::HandleToken(const RtfToken& token) {
    using Kind = RtfToken::Kind;
    const bool isStarred = std::exchange(isStarred_, false);
    switch (token.kind) {
    case Kind::Text: return HandleText(token.text);
    case Kind::Hex: return HandleHexByte(token.byte);
    case Kind::Word: return HandleWord(token, isStarred);
    case Kind::Symbol: return HandleSymbol(token.byte);
    case Kind::GroupStart: return OpenGroup();
    case Kind::GroupEnd: return CloseGroup();
    case Kind::Binary:
        if (!SkipsFallback() && State().destination == RtfDestination::Picture)
            picture_.AddBytes(token.text);
        return;
    case Kind::End: return;
    }
}

void RtfParser::OpenGroup() {
    fallbackLeft_ = 0;
    if (stack_.size() == maxRtfDepth) {
        ++sharedDepth_;
        return;
    }
    stack_.push_back(State());
    State().opensDestination = false;
    State().mathEnd = 0;
}

void RtfParser::CloseGroup() {
    fallbackLeft_ = 0;
    if (sharedDepth_ > 0) {
        --sharedDepth_;
        return;
    }
    EndMathPart();
    AddFieldText();
    if (State().opensDestination || stack_.size() == 1) FinishCharacter();
    if (stack_.size() == 1) FinishStories();
    const RtfState ended = std::move(State());
    stack_.pop_back();
    if (ended.opensDestination && !stack_.empty()) EndDestination(ended);
    if (ended.inNumber && !stack_.empty() && !State().inNumber) EndWrittenNumber();
}

void RtfParser::CloseAllGroups() {
    sharedDepth_ = 0;
    if (!State().inNote)
        stack_.front().paragraph = State().paragraph; // of the unfinished paragraph
    while (!stack_.empty())
        CloseGroup();
}

void RtfParser::FinishStories() {
    const std::uint32_t style = ParagraphStyleNow();
    rows_.EndText(body_);
    if (!notes_.text.empty()) {
        if (!body_.AtParagraphStart()) body_.EndParagraph(u'\n', CharStyleNow(), style);
        body_.Append(std::move(notes_));
    }
    body_.EndLastParagraph(style);
}

Document RtfParser::ReleaseDocument() {
    Document document;
    body_.text.shrink_to_fit();
    document.text = std::move(body_.text);
    document.charRuns = std::move(body_.charRuns);
    document.paragraphRuns = std::move(body_.paragraphRuns);
    document.pictures = std::move(body_.pictures);
    document.fonts = fonts_.ReleaseNames();
    document.charStyles = charStyles_.Release();
    document.paragraphStyles = paragraphStyles_.Release();
    document.links = std::move(links_);
    document.rows = rows_.ReleaseRows();
    document.defaultTab = defaultTab_;
    return document;
}

std::uint32_t RtfParser::ParagraphStyleNow() {
    const RtfState& now = State();
    ParagraphStyle style = now.paragraph;
    const bool hasIndent = style.leftIndent != 0 || style.firstLineIndent != 0;
    const RtfListLevel* const level =
        now.list != 0 && !hasIndent ? lists_.Level(now.list, now.listLevel) : nullptr;
    if (level) {
        style.leftIndent = level->leftIndent;
        style.firstLineIndent = level->firstLineIndent;
    }
    return paragraphStyles_.IndexOf(style);
}

void RtfParser::HandleWord(const RtfToken& token, bool isStarred) {
    if (State().destination == RtfDestination::Skip) return;
    const RtfWordEntry* entry = FindRtfWord(token.text);
    if (isStarred && (!entry || entry->family != RtfFamily::Destination))
        return EnterDestination(RtfDestination::Skip);
    if (entry) HandleKnownWord(*entry, token);
}

void RtfParser::HandleKnownWord(const RtfWordEntry& entry, const RtfToken& token) {
    const std::int32_t parameter = token.parameter;
    const RtfDestination destination = State().destination;
    switch (entry.family) {
    case RtfFamily::Destination: EnterDestination(static_cast<RtfDestination>(entry.value)); break;
    case RtfFamily::Literal: HandleLiteral(static_cast<char16_t>(entry.value)); break;
    case RtfFamily::Break: HandleBreak(entry.word); break;
    case RtfFamily::Character:
        if (destination == RtfDestination::Fonts) return HandleFontWord(entry, parameter);
        ApplyCharacterWord(State(), entry, token.hasParameter, parameter, fonts_, colors_);
        break;
    case RtfFamily::Paragraph: HandleParagraphWord(entry, token); break;
    case RtfFamily::Border:
        ApplyBorderWord(State().borderSide, State().paragraph.borders, entry, parameter, colors_);
        [[fallthrough]]; // or of the row
    case RtfFamily::Row:
        if (destination == RtfDestination::Body && MayHoldTable())
            rows_.definition.Apply(entry, parameter, colors_);
        break;
    case RtfFamily::Picture:
        if (destination == RtfDestination::Picture ||
            destination == RtfDestination::AttachedPicture)
            picture_.Apply(entry, parameter);
        break;
    case RtfFamily::FontTable: HandleFontWord(entry, parameter); break;
    case RtfFamily::ColorTable: HandleColorWord(entry, parameter); break;
    case RtfFamily::Document: HandleDocumentWord(entry, parameter); break;
    case RtfFamily::Numbering:
        if (destination == RtfDestination::Numbering) numbering_.Apply(entry, parameter);
        break;
    case RtfFamily::List:
        lists_.Apply(entry, !token.hasParameter || parameter != 0, parameter);
        break;
    case RtfFamily::FormField:
        if (destination == RtfDestination::FormField) formField_.Apply(entry, parameter);
        break;
    case RtfFamily::Math: HandleMathWord(entry.word); break;
    case RtfFamily::Unicode:
        if (entry.word == RtfWord::FallbackLength)
            State().fallbackLength = std::max(0, parameter);
        else
            HandleUnicode(parameter);
        break;
    }
}

void RtfParser::HandleParagraphWord(const RtfWordEntry& entry, const RtfToken& token) {
    if (entry.word == RtfWord::ListNumber && State().destination == RtfDestination::ListOverride)
        return lists_.Apply(entry, true, token.parameter);
    if (entry.word != RtfWord::StyleNumber)
        return ApplyParagraphWord(State(), entry, token.hasParameter, token.parameter, colors_);
    if (State().destination == RtfDestination::Styles)
        State().styleNumber = token.parameter;
    else
        State().paragraph.outlineLevel = styles_.OutlineLevel(token.parameter);
}

void RtfParser::HandleMathWord(RtfWord part) {
    if (!IsShown() || sharedDepth_ > 0) return;
    FinishCharacter();
    const RtfMathSigns signs = MathSignsOf(part, tokenizer_);
    for (const char16_t unit : signs.before)
        HandleUnicodeUnit(unit);
    State().mathEnd = signs.after;
}

void RtfParser::EndMathPart() {
    if (State().mathEnd == 0) return;
    FinishCharacter();
    HandleUnicodeUnit(State().mathEnd);
}

void RtfParser::HandleDocumentWord(const RtfWordEntry& entry, std::int32_t parameter) {
    switch (entry.word) {
    case RtfWord::CharacterSet:
        if (entry.value != 0) codePage_ = entry.value;
        break;
    case RtfWord::AnsiCodePage:
        if (HasCodePage(parameter) && !IsEscapedPage(parameter)) codePage_ = parameter;
        decoder_.UseFilePage(codePage_);
        break;
    case RtfWord::DefaultFont: fonts_.SetDefault(parameter); break;
    case RtfWord::DefaultTab:
        if (parameter > 0) defaultTab_ = std::min(parameter, maxRtfTwips);
        break;
    default: break;
    }
}

void RtfParser::HandleFontWord(const RtfWordEntry& entry, std::int32_t parameter) {
    if (State().destination != RtfDestination::Fonts) return;
    switch (entry.word) {
    case RtfWord::Font: fonts_.Begin(parameter); break;
    case RtfWord::FontCharset: fonts_.SetCharset(parameter); break;
    case RtfWord::FontCodePage: fonts_.SetCodePage(parameter); break;
    default: break;
    }
}

void RtfParser::HandleColorWord(const RtfWordEntry& entry, std::int32_t parameter) {
    if (State().destination != RtfDestination::Colors) return;
    switch (entry.word) {
    case RtfWord::Red: colors_.SetComponent(0, parameter); break;
    case RtfWord::Green: colors_.SetComponent(8, parameter); break;
    case RtfWord::Blue: colors_.SetComponent(16, parameter); break;
    default: break;
    }
}

void RtfParser::HandleSymbol(unsigned char symbol) {
    switch (symbol) {
    // These may be the second byte of a character.
    case '\\':
    case '{':
    case '}': return HandleHexByte(symbol);
    case '*': isStarred_ = true; return;
    case '\n': return HandleBreak(RtfWord::EndParagraph);
    case '\t': return HandleLiteral(u'\t');
    case '~': return HandleLiteral(u'\u00A0');
    case '-': return HandleLiteral(u'\u00AD');
    case '_': return HandleLiteral(u'\u2011');
    default: return;
    }
}
