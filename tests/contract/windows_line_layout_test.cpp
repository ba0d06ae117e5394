// What only the line layout of Windows has: GDI's pixels, and the system's other fonts.
#include "platform/windows/line_layout/installed_families.h"
#include "platform/windows/line_layout/win_line_layout.h"
#include "tests/contract/line_layout_contract.h"
#include "tests/contract/windows_memory_picture.h"

#include <algorithm>
#include <functional>

namespace {

constexpr Color white = 0xFFFFFF, black = 0, red = 0x0000FF, blue = 0xFF0000, yellow = 0x00FFFF;
constexpr int pictureWidth = 400, pictureHeight = 80, left = 40, baseline = 50; // pixels
constexpr Rect whole = {0, 0, pictureWidth, pictureHeight};

class Picture : public MemoryPicture {
  public:
    Picture() : MemoryPicture({pictureWidth, pictureHeight}) {}
    int Count(const Rect& area, const std::function<bool(Color)>& wanted) const {
        int count = 0;
        for (int y = area.top; y < area.top + area.height; ++y)
            for (int x = area.left; x < area.left + area.width; ++x)
                count += wanted(At(x, y));
        return count;
    }
    int Count(const Rect& area, Color color) const {
        return Count(area, [=](Color each) { return each == color; });
    }
    int Painted(const Rect& area) const {
        return Count(area, [](Color each) { return each != white; });
    }
};

LinePaint InBlack(Rect clip = whole) {
    LinePaint paint;
    paint.text = black;
    paint.clip = clip;
    return paint;
}

Rect Column(const TextExtent& extent) {
    return {left + static_cast<int>(extent.left), 0, static_cast<int>(extent.right - extent.left),
            pictureHeight};
}

std::unique_ptr<TextLines> LinesOf(LineLayout& layout, std::u16string text, const TextStyle& style,
                                   int width = unlimited, bool rightToLeft = false) {
    ParagraphText paragraph = LineParagraph(layout, std::move(text), width, rightToLeft);
    paragraph.runs = {{0, layout.Prepare(style)}};
    return layout.BreakLines(paragraph);
}

} // namespace

TEST_CASE("Windows line layout: each character is painted within its extent") {
    WinLineLayout layout;
    for (const char16_t* text : {u"HOMB x", u"\u05DE\u05E9\u05D4 \u05DE\u05E9"}) {
        const bool rightToLeft = text[0] != u'H';
        const auto lines = LinesOf(layout, text, LineStyle(24), unlimited, rightToLeft);
        Picture picture;
        lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
        const int width = static_cast<int>(lines->Line(0).width);
        REQUIRE(left + width + 3 < pictureWidth);
        CHECK(picture.Painted({0, 0, left - 2, pictureHeight}) == 0);
        CHECK(picture.Painted(
                  {left + width + 2, 0, pictureWidth - left - width - 2, pictureHeight}) == 0);
        for (TextPos at = 0; at < lines->Line(0).end; ++at) {
            CAPTURE(at);
            const bool space = std::u16string_view(text)[static_cast<std::size_t>(at)] == u' ';
            CHECK((picture.Painted(Column(lines->CharacterExtent(0, at))) == 0) == space);
        }
    }
}

TEST_CASE("Windows line layout: characters in two units are the same among text from the right") {
    WinLineLayout layout;
    TextStyle style = LineStyle(18);
    style.font.family = u"DejaVu Sans";
    style.font.italic = true;
    for (const char16_t* one : {u"\U0001F600", u"\U0001F469\u200D\U0001F467",
                                u"\u2764\u200D\U0001F525", u"\U0001D11E", u"\U0001E922"}) {
        CAPTURE(one);
        const std::u16string character = one;
        const double width = TextWidth(layout, character, style);
        for (const int count : {1, 2, 3, 4, 8, 12, 20, 28, 36, 44}) {
            CAPTURE(count);
            const auto lines =
                LinesOf(layout, u"\u202E" + Repeated(character, count), style, unlimited, true);
            const TextPos length = TextPos(character.size());
            for (int i = 0; i < count; ++i) {
                const TextExtent extent = lines->CharacterExtent(0, 1 + i * length);
                CHECK(extent.right - extent.left == width);
            }
            // Wine 8 wrote after the memory that it had for the text.
            REQUIRE(HeapValidate(GetProcessHeap(), 0, nullptr));
        }
    }
}

