#include "app/data_trouble.h"

#include "app/main_form.h"
#include "books/book_file.h"

#include <utility>

namespace {

constexpr const char* helpTopic = "trouble";

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

bool* ToldFlag(ToldTrouble& told, IniTrouble trouble) {
    switch (trouble) {
    case IniTrouble::None: break;
    case IniTrouble::Unread: return &told.unread;
    case IniTrouble::NotRead: return &told.notRead;
    case IniTrouble::NotWritten: return &told.notWritten;
    }
    return nullptr;
}

} // namespace

void TellDataFileTrouble(MainForm& form, IniTrouble trouble) {
    bool* const told = ToldFlag(form.toldTrouble, trouble);
    if (!told || std::exchange(*told, true)) return;
    ShowBookMessage(form, TextOf(form, trouble), helpTopic);
}

void WatchDataFile(MainForm& form) {
    constexpr int patience = 3; // seconds
    int& failed = form.toldTrouble.failedWrites;
    if (form.dataFile->Trouble() == IniTrouble::None) failed = 0;
    if (form.dataFile->Trouble() == IniTrouble::None || failed >= patience) return;
    if (form.dataFile->Flush()) return;
    if (++failed == patience) TellDataFileTrouble(form, form.dataFile->Trouble());
}

void TellOtherUsersDataFile(MainForm& form, const std::u16string& path) {
    if (std::exchange(form.toldTrouble.otherUsers, true)) return;
    ShowBookMessage(form,
                    path + u"\r\nbelongs to another user. Your books and settings are kept in\r\n" +
                        form.DataFilePath,
                    helpTopic);
}
