#include "app/data_file.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/options_menu.h"
#include "app/profiles.h"
#include "app/shown_book.h"
#include "datafile/scheme.h"
#include "formats/codepages/code_pages.h"

namespace {
constexpr const char* helpTopic = "trouble";
constexpr int attempts = 10, betweenAttempts = 100; // milliseconds; together a second

std::u16string DecodePage(int codePage, std::string_view bytes) {
    std::u16string text;
    DecodeCodePage(codePage, bytes, text);
    return text;
}

std::u16string TextOf(const MainForm& form, IniTrouble trouble) {
    const std::u16string& path = form.DataFilePath;
    switch (trouble) {
    case IniTrouble::None: break;
    case IniTrouble::Unread:
        return path + u"\r\ncannot be read, so your books and settings are not shown. Nothing is "
                      u"written over it. As soon as it can be read they come back.";
    case IniTrouble::NotRead:
        return path +
               u"\r\ncan no longer be read. Nothing is written over it. What changes from now "
               u"on is saved when it can be read again.";
    case IniTrouble::NotWritten:
        return path + u"\r\ncannot be written: the place in your book and your settings are not "
                      u"saved. They will be when it can be written again.";
    }
    return u"";
}
} // namespace

std::unique_ptr<IniFile> OpenDataFile(MainForm& form) {
    return std::make_unique<IniFile>(*form.ports.files, form.DataFilePath,
                                     form.ports.locale->AnsiCodePage(), DecodePage);
}

void ReadDataFile(MainForm& form) {
    IniFile& file = *form.dataFile;
    for (int i = 1; i < attempts && file.IsUnread(); ++i) {
        form.ports.clock->Wait(betweenAttempts);
        if (file.TryRead() == ReadStatus::NotAFile) return; // no wait makes one of it
    }
}

void RetryWritingDataFile(MainForm& form) {
    for (int i = 1; i < attempts && !form.dataFile->Flush(); ++i)
        form.ports.clock->Wait(betweenAttempts);
    if (!form.dataFile->Flush()) ReportTrouble(form, form.dataFile->Trouble());
}

void ReportStartTrouble(MainForm& form, const std::u16string& otherUsersFile) {
    if (!otherUsersFile.empty())
        ShowBookMessage(
            form.messages,
            otherUsersFile +
                u"\r\nbelongs to another user. Your books and settings are kept in\r\n" +
                form.DataFilePath,
            helpTopic);
    const IniTrouble trouble = form.dataFile->Trouble();
    const bool unwritable =
        trouble == IniTrouble::None && !form.ports.files->MayReplace(form.DataFilePath);
    ReportTrouble(form, unwritable ? IniTrouble::NotWritten : trouble);
}

void ReportTrouble(MainForm& form, IniTrouble trouble) {
    if (trouble == IniTrouble::None || !form.reportedTrouble.reported.insert(trouble).second)
        return;
    ShowBookMessage(form.messages, TextOf(form, trouble), helpTopic);
}

void WatchDataFile(MainForm& form) {
    constexpr int secondsToReport = 3;
    int& failed = form.reportedTrouble.failedWrites;
    if (form.dataFile->Trouble() == IniTrouble::None) failed = 0;
    if (form.dataFile->Trouble() == IniTrouble::None || failed >= secondsToReport) return;
    if (form.dataFile->Flush()) return;
    if (++failed == secondsToReport) ReportTrouble(form, form.dataFile->Trouble());
}

void AdoptLateDataFile(MainForm& form) {
    if (!form.dataFile->IsUnread()) return;
    SaveBookState(form, 0); // into the record only, as nothing is written yet
    form.dataFile->TryRead();
    if (form.dataFile->IsUnread()) return;
    std::vector<std::u16string> openedMeanwhile;
    openedMeanwhile.reserve(static_cast<std::size_t>(form.history.Count()));
    for (int i = 0; i < form.history.Count(); ++i)
        openedMeanwhile.push_back(form.menu.mFileList[i].tag);
    const std::u16string shown = IsBookShown(form) ? form.book.path : u"";
    IniBatch oneWrite(*form.dataFile);
    WriteScheme(*form.dataFile);
    LoadAllEditors(form);
    LoadProfileList(form);
    EnterProfile(form, openedMeanwhile, shown);
    oneWrite.Commit();
}
