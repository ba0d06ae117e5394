#include "app/carried_data_file.h"

#include "app/main_form.h"
#include "app/shown_book.h"
#include "books/moved_books.h"
#include "common/paths.h"

namespace {
constexpr std::u16string_view dataFileKey = u"DataFile"; // of a profile: where that was
} // namespace

void KeepPlaceOfDataFile(MainForm& form) {
    IniWriteString(*form.dataFile, CurrentProfile(form), dataFileKey, form.DataFilePath);
}

bool FollowCarriedDataFile(MainForm& form) {
    IniFile& file = *form.dataFile;
    const std::u16string before = IniReadString(file, CurrentProfile(form), dataFileKey);
    if (before == form.DataFilePath) return false;
    IniBatch oneWrite(file);
    const FolderMove move = MoveOf(FolderOf(before), FolderOf(form.DataFilePath));
    bool changed = false;
    for (int i = 0; !before.empty() && i < form.history.Count(); ++i) {
        if (form.menu.mFileList[i].enabled) continue;
        const std::u16string now = PathAfter(move, GetBookPath(form.history, i));
        const bool found = !now.empty() && form.ports.files->FileExists(now) &&
                           FindInHistory(form.history, now) < 0;
        if (found) MoveBook(form.history, file, CurrentProfile(form), i, now);
        changed = changed || found;
    }
    if (changed) SaveHistoryList(form.history, file, CurrentProfile(form));
    if (!before.empty()) KeepPlaceOfDataFile(form);
    oneWrite.Commit();
    return changed;
}
