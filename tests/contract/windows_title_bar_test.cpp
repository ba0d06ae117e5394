#include "platform/windows/base/wine.h"
#include "platform/windows/window/title_bar.h"

#include <doctest/doctest.h>

namespace {
constexpr const wchar_t* themes =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
constexpr const wchar_t* name = L"AppsUseLightTheme";

void SetLight(DWORD light) {
    RegSetKeyValueW(HKEY_CURRENT_USER, themes, name, REG_DWORD, &light, sizeof light);
}
} // namespace

TEST_CASE("title bar: dark where the user's setting says so") {
    if (!RunsUnderWine()) {
        MESSAGE("skipped: the setting is the user's own");
        return;
    }
    RegDeleteKeyValueW(HKEY_CURRENT_USER, themes, name);
    CHECK_FALSE(PrefersDarkPrograms());
    SetLight(0);
    CHECK(PrefersDarkPrograms());
    FollowColorScheme(GetDesktopWindow()); // which no program may change: nothing happens
    SetLight(1);
    CHECK_FALSE(PrefersDarkPrograms());
    RegDeleteKeyValueW(HKEY_CURRENT_USER, themes, name);
}
