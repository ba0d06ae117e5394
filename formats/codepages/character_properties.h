// What a character is for the charset guess.
#pragma once

#include "formats/codepages/language_tables.h"

// Where a sign that is no letter is at home.
enum class PunctuationKind : std::uint8_t {
    Free,      // anywhere: dashes, blanks
    Opening,   // before a word: quotation marks, inverted question marks
    Closing,   // after a word
    Joining,   // after a letter, before another or none: the apostrophe
    Odd,       // rarely beside a letter
    BoxDrawing // in a row of its like
};

// Costs are in `costsPerBit`.
struct CharacterProperties {
    char16_t letter = 0; // in its small form; 0 for a sign
    LetterScript script = LetterScript::None;
    bool uppercase = false;
    bool mark = false;        // a vowel or another sign with a letter of Hebrew or Arabic
    bool impossible = false;  // a control character, or no character at all
    bool withNumbers = false; // a sign that mostly stands beside a digit
    PunctuationKind kind = PunctuationKind::Free;
    int cost = 0; // of a sign; ASCII ones are free, for they are the same in every charset
};

CharacterProperties PropertiesOf(char16_t unit);
