// Words, as Ctrl with an arrow and a double click take them.
#include "platform/windows/line_layout/characters.h"
#include "platform/windows/line_layout/text_units.h"

namespace {

enum class WordClass { Space, Word, Kana, Ideograph, Sign };

WordClass ClassOf(const TextUnits& all, std::size_t at) {
    const TextUnit& unit = all.units[at];
    const char32_t character = CharacterAt(all.text, at);
    if (unit.kind == UnitKind::Tab || unit.kind == UnitKind::LineBreak || unit.isSpace ||
        character == 0x00A0 || character == 0x202F)
        return WordClass::Space;
    if (unit.kind == UnitKind::SoftHyphen || unit.kind == UnitKind::Hidden) return WordClass::Word;
    if (unit.kind == UnitKind::Box) return WordClass::Sign;
    if (character >= 0x3041 && character <= 0x30FF && character != 0x30FB) return WordClass::Kana;
    if (!IsLetterOrDigit(character) && character != U'_') return WordClass::Sign;
    const bool hangul = character >= 0xAC00 && character <= 0xD7A3;
    return IsIdeographic(character) && !hangul ? WordClass::Ideograph : WordClass::Word;
}

bool IsWithinWord(char32_t sign) { // between letters
    return sign == U'\'' || sign == 0x2019 || sign == 0x00B7;
}

} // namespace

void MarkWords(TextUnits& all) {
    WordClass before = WordClass::Sign;
    for (std::size_t at = 0; at < all.Size(); ++at) {
        TextUnit& unit = all.units[at];
        unit.betweenWords = before == WordClass::Space;
        if (!unit.caret) continue;
        WordClass own = ClassOf(all, at);
        const bool joins = before == WordClass::Word && IsWithinWord(all.text[at]) &&
                           at + 1 < all.Size() && ClassOf(all, at + 1) == WordClass::Word;
        if (joins) own = WordClass::Word;
        // Within letters the system breaks lines between the words of scripts without spaces.
        const bool wordOfSystem = own == WordClass::Word && unit.mayBreak &&
                                  all.units[at - 1].kind == UnitKind::Text &&
                                  !IsIdeographic(CharacterAt(all.text, at));
        unit.startsWord = at == 0 || own != before || own == WordClass::Ideograph || wordOfSystem;
        unit.betweenWords = own == WordClass::Space;
        before = own;
    }
}
