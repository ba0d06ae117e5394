// Which line ends of a plain text only broke what was too long for its page.
#include "formats/plain/flowing_lines.h"

#include "common/string_text.h"
#include "common/utf.h"
#include "tests/unit/pane_bench.h"
#include "tests/unit/show_text.h"
#include "tests/unit/test_folders.h"
#include "view/unwrapped_text.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace {
// The text with a ">" in front of each line that flows on.
std::u16string Marked(const std::u16string& text) {
    const auto lines = LinesOf(text);
    const std::vector<bool> flowing = FlowingLines(lines);
    std::u16string marked;
    for (std::size_t i = 0; i < lines.size(); ++i)
        marked += (flowing[i] ? u">" : u" ") + std::u16string(lines[i]) + u"\n";
    return marked;
}

std::u16string WithoutMarks(const std::u16string& marked) {
    std::u16string text;
    for (const std::u16string_view line : LinesOf(marked))
        text += std::u16string(line.substr(std::min<std::size_t>(1, line.size()))) + u"\n";
    text.resize(text.size() - 2); // the last line end, twice
    return text;
}

// Pages as they are in books; what flows on is marked.
const char16_t* const pages[] = {
    // Paragraphs with blank lines between them, and a heading.
    u" CHAPTER IV\n"
    u" \n"
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u">out of the mist, low over the water and as yellow as butter. Nobody said\n"
    u">anything. The ferryman took up his oar again, looked at it as if he had\n"
    u" never seen one, and laid it down.\n"
    u" \n"
    u">\"We are not where we ought to be,\" he said at last, \"and I doubt that we\n"
    u" were there yesterday.\"\n",
    // Without blank lines: a short line ends a paragraph.
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u">out of the mist, low over the water and as yellow as butter. Nobody said\n"
    u" anything.\n"
    u">The ferryman took up his oar again, looked at it as if he had never seen\n"
    u">one, and laid it down beside him. It was as though the whole river were\n"
    u" asleep.\n",
    // Paragraphs that begin with an indent.
    u">  The boat had been drifting for an hour when the first of the lamps came\n"
    u">out of the mist, low over the water and as yellow as butter. Nobody said\n"
    u" anything at all then.\n"
    u">  The ferryman took up his oar again, looked at it as if he had never seen\n"
    u">one, and laid it down beside him. It was as though the whole river were\n"
    u" asleep.\n",
    // An indent as a typewriter has it: a tab, or five blanks. One that sets a line apart is wider.
    u">\tThe boat had been drifting for an hour when the first of the lamps came\n"
    u">out of the mist, low over the water and as yellow as butter. Nobody said\n"
    u" anything at all then.\n"
    u">     The ferryman took up his oar again, looked at it as if he had never\n"
    u">seen one, and laid it down beside him. It was as though the whole river\n"
    u" were asleep.\n"
    u"                                              Dover, the fifth of the tenth\n"
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u" out of the mist, low over the water.\n"
    u" \tlamps\tburning in the night\tand seen from the river by those who pass\n"
    u" boats\tafloat\n",
    // Verse.
    u" The lamps along the river burn all night\n"
    u" And nobody remembers who has lit them;\n"
    u" The boats go by without a sail in sight,\n"
    u" The banks are far too narrow now to fit them.\n"
    u" \n"
    u" O ferryman, what have you done today?\n"
    u" I counted every lamp from here to Dover.\n"
    u" And did you take your passengers away?\n"
    u" They would not go until the night was over.\n",
    // Verse of long lines.
    u" The lamps along the river burn all night, and no one will remember them,\n"
    u" The boats go by without a sail in sight, and no one will remember them.\n"
    u" O ferryman, what have you done today? I counted every lamp to Dover,\n"
    u" And have you taken all of them away? They did not go, the night is over.\n",
    // Verse between prose, indented and not.
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u" out of the mist, and somebody in the bow began to sing:\n"
    u" \n"
    u" the lamps along the river\n"
    u" are burning all the night\n"
    u" \n"
    u"     the lamps along the river were counted one by one by those who passed\n"
    u"     and none of them was missing\n"
    u" \n"
    u">The ferryman took up his oar again, looked at it as if he had never seen\n"
    u">one, and laid it down beside him. It was as though the whole river were\n"
    u" asleep.\n",
    // A letter, a list and a table.
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u" out of the mist. He took the letter from his coat and read:\n"
    u" \n"
    u" Harbour Street 7\n"
    u" Dover\n"
    u" \n"
    u" Dear Sir,\n"
    u">we have received the lamps, and beg to return them, as none of them will\n"
    u">burn. They have been tried in the rain, in the wind and in the dark, and\n"
    u" are:\n"
    u" - a lamp of brass, with a handle that is bent and a glass that is broken\n"
    u" - another one\n"
    u" 1. a third one, of which the less is said the better for everyone of us,\n"
    u" 2. and a fourth\n"
    u" \n"
    u" lamps          1,204     burning          17     broken              12\n"
    u" boats             12     afloat            9     elsewhere            3\n"
    u" Yours faithfully ............................................ The Office\n",
    // Counted in bytes: a line with many quotation marks is short.
    u">The boat had been drifting for an hour when the first of the lamps came\n"
    u">out of the mist. \u201CWhat is \u2018butter\u2019?\u201D he said. \u201CI do not\n"
    u">know,\u201D said the ferryman, who had never in his life been asked for any\n"
    u">such a thing, and looked at his oar as if he had never seen it before in\n"
    u" the evening.\n",
    // Another script, and one without spaces and cases.
    u">\u043C\u0435\u043B\u044C\u043D\u0438\u043A \u0441\u0447\u0438\u0442\u0430\u043B "
    u"\u0444\u043E\u043D\u0430\u0440\u0438 \u0432\u0434\u043E\u043B\u044C "
    u"\u043D\u0430\u0431\u0435\u0440\u0435\u0436\u043D\u043E\u0439 \u0434\u043E "
    u"\u0441\u0430\u043C\u043E\u0433\u043E \u0443\u0442\u0440\u0430,\n"
    u" \u0434\u043E \u0443\u0442\u0440\u0430.\n",
    u">\u7C89\u5C4B\u306E\u5A18\u306F\u6CE2\u6B62\u5834\u306E\u660E\u304B\u308A\u3092\u671D"
    u"\u307E\u3067\u6570\u3048\u3066\u3044\u305F\u7C89\u5C4B\u306E\u5A18\n"
    u" \u306F\u6CE2\u6B62\u5834\u306B\u3044\u305F\u3002\n"
    u" \u3000\u7C89\u5C4B\u306E\u5A18\u306F\u6CE2\u6B62\u5834\u3002\n",
    // One line for each paragraph, whatever its length.
    u" The boat had been drifting for an hour when the first of the lamps came out of the mist, "
    u"low "
    u"over the water and as yellow as butter. Nobody said anything, and so the ferryman took up "
    u"his "
    u"oar again.\n"
    u" He looked at it as if he had never seen one, and laid it down.\n"
    u" \"We are not where we ought to be,\" he said at last, \"and I doubt that we were there "
    u"yesterday.\"\n",
    // Nothing.
    u"",
};
} // namespace

