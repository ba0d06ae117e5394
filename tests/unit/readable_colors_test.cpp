// Text that its background would hide is shown in another colour; nothing else changes.
#include "common/contrast.h"
#include "tests/unit/pane_bench.h"

#include <doctest/doctest.h>

namespace {
constexpr Color black = 0x000000, white = 0xFFFFFF, night = 0x301010; // a dark blue

// The colour that the text is drawn in.
Color ColorOf(PaneBench& bench, std::u16string_view text) {
    const std::u16string all = bench.TextRange(0, bench.TextLength());
    const std::size_t at = all.find(text);
    REQUIRE(at != all.npos);
    return bench.Pane().CharacterFormatAt(TextPos(at)).foreground;
}
} // namespace

TEST_CASE("contrast: as the guidelines define it") {
    CHECK(Contrast(black, white) == doctest::Approx(21));
    CHECK(Contrast(white, white) == doctest::Approx(1));
    CHECK(Contrast(0x777777, white) == doctest::Approx(4.48).epsilon(0.01));
    CHECK(Contrast(0x0000FF, white) == doctest::Approx(4.0).epsilon(0.01));  // red
    CHECK(Contrast(0xFF0000, black) == doctest::Approx(2.44).epsilon(0.01)); // blue
    CHECK(IsReadable(0x949494, white));
    CHECK_FALSE(IsReadable(0x959595, white));
}

TEST_CASE("contrast: greys become black or white, colours keep their hue, and all can be read") {
    struct {
        Color background, text, shown;
    } const table[] = {
        {white, black, black},       {night, black, white},       {white, 0xC0C0C0, black},
        {black, 0x404040, white},    {0x808080, 0x707070, black}, {0xC0FFFF, black, black},
        {black, 0x00FFFF, 0x00FFFF}, {white, 0x0000FF, 0x0000FF},
    };
    for (const auto& row : table) {
        CAPTURE(row.background);
        CAPTURE(row.text);
        CHECK(ReadableOn(row.background, row.text) == row.shown);
    }
    const Color blue = ReadableOn(black, 0xFF0000);
    CHECK((blue >> 16 & 0xFF) == 0xFF);
    CHECK((blue & 0xFF) < 0x80);
    const Color yellow = ReadableOn(white, 0x00FFFF);
    CHECK((yellow >> 16 & 0xFF) == 0);
    CHECK((yellow & 0xFF) > 0x40);
    for (Color background = 0; background <= white; background += 0x0F3355)
        for (Color text = 0; text <= white; text += 0x13571B)
            CHECK(IsReadable(ReadableOn(background, text), background));
}

TEST_CASE("readable colours: a plain text on the background that the reader chose") {
    struct {
        Color text, background, shown;
    } const table[] = {
        {black, white, black},       {black, night, white},
        {black, 0xC0FFFF, black},    // a light yellow
        {0x404040, night, 0x404040}, // both chosen
        {night, 0x200808, night},    {white, white, black},
    };
    PaneBench bench;
    bench.LoadPlainText(u"text");
    for (const auto& row : table) {
        CAPTURE(row.text);
        CAPTURE(row.background);
        bench.SetTextColor(row.text);
        bench.SetBackColor(row.background);
        CHECK(ColorOf(bench, u"text") == row.shown);
        CHECK(bench.Painted().front().color == row.shown);
        CHECK(bench.TextColor() == row.text); // which is what is stored
    }
    bench.SetTextColor(black);
    bench.SetBackColor(night);
    bench.Select(0, 4);
    CHECK(bench.SelectionAsRtf().find("red255") == std::string::npos);
}

TEST_CASE("readable colours: rich text in the colours of its file") {
    PaneBench bench;
    bench.SetAutoColor(true);
    bench.SetBackColor(black);
    bench.LoadRichText("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue160;"
                       "\\red64\\green64\\blue64;\\red255\\green255\\blue255;}"
                       "none\\par\\cf1 red\\par\\cf2 blue\\par\\cf3 grey\\par"
                       "\\cf4\\cb2\\highlight4\\cf2 marked\\par}",
                       1252);
    CHECK(ColorOf(bench, u"none") == white);
    CHECK(ColorOf(bench, u"red") == 0x0000FF);
    const Color blue = ColorOf(bench, u"blue");
    CHECK(blue != 0xA00000);
    CHECK((blue >> 16 & 0xFF) > (blue & 0xFF));
    CHECK(IsReadable(blue, black));
    CHECK(ColorOf(bench, u"grey") == white);
    CHECK(ColorOf(bench, u"marked") == 0xA00000); // on white
    bench.SetBackColor(white);
    CHECK(ColorOf(bench, u"none") == black);
    CHECK(ColorOf(bench, u"blue") == 0xA00000);
}

TEST_CASE("readable colours: what counts is the background of a cell or a shaded paragraph") {
    PaneBench bench(600);
    bench.SetAutoColor(true);
    bench.LoadRichText("{\\rtf1{\\colortbl;\\red255\\green255\\blue255;\\red0\\green0\\blue96;}"
                       "\\trowd\\clcbpat2\\cellx3000\\cellx6000\\intbl\\cf1 head\\cell paper\\cell"
                       "\\row\\pard\\plain\\cf1 bare\\par\\pard\\cbpat2\\cf1 shaded\\par}",
                       1252);
    CHECK(ColorOf(bench, u"head") == white);
    CHECK(ColorOf(bench, u"paper") == black);
    CHECK(ColorOf(bench, u"bare") == black);
    CHECK(ColorOf(bench, u"shaded") == white);
}
