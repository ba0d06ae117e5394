#include "shell/options.h"

#include "app/main_form.h"
#include "common/menu_items.h"
#include "common/text.h"

void SetEditorItem(MainForm& form, int index, const std::u16string& path) {
    MenuItem& item = form.menu.mOptionsEditor[index];
    item.tag = path;
    if (path.empty()) return SetMenuShortcutText(item, u"");
    std::u16string description = form.ports.versionInfo->FileDescription(path);
    if (description.empty()) {
        description = path.substr(path.rfind(form.ports.files->Separator()) + 1);
        for (char16_t& unit : description)
            if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
    }
    SetMenuShortcutText(item, u"[" + description + u"]");
}

void LoadEditors(MainForm& form) {
    for (int kind = 0; kind < form.menu.mOptionsEditor.Count(); ++kind) {
        const std::u16string fallback = kind == 0 ? form.ports.shell->DefaultTextEditor() : u"";
        const std::u16string key = u"mOptionsEditor-" + NumberText(kind);
        SetEditorItem(form, kind, IniReadString(*form.dataFile, u"fwMain", key, fallback));
    }
}

void LoadProfileOptions(MainForm& form) {
    const std::u16string& profile = form.menu.mUser[0].tag;
    const double titleMode = IniReadNumber(*form.dataFile, profile, u"mOptionsTitle", 1);
    CheckRadioItem(titleMode == 0 ? 0 : 1, form.menu.mOptionsTitle);
    const double fileColors = IniReadNumber(*form.dataFile, profile, u"mOptionsFileColor");
    form.menu.mOptionsFileColor[0].checked = fileColors == 1;
}