TEST_CASE("flowing lines: what of a page was broken for its width alone") {
    for (const char16_t* const page : pages) {
        const std::u16string marked = page;
        CHECK(Marked(marked.empty() ? u"" : WithoutMarks(marked)) ==
              (marked.empty() ? u" \n" : marked));
    }
}

namespace {
std::u16string Prose(std::mt19937& random, int paragraphs) {
    std::u16string text;
    for (; paragraphs > 0; --paragraphs) {
        std::size_t lineStart = text.size();
        for (int words = int(random() % 400); words > 0; --words) {
            std::u16string word(1 + random() % 9, char16_t(u'a' + random() % 26));
            const bool isLonger = random() % 3000 == 0; // than a page is wide
            if (isLonger) word.assign(150 + random() % 500, u'x');
            if (text.size() - lineStart + word.size() > 70 && !isLonger) {
                text.back() = u'\n';
                lineStart = text.size();
            }
            text += word + u" ";
        }
        text += random() % 20 == 0 ? u"\n" : u"\n\n";
    }
    return text;
}
} // namespace

TEST_CASE("unwrapped text: it is the same wherever one asks, in the places of the text itself") {
    for (unsigned seed = 0; seed < 6; ++seed) {
        CAPTURE(seed);
        std::mt19937 random(seed);
        const std::u16string text = Prose(random, 300);
        std::u16string expected = text;
        const auto lines = LinesOf(text);
        const std::vector<bool> flowing = FlowingLines(lines);
        std::size_t at = 0;
        for (std::size_t i = 0; i + 1 < lines.size(); ++i, ++at) {
            at += lines[i].size();
            if (flowing[i]) expected[at] = lines[i].back() == u' ' ? u'\u200B' : u' ';
        }
        CHECK(std::ranges::count(expected, u'\n') < std::ranges::count(text, u'\n') / 2);
        const UnwrappedText unwrapped(std::make_shared<StringText>(text));
        REQUIRE(unwrapped.Length() == TextPos(text.size()));
        for (int i = 0; i < 300; ++i) {
            const TextPos from = TextPos(random() % text.size());
            const TextPos to = std::min(from + TextPos(random() % 20000), unwrapped.Length());
            REQUIRE(unwrapped.Range(from, to) == expected.substr(from, to - from));
        }
        const TextPos found = unwrapped.Find(u"\n", 0, {});
        CHECK(found == TextPos(text.find(u'\n'))); // of the text itself
    }
}

