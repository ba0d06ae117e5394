#include "books/housekeeping.h"

#include "app/main_form.h"
#include "books/history_list.h"
#include "common/text.h"

void mFileNonFound_Click(MainForm& form, int) {
    MenuArray& list = form.menu.mFileList;
    int kept = 0;
    for (int i = 0; i < HistoryCount(form); ++i) {
        if (!form.ports.files->FileExists(GetBookPath(form, i))) continue;
        list[kept].tag = std::u16string(list[i].tag);
        SetHistoryCaption(form, kept++);
    }
    if (kept == 0) list[0].tag = list[0].caption = u"";
    SyncRemoveMenu(form, kept - 1);
    SaveHistoryList(form);
}

void mFileRemoveList_Click(MainForm& form, int index) {
    MenuArray& list = form.menu.mFileList;
    const int count = HistoryCount(form);
    // Item 0 keeps its check mark, so the view goes on with the removed book, whose record stays in
    // the data file until the list is next written.
    const bool shownRemoved = index == 0 && IsBookShown(form);
    for (int i = index; i + 1 < count; ++i) {
        list[i].tag = list[i + 1].tag;
        SetHistoryCaption(form, i);
    }
    if (count <= 1) list[0].tag = list[0].caption = u"";
    SyncRemoveMenu(form, count - 2);
    if (!shownRemoved) SaveHistoryList(form);
}

void mFileEdit_Click(MainForm& form, int) {
    const auto kind = static_cast<std::size_t>(WholeNumber(form.menu.mFileEdit[0].tag));
    // By its true path: under the key's an editor would begin a new file.
    form.ports.shell->OpenWith(form.menu.mOptionsEditor[kind].tag, GetBookPath(form, 0));
}

void mFileExit_Click(MainForm& form, int) {
    form.ports.window->Close();
}