TEST_CASE("Windows line layout: marks without their letters spoil no memory") {
    WinLineLayout layout;
    // Of Latin, Hebrew, Arabic, Thai, scripts of India, Tibetan, Khmer, Hangul and of none.
    for (const char16_t* mark :
         {u"\u0301", u"\u05B8", u"\u064E", u"\u0E31", u"\u0E33", u"\u093F", u"\u094D", u"\u0B4D",
          u"\u0F71", u"\u17D2", u"\u1161", u"\u302A", u"\u200D", u"\U0001E8D0"}) {
        const int unit = mark[0];
        CAPTURE(unit);
        for (const int count : {1, 3, 64, 700})
            for (const char16_t* before : {u"", u"e", u"\u05D0", u" "})
                for (const bool rightToLeft : {false, true}) {
                    CAPTURE(count);
                    const std::u16string text = before + Repeated(mark, count) + u"\u0628\u0627";
                    LinesOf(layout, text, LineStyle(), 200, rightToLeft);
                    // Wine 8 wrote in front of the text, and after the room for its glyphs.
                    REQUIRE(HeapValidate(GetProcessHeap(), 0, nullptr));
                }
    }
}

TEST_CASE("Windows line layout: a soft hyphen is seen only where the line breaks at it") {
    WinLineLayout layout;
    const int width = static_cast<int>(TextWidth(layout, u"several-")) + 2;
    for (const char16_t* text : {u"several\u00ADseveral", u"several\u00AD several"}) {
        const bool atHyphen = std::u16string_view(text)[8] != u' ';
        const auto lines = LinesOf(layout, text, LineStyle(), width);
        REQUIRE(lines->Count() == 2);
        const TextExtent hyphen = lines->CharacterExtent(0, 7);
        CHECK((hyphen.right > hyphen.left) == atHyphen);
    }
}

TEST_CASE("Windows line layout: nothing is painted outside the clip") {
    WinLineLayout layout;
    TextStyle style = LineStyle(24);
    style.background = yellow;
    style.underline = true;
    const auto lines = LinesOf(layout, u"some words", style);
    const Rect clip = {60, 40, 50, 15};
    const Rect within[] = {{0, 0, 80, pictureHeight}, {90, 0, 100, pictureHeight}};
    LinePaint paint = InBlack(clip);
    paint.within = within;
    Picture picture;
    lines->Draw(picture.Canvas(), 0, left, baseline, paint);
    CHECK(picture.Painted(clip) > 0);
    CHECK(picture.Painted(whole) == picture.Painted(clip));
    CHECK(picture.Painted({80, 0, 10, pictureHeight}) == 0);
    picture.Canvas().FillRect({0, 0, 3, 3}, red); // the clip is the caller's again
    CHECK(picture.At(1, 1) == red);
}

TEST_CASE("Windows line layout: a part is painted in one colour, whatever the text's own are") {
    WinLineLayout layout;
    TextStyle style = LineStyle(24);
    style.color = red;
    style.background = black;
    const auto lines = LinesOf(layout, u"HHHHHH", style);
    Rect area = Column(lines->Extents(0, 2, 4).at(0));
    Picture picture;
    SetViewportOrgEx(picture.Canvas().Context(), 7, 3, nullptr); // as a paint buffer has one
    picture.Canvas().FillRect(area, blue);
    LinePaint paint = InBlack();
    paint.without = {&area, 1};
    lines->Draw(picture.Canvas(), 0, left, baseline, paint);
    const Rect onDevice = {area.left + 7, 0, area.width, pictureHeight};
    CHECK(picture.Count(onDevice, red) == 0);
    CHECK(picture.Count(onDevice, black) == 0);
    const int before = picture.Painted(whole);
    paint = InBlack();
    paint.within = {&area, 1};
    paint.oneColor = true;
    paint.text = yellow;
    lines->Draw(picture.Canvas(), 0, left, baseline, paint);
    CHECK(picture.Count(onDevice, yellow) > 20);
    CHECK(picture.Count(onDevice, blue) > area.width * pictureHeight / 2);
    CHECK(picture.Count(onDevice, red) == 0);
    CHECK(picture.Count(onDevice, black) == 0);
    CHECK(picture.Painted(whole) == before);
    CHECK(picture.Count({left + 7, 0, 20, pictureHeight}, red) > 20);
}

