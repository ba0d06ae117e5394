#include "books/unwrapped_book.h"

namespace {
constexpr std::u16string_view unwrapKey = u"Unwrap";
}

bool LoadUnwrapped(IniFile& file, const std::u16string& section) {
    return IniReadNumber(file, section, unwrapKey) == 1;
}

void SaveUnwrapped(IniFile& file, const std::u16string& section, bool on) {
    IniWriteNumber(file, section, unwrapKey, on ? 1 : 0);
}
