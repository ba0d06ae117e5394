#include "formats/rtf/rtf_symbols.h"

#include "common/text.h"

#include <algorithm>
#include <iterator>

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

// What word processors take for the signs of lists.
constexpr struct {
    unsigned char byte;
    char16_t unit;
} dingbats[] = {
    {' ', u' '},  {'J', u'☺'},  {'l', u'●'},  {'n', u'■'},  {'o', u'□'},  {'q', u'❑'},
    {'r', u'❒'},  {'s', u'⬧'},  {'t', u'⧫'},  {'u', u'◆'},  {'v', u'❖'},  {'w', u'⬥'},
    {0x9F, u'•'}, {0xA7, u'▪'}, {0xA8, u'◻'}, {0xD8, u'➢'}, {0xDF, u'←'}, {0xE0, u'→'},
    {0xE8, u'➔'}, {0xF0, u'⇨'}, {0xFB, u'✗'}, {0xFC, u'✓'}, {0xFD, u'☒'}, {0xFE, u'☑'},
};

char16_t FontsOwn(unsigned char byte) {
    return static_cast<char16_t>(0xF000 | byte);
}

char16_t GreekOfByte(unsigned char byte) {
    if (byte >= 0x20 && byte < 0x7F) return greekLow[byte - 0x20u];
    if (byte >= 0xA0 && byte < 0xFF) return greekHigh[byte - 0xA0u];
    return FontsOwn(byte);
}

char16_t DingbatOfByte(unsigned char byte) {
    const auto* const found = std::find_if(std::begin(dingbats), std::end(dingbats),
                                           [=](const auto& entry) { return entry.byte == byte; });
    return found == std::end(dingbats) ? FontsOwn(byte) : found->unit;
}

} // namespace

RtfSymbolSet SymbolSetOfFont(std::u16string_view name) {
    if (EqualIgnoringCase(name, u"Symbol")) return RtfSymbolSet::Greek;
    if (EqualIgnoringCase(name, u"Wingdings")) return RtfSymbolSet::Dingbats;
    return RtfSymbolSet::None;
}

char16_t SymbolOfByte(RtfSymbolSet set, unsigned char byte) {
    switch (set) {
    case RtfSymbolSet::Greek: return GreekOfByte(byte);
    case RtfSymbolSet::Dingbats: return DingbatOfByte(byte);
    default: return FontsOwn(byte);
    }
}
