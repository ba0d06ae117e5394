#include "books/book_file.h"

#include "app/main_form.h"

#include <algorithm>

void ShowBookMessage(MainForm& form, const std::u16string& text) {
    Message message;
    message.text = text;
    message.title = form.productTitle + u" Message";
    message.icon = MessageIcon::Exclamation;
    message.helpButton = true;
    message.helpTopic = "mFileOpen";
    form.ports.dialogs->ShowMessage(message);
}

bool IsStorablePath(const std::u16string& path) {
    // "?" stands for what could not be deciphered; "*" would come back as "="; the data file trims
    // blanks and ends a line at a control character.
    const bool badUnit = std::ranges::any_of(path, [](char16_t unit) {
        return unit == u'?' || unit == u'*' || unit < u' ' || unit == 0x7F || unit == 0xFFFD;
    });
    return !badUnit && !path.ends_with(u' ') && !path.starts_with(u' ');
}

namespace {
std::u16string Reason(ReadStatus status) {
    switch (status) {
    case ReadStatus::Ok: break;
    case ReadStatus::NotFound: return u"file not found.";
    case ReadStatus::NotAFile: return u"is not a file that can be read as a book.";
    case ReadStatus::Denied: return u"cannot be read: access is denied.";
    case ReadStatus::TooLarge: return u"is too large: a book may have up to 256 MB.";
    case ReadStatus::Failed: break;
    }
    return u"could not be read.";
}

void TellWhyNot(MainForm& form, const std::u16string& path, ReadStatus status) {
    ShowBookMessage(form, path + u"\r\n" + Reason(status));
}
} // namespace

std::optional<std::string> ExamineBookFile(MainForm& form, const std::u16string& path) {
    if (!IsStorablePath(path)) {
        ShowBookMessage(form, u"Undecipherable file name:\r\n" + path +
                                  u"\r\nRename the file before opening in this application.");
        return std::nullopt;
    }
    const Files& files = *form.ports.files;
    std::string start;
    ReadStatus status = ReadStatus::NotFound;
    if (files.FileExists(path)) status = files.ReadStart(path, 512, start);
    if (status == ReadStatus::Ok) {
        const auto version = files.Version(path);
        if (version && version->size > largestBook) status = ReadStatus::TooLarge;
    }
    if (status == ReadStatus::Ok) return start;
    TellWhyNot(form, path, status);
    return std::nullopt;
}

std::optional<std::string> ReadBookFile(MainForm& form, const std::u16string& path) {
    std::string bytes;
    const ReadStatus status = form.ports.files->Read(path, largestBook, bytes);
    if (status == ReadStatus::Ok) return bytes;
    TellWhyNot(form, path, status);
    return std::nullopt;
}