TEST_CASE(
    "Windows line layout: backgrounds, underlines and strikethroughs are as wide as the text") {
    WinLineLayout layout;
    TextStyle style = LineStyle(24);
    const auto inRows = [&](int top, int height) {
        const auto lines = LinesOf(layout, u"x  x", style);
        Picture picture;
        lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
        const Rect spaces = Column(lines->Extents(0, 1, 3).at(0));
        return picture.Painted({spaces.left, top, spaces.width, height}) / spaces.width;
    };
    CHECK(inRows(0, pictureHeight) == 0);
    style.underline = true;
    CHECK(inRows(baseline, 10) >= 1);
    CHECK(inRows(0, baseline) == 0);
    style.underline = false;
    style.strikethrough = true;
    CHECK(inRows(baseline - 20, 20) >= 1);
    CHECK(inRows(baseline, 30) == 0);
    style.strikethrough = false;
    style.background = yellow;
    const FontMetrics metrics = layout.Metrics(*layout.Prepare(style));
    CHECK(inRows(0, pictureHeight) == static_cast<int>(metrics.Height()));
}

TEST_CASE("Windows line layout: a soft hyphen is seen at the end of a wrapped line alone") {
    WinLineLayout layout;
    const TextStyle style = LineStyle(24);
    const double word = TextWidth(layout, u"under", style), hyphen = TextWidth(layout, u"-", style);
    CHECK(TextWidth(layout, u"under\u00ADunder", style) == 2 * word);
    const int width = static_cast<int>(word + hyphen);
    const auto lines = LinesOf(layout, u"under\u00ADunder", style, width);
    REQUIRE(lines->Count() == 2);
    CHECK(lines->Line(0).end == 6);
    CHECK(lines->Line(0).width == word + hyphen);
    Picture picture;
    lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
    CHECK(picture.Painted(Column(lines->CharacterExtent(0, 5))) > 3);
    CHECK(lines->Line(1).width == word);
    // Without room for it, the word breaks before.
    const auto narrow = LinesOf(layout, u"under\u00ADunder", style, width - 1);
    CHECK(narrow->Line(0).width <= width - 1);
}

TEST_CASE("Windows line layout: letters join across a change of colour") {
    WinLineLayout layout;
    ParagraphText paragraph = LineParagraph(layout, u"\u0628\u0628\u0628\u0628", unlimited, true);
    paragraph.runs = {{0, layout.Prepare(LineStyle(24))}};
    Picture plain, colored;
    layout.BreakLines(paragraph)->Draw(plain.Canvas(), 0, left, baseline, InBlack());
    TextStyle style = LineStyle(24);
    style.color = red;
    paragraph.runs.push_back({2, layout.Prepare(style)});
    layout.BreakLines(paragraph)->Draw(colored.Canvas(), 0, left, baseline, InBlack());
    CHECK(colored.Count(whole, red) > 0);
    int others = 0;
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x)
            others += (plain.At(x, y) == white) != (colored.At(x, y) == white);
    CHECK(others == 0);
}

TEST_CASE("Windows line layout: justified lines from right to left end at both edges") {
    WinLineLayout layout;
    ParagraphText paragraph = LineParagraph(
        layout,
        u"\u05E9\u05DC\u05D5\u05DD \u05E9\u05DC \u05E9\u05DC\u05D5\u05DD  \u05E9\u05DC\u05D5\u05DD",
        1, true);
    paragraph.runs = {{0, layout.Prepare(LineStyle(20))}};
    paragraph.justified = true;
    paragraph.width = static_cast<int>(
        TextWidth(layout, u"\u05E9\u05DC\u05D5\u05DD \u05E9\u05DC \u05E9\u05DC\u05D5\u05DD",
                  LineStyle(20)) +
        12);
    const auto lines = layout.BreakLines(paragraph);
    REQUIRE(lines->Line(0).justified);
    Picture picture;
    lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
    const int right = left + paragraph.width;
    CHECK(picture.Painted({left - 1, 0, 5, pictureHeight}) > 0);
    CHECK(picture.Painted({right - 5, 0, 6, pictureHeight}) > 0);
    CHECK(picture.Painted({right + 1, 0, 20, pictureHeight}) == 0);
}

