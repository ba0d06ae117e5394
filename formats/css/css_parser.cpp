#include "formats/css/css_parser.h"

#include "formats/css/css_limits.h"
#include "formats/css/css_media.h"
#include "formats/css/css_property_parser.h"
#include "formats/css/css_selector_parser.h"
#include "formats/css/css_supports.h"
#include "formats/css/css_token_stream.h"

#include <optional>

namespace {

using Kind = CssToken::Kind;

// Of a rule, or of an attribute: a page may have one at each element, so nothing is made for it
// that only sheets need.
class DeclarationParser {
  public:
    DeclarationParser(std::u16string_view text, const CssReading& reading, CssBlock& block)
        : tokens_(text.substr(0, maxCssUnits)), reading_(reading), block_(block) {
        construct_.reserve(usualTokens);
    }

    void ReadDeclarations();

  protected:
    enum class Stop : std::uint8_t { End, Semicolon, OpenCurly, CloseCurly };
    // What ends a construct beside the "{" of its block.
    struct Ends {
        bool semicolon = false, closeCurly = false;
    };
    // Tokens from `first` on up to what ends this construct, which is passed.
    Stop Collect(CssToken first, Ends ends);
    void SkipBlock();

    CssTokenizer tokens_;
    const CssReading& reading_;
    CssBlock& block_;
    std::vector<CssToken> construct_;
    bool overflow_ = false; // the construct is longer than anybody writes

  private:
    static constexpr std::size_t usualTokens = 16; // of a declaration

    void ReadDeclaration();
};

// Rules may stand at the top, or in the block of an `@media`.
class Parser : private DeclarationParser {
  public:
    Parser(std::u16string_view text, const CssReading& reading, CssSheet& sheet)
        : DeclarationParser(text, reading, sheet.block), sheet_(sheet) {}

    void ReadRules(int depth, bool applies);

  private:
    // False for one that ends with the block that it stands in.
    bool ReadAtRule(const CssToken& keyword, int depth, bool applies);
    bool ReadRule(const CssToken& first, int depth, bool applies);
    std::optional<bool> ConditionHolds(const CssToken& keyword);
    void ReadImport();
    void AddRule(std::span<const CssSelector> selectors, std::size_t firstDeclaration);

