// What Uniscribe does not say about characters.
#pragma once

#include <string_view>

// Of a unit that is no half of a pair, the unit itself.
char32_t CharacterAt(std::wstring_view text, std::size_t at);
char32_t CharacterBefore(std::wstring_view text, std::size_t at);

bool IsBreakingSpace(char32_t);
bool IsHiddenControl(char32_t); // neither seen nor shaped
bool IsIgnorable(char32_t);     // not seen when no font has it; changes its neighbours
bool IsLetterOrDigit(char32_t);
bool IsIdeographic(char32_t); // of a script whose lines break between any two of its characters

// Whether both belong to one character of the reader's, where the first one may itself be a mark.
// Uniscribe knows marks, but neither pairs nor what emoji are made of.
bool JoinsInCharacter(char32_t before, char32_t after);

// Whether a line may break between the two: what Uniscribe does not say at the edges of its items.
enum class BreakRule { Never, Allowed, AsTheSystemSays };
BreakRule BreakBetween(char32_t before, char32_t after);
