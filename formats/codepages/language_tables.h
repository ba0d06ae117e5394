// How likely letters follow each other in many languages. The tables are made by
// make_language_tables.py from running text.
#pragma once

#include <cstdint>

enum class LetterScript : std::uint8_t { None, Latin, Cyrillic, Greek, Hebrew, Arabic, Thai };

constexpr int languageCount = 46;
constexpr int characterModelCount = 4;
constexpr int characterBandCount = 6;
constexpr int costsPerBit = 4;
constexpr char firstCost = '#'; // the character that stands for 0

// A letter of the language has the class of its place in `letters` and 2; 1 is any other letter of
// the script, 0 all that is none. `costs` has a row for each class: -log2 of how likely each class
// follows it.
struct LanguageModel {
    const char* name;
    LetterScript script;
    int letterCount;
    int coreLetters;         // the first ones, which every charset for the language has
    const char16_t* letters; // small ones, commonest first
    const char* costs;
};
extern const LanguageModel languageModels[languageCount];

// For languages of many characters: the commonest in bands, each sorted, with the cost of one.
enum CharacterLanguage { Japanese, Korean, SimplifiedChinese, TraditionalChinese };
struct CharacterModel {
    const char* name;
    struct Band {
        int cost;
        const char16_t* characters;
    } bands[characterBandCount];
};
extern const CharacterModel characterModels[characterModelCount];

// The letters that the presentation forms of Arabic from U+FE70 to U+FEFC are forms of.
constexpr char16_t firstArabicForm = 0xFE70, lastArabicForm = 0xFEFC;
extern const char16_t arabicForms[];
