// The words of chapter headings, in capitals as FoldCase gives them.
#pragma once

#include <string_view>

enum class HeadingWord {
    None,
    Book,    // and parts and volumes: numbered, above chapters
    Chapter, // numbered
    Alone,   // a heading without a number: a preface and the like
};

HeadingWord HeadingWordOf(std::u16string_view capitals);
// "ONE", "FIRST", "TWENTY-THIRD", "ПЕРВАЯ", "PRIMERO" and their like.
bool IsNumberWord(std::u16string_view capitals);
