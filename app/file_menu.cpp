#include "app/file_menu.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/moved_books.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "shell/initial_folder.h"

#include <algorithm>

void mFile_Click(MainForm& form, int) {
    constexpr int looksBeforeOpening = 50; // at the disk: nobody notices them
    LookForMovedBooks(form, looksBeforeOpening);
    MenuTree& menu = form.menu;
    const auto missing = std::ranges::count_if(menu.mFileList.items,
                                               [](const MenuItem& book) { return !book.enabled; });
    menu.mFileNonFound[0].enabled = form.history.Count() > 0 && missing > 0;

    const int kind = WholeNumber(menu.mFileEdit[0].tag);
    const Files& files = *form.ports.files;
    menu.mFileEdit[0].enabled = IsBookShown(form) &&
                                InRange(kind, 0, menu.mOptionsEditor.Count() - 1, true) &&
                                files.FileExists(menu.mOptionsEditor[kind].tag) &&
                                files.FileExists(GetBookPath(form.history, 0));
}

namespace {
// The dialog's type for the shown book, from 1; the first one when there is none.
int FirstType(const MainForm& form) {
    if (!IsBookShown(form)) return 1;
    return std::clamp(WholeNumber(form.menu.mFileEdit[0].tag), 0,
                      static_cast<int>(BookKind::Other)) +
           1;
}

// The type that the dialog began with does not say of a book of the list that it is of another
// kind: its reader may not have looked at it.
RequestedKind ChosenKind(const MainForm& form, const OpenFileAnswer& answer, int firstType) {
    const bool untouched = answer.filterIndex == firstType &&
                           KindOfName(answer.fileName) == BookKind::Other &&
                           FindInHistory(form.history, answer.fileName) >= 0;
    return untouched ? std::nullopt : KindOfChoice(answer.fileName, answer.filterIndex);
}
} // namespace

void mFileOpen_Click(MainForm& form, int) {
    const std::u16string& root = form.ports.launch.rootFolder;
    OpenFileRequest request;
    request.filter = bookFilter;
    request.listed = ListedPatterns();
    request.filterIndex = FirstType(form);
    request.initialFolder =
        InitialFolder(*form.ports.files, GetBookPath(form.history, 0), root, root);
    request.title = DialogTitle(form.menu.mFileOpen[0]);
    const OpenFileAnswer answer = form.ports.dialogs->OpenFile(request);
    if (answer.result != DialogResult::Ok) return;
    OpenBook(form, answer.fileName, ChosenKind(form, answer, request.filterIndex));
}

void mFileEdit_Click(MainForm& form, int) {
    const int kind = WholeNumber(form.menu.mFileEdit[0].tag);
    // The real path: the record's key may not exist on disk, and an editor would create it.
    form.ports.shell->OpenWith(form.menu.mOptionsEditor[kind].tag, GetBookPath(form.history, 0));
}

void mFileNonFound_Click(MainForm& form, int) {
    RemoveMissingBooks(form.history);
    SaveHistoryList(form);
}

void mFileRemoveList_Click(MainForm& form, int index) {
    // Item 0 keeps its check mark, so the view continues with the removed book, whose record stays
    // in the data file until the list is next written.
    const bool shownRemoved = index == 0 && IsBookShown(form);
    RemoveHistoryItem(form.history, index);
    if (!shownRemoved) SaveHistoryList(form);
}

void mFileList_Click(MainForm& form, int index) {
    if (index != 0 || !IsBookShown(form)) ShowBook(form, index);
}

void mFileExit_Click(MainForm& form, int) {
    form.ports.window->Close();
}
