#include "books/open_book.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_kind.h"
#include "books/change_kind.h"
#include "books/history_list.h"
#include "books/html_book.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/zoom.h"

#include <algorithm>

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

// Whether the listed book can be shown as it is asked for.
bool PutKindRight(MainForm& form, int index, int asked, std::string_view firstBytes) {
    const BookRecord record = BookRecord::Parse(form.menu.mFileList[index].tag);
    const int listed = record.Number(Field::Filter);
    const int kind = KindOfListedBook(listed, asked, record.Path(), firstBytes);
    if (kind == listed) return true;
    if (kind == HtmlBook && !CanShowPages(form)) {
        if (asked == KindFromFile) return true; // it can still be read as it was
        TellOfNoHtmlView(form, record.Path());
        return false;
    }
    ChangeKind(form, index, kind);
    return true;
}
} // namespace

int AddBook(MainForm& form, const std::u16string& path, int kind) {
    const auto firstBytes = ExamineBookFile(form, path);
    if (!firstBytes) return -1;
    const int known = FindInHistory(form, path);
    if (!SettleZoom(form)) return -1;
    if (known >= 0) return PutKindRight(form, known, kind, *firstBytes) ? known : -1;

    if (kind == KindFromFile) kind = KindOfBook(path, *firstBytes);
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

namespace {
// The type of the shown book; the first one when there is none.
int TypeToBeginWith(const MainForm& form) {
    if (!IsBookShown(form)) return TextBook + 1;
    return std::clamp<int>(WholeNumber(form.menu.mFileEdit[0].tag), TextBook, OtherBook) + 1;
}

// The type that the dialog began with does not say of a book of the list that it is of another
// kind: its reader may not have looked at it.
bool SaysNothing(const MainForm& form, const OpenFileAnswer& answer, int firstType) {
    return answer.filterIndex == firstType && KindOfName(answer.fileName) == OtherBook &&
           FindInHistory(form, answer.fileName) >= 0;
}
} // namespace

void mFileOpen_Click(MainForm& form, int) {
    OpenFileRequest request;
    request.filter = bookFilter;
    request.listed = ListedPatterns();
    request.filterIndex = TypeToBeginWith(form);
    request.initialFolder = InitialFolder(form, GetBookPath(form, 0), form.ports.launch.rootFolder);
    request.title = DialogTitle(form.menu.mFileOpen[0]);
    const OpenFileAnswer answer = form.ports.dialogs->OpenFile(request);
    if (answer.result != DialogResult::Ok) return;
    const bool saysNothing = SaysNothing(form, answer, request.filterIndex);
    OpenBook(form, answer.fileName,
             saysNothing ? KindFromFile : KindOfChoice(answer.fileName, answer.filterIndex));
}

void rtMain_FilesDropped(MainForm& form, const std::vector<std::u16string>& paths) {
    if (!paths.empty()) OpenBook(form, paths.front(), KindFromFile);
}
