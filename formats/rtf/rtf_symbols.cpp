#include "formats/rtf/rtf_symbols.h"

#include "common/text.h"

#include <span>

namespace {

// From 0x20 on.
constexpr std::u16string_view greekLow = u" !∀#∃%&∋()∗+,−./0123456789:;<=>?"
                                         u"≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"
                                         u"‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼";

// From 0xA0 on.
constexpr std::u16string_view greekHigh = u"€ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵"
                                          u"ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓"
                                          u"◊⟨®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪\uF0F0⟩∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭";

static_assert(greekLow.size() == 0x5F && greekHigh.size() == 0x5F);

// Runs of signs as other fonts have them, each from a byte on.
struct SymbolRun {
    unsigned char first;
    std::u32string_view signs;
};

// Formatted by hand: clang-format counts the columns of such signs in its own way.
// clang-format off
constexpr SymbolRun wingdings[] = {
    {0x20, U" ✎✂✁👓🔔📖🕯☎✆✉🖃📪📫📬📭📁📂📄🗏🗐🗄⌛⌨🖰🖲🖳🖴"
           U"🖫"
           U"🖬"
           U"✇"
           U"✍"},
    {0x40, U"🖎✌👌👍👎☜☞☝☟🖐☺😐☹💣☠🏳🏱✈☼💧❄🕆✞🕈✠✡☪☯"
           U"ॐ"
           U"☸"
           U"♈"
           U"♉"},
    {0x60,
     U"♊♋♌♍♎♏♐♑♒♓🙰🙵●🔾■□🞐❑❒⬧⧫◆❖⬥⌧⮹⌘🏵"
     U"🏶"
     U"❝"
     U"❞"},
    {0x80, U"⓪①②③④⑤⑥⑦⑧⑨⑩⓿❶❷❸❹❺❻❼❽❾❿"},
    {0x9E, U"·•⬝⭘"},
    {0xA6, U"🔿▪◻"},
    {0xAB, U"★"},
    {0xB1, U"⌖"},
    {0xB5, U"✪✰🕐🕑🕒🕓🕔🕕🕖🕗🕘🕙🕚🕛"},
    {0xD5, U"⌫⌦"},
    {0xD8, U"➢"},
    {0xDF, U"←→↑↓↖↗↙↘"},
    {0xE8, U"➔"},
    {0xEF, U"⇦⇨⇧⇩⬄⇳"},
    {0xFB, U"✗✓☒☑"},
};

constexpr SymbolRun webdings[] = {
    {0x20, U" "}, {0x33, U"⏴⏵⏶⏷⏪⏩⏮⏭⏸⏹⏺"},
    {0x59, U"♥"}, {0x61, U"✔"},
    {0x63, U"□"}, {0x67, U"■"},
    {0x69, U"ℹ"}, {0x6E, U"⚫"},
    {0x73, U"❓"},
};
// clang-format on

char32_t PrivateUseOf(unsigned char byte) {
    return 0xF000u | byte;
}

char32_t GreekOfByte(unsigned char byte) {
    if (byte >= 0x20 && byte < 0x7F) return greekLow[byte - 0x20u];
    if (byte >= 0xA0 && byte < 0xFF) return greekHigh[byte - 0xA0u];
    return PrivateUseOf(byte);
}

char32_t SignOfByte(std::span<const SymbolRun> runs, unsigned char byte) {
    for (const SymbolRun& run : runs)
        if (byte >= run.first && byte - run.first < static_cast<int>(run.signs.size()))
            return run.signs[static_cast<std::size_t>(byte - run.first)];
    return PrivateUseOf(byte);
}

} // namespace

RtfSymbolSet SymbolSetOfFont(std::u16string_view name) {
    if (EqualIgnoringCase(name, u"Symbol")) return RtfSymbolSet::Symbol;
    if (EqualIgnoringCase(name, u"Wingdings")) return RtfSymbolSet::Wingdings;
    if (EqualIgnoringCase(name, u"Webdings")) return RtfSymbolSet::Webdings;
    return RtfSymbolSet::None;
}

char32_t SymbolOfByte(RtfSymbolSet set, unsigned char byte) {
    switch (set) {
    case RtfSymbolSet::Symbol: return GreekOfByte(byte);
    case RtfSymbolSet::Wingdings: return SignOfByte(wingdings, byte);
    case RtfSymbolSet::Webdings: return SignOfByte(webdings, byte);
    default: return PrivateUseOf(byte);
    }
}
