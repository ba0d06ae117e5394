#include "books/book_file.h"

#include "books/book_kind.h"
#include "common/text.h"
#include "formats/foreign_format.h"
#include "formats/rtf/rtf_reader.h"

#include <algorithm>

namespace {
constexpr std::size_t examinedBytes = foreignFormatStart; // to recognise the kind

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

BookContent InMemory(std::string bytes) {
    if (LooksLikeRtf(bytes)) return {std::move(bytes), nullptr};
    return {"", std::make_shared<BytesReader>(std::move(bytes))};
}

// A file that is not read into memory as it comes. `limit` becomes the one for its kind.
ReadStatus OpenLarge(const Files& files, BookFile& book, std::uint64_t& limit) {
    ReadStatus status = ReadStatus::Failed;
    std::shared_ptr<const FileReader> file = files.Open(book.path, status);
    if (!file) return status;
    book.start = BytesAt(*file, 0, examinedBytes);
    limit = MaxSize(book.path, book.start, limit);
    if (file->Size() > limit) return ReadStatus::TooLarge;
    if (LooksLikeRtf(book.start))
        book.content = {BytesAt(*file, 0, limit), nullptr};
    else
        book.content = {"", std::move(file)};
    return ReadStatus::Ok;
}

ReadStatus ReadWhole(const Files& files, BookFile& book, std::uint64_t& limit) {
    std::string bytes;
    const ReadStatus status = files.Read(book.path, maxInMemory, bytes);
    if (status == ReadStatus::TooLarge) return OpenLarge(files, book, limit);
    if (status != ReadStatus::Ok) return status;
    book.start = bytes.substr(0, examinedBytes);
    book.content = InMemory(std::move(bytes));
    return status;
}

ReadStatus ReadStart(const Files& files, BookFile& book, std::uint64_t& limit) {
    const ReadStatus status = files.ReadStart(book.path, examinedBytes, book.start);
    limit = MaxSize(book.path, book.start, limit);
    const bool tooLarge = book.version && book.version->size > limit;
    return status == ReadStatus::Ok && tooLarge ? ReadStatus::TooLarge : status;
}

// A folder is no file, whatever reading it answers.
BookProblem ProblemOf(const Files& files, const std::u16string& path, ReadStatus status,
                      std::uint64_t limit) {
    if (status == ReadStatus::Ok) return {};
    if (status == ReadStatus::NotAFile && !files.FileExists(path)) status = ReadStatus::NotFound;
    return {path + u"\r\n" + Reason(status, limit)};
}
} // namespace

BookProblem NoPageView(const std::u16string& path) {
    return {path + u"\r\nThis program has no view for HTML books."};
}

BookFile OpenBookFile(const Files& files, const std::u16string& path, std::uint64_t maxPlainText,
                      BookKind kind) {
    BookFile book;
    book.path = path;
    if (!IsStorablePath(path)) {
        book.problem.text = u"Undecipherable file name:\r\n" + path +
                            u"\r\nRename the file before opening in this application.";
        return book;
    }
    book.version = files.Version(path);
    std::uint64_t limit = maxPlainText;
    const ReadStatus status =
        kind == BookKind::Html ? ReadStart(files, book, limit) : ReadWhole(files, book, limit);
    book.problem = ProblemOf(files, path, status, limit);
    return book;
}

void ReadContent(const Files& files, std::uint64_t maxPlainText, BookFile& book) {
    if (book.problem || book.content) return;
    book = ReadBookFile(files, book.path, maxPlainText);
}

BookFile ReadBookFile(const Files& files, const std::u16string& path, std::uint64_t maxPlainText) {
    return OpenBookFile(files, path, maxPlainText, BookKind::Other);
}
