#include "app/changed_book.h"

#include "app/main_form.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "books/book_file.h"
#include "books/moved_books.h"
#include "common/text.h"
#include "formats/plain/plain_text_guess.h"
#include "formats/rtf/rtf_reader.h"

#include <algorithm>

namespace {
bool SameContent(const FileVersion& a, const FileVersion& b) {
    return a.size == b.size && a.lastWrite == b.lastWrite;
}

// As the tag of View > Refresh keeps it: of a change that was seen and not shown yet.
std::u16string VersionText(const FileVersion& version) {
    return NumberText(static_cast<std::int64_t>(version.size)) + u',' +
           NumberText(version.lastWrite);
}

std::string LastBytes(const FileReader& file) {
    constexpr std::uint64_t count = 16;
    const std::uint64_t size = file.Size();
    std::string bytes(static_cast<std::size_t>(std::min(count, size)), '\0');
    bytes.resize(file.ReadAt(size - bytes.size(), bytes.data(), bytes.size()));
    return bytes;
}

// Behind the last character that is whole; nothing of a sequence alone.
std::string_view LastSequence(std::string_view bytes) {
    std::size_t start = bytes.size();
    while (start > 0 && (static_cast<unsigned char>(bytes[start - 1]) & 0xC0) == 0x80)
        --start;
    return bytes.substr(start == 0 ? 0 : start - 1);
}

// Rich text ends with a brace; a text in UTF-8 not within a character.
bool LooksHalfWritten(const MainForm& form, const FileVersion& version) {
    if (version.size == 0) return true;
    ReadStatus status = ReadStatus::Failed;
    const auto file = form.ports.files->Open(form.book.path, status);
    if (!file) return true;
    const std::string last = LastBytes(*file);
    if (last.empty()) return true;
    std::string first(16, '\0');
    first.resize(file->ReadAt(0, first.data(), first.size()));
    if (LooksLikeRtf(first)) return !Trim(std::string_view(last)).ends_with('}');
    return form.book.codePage == 0 && IsTruncatedUtf8Sequence(LastSequence(last));
}
} // namespace

void WatchShownBook(MainForm& form) {
    std::u16string& seen = form.menu.mViewRefresh[0].tag;
    const auto& shown = form.places.file;
    if (!IsShownBookListed(form) || !shown || IsNetworkPath(form.book.path)) return;
    if (IsPageShown(form)) return; // its place is a number of pixels, which another page has not
    const auto version = form.ports.files->Version(form.book.path);
    if (!version || SameContent(*version, *shown)) {
        seen.clear();
        return;
    }
    const bool quiet = seen == VersionText(*version);
    seen = VersionText(*version);
    if (!quiet || LooksHalfWritten(form, *version)) return;
    // What cannot be shown is no reason for a message while one reads.
    if (ExamineBookFile(*form.ports.files, form.book.path, MaxPlainText(form)).problem) return;
    ReloadBook(form);
}
