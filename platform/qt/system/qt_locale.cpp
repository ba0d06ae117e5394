#include "platform/qt/system/qt_locale.h"

#include "platform/qt/qt_text.h"
#include "platform/qt/system/ansi_code_page.h"

#include <QLocale>

#include <cstdlib>
#include <string_view>

namespace {

// The locale that decides how characters are written, by the rules of setlocale().
std::string_view CharacterLocale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value && *value) return value;
    return {};
}

QLocale::FormatType NameForm(bool full) {
    return full ? QLocale::LongFormat : QLocale::ShortFormat;
}

} // namespace

int QtLocale::AnsiCodePage() const {
    return AnsiCodePageOf(CharacterLocale());
}

std::u16string QtLocale::MonthName(int month, bool full) const {
    return FromQt(QLocale::system().monthName(month, NameForm(full)));
}

std::u16string QtLocale::DayName(int weekday, bool full) const {
    const int fromMonday = weekday == 1 ? 7 : weekday - 1; // Qt's week begins with Monday, 1
    return FromQt(QLocale::system().dayName(fromMonday, NameForm(full)));
}
