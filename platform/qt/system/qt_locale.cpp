#include "platform/qt/system/qt_locale.h"

#include "platform/qt/base/qt_text.h"

#include <QLocale>

#include <array>
#include <cstdlib>

namespace {

struct LanguagePage {
    std::string_view language; // with the country where it decides; such entries come first
    int codePage;
};

constexpr std::array pages = {
    LanguagePage{"zh_TW", 950}, LanguagePage{"zh_HK", 950}, LanguagePage{"zh_MO", 950},
    LanguagePage{"zh", 936},    LanguagePage{"ja", 932},    LanguagePage{"ko", 949},
    LanguagePage{"th", 874},    LanguagePage{"vi", 1258},   LanguagePage{"ru", 1251},
    LanguagePage{"uk", 1251},   LanguagePage{"be", 1251},   LanguagePage{"bg", 1251},
    LanguagePage{"sr", 1251},   LanguagePage{"mk", 1251},   LanguagePage{"kk", 1251},
    LanguagePage{"ky", 1251},   LanguagePage{"tt", 1251},   LanguagePage{"mn", 1251},
    LanguagePage{"pl", 1250},   LanguagePage{"cs", 1250},   LanguagePage{"hu", 1250},
    LanguagePage{"sk", 1250},   LanguagePage{"sl", 1250},   LanguagePage{"hr", 1250},
    LanguagePage{"bs", 1250},   LanguagePage{"ro", 1250},   LanguagePage{"sq", 1250},
    LanguagePage{"el", 1253},   LanguagePage{"tr", 1254},   LanguagePage{"az", 1254},
    LanguagePage{"uz", 1254},   LanguagePage{"he", 1255},   LanguagePage{"iw", 1255},
    LanguagePage{"yi", 1255},   LanguagePage{"ar", 1256},   LanguagePage{"fa", 1256},
    LanguagePage{"ur", 1256},   LanguagePage{"lt", 1257},   LanguagePage{"lv", 1257},
    LanguagePage{"et", 1257},
};

// Whether `locale` is this language (and country), perhaps with a country of its own.
bool Matches(std::string_view locale, std::string_view language) {
    return locale.starts_with(language) &&
           (locale.size() == language.size() || locale[language.size()] == '_');
}

// The value of LC_CTYPE, by the precedence of setlocale().
std::string_view CharacterLocale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value && *value) return value;
    return {};
}

QLocale::FormatType NameFormat(NameLength length) {
    return length == NameLength::Long ? QLocale::LongFormat : QLocale::ShortFormat;
}

} // namespace

int AnsiCodePageOf(std::string_view locale) {
    const bool latin = locale.ends_with("@latin"), cyrillic = locale.ends_with("@cyrillic");
    locale = locale.substr(0, locale.find_first_of(".@"));
    for (const LanguagePage& page : pages) {
        if (!Matches(locale, page.language)) continue;
        if (latin && page.codePage == 1251) return 1250; // Serbian in the Latin script
        if (cyrillic && page.codePage == 1254)
            return 1251; // Azerbaijani and Uzbek in the Cyrillic script
        return page.codePage;
    }
    return 1252;
}

int QtLocale::AnsiCodePage() const {
    return AnsiCodePageOf(CharacterLocale());
}

std::u16string QtLocale::MonthName(int month, NameLength length) const {
    return FromQt(QLocale::system().monthName(month, NameFormat(length)));
}

std::u16string QtLocale::DayName(int weekday, NameLength length) const {
    const int qtWeekday = weekday == 1 ? 7 : weekday - 1; // Monday is 1
    return FromQt(QLocale::system().dayName(qtWeekday, NameFormat(length)));
}