TEST_CASE("unwrapped text: a hyphen, a dash and letters without spaces are not parted") {
    const std::u16string start =
        u"The boat had been drifting for an hour when the first of the lamps came\n"
        u"out of the mist, low over the water and as yellow as butter, as was twen-\n"
        u"ty years before, when the ferryman had not yet been a ferryman at all\u2014\n"
        u"though nobody remembers that. It was another time, without lamps -\n"
        u"or so it seems now, when it is long past and nobody has been there who\n"
        u"could say.";
    const UnwrappedText unwrapped(std::make_shared<StringText>(start));
    std::u16string shown = unwrapped.Range(0, unwrapped.Length());
    CHECK(shown.size() == start.size());
    std::erase(shown, u'\u200B');
    CHECK(shown.find(u"came out") != shown.npos);
    CHECK(shown.find(u"twen-ty") != shown.npos);
    CHECK(shown.find(u"all\u2014though") != shown.npos);
    CHECK(shown.find(u"lamps - or") != shown.npos);
}

namespace {
// Counts what is asked of it.
class CountedText : public TextSource {
  public:
    explicit CountedText(TextPos length) : length_(length) {
        while (page_.size() < 64 * 1024)
            page_ += u"The boat had been drifting for an hour when the first of the lamps came\n"
                     u"out of the mist, low over the water and as yellow as butter. It was not\n"
                     u"late.\n\n";
    }
    TextPos Length() const override { return length_; }
    TextPiece PieceAt(TextPos position) const override {
        ++pieces;
        const TextPos size = TextPos(page_.size()), start = position / size * size;
        return {start,
                std::u16string_view(page_).substr(0, std::size_t(std::min(size, length_ - start)))};
    }
    TextPos FindWhile(std::u16string_view, TextPos, FindOptions,
                      const std::function<bool()>&) const override {
        return notFound;
    }
    mutable int pieces = 0;

  private:
    std::u16string page_;
    TextPos length_;
};
} // namespace

