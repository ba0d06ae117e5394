#include "app/moved_books.h"

#include "app/book_state.h"
#include "app/file_fingerprints.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "books/book_file.h"
#include "books/book_script.h"
#include "books/moved_books.h"
#include "common/paths.h"
#include "common/text.h"

namespace {
PlacesOf ViewOf(const BookRecord& record) {
    return record.Kind() == BookKind::Html ? PlacesOf::Page : PlacesOf::Text;
}

bool IsSameBook(MainForm& form, int index, FileFingerprints& file) {
    constexpr TextPos tooShort = 16; // units: anything may have such a text
    const BookRecord record = form.history.Record(index);
    const BookSettings settings = SettingsOf(form, record);
    const KeptPlaces kept = LoadKeptText(settings, ViewOf(record));
    if (!kept.text || kept.text->length < tooShort) return false;
    ChosenCharset chosen;
    if (ViewOf(record) == PlacesOf::Text)
        chosen = CharsetChosenFor(settings, record, form.ports.locale->AnsiCodePage());
    return file.Of(chosen) == kept.text;
}

// Whether its file may have gone, as far as that is known or worth a look: one that was there when
// the list was shown may have been moved since, and then has the same size.
bool MayBeGone(const MainForm& form, int index, std::uint64_t size) {
    const std::u16string listed = GetBookPath(form.history, index);
    const BookRecord record = form.history.Record(index);
    const bool wasThere = form.menu.mFileList[index].enabled;
    if (wasThere && (IsNetworkPath(listed) ||
                     record[Field::Size] != NumberText(static_cast<std::int64_t>(size))))
        return false;
    return !form.ports.files->FileExists(listed);
}

// Index 0 may be the book in the view, whose file has been moved: it is shown again.
void ApplyMove(MainForm& form, int index, const std::u16string& path) {
    IniBatch oneWrite(*form.dataFile);
    if (index == 0 && IsShownBookListed(form)) {
        SaveBookState(form, 0);
        ForgetShownBook(form);
    }
    MoveBook(form.history, *form.dataFile, CurrentProfile(form), index, path);
    SaveHistoryList(form);
    oneWrite.Commit();
}
} // namespace

int TakeOverMovedBook(MainForm& form, BookFile& file) {
    FileFingerprints text(form, file);
    int found = -1;
    for (int i = 0; file.version && i < form.history.Count(); ++i) {
        if (!MayBeGone(form, i, file.version->size) || !IsSameBook(form, i, text)) continue;
        if (found >= 0) return -1; // two of them: nobody knows which
        found = i;
    }
    if (found < 0) return -1;
    const std::u16string from(FolderOf(GetBookPath(form.history, found)));
    ApplyMove(form, found, file.path);
    const std::u16string_view to = FolderOf(file.path);
    if (from != to) form.moved = MovedFolder{MoveOf(from, to), 0};
    return found;
}

namespace {
// Of the same size and time, as a moved file is, or the same text.
bool IsTheMoved(MainForm& form, int index, const std::u16string& path) {
    const BookRecord record = form.history.Record(index);
    const auto version = form.ports.files->Version(path);
    const KeptPlaces kept = LoadKeptText(SettingsOf(form, record), ViewOf(record));
    if (version && kept.text && kept.IsOf(*version)) return true;
    BookFile file;
    file.path = path;
    FileFingerprints text(form, file);
    return IsSameBook(form, index, text);
}

// Whether a look at the disk was needed.
bool LookFor(MainForm& form, int index, const FolderMove& move) {
    const Files& files = *form.ports.files;
    const std::u16string path = GetBookPath(form.history, index);
    if (form.menu.mFileList[index].enabled || IsNetworkPath(path)) return false;
    const std::u16string now = PathAfter(move, path);
    if (now.empty() || IsNetworkPath(now)) return false;
    const bool found = files.FileExists(now) && !files.FileExists(path) &&
                       FindInHistory(form.history, now) < 0 && IsTheMoved(form, index, now);
    if (found) ApplyMove(form, index, now);
    return true;
}
} // namespace

void LookForMovedBooks(MainForm& form, int maxBooks) {
    if (!form.moved) return;
    while (form.moved->next < form.history.Count() && maxBooks > 0)
        if (LookFor(form, form.moved->next++, form.moved->folder)) --maxBooks;
    if (form.moved->next >= form.history.Count()) form.moved.reset();
}
