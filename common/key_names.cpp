#include "common/key_names.h"

#include "common/keys.h"
#include "common/text.h"

#include <algorithm>

namespace {
struct NamedKey {
    int code;
    const char16_t* name;
};

constexpr NamedKey namedKeys[] = {
    {3, u"Cancel"},       {8, u"Bksp"},         {9, u"Tab"},         {12, u"Clear"},
    {13, u"Enter"},       {16, u"Shift"},       {17, u"Ctrl"},       {18, u"Alt"},
    {19, u"Pause"},       {20, u"CapsLock"},    {27, u"Esc"},        {32, u"Space"},
    {33, u"PgUp"},        {34, u"PgDn"},        {35, u"End"},        {36, u"Home"},
    {37, u"Left"},        {38, u"Up"},          {39, u"Right"},      {40, u"Down"},
    {41, u"Sel"},         {42, u"PrtScr"},      {43, u"Exec"},       {44, u"Snapshot"},
    {45, u"Ins"},         {46, u"Del"},         {47, u"Help"},       {91, u"WinLeft"},
    {92, u"WinRight"},    {93, u"App"},         {106, u"Num *"},     {107, u"Num +"},
    {108, u"Num Enter"},  {109, u"Num -"},      {110, u"Num ."},     {111, u"Num /"},
    {144, u"NumLock"},    {145, u"ScrollLock"}, {186, u"Semicolon"}, {187, u"Equals"},
    {188, u"Comma"},      {189, u"Minus"},      {190, u"FullStop"},  {191, u"Slash"},
    {192, u"Grave"},      {219, u"LBracket"},   {220, u"Backslash"}, {221, u"RBracket"},
    {222, u"Apostrophe"},
};

bool Between(int value, int low, int high) {
    return low <= value && value <= high;
}
} // namespace

std::u16string KeyName(int keyCode) {
    if (Between(keyCode, 48, 57) || Between(keyCode, 65, 90))
        return std::u16string(1, static_cast<char16_t>(keyCode));
    if (Between(keyCode, 96, 105)) return u"Num " + NumberText(keyCode - 96);
    if (Between(keyCode, 112, 135)) return u"F" + NumberText(keyCode - 111);
    const auto key = std::ranges::find(namedKeys, keyCode, &NamedKey::code);
    return key == std::end(namedKeys) ? u"" : key->name;
}

std::u16string ShortcutText(const KeyCombination& keys) {
    std::u16string text;
    if ((keys.shift & AltKey) && keys.key != 18) text += u"Alt+";
    if ((keys.shift & CtrlKey) && keys.key != 17) text += u"Ctrl+";
    if ((keys.shift & ShiftKey) && keys.key != 16) text += u"Shift+";
    return text + KeyName(keys.key);
}

std::u16string GetShortcutText(std::u16string_view keyAndShift) {
    const auto firstDot = keyAndShift.find(u'.'), lastDot = keyAndShift.rfind(u'.');
    const int shift =
        lastDot == std::u16string_view::npos ? 0 : WholeNumber(keyAndShift.substr(lastDot + 1));
    return ShortcutText({WholeNumber(keyAndShift.substr(0, firstDot)), shift});
}
