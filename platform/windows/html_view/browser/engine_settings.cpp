#include "platform/windows/html_view/browser/engine_settings.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/wine.h"
#include "platform/windows/html_view/safety/urlmon.h"

#include <ole2.h>
#include <urlmon.h>

namespace {

constexpr wchar_t modeKey[] =
    L"Software\\Microsoft\\Internet Explorer\\Main\\FeatureControl\\FEATURE_BROWSER_EMULATION";

// Version 10, standards mode by DOCTYPE: the newest mode with document.selection. The default is
// version 7, which supports little of CSS and counts in device pixels.
constexpr DWORD mode = 10000;

constexpr wchar_t controlKey[] = L"CLSID\\{8856F961-340A-11D0-A96B-00C04FD705A2}\\InProcServer32";

std::wstring ProgramName() {
    const std::wstring path = ProgramPath();
    return path.substr(path.find_last_of(L'\\') + 1);
}

} // namespace

// Wine has the control, but its engine is another one that is to be fetched from the net first.
bool IsEngineInstalled() {
    if (RunsUnderWine()) return false;
    wchar_t path[MAX_PATH] = {};
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return false;
    const std::wstring engine = std::wstring(path, length) + L"\\mshtml.dll";
    if (GetFileAttributesW(engine.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
    return RegGetValueW(HKEY_CLASSES_ROOT, controlKey, nullptr, RRF_RT_ANY, nullptr, nullptr,
                        nullptr) == ERROR_SUCCESS;
}

void LockDownEngine() {
    const auto setFeature =
        UrlmonFunction<decltype(&CoInternetSetFeatureEnabled)>("CoInternetSetFeatureEnabled");
    if (!setFeature) return;
    for (const INTERNETFEATURELIST feature :
         {FEATURE_LOCALMACHINE_LOCKDOWN, FEATURE_DISABLE_NAVIGATION_SOUNDS, FEATURE_ZONE_ELEVATION,
          FEATURE_WINDOW_RESTRICTIONS, FEATURE_RESTRICT_ACTIVEXINSTALL,
          FEATURE_RESTRICT_FILEDOWNLOAD, FEATURE_DISABLE_MK_PROTOCOL, FEATURE_BLOCK_INPUT_PROMPTS,
          FEATURE_SAFE_BINDTOOBJECT})
        setFeature(feature, SET_FEATURE_ON_PROCESS, TRUE); // an older engine may not know one
}

DocumentMode::DocumentMode() {
    const std::wstring program = ProgramName();
    if (program.empty()) return;
    const bool known = RegGetValueW(HKEY_CURRENT_USER, modeKey, program.c_str(), RRF_RT_ANY,
                                    nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    if (!known && RegSetKeyValueW(HKEY_CURRENT_USER, modeKey, program.c_str(), REG_DWORD, &mode,
                                  sizeof mode) == ERROR_SUCCESS)
        program_ = program;
}

DocumentMode::~DocumentMode() {
    if (!program_.empty()) RegDeleteKeyValueW(HKEY_CURRENT_USER, modeKey, program_.c_str());
}
