// The tokenizer's cases: for an input and a state to begin in, the tokens. Parse errors are not
// compared: a reader of books does not report them.
#include "json_value.h"
#include "test_files.h"

#include "common/line_ends.h"
#include "common/utf.h"
#include "formats/html/html_tokenizer.h"

#include <doctest/doctest.h>

#include <map>

namespace {

const std::map<std::u16string, HtmlContent> states = {
    {u"Data state", HtmlContent::Data},
    {u"PLAINTEXT state", HtmlContent::Plaintext},
    {u"RCDATA state", HtmlContent::Rcdata},
    {u"RAWTEXT state", HtmlContent::Rawtext},
    {u"Script data state", HtmlContent::ScriptData},
    {u"CDATA section state", HtmlContent::CData},
};

// Tokens as lines, so that a difference can be read.
class TokenLines {
  public:
    void Text(std::u16string_view text) { text_ += text; }
    void Line(const std::u16string& line) {
        Flush();
        lines_ += line + u"\n";
    }
    std::string Result() {
        Flush();
        return Utf16ToUtf8(lines_);
    }

  private:
    void Flush() {
        if (!text_.empty()) lines_ += u"Character " + text_ + u"\n";
        text_.clear();
    }
    std::u16string lines_, text_;
};

std::u16string TagLine(const std::u16string& kind, std::u16string_view name,
                       const std::map<std::u16string, std::u16string>& attributes,
                       bool selfCloses) {
    std::u16string line = kind + u" " + std::u16string(name);
    for (const auto& [attribute, value] : attributes)
        line.append(u" ").append(attribute).append(u"=[").append(value).append(u"]");
    return line + (selfCloses ? u" /" : u"");
}

std::u16string DoctypeLine(bool hasName, const std::u16string& name, bool hasPublic,
                           const std::u16string& publicId, bool hasSystem,
                           const std::u16string& systemId, bool correct) {
    return u"DOCTYPE " + (hasName ? u"[" + name + u"] " : u"none ") +
           (hasPublic ? u"[" + publicId + u"] " : u"none ") +
           (hasSystem ? u"[" + systemId + u"] " : u"none ") + (correct ? u"correct" : u"quirks");
}

std::string Expected(const JsonValue& output, bool doubleEscaped) {
    const auto text = [&](const JsonValue& value) {
        return doubleEscaped ? Unescaped(value.text) : value.text;
    };
    TokenLines lines;
    for (const JsonValue& token : output.items) {
        const std::u16string& kind = token[0].text;
        if (kind == u"Character") {
            lines.Text(text(token[1]));
        } else if (kind == u"Comment") {
            lines.Line(u"Comment " + text(token[1]));
        } else if (kind == u"DOCTYPE") {
            lines.Line(DoctypeLine(!token[1].IsNull(), text(token[1]), !token[2].IsNull(),
                                   text(token[2]), !token[3].IsNull(), text(token[3]),
                                   token[4].IsTrue()));
        } else {
            std::map<std::u16string, std::u16string> attributes;
            for (const auto& [name, value] : token[2].members)
                attributes[doubleEscaped ? Unescaped(name) : name] = text(value);
            lines.Line(TagLine(kind, text(token[1]), attributes, token[3].IsTrue()));
        }
    }
    return lines.Result();
}

std::string Actual(std::u16string input, HtmlContent state, const std::u16string& lastStartTag) {
    UnifyLineEnds(input);
    HtmlNames names;
    HtmlArena arena;
    HtmlTokenizer tokenizer(names, arena, input);
    tokenizer.SetContent(state);
    tokenizer.SetLastStartTag(names.Intern(lastStartTag));
    TokenLines lines;
    while (true) {
        const HtmlToken& token = tokenizer.Next();
        std::map<std::u16string, std::u16string> attributes;
        switch (token.kind) {
        case HtmlTokenKind::EndOfFile: return lines.Result();
        case HtmlTokenKind::Characters: lines.Text(token.text); break;
        case HtmlTokenKind::Comment: lines.Line(u"Comment " + std::u16string(token.text)); break;
        case HtmlTokenKind::Doctype:
            lines.Line(DoctypeLine(token.doctype.hasName, token.doctype.ids.name,
                                   token.doctype.hasPublicId, token.doctype.ids.publicId,
                                   token.doctype.hasSystemId, token.doctype.ids.systemId,
                                   !token.doctype.forceQuirks));
            break;
        case HtmlTokenKind::StartTag:
            for (const HtmlAttribute& attribute : token.attributes)
                attributes[std::u16string(names.TextOf(attribute.name))] = attribute.Value();
            lines.Line(
                TagLine(u"StartTag", names.TextOf(token.name), attributes, token.selfClosing));
            break;
        case HtmlTokenKind::EndTag:
            lines.Line(TagLine(u"EndTag", names.TextOf(token.name), {}, false));
        }
    }
}

int RunCase(const JsonValue& test) {
    const bool doubleEscaped = test[u"doubleEscaped"].IsTrue();
    const std::u16string input =
        doubleEscaped ? Unescaped(test[u"input"].text) : test[u"input"].text;
    std::vector<JsonValue> initial = test[u"initialStates"].items;
    if (initial.empty()) initial.emplace_back().text = u"Data state";
    CAPTURE(Utf16ToUtf8(test[u"description"].text));
    CAPTURE(Utf16ToUtf8(input));
    for (const JsonValue& state : initial) {
        CAPTURE(Utf16ToUtf8(state.text));
        REQUIRE(states.contains(state.text));
        CHECK(Actual(input, states.at(state.text), test[u"lastStartTag"].text) ==
              Expected(test[u"output"], doubleEscaped));
    }
    return static_cast<int>(initial.size());
}

} // namespace

// Left out: xmlViolation.test has no "tests", but four "xmlViolationTests". They expect what a tree
// for XML may hold (no form feed, no "--" in a comment), which ours is not.
TEST_CASE("html5lib: tokenizer") {
    if (!HasTestFiles()) return;
    int count = 0;
    for (const std::string& path : TestFiles("tokenizer", ".test")) {
        CAPTURE(path);
        const JsonValue file = ParseJson(ReadTestFile(path));
        CHECK((!file[u"tests"].items.empty() || path.ends_with("xmlViolation.test")));
        for (const JsonValue& test : file[u"tests"].items)
            count += RunCase(test);
    }
    CHECK(count >= 7'000);
}