    CssSheet& sheet_;
    bool importsEnded_ = false; // another rule has come
};

DeclarationParser::Stop DeclarationParser::Collect(CssToken first, Ends ends) {
    construct_.clear();
    overflow_ = false;
    CssBrackets brackets;
    for (CssToken token = first;; token = tokens_.Next()) {
        if (token.Is(Kind::End)) return Stop::End;
        if (brackets.None()) {
            if (token.Is(Kind::Semicolon) && ends.semicolon) return Stop::Semicolon;
            if (token.Is(Kind::OpenCurly)) return Stop::OpenCurly;
            if (token.Is(Kind::CloseCurly) && ends.closeCurly) return Stop::CloseCurly;
        }
        brackets.Pass(token);
        if (construct_.size() < maxCssTokens)
            construct_.push_back(token);
        else {
            overflow_ = true;
            if (construct_.size() == maxCssTokens) tokens_.ForgetTexts();
        }
    }
}

// After its "{".
void DeclarationParser::SkipBlock() {
    CssBrackets brackets;
    CssToken open;
    open.kind = Kind::OpenCurly;
    for (CssToken token = open; !token.Is(Kind::End); token = tokens_.Next()) {
        brackets.Pass(token);
        if (brackets.None()) return;
        if (!token.text.empty()) tokens_.ForgetTexts();
    }
}

void Parser::ReadRules(int depth, bool applies) {
    while (true) {
        tokens_.ForgetTexts();
        const CssToken token = tokens_.Next();
        if (token.Is(Kind::End)) return;
        if (token.Is(Kind::Whitespace)) continue;
        // The marks that hid a sheet from the oldest browsers.
        if (depth == 0 && (token.Is(Kind::Cdo) || token.Is(Kind::Cdc))) continue;
        const bool isAtRule = token.Is(Kind::AtKeyword);
        if (!(isAtRule ? ReadAtRule(token, depth, applies) : ReadRule(token, depth, applies)))
            return;
    }
}

bool Parser::ReadAtRule(const CssToken& keyword, int depth, bool applies) {
    const bool isImport = CssEqual(keyword.text, u"import") && depth == 0;
    const bool isCharset = CssEqual(keyword.text, u"charset");
    const Stop stop = Collect(tokens_.Next(), {.semicolon = true, .closeCurly = depth > 0});
    if (isImport && stop != Stop::OpenCurly) ReadImport();
    // Statements without a block may stand before an @import: @charset, @layer, and the unknown.
    if (!isCharset && stop == Stop::OpenCurly) importsEnded_ = true;
    if (stop != Stop::OpenCurly) return stop != Stop::CloseCurly;
    const std::optional<bool> holds =
        overflow_ || depth >= maxCssBlockDepth ? std::nullopt : ConditionHolds(keyword);
    if (holds)
        ReadRules(depth + 1, applies && *holds);
    else
        SkipBlock();
    return true;
}

// Whether the rules in a block apply; nothing for a block that is none of rules, or unknown.
std::optional<bool> Parser::ConditionHolds(const CssToken& keyword) {
    const CssTokenStream condition(construct_);
    if (CssEqual(keyword.text, u"supports")) return SupportsCss(condition, reading_);
    if (CssEqual(keyword.text, u"layer")) return true;
    if (!CssEqual(keyword.text, u"media")) return std::nullopt;
    const CssMediaAnswer answer = AskCssMedia(condition, reading_.medium);
    sheet_.dependsOnViewport |= answer.dependsOnViewport;
    return answer.applies;
}

void Parser::ReadImport() {
    if (importsEnded_ || overflow_ || sheet_.imports.size() >= maxCssImports) return;
    CssTokenStream prelude(construct_);
    const CssToken token = prelude.Next();
    std::u16string_view address = token.text;
    if (token.IsFunction(u"url")) {
        CssTokenStream arguments = prelude.Arguments();
        if (!arguments.Peek().Is(Kind::String)) return;
        address = arguments.Next().text;
    } else if (!token.Is(Kind::String) && !token.Is(Kind::Url))
        return;
    const CssMediaAnswer answer = AskCssMedia(prelude, reading_.medium);
    sheet_.dependsOnViewport |= answer.dependsOnViewport;
    if (answer.applies && !address.empty()) sheet_.imports.emplace_back(address);
}

bool Parser::ReadRule(const CssToken& first, int depth, bool applies) {
    importsEnded_ = true;
    const Stop stop = Collect(first, {.closeCurly = depth > 0});
    if (stop != Stop::OpenCurly) return stop != Stop::CloseCurly;
    const bool hasRoom = sheet_.rules.size() < maxCssRules;
    std::vector<CssSelector> selectors;
    if (!overflow_ && applies && hasRoom)
        selectors = ReadCssSelectors(CssTokenStream(construct_), sheet_);
    if (selectors.empty()) {
        SkipBlock();
        return true;
    }
    const std::size_t firstDeclaration = sheet_.block.declarations.size();
    ReadDeclarations();
    AddRule(selectors, firstDeclaration);
    return true;
}

void Parser::AddRule(std::span<const CssSelector> selectors, std::size_t firstDeclaration) {
    auto& all = sheet_.block.declarations;
    if (all.size() > maxCssDeclarations) all.resize(maxCssDeclarations);
    if (all.size() <= firstDeclaration) return; // nothing in it that is understood
    CssRule rule;
    rule.selectors = static_cast<std::uint32_t>(sheet_.selectors.size());
    rule.selectorCount = static_cast<std::uint32_t>(selectors.size());
    rule.declarations = static_cast<std::uint32_t>(firstDeclaration);
    rule.declarationCount = static_cast<std::uint32_t>(all.size() - firstDeclaration);
    sheet_.selectors.insert(sheet_.selectors.end(), selectors.begin(), selectors.end());
    sheet_.rules.push_back(rule);
}

// After a "{", or of an attribute, up to its end.
void DeclarationParser::ReadDeclarations() {
    while (true) {
        tokens_.ForgetTexts();
        const CssToken token = tokens_.Next();
        if (token.Is(Kind::Whitespace) || token.Is(Kind::Semicolon)) continue;
        if (token.Is(Kind::End)) return;
        const Stop stop = Collect(token, {.semicolon = true, .closeCurly = true});
        // What has a block of its own is a rule within this one, or an at-rule; neither is known.
        if (stop == Stop::OpenCurly)
            SkipBlock();
        else if (!overflow_)
            ReadDeclaration();
        if (stop == Stop::CloseCurly || stop == Stop::End) return;
    }
}

void DeclarationParser::ReadDeclaration() {
    if (block_.declarations.size() >= maxCssDeclarations) return;
    CssTokenStream tokens(construct_);
    const CssToken name = tokens.Next();
    if (!name.Is(Kind::Ident) || !tokens.Take(Kind::Colon)) return;
    const std::span<const CssToken> rest = std::span(construct_).subspan(tokens.Place());
    ReadCssDeclaration(name.text, rest, reading_, block_);
}

} // namespace

CssSheet ReadCss(std::u16string_view text, const CssReading& reading) {
    CssSheet sheet;
    Parser(text, reading, sheet).ReadRules(0, true);
    return sheet;
}

CssBlock ReadCssBlock(std::u16string_view text, const CssReading& reading) {
    CssBlock block;
    DeclarationParser(text, reading, block).ReadDeclarations();
    return block;
}
