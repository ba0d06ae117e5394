#include "shell/options.h"

#include "common/menu_items.h"
#include "common/paths.h"
#include "common/text.h"

#include <array>

namespace {
constexpr std::u16string_view editorSection = u"fwMain"; // of all profiles
constexpr std::u16string_view titleKey = u"mOptionsTitle", fileColorKey = u"mOptionsFileColor",
                              columnKey = u"mViewColumn";
constexpr std::array<std::u16string_view, 3> endings = {u".txt", u".rtf", u".htm"}; // by kind

std::u16string EditorKey(int kind) {
    return u"mOptionsEditor-" + NumberText(kind);
}

std::u16string FileName(const std::u16string& path, char16_t separator) {
    std::u16string name(FileNameOf(path, separator));
    for (char16_t& unit : name)
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
    return name;
}
} // namespace

void SetEditorItem(MenuArray& editors, int kind, const std::u16string& path,
                   const VersionInfo& versionInfo, char16_t separator) {
    MenuItem& item = editors[kind];
    item.tag = path;
    if (path.empty()) return SetMenuShortcutText(item, u"");
    std::u16string description = versionInfo.FileDescription(path, endings[std::size_t(kind)]);
    if (description.empty()) description = FileName(path, separator);
    SetMenuShortcutText(item, u"[" + description + u"]");
}

void LoadEditors(MenuArray& editors, IniFile& file, const std::u16string& fallback,
                 const VersionInfo& versionInfo, char16_t separator) {
    for (int kind = 0; kind < editors.Count(); ++kind) {
        const auto path =
            IniReadString(file, editorSection, EditorKey(kind), kind == 0 ? fallback : u"");
        SetEditorItem(editors, kind, path, versionInfo, separator);
    }
}

void SaveEditor(IniFile& file, int kind, const std::u16string& path) {
    IniWriteString(file, editorSection, EditorKey(kind), path);
}

void LoadProfileOptions(MenuArray& title, MenuItem& fileColor, IniFile& file,
                        const std::u16string& profile) {
    CheckRadioItem(IniReadNumber(file, profile, titleKey, 1) == 0 ? 0 : 1, title);
    fileColor.checked = IniReadNumber(file, profile, fileColorKey) == 1;
}

void SaveTitleOption(IniFile& file, const std::u16string& profile, int index) {
    IniWriteNumber(file, profile, titleKey, index);
}

void SaveFileColorOption(IniFile& file, const std::u16string& profile, bool on) {
    IniWriteNumber(file, profile, fileColorKey, on ? 1 : 0);
}

bool LoadColumnOption(IniFile& file, const std::u16string& profile) {
    return IniReadNumber(file, profile, columnKey, 1) != 0;
}

void SaveColumnOption(IniFile& file, const std::u16string& profile, bool on) {
    IniWriteNumber(file, profile, columnKey, on ? 1 : 0);
}
