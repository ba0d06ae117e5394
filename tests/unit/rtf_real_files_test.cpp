// The reader over files of many writers, each with a description beside it: .xml (its tokens) or
// .txt (its text).
#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"
#include "tests/unit/golden.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <vector>

namespace {

// The text that the tokens of an .xml description show: its characters outside of what is not
// shown.
class ExpectedText {
  public:
    explicit ExpectedText(std::string_view xml) : rest_(xml) {}

    std::string Read() {
        while (ReadElement()) {
        }
        return text_;
    }

  private:
    bool ReadElement() {
        const std::size_t open = rest_.find('<');
        const std::size_t close = rest_.find('>', open);
        if (close == rest_.npos) return false;
        const std::string_view tag = rest_.substr(open + 1, close - open - 1);
        rest_.remove_prefix(close + 1);
        if (tag == "group")
            shown_.push_back(IsShown());
        else if (tag == "/group")
            shown_.pop_back();
        else if (tag.starts_with("command"))
            TakeCommand(tag);
        else if (tag == "chars")
            TakeCharacters(rest_.substr(0, rest_.find('<')));
        return true;
    }

    bool IsShown() const { return shown_.empty() || shown_.back(); }

    static std::string_view NameOf(std::string_view tag) {
        const std::size_t start = tag.find("name=\"") + 6;
        return tag.substr(start, tag.find('"', start) - start);
    }

    void TakeCommand(std::string_view tag) {
        static constexpr std::string_view hidden[] = {"fonttbl", "colortbl", "stylesheet", "info",
                                                      "header",  "footer",   "*"};
        static const std::map<std::string_view, std::string_view> characters = {
            {"par", "\n"}, {"tab", "\t"}, {"line", "\v"}};
        const std::string_view name = NameOf(tag);
        const bool isHidden =
            std::find(std::begin(hidden), std::end(hidden), name) != std::end(hidden);
        if (isHidden || tag.find("optional=\"true\"") != tag.npos) shown_.back() = false;
        if (const auto found = characters.find(name); found != characters.end() && IsShown())
            text_ += found->second;
    }

    void TakeCharacters(std::string_view characters) {
        static const std::map<std::string_view, char> entities = {
            {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}};
        if (!IsShown()) return;
        while (!characters.empty()) {
            std::size_t size = 1;
            char c = characters.front();
            for (const auto& [entity, character] : entities) {
                if (!characters.starts_with(entity)) continue;
                size = entity.size();
                c = character;
            }
            text_ += c;
            characters.remove_prefix(size);
        }
    }

    std::string_view rest_;
    std::vector<bool> shown_;
    std::string text_;
};

std::string Replaced(std::string text, char from, char to) {
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

} // namespace

TEST_CASE("rtf real files: read as their descriptions say") {
    const std::filesystem::path folder = RealBooks() / "rtf/parser";
    if (!std::filesystem::exists(folder)) {
        MESSAGE("skipped: no real books here");
        return;
    }
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::path path = entry.path();
        if (path.extension() != ".rtf") continue;
        CAPTURE(path.string());
        const std::string rtf = ReadWholeFile(path.string());
        CHECK(LooksLikeRtf(rtf));
        const Document document = ReadRtf(rtf, 1252);
        CHECK(document_check::FirstFault(document) == "");
        const std::string text = Utf16ToUtf8(document.text);
        if (std::filesystem::exists(path.replace_extension(".xml"))) {
            CHECK(text == ExpectedText(ReadWholeFile(path.string())).Read());
        } else {
            // A converter's text: it ends cells with a tab.
            const std::string expected = ReadWholeFile(path.replace_extension(".txt").string());
            REQUIRE(expected != "");
            CHECK(Replaced(text, '\a', '\t') == expected);
        }
        ++count;
    }
    CHECK(count > 20);
}

TEST_CASE("rtf real files: books of a word processor") {
    const std::filesystem::path folder = RealBooks() / "rtf";
    if (!std::filesystem::exists(folder)) {
        MESSAGE("skipped: no real books here");
        return;
    }
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".rtf") continue;
        CAPTURE(entry.path().string());
        ++count;
        const Document document = ReadRtf(ReadWholeFile(entry.path().string()), 1252);
        CHECK(document_check::FirstFault(document) == "");
        if (document.text.find(u"WAR AND PEACE") != std::u16string::npos) {
            CHECK(document.text.size() == 3'225'672);
            CHECK(document.links.size() == 382);
        } else {
            CHECK(document.rows.size() == 14);
            CHECK(document.pictures.size() == 37);
            for (const Picture& picture : document.pictures) {
                CHECK(picture.format == PictureFormat::Png);
                CHECK(picture.bytes.starts_with("\x89PNG"));
                CHECK(picture.widthTwips > 0);
            }
        }
    }
    CHECK(count == 2);
}
