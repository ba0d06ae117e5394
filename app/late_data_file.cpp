#include "app/late_data_file.h"

#include "app/data_file.h"
#include "app/main_form.h"
#include "app/profiles.h"
#include "books/book_record.h"
#include "books/history_list.h"
#include "books/save_state.h"
#include "common/text.h"
#include "shell/options.h"

#include <algorithm>

namespace {

std::vector<std::u16string> Records(const MainForm& form) {
    std::vector<std::u16string> records;
    for (int i = 0; i < HistoryCount(form); ++i)
        records.push_back(form.menu.mFileList[i].tag);
    return records;
}

int StartOfMark(const std::u16string& mark) {
    return WholeNumber(std::u16string_view(mark).substr(0, mark.find(u',')));
}

} // namespace

std::u16string JoinedMarks(const std::u16string& stored, const std::u16string& added) {
    std::vector<std::u16string> marks = Split(stored, u"|");
    std::erase(marks, u"");
    for (const std::u16string& mark : Split(added, u"|")) {
        const bool known = std::ranges::any_of(marks, [&](const std::u16string& other) {
            return StartOfMark(other) == StartOfMark(mark);
        });
        if (!mark.empty() && !known) marks.push_back(mark);
    }
    std::ranges::stable_sort(marks, {}, StartOfMark);
    return Join(marks, u"|");
}

void TakeUpLateDataFile(MainForm& form) {
    if (!form.dataFile->IsUnread()) return;
    SaveBookState(form, 0); // into the record only, as nothing is written yet
    form.dataFile->TryRead();
    if (form.dataFile->IsUnread()) return;
    const auto openedMeanwhile = Records(form);
    const std::u16string shown = IsBookShown(form) ? form.shownPath : u"";
    IniBatch oneWrite(*form.dataFile);
    WriteScheme(*form.dataFile);
    LoadEditors(form);
    LoadProfileList(form);
    EnterProfile(form, openedMeanwhile, shown);
    oneWrite.Commit();
}
