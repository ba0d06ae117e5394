#include "books/book_file.h"

#include "app/main_form.h"
#include "books/book_kind.h"
#include "common/direction_controls.h"
#include "common/text.h"
#include "formats/rtf_reader.h"

#include <algorithm>

Message BookMessage(const MainForm& form, const std::u16string& text, const char* topic) {
    Message message;
    message.text = WithoutDirectionControls(text); // it may name a file
    message.title = form.productTitle + u" Message";
    message.icon = MessageIcon::Exclamation;
    message.helpButton = true;
    message.helpTopic = topic;
    return message;
}

void ShowBookMessage(MainForm& form, const std::u16string& text, const char* topic) {
    ShowMessageOverWindow(form, BookMessage(form, text, topic));
}

void TellOfNoHtmlView(MainForm& form, const std::u16string& path) {
    ShowBookMessage(form, path + u"\r\nThis program has no view for HTML books.");
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

std::uint64_t MaxBookSize(const MainForm& form, const std::u16string& path,
                          std::string_view start) {
    const int kind = KindOfBook(path, start);
    const bool inMemory = kind == RichTextBook || kind == HtmlBook;
    return inMemory ? maxBookSize : form.ports.textView->MaxTextSize();
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
                std::uint64_t limit = maxBookSize) {
    ShowBookMessage(form, path + u"\r\n" + Reason(status, limit));
}

std::string FirstBytes(const FileReader& file, std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(std::min(count, file.Size())), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return bytes;
}

BookContent InMemory(std::string bytes) {
    if (LooksLikeRtf(bytes)) return {std::move(bytes), nullptr};
    return {"", std::make_shared<BytesReader>(std::move(bytes))};
}

// A file that is not taken into memory as it comes.
ReadStatus OpenLarge(const MainForm& form, const std::u16string& path, BookContent& content,
                     std::uint64_t& limit) {
    ReadStatus status = ReadStatus::Failed;
    std::shared_ptr<const FileReader> file = form.ports.files->Open(path, status);
    if (!file) return status;
    const bool rich = LooksLikeRtf(FirstBytes(*file, examinedBytes));
    limit = rich ? maxBookSize : form.ports.textView->MaxTextSize();
    if (file->Size() > limit) return ReadStatus::TooLarge;
    if (rich)
        content.richText = FirstBytes(*file, limit);
    else
        content.plainText = std::move(file);
    return ReadStatus::Ok;
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
    const std::uint64_t limit = MaxBookSize(form, path, start);
    if (status == ReadStatus::Ok) {
        const auto version = files.Version(path);
        if (version && version->size > limit) status = ReadStatus::TooLarge;
    }
    if (status == ReadStatus::Ok) return start;
    TellWhyNot(form, path, status, limit);
    return std::nullopt;
}

std::optional<BookContent> ReadBookFile(MainForm& form, const std::u16string& path) {
    std::string bytes;
    ReadStatus status = form.ports.files->Read(path, steadySize, bytes);
    if (status == ReadStatus::Ok) return InMemory(std::move(bytes));
    BookContent content;
    std::uint64_t limit = maxBookSize;
    if (status == ReadStatus::TooLarge) status = OpenLarge(form, path, content, limit);
    if (status == ReadStatus::Ok) return content;
    TellWhyNot(form, path, status, limit);
    return std::nullopt;
}
