#include "books/book_file.h"

#include "app/main_form.h"
#include "books/book_kind.h"
#include "common/text.h"
#include "formats/rtf_reader.h"

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
constexpr std::size_t examinedBytes = 512; // of the start, to tell the kind

// A text of this size or less is taken into memory: there nobody changes it while it is read.
constexpr std::uint64_t steadySize = 8u << 20; // bytes

std::uint64_t LargestBook(const MainForm& form, const std::u16string& path,
                          std::string_view start) {
    const int kind = KindOfBook(path, start);
    const bool inMemory = kind == RichTextBook || kind == HtmlBook;
    return inMemory ? largestBook : form.ports.textView->LargestText();
}

std::u16string Reason(ReadStatus status, std::uint64_t limit) {
    switch (status) {
    case ReadStatus::Ok: break;
    case ReadStatus::NotFound: return u"file not found.";
    case ReadStatus::NotAFile: return u"is not a file that can be read as a book.";
    case ReadStatus::Denied: return u"cannot be read: access is denied.";
    case ReadStatus::TooLarge:
        return u"is too large: a book may have up to " +
               NumberText(static_cast<std::int64_t>(limit >> 20)) + u" MB.";
    case ReadStatus::Failed: break;
    }
    return u"could not be read.";
}

void TellWhyNot(MainForm& form, const std::u16string& path, ReadStatus status,
                std::uint64_t limit = largestBook) {
    ShowBookMessage(form, path + u"\r\n" + Reason(status, limit));
}

std::string FirstBytes(const FileReader& file, std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(std::min(count, file.Size())), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return bytes;
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
    if (files.FileExists(path)) status = files.ReadStart(path, examinedBytes, start);
    const std::uint64_t limit = LargestBook(form, path, start);
    if (status == ReadStatus::Ok) {
        const auto version = files.Version(path);
        if (version && version->size > limit) status = ReadStatus::TooLarge;
    }
    if (status == ReadStatus::Ok) return start;
    TellWhyNot(form, path, status, limit);
    return std::nullopt;
}

std::optional<BookContent> ReadBookFile(MainForm& form, const std::u16string& path) {
    ReadStatus status = ReadStatus::Failed;
    std::shared_ptr<const FileReader> file = form.ports.files->Open(path, status);
    const std::string start = file ? FirstBytes(*file, examinedBytes) : std::string();
    if (file && start.empty() && file->Size() > 0) status = ReadStatus::Failed;
    const bool rich = LooksLikeRtf(start);
    const std::uint64_t limit = rich ? largestBook : form.ports.textView->LargestText();
    if (status == ReadStatus::Ok && file->Size() > limit) status = ReadStatus::TooLarge;
    if (status != ReadStatus::Ok) {
        TellWhyNot(form, path, status, limit);
        return std::nullopt;
    }
    if (rich) return BookContent{FirstBytes(*file, limit), nullptr};
    if (file->Size() <= steadySize)
        file = std::make_shared<BytesReader>(FirstBytes(*file, steadySize));
    return BookContent{"", std::move(file)};
}
