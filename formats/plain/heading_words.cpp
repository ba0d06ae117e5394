#include "formats/plain/heading_words.h"

#include <algorithm>

namespace {

constexpr std::u16string_view books[] = {
    u"BOOK",  u"PART",   u"VOLUME",                       // English
    u"BUCH",  u"TEIL",   u"BAND",                         // German
    u"LIVRE", u"PARTIE", u"TOME",                         // French
    u"LIBRO", u"PARTE",  u"TOMO",   u"VOLUMEN",           // Spanish, Italian, Portuguese
    u"LIVRO", u"DEEL",   u"BOEK",   u"DEL",     u"BOK",   // Portuguese, Dutch, Scandinavian
    u"OSA",   u"CZĘŚĆ",  u"KSIĘGA", u"TOM",     u"ČÁST",  // Finnish, Polish, Czech
    u"KNIHA", u"DÍL",    u"RÉSZ",   u"KÖTET",             // Czech, Hungarian
    u"ЧАСТЬ", u"КНИГА",  u"ТОМ",    u"ЧАСТИНА", u"ЧАСТ",  // Russian, Ukrainian, Bulgarian
    u"ΜΕΡΟΣ", u"ΜΈΡΟΣ",  u"ΒΙΒΛΙΟ", u"KISIM",   u"BÖLÜK", // Greek, Turkish
};

constexpr std::u16string_view chapters[] = {
    u"CHAPTER",   u"CHAP",      u"CANTO",     u"SCENE",    u"ACT",      u"LETTER",
    u"STAVE",                                                           // English
    u"KAPITEL",   u"GESANG",    u"CHAPITRE",  u"CHANT",                 // German, French
    u"CAPÍTULO",  u"CAPITULO",  u"CAPITOLO",  u"CAP",                   // Spanish, Italian
    u"HOOFDSTUK", u"KAPITTEL",  u"LUKU",      u"ROZDZIAŁ", u"KAPITOLA", // Dutch ... Czech
    u"FEJEZET",   u"CAPITOLUL", u"POGLAVLJE", u"SKYRIUS",  u"PEATÜKK",  // Hungarian ... Estonian
    u"ГЛАВА",     u"РОЗДІЛ",    u"ПОГЛАВЛЕ",  u"ПИСЬМО",                // Russian ... Serbian
    u"ΚΕΦΆΛΑΙΟ",  u"ΚΕΦΑΛΑΙΟ",  u"BÖLÜM",     u"פרק",      u"الفصل",    u"अध्याय", // Greek ... Hindi
};

constexpr std::u16string_view alone[] = {
    u"PROLOGUE",   u"EPILOGUE",    u"PREFACE",     u"INTRODUCTION", u"FOREWORD",   u"AFTERWORD",
    u"APPENDIX",   u"CONCLUSION",  u"PROLOG",      u"EPILOG",       u"VORWORT",    u"NACHWORT",
    u"EINLEITUNG", u"ANHANG",      u"PRÉFACE",     u"ÉPILOGUE",     u"PRÓLOGO",    u"EPÍLOGO",
    u"PROLOGO",    u"EPILOGO",     u"PREFAZIONE",  u"INTRODUCCIÓN", u"PREFÁCIO",   u"ПРОЛОГ",
    u"ЭПИЛОГ",     u"ПРЕДИСЛОВИЕ", u"ПОСЛЕСЛОВИЕ", u"ВВЕДЕНИЕ",     u"序章",       u"序",
    u"序言",       u"前言",        u"楔子",        u"引子",         u"終章",       u"终章",
    u"尾声",       u"尾聲",        u"後記",        u"后记",         u"プロローグ", u"エピローグ",
    u"프롤로그",   u"에필로그",
};

constexpr std::u16string_view numbers[] = {
    u"ONE",        u"TWO",        u"THREE",      u"FOUR",      u"FIVE",      u"SIX",
    u"SEVEN",      u"EIGHT",      u"NINE",       u"TEN",       u"ELEVEN",    u"TWELVE",
    u"THIRTEEN",   u"FOURTEEN",   u"FIFTEEN",    u"SIXTEEN",   u"SEVENTEEN", u"EIGHTEEN",
    u"NINETEEN",   u"FIRST",      u"SECOND",     u"THIRD",     u"FOURTH",    u"FIFTH",
    u"SIXTH",      u"SEVENTH",    u"EIGHTH",     u"NINTH",     u"TENTH",     u"ELEVENTH",
    u"TWELFTH",    u"THIRTEENTH", u"FOURTEENTH", u"FIFTEENTH", u"SIXTEENTH", u"SEVENTEENTH",
    u"EIGHTEENTH", u"NINETEENTH", u"LAST",       u"EINS",      u"ZWEI",      u"DREI",
    u"VIER",       u"FÜNF",       u"SECHS",      u"SIEBEN",    u"ACHT",      u"NEUN",
    u"ZEHN",       u"ELF",        u"ZWÖLF",      u"ERSTE",     u"ERSTES",    u"ERSTER",
    u"ZWEITE",     u"ZWEITES",    u"ZWEITER",    u"DRITTE",    u"DRITTES",   u"DRITTER",
    u"VIERTE",     u"VIERTES",    u"VIERTER",    u"FÜNFTE",    u"FÜNFTES",   u"SECHSTE",
    u"SECHSTES",   u"SIEBTE",     u"SIEBTES",    u"SIEBENTES", u"ACHTE",     u"ACHTES",
    u"NEUNTE",     u"NEUNTES",    u"ZEHNTE",     u"ZEHNTES",   u"ELFTES",    u"ZWÖLFTES",
    u"PREMIER",    u"PREMIÈRE",   u"DEUXIÈME",   u"SECONDE",   u"TROISIÈME", u"QUATRIÈME",
    u"CINQUIÈME",  u"SIXIÈME",    u"SEPTIÈME",   u"HUITIÈME",  u"NEUVIÈME",  u"DIXIÈME",
    u"PRIMERO",    u"PRIMERA",    u"PRIMER",     u"SEGUNDO",   u"SEGUNDA",   u"TERCERO",
    u"TERCERA",    u"CUARTO",     u"CUARTA",     u"QUINTO",    u"QUINTA",    u"SEXTO",
    u"SEXTA",      u"SÉPTIMO",    u"OCTAVO",     u"NOVENO",    u"DÉCIMO",    u"ÚLTIMO",
    u"PRIMO",      u"PRIMA",      u"SECONDO",    u"SECONDA",   u"TERZO",     u"TERZA",
    u"QUARTO",     u"QUARTA",     u"SESTO",      u"SETTIMO",   u"OTTAVO",    u"NONO",
    u"DECIMO",     u"PRIMEIRO",   u"PRIMEIRA",   u"TERCEIRO",  u"TERCEIRA",  u"ПЕРВАЯ",
    u"ПЕРВЫЙ",     u"ВТОРАЯ",     u"ВТОРОЙ",     u"ТРЕТЬЯ",    u"ТРЕТИЙ",    u"ЧЕТВЕРТАЯ",
    u"ЧЕТВЁРТАЯ",  u"ЧЕТВЕРТЫЙ",  u"ЧЕТВЁРТЫЙ",  u"ПЯТАЯ",     u"ПЯТЫЙ",     u"ШЕСТАЯ",
    u"ШЕСТОЙ",     u"СЕДЬМАЯ",    u"СЕДЬМОЙ",    u"ВОСЬМАЯ",   u"ВОСЬМОЙ",   u"ДЕВЯТАЯ",
    u"ДЕВЯТЫЙ",    u"ДЕСЯТАЯ",    u"ДЕСЯТЫЙ",    u"ПОСЛЕДНЯЯ",
};

constexpr std::u16string_view tens[] = {u"TWENTY", u"TWENTIETH", u"THIRTY", u"THIRTIETH",
                                        u"FORTY",  u"FORTIETH",  u"FIFTY",  u"FIFTIETH",
                                        u"SIXTY",  u"SEVENTY",   u"EIGHTY", u"NINETY"};

template <std::size_t count>
bool Has(const std::u16string_view (&words)[count], std::u16string_view word) {
    return std::ranges::find(words, word) != std::end(words);
}

} // namespace

HeadingWord HeadingWordOf(std::u16string_view capitals) {
    if (Has(books, capitals)) return HeadingWord::Book;
    if (Has(chapters, capitals)) return HeadingWord::Chapter;
    return Has(alone, capitals) ? HeadingWord::Alone : HeadingWord::None;
}

bool IsNumberWord(std::u16string_view capitals) {
    const std::size_t hyphen = capitals.find(u'-');
    if (hyphen == std::u16string_view::npos) return Has(numbers, capitals) || Has(tens, capitals);
    return Has(tens, capitals.substr(0, hyphen)) && Has(numbers, capitals.substr(hyphen + 1));
}
