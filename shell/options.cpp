#include "shell/options.h"

#include "app/main_form.h"
#include "books/book_kind.h"
#include "books/history_list.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/formatting.h"
#include "shell/window_title.h"

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

void mOptionsTitle_Click(MainForm& form, int index) {
    CheckRadioItem(index, form.menu.mOptionsTitle);
    UpdateWindowTitle(form);
    IniWriteNumber(*form.dataFile, form.menu.mUser[0].tag, u"mOptionsTitle", index);
}

void mOptionsFileColor_Click(MainForm& form, int) {
    MenuItem& option = form.menu.mOptionsFileColor[0];
    MenuItem& shown = form.menu.mFileList[0];
    option.checked = !option.checked;
    if (!option.checked) {
        ApplyTextColor(form, form.textColor, false);
    } else if (IsBookShown(form)) {
        SaveBookState(form, 0);
        shown.checked = false; // so that the click loads it again, with its own colours
        mFileList_Click(form, 0);
        shown.checked = true;
    }
    IniWriteNumber(*form.dataFile, form.menu.mUser[0].tag, u"mOptionsFileColor",
                   option.checked ? 1 : 0);
}

void mOptionsEditor_Click(MainForm& form, int index) {
    const std::u16string& root = form.ports.launch.rootFolder;
    const bool programsHaveEnding = MatchesPattern(form.ports.shell->DefaultTextEditor(), u"*.exe");
    MenuItem& item = form.menu.mOptionsEditor[index];
    OpenFileRequest request;
    request.title = DialogTitle(item);
    request.filter = u"Programs (*.exe)|*.exe|All Files (*.*)|*.*";
    request.filterIndex = programsHaveEnding ? 1 : 2;
    request.initialFolder = InitialFolder(form, item.tag, root);
    request.fileName = item.tag;
    const OpenFileAnswer answer = form.ports.dialogs->OpenFile(request);
    if (answer.result != DialogResult::Ok) return;
    SetEditorItem(form, index, answer.fileName);
    IniWriteString(*form.dataFile, u"fwMain", u"mOptionsEditor-" + NumberText(index),
                   answer.fileName);
}
