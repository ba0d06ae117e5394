#include "books/book_file.h"

#include "books/book_kind.h"
#include "common/text.h"
#include "formats/rtf/rtf_reader.h"

#include <algorithm>

namespace {
constexpr std::size_t examinedBytes = 512; // of the start, to recognise the kind

// A text of this size or less is read into memory: there nobody changes it while it is shown.
constexpr std::uint64_t maxInMemory = 8u << 20; // bytes

// Whether the path can be the key of a record and come back as itself.
bool IsStorablePath(const std::u16string& path) {
    // "?" stands for what could not be deciphered; "*" would come back as "="; the data file trims
    // blanks and ends a line at a control character.
    const bool badUnit = std::ranges::any_of(path, [](char16_t unit) {
        return unit == u'?' || unit == u'*' || unit < u' ' || unit == 0x7F || unit == 0xFFFD;
    });
    return !badUnit && !path.ends_with(u' ') && !path.starts_with(u' ');
}

std::uint64_t MaxSize(const std::u16string& path, std::string_view start,
                      std::uint64_t maxPlainText) {
    const BookKind kind = KindOfBook(path, start);
    const bool inMemory = kind == BookKind::RichText || kind == BookKind::Html;
    return inMemory ? maxBookSize : maxPlainText;
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

BookProblem ProblemOf(const std::u16string& path, ReadStatus status, std::uint64_t limit) {
    if (status == ReadStatus::Ok) return {};
    return {path + u"\r\n" + Reason(status, limit)};
}

std::string FirstBytes(const FileReader& file, std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(std::min(count, file.Size())), '\0');
    bytes.resize(file.ReadAt(0, bytes.data(), bytes.size()));
    return bytes;
}

BookContent InMemory(std::string bytes) {
    if (LooksLikeRtf(bytes)) return {{}, std::move(bytes), nullptr};
    return {{}, "", std::make_shared<BytesReader>(std::move(bytes))};
}

// A file that is not read into memory as it comes. `limit` becomes the one for its kind.
ReadStatus OpenLarge(const Files& files, const std::u16string& path, BookContent& content,
                     std::uint64_t& limit) {
    ReadStatus status = ReadStatus::Failed;
    std::shared_ptr<const FileReader> file = files.Open(path, status);
    if (!file) return status;
    const bool rich = LooksLikeRtf(FirstBytes(*file, examinedBytes));
    if (rich) limit = maxBookSize;
    if (file->Size() > limit) return ReadStatus::TooLarge;
    if (rich)
        content.richText = FirstBytes(*file, limit);
    else
        content.plainText = std::move(file);
    return ReadStatus::Ok;
}
} // namespace

BookProblem NoPageView(const std::u16string& path) {
    return {path + u"\r\nThis program has no view for HTML books."};
}

BookStart ExamineBookFile(const Files& files, const std::u16string& path,
                          std::uint64_t maxPlainText) {
    BookStart start;
    if (!IsStorablePath(path)) {
        start.problem.text = u"Undecipherable file name:\r\n" + path +
                             u"\r\nRename the file before opening in this application.";
        return start;
    }
    ReadStatus status = ReadStatus::NotFound;
    if (files.FileExists(path)) status = files.ReadStart(path, examinedBytes, start.bytes);
    const std::uint64_t limit = MaxSize(path, start.bytes, maxPlainText);
    if (status == ReadStatus::Ok) {
        const auto version = files.Version(path);
        if (version && version->size > limit) status = ReadStatus::TooLarge;
    }
    start.problem = ProblemOf(path, status, limit);
    return start;
}

BookContent ReadBookFile(const Files& files, const std::u16string& path,
                         std::uint64_t maxPlainText) {
    std::string bytes;
    ReadStatus status = files.Read(path, maxInMemory, bytes);
    if (status == ReadStatus::Ok) return InMemory(std::move(bytes));
    BookContent content;
    std::uint64_t limit = status == ReadStatus::TooLarge ? maxPlainText : maxBookSize;
    if (status == ReadStatus::TooLarge) status = OpenLarge(files, path, content, limit);
    content.problem = ProblemOf(path, status, limit);
    return content;
}
