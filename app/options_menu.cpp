#include "app/options_menu.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "books/book_kind.h"
#include "common/menu_items.h"
#include "shell/initial_folder.h"
#include "shell/options.h"

void mOptionsTitle_Click(MainForm& form, int index) {
    CheckRadioItem(index, form.menu.mOptionsTitle);
    UpdateWindowTitle(form);
    SaveTitleOption(*form.dataFile, CurrentProfile(form), index);
}

void mOptionsFileColor_Click(MainForm& form, int) {
    MenuItem& option = form.menu.mOptionsFileColor[0];
    option.checked = !option.checked;
    if (!option.checked) {
        ApplyTextColor(*form.ports.textView, form.format.textColor, false, Scrolling::Restore);
    } else if (IsBookShown(form)) {
        SaveBookState(form, 0);
        ShowBook(form, 0); // with its own colours
    }
    SaveFileColorOption(*form.dataFile, CurrentProfile(form), option.checked);
}

void mOptionsEditor_Click(MainForm& form, int index) {
    const Ports& ports = form.ports;
    const std::u16string& programs = ports.launch.programsFolder;
    const bool programsHaveEnding = MatchesPattern(ports.shell->DefaultTextEditor(), u"*.exe");
    MenuArray& editors = form.menu.mOptionsEditor;
    const MenuItem& item = editors[index];
    OpenFileRequest request;
    request.title = DialogTitle(item);
    request.filter = u"Programs (*.exe)|*.exe|All Files (*.*)|*.*";
    request.filterIndex = programsHaveEnding ? 1 : 2;
    request.initialFolder = InitialFolder(*ports.files, item.tag, programs, programs);
    request.fileName = item.tag;
    const OpenFileAnswer answer = ports.dialogs->OpenFile(request);
    if (answer.result != DialogResult::Ok) return;
    SetEditorItem(editors, index, answer.fileName, *ports.versionInfo, ports.files->Separator());
    SaveEditor(*form.dataFile, index, answer.fileName);
}

void LoadAllEditors(MainForm& form) {
    const Ports& ports = form.ports;
    LoadEditors(form.menu.mOptionsEditor, *form.dataFile, ports.shell->DefaultTextEditor(),
                *ports.versionInfo, ports.files->Separator());
}