TEST_CASE("unwrapped text: any place of 1,500 million units costs a screen") {
    PaneBench bench(400);
    bench.SetMaxLineLength(30);
    bench.SetUnwrapped(true);
    const auto text = std::make_shared<CountedText>(1'500'000'000);
    bench.LoadText(text);
    for (const TextPos place : {0, 1'234'567'890, 700'000'000, 1'500'000'000}) {
        bench.ScrollLineToTop(place);
        bench.PaintedLines();
    }
    CHECK(text->pieces < 40'000); // some thousand for each place, as for a short text
    CHECK(bench.LayoutsMade() < 100);
}

TEST_CASE("unwrapped text: lines flow in the view; text, places, copies and finds are the file's") {
    const std::u16string text =
        u"The boat had been drifting for an hour when the first of the lamps came\n"
        u"out of the mist, low over the water and as yellow as butter. It was not\n"
        u"late.\n\nA heading\n";
    PaneBench bench(6 + 6 + 90 * PaneBench::letter);
    bench.LoadPlainText(text);
    CHECK(bench.PaintedLines().front() == text.substr(0, 71));
    bench.ScrollLineToTop(72);
    bench.SetUnwrapped(true);
    CHECK(bench.FirstVisibleChar() == 0);
    CHECK(bench.PaintedLines()[0] == u"The boat had been drifting for an hour when the first of "
                                     u"the lamps came out of the");
    CHECK(bench.LineAround(0).length == 83);
    CHECK(bench.TextLength() == TextPos(text.size()));
    CHECK(bench.TextRange(60, 30) == text.substr(60, 30));
    CHECK(bench.Find(u"came\nout", 0, {}) == 67);
    CHECK(bench.Find(u"came out", 0, {}) == notFound);
    bench.Select(75, 0);
    CHECK(bench.Press(PaneKey::Home) == 0);
    CHECK(bench.Press(PaneKey::Down) == 83);
    bench.Pane().Click({20, 5}, 3, false);
    CHECK(bench.TextRange(bench.SelStart(), bench.SelLength()) == text.substr(0, 150));
    CHECK(bench.SelectionAsRtf().find("came\\par") != std::string::npos);
    bench.SetUnwrapped(false);
    CHECK(bench.FirstVisibleChar() == 72);
    CHECK(bench.PaintedLines()[0] == text.substr(72, 71));
}

TEST_CASE("unwrapped text: not of rich text, nor where lines do not wrap") {
    PaneBench bench(2000);
    bench.SetUnwrapped(true);
    bench.LoadRichText("{\\rtf1 The boat had been drifting for an hour when the first of the lamps "
                       "came\\par out of the mist, low over the water, and as yellow as butter.}",
                       1252);
    CHECK(bench.LineAround(0).length == 71);
    bench.LoadPlainText(bench.TextRange(0, 1000));
    CHECK(bench.LineAround(0).length > 100);
    bench.SetRightMargin(491520);
    CHECK(bench.LineAround(0).length == 71);
}

TEST_CASE("flowing lines: of real books nearly all lines within paragraphs, and no others") {
    const std::filesystem::path folder = RealBooks() / "txt";
    if (!std::filesystem::is_directory(folder)) {
        MESSAGE("skipped: no real books at " << RealBooks().string());
        return;
    }
    std::ifstream file(folder / "War and Peace.txt", std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    std::u16string text = Utf8ToUtf16(bytes.str());
    std::erase(text, u'\r');
    const auto lines = LinesOf(text);
    const std::vector<bool> flowing = FlowingLines(lines);
    int inner = 0, flow = 0, intoBlank = 0, intoIndent = 0;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        const bool isIndented = lines[i + 1].starts_with(u' ');
        inner += !lines[i].empty() && !lines[i + 1].empty() && !isIndented;
        flow += flowing[i];
        intoBlank += flowing[i] && (lines[i].empty() || lines[i + 1].empty());
        intoIndent += flowing[i] && isIndented;
    }
    CHECK(intoBlank == 0);
    CHECK(intoIndent == 0);
    CHECK(inner > 30000);
    CHECK(inner - flow < inner / 50);
}