TEST_CASE("Windows line layout: the canvas tints half") {
    Picture picture;
    picture.Canvas().TintRect({10, 10, 20, 20}, black);
    const Color gray = picture.At(15, 15) & 0xFF;
    CHECK(gray >= 0x7D);
    CHECK(gray <= 0x82);
    CHECK(picture.At(9, 15) == white);
    CHECK(picture.At(30, 15) == white);
}

TEST_CASE("Windows line layout: the system's font linking names families") {
    for (const std::wstring& family : LinkedFamilies(L"Tahoma")) {
        CHECK_FALSE(family.empty());
        CHECK(family.find(L',') == family.npos);
    }
    CHECK(LinkedFamilies(L"No Such Family 471").empty());
}

TEST_CASE("Windows line layout: another installed font is found for what one lacks") {
    MeasuringContext context;
    FontFallback fallback(context);
    LOGFONTW description = {};
    description.lfHeight = -16;
    description.lfCharSet = DEFAULT_CHARSET;
    // Hebrew, Devanagari, Georgian, a pictograph; Latin beyond the oldest code pages: Vietnamese,
    // phonetic letters, a ligature; a fraction.
    for (const char32_t character :
         {0x05D0, 0x0915, 0x10D0, 0x263A, 0x01B0, 0x0283, 0x1E0D, 0xFB02, 0x2153}) {
        const std::wstring& family = fallback.FamilyFor(character, L"No Such Family 471");
        CAPTURE(static_cast<unsigned>(character));
        REQUIRE_FALSE(family.empty());
        CHECK(IsFontInstalled(family.c_str()));
        family.copy(description.lfFaceName, LF_FACESIZE - 1);
        description.lfFaceName[family.size()] = L'\0';
        CHECK(HasGlyph(context, OpenShapingFont(context, description),
                       static_cast<wchar_t>(character)));
    }
    CHECK(fallback.FamilyFor(0xE123, L"Arial").empty()); // for private use
    CHECK(fallback.FamilyFor(0xFFFF, L"Arial").empty());
}

TEST_CASE("Windows line layout: one font stands in for all letters of a language that it has") {
    MeasuringContext context;
    FontFallback fallback(context);
    const std::wstring& family = fallback.FamilyFor(0x01A1, L"No Such Family 471");
    REQUIRE_FALSE(family.empty());
    for (const char32_t vietnamese : {0x01B0, 0x0111, 0x1EA5, 0x1EC5}) {
        CAPTURE(static_cast<unsigned>(vietnamese));
        CHECK(fallback.FamilyFor(vietnamese, L"No Such Family 471") == family);
    }
}

TEST_CASE("Windows line layout: a mark of the other direction without its letter is survived") {
    WinLineLayout layout;
    for (const char16_t* text : {u"a\u064E", u"\u202D\u064E\u0628", u"\u4E2D\u0596\u0596"}) {
        const auto lines = LinesOf(layout, text, LineStyle(), unlimited, true);
        CHECK(lines->Count() == 1);
        Picture picture;
        lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
    }
}

TEST_CASE("Windows line layout: raised text is drawn as many pixels higher, with a line above it") {
    const auto firstRow = [](const TextStyle& style) {
        WinLineLayout layout;
        layout.SetResolution(96);
        Picture picture;
        LinesOf(layout, u"HHH", style)->Draw(picture.Canvas(), 0, left, baseline, InBlack());
        int row = 0;
        while (row < pictureHeight && picture.Painted({0, row, pictureWidth, 1}) == 0)
            ++row;
        return row;
    };
    TextStyle style = LineStyle(15);
    const int plain = firstRow(style);
    for (const int raise : {15, 4, -11}) {
        style.raise = raise;
        CHECK(firstRow(style) == plain - raise);
    }
    style.raise = 0;
    style.overline = true;
    CHECK(firstRow(style) < plain);
}

TEST_CASE("Windows line layout: letters that are set apart are drawn apart") {
    WinLineLayout layout;
    layout.SetResolution(96);
    TextStyle style = LineStyle(15);
    style.letterSpacing = 20;
    const auto lines = LinesOf(layout, u"HH", style);
    Picture picture;
    lines->Draw(picture.Canvas(), 0, left, baseline, InBlack());
    const TextExtent first = lines->CharacterExtent(0, 0), second = lines->CharacterExtent(0, 1);
    CHECK(picture.Painted(Column(first)) > 0);
    CHECK(picture.Painted(Column(second)) > 0);
    CHECK(picture.Painted(Column({first.right - 15, first.right})) == 0);
}
