#include "formats/codepages/symbol_fonts.h"

#include "common/text.h"

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

// From 0x20 on, as Unicode 7.0 has unified and added them (UTC document L2/12-368); but the usual
// bullets, arrows and check marks as signs that look alike and that most fonts have.
// Formatted by hand: clang-format counts the columns of such signs in its own way.
// clang-format off
constexpr std::u32string_view wingdings =
    U" 🖉✂✁👓🕭🕮🕯☎✆✉🖃📪📫📬📭"
    U"🗀🗁🗎🗏🗐🗄⌛⌨🖰🖲🖳🖴🖫🖬✇✍"
    U"🖎✌🖏👍👎☜☞☝☟🖐☺😐☹💣🕱🏳"
    U"🏱✈☼🌢❄🕆✞🕈✠✡☪☯🕉☸♈♉"
    U"♊♋♌♍♎♏♐♑♒♓🙰🙵●🔾■🞏"
    U"🞐❑❒🞟⧫◆❖⬩⌧⮹⌘🏵🏶🙶🙷▯"
    U"⓪➀➁➂➃➄➅➆➇➈➉⓿➊➋➌➍"
    U"➎➏➐➑➒➓🙢🙠🙡🙣🙞🙜🙝🙟∙•"
    U"⬝⭘🞆🞈🞊🞋🔿▪🞎🟁🟅★🟋🟏🟓🟑"
    U"⯐⌖⯎⯏⯑✪✰🕐🕑🕒🕓🕔🕕🕖🕗🕘"
    U"🕙🕚🕛⮰⮱⮲⮳⮴⮵⮶⮷🙪🙫🙕🙔🙗"
    U"🙖🙐🙑🙒🙓⌫⌦⮘➢⮙⮛⮈⮊⮉⮋←"
    U"→↑↓↖↗↙↘🡸➔🡹🡻🡼🡽🡿🡾⇦"
    U"⇨⇧⇩⬄⇳⬁⬀⬃⬂🢬🢭✗✓☒☑\uF0FF";

constexpr std::u32string_view webdings =
    U" 🕷🕸🕲🕶🏆🎖🖇🗨🗩🗰🗱🌶🎗🙾🙼"
    U"🗕🗖🗗⏴⏵⏶⏷⏪⏩⏮⏭⏸⏹⏺🗚🗳"
    U"🛠🏗🏘🏙🏚🏜🏭🏛🏠🏖🏝🛣🔍🏔👁👂"
    U"🏞🏕🛤🏟🛳🕬🕫🕨🔈🎔🎕🗬🙽🗭🗪🗫"
    U"⮔✔🚲⬜🛡📦🛱⬛🚑🛈🛩🛰🟈🕴⬤🛥"
    U"🚔🗘🗙❓🛲🚇🚍⛳⦸⊖🚭🗮⏐🗯🗲\uF07F"
    U"🚹🚺🛉🛊🚼👽🏋⛷🏂🏌🏊🏄🏍🏎🚘🗠"
    U"🛢💰🏷💳👪🗡🗢🗣✯🖄🖅🖃🖆🖹🖺🖻"
    U"🕵🕰🖽🖾📋🗒🗓🕮📚🗞🗟🗃🗂🖼🎭🎜"
    U"🎘🎙🎧💿🎞📷🎟🎬📽📹📾📻🎚🎛📺💻"
    U"🖥🖦🖧🕹🎮🕻🕼📟🖁🖀🖨🖩🖿🖪🗜🔒"
    U"🔓🗝📥📤🕳🌣🌤🌥🌦☁🌨🌧🌩🌪🌬🌫"
    U"🌜🌡🛋🛏🍽🍸🛎🛍Ⓟ♿🛆🖈🎓🗤🗥🗦"
    U"🗧🛪🐿🐦🐟🐕🐈🙬🙮🙭🙯🗺🌍🌏🌎🕊";
// clang-format on

static_assert(wingdings.size() == 0xE0 && webdings.size() == 0xE0);

char32_t PrivateUseOf(unsigned char byte) {
    return 0xF000u | byte;
}

char32_t GreekOfByte(unsigned char byte) {
    if (byte >= 0x20 && byte < 0x7F) return greekLow[byte - 0x20u];
    if (byte >= 0xA0 && byte < 0xFF) return greekHigh[byte - 0xA0u];
    return PrivateUseOf(byte);
}

char32_t SignOfByte(std::u32string_view signs, unsigned char byte) {
    return byte >= 0x20 ? signs[byte - 0x20u] : PrivateUseOf(byte);
}

} // namespace

SymbolSet SymbolSetOfFont(std::u16string_view name) {
    if (EqualIgnoringCase(name, u"Symbol")) return SymbolSet::Symbol;
    if (EqualIgnoringCase(name, u"Wingdings")) return SymbolSet::Wingdings;
    if (EqualIgnoringCase(name, u"Webdings")) return SymbolSet::Webdings;
    return SymbolSet::None;
}

char32_t SymbolOfByte(SymbolSet set, unsigned char byte) {
    switch (set) {
    case SymbolSet::Symbol: return GreekOfByte(byte);
    case SymbolSet::Wingdings: return SignOfByte(wingdings, byte);
    case SymbolSet::Webdings: return SignOfByte(webdings, byte);
    default: return PrivateUseOf(byte);
    }
}
