#include "platform/qt/dialogs/font_scripts.h"

namespace {
constexpr FontScript scripts[] = {
    {0, "Western", u"AaBbYyZz"},
    {238, "Central European", u"AaBb\u00C1\u00E1\u010C\u010D\u0141\u0142"},
    {204, "Cyrillic", u"AaBb\u0411\u0431\u0424\u0444"},
    {161, "Greek", u"AaBb\u0391\u03B1\u0392\u03B2"},
    {162, "Turkish", u"AaBb\u011E\u011F\u015E\u015F"},
    {186, "Baltic", u"AaBb\u0100\u0101\u017D\u017E"},
    {177, "Hebrew", u"AaBb\u05E0\u05E1\u05E9\u05EA"},
    {178, "Arabic", u"AaBb\u0627\u0628\u062C\u062F \u0647\u0648\u0632"},
    {163, "Vietnamese", u"AaBb\u01A0\u01A1\u01AF\u01B0"},
    {222, "Thai", u"AaBb\u0E2D\u0E31\u0E01\u0E29\u0E23\u0E44\u0E17\u0E22"},
    {128, "Japanese", u"AaBb\u3042\u3041\u30A2\u30A1\u4E9C\u5B87"},
    {129, "Hangul", u"AaBb\uAC00\uB098\uB2E4"},
    {130, "Hangul (Johab)", u"AaBb\uAC00\uB098\uB2E4"},
    {134, "Chinese GB2312", u"AaBb\u4E2D\u6587\u5B57\u4F53"},
    {136, "Chinese Big5", u"AaBb\u4E2D\u6587\u5B57\u9AD4"},
    {254, "OEM/DOS", u"AaBb\u00E9\u00DF\u2551\u2592"},
};
} // namespace

std::span<const FontScript> FontScripts() {
    return scripts;
}
