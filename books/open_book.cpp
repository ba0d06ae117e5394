#include "books/open_book.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_kind.h"
#include "books/history_list.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "common/text.h"

namespace {
// A record for a book never opened before.
std::u16string NewRecord(const MainForm& form, const std::u16string& path, int kind) {
    BookRecord record;
    record[Field::Path] = PathToKey(path);
    const auto version = form.ports.files->Version(path);
    record[Field::Size] = NumberText(version ? static_cast<std::int64_t>(version->size) : 0);
    record[Field::Filter] = NumberText(kind);
    return record.ToText();
}
} // namespace

int AddBook(MainForm& form, const std::u16string& path, int kind) {
    const auto firstBytes = ExamineBookFile(form, path);
    if (!firstBytes) return -1;
    const int known = FindInHistory(form, path);
    if (known >= 0) return known;

    if (kind < 0) kind = KindOfBook(path, *firstBytes);
    SaveBookState(form, 0);
    const int added = AddHistoryItem(form, NewRecord(form, path, kind));
    SaveNewBookState(form, added);
    SetHistoryCaption(form, added);
    SyncRemoveMenu(form, added);
    return added;
}

void OpenBook(MainForm& form, const std::u16string& path, int kind) {
    const int index = AddBook(form, path, kind);
    if (index < 0) return;
    const FlagScope opening(form.OpeningBook);
    mFileList_Click(form, index);
}

std::u16string InitialFolder(const MainForm& form, std::u16string path,
                             const std::u16string& fallback) {
    const char16_t separator = form.ports.files->Separator();
    if (path.ends_with(separator)) path += u"-.-";
    const auto end = path.rfind(separator);
    std::u16string folder = end == std::u16string::npos ? u"" : path.substr(0, end);
    if (end == 0) folder = separator;
    if (folder.empty()) folder = fallback;
    const bool gone = !form.ports.files->FolderExists(folder);
    return gone ? form.ports.launch.rootFolder : folder;
}

void mFileOpen_Click(MainForm& form, int) {
    OpenFileRequest request;
    request.filter = bookFilter;
    request.initialFolder = InitialFolder(form, GetBookPath(form, 0), form.ports.launch.rootFolder);
    request.title = DialogTitle(form.menu.mFileOpen[0]);
    const OpenFileAnswer answer = form.ports.dialogs->OpenFile(request);
    if (answer.result != DialogResult::Ok) return;
    const auto patterns = static_cast<int>(GetFilterPatterns(bookFilter).size());
    OpenBook(form, answer.fileName, answer.filterIndex == patterns ? -1 : answer.filterIndex - 1);
}

void rtMain_FilesDropped(MainForm& form, const std::vector<std::u16string>& paths) {
    if (!paths.empty()) OpenBook(form, paths.front(), -1);
}
