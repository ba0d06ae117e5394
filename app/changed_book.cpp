#include "app/changed_book.h"

#include "app/main_form.h"
#include "app/open_book.h"
#include "app/page_places.h"
#include "app/run_command.h"
#include "app/shown_book.h"
#include "app/text_places.h"
#include "books/book_file.h"
#include "common/paths.h"
#include "common/text.h"
#include "formats/plain/plain_text_guess.h"

#include <algorithm>
#include <utility>

namespace {
bool SameContent(const FileVersion& a, const FileVersion& b) {
    return a.size == b.size && a.lastWrite == b.lastWrite;
}

constexpr std::uint64_t firstBytes = 16, lastBytes = 1024; // looked at

// After the last character that is whole; nothing of a sequence alone.
std::string_view LastSequence(std::string_view bytes) {
    std::size_t start = bytes.size();
    while (start > 0 && (static_cast<unsigned char>(bytes[start - 1]) & 0xC0) == 0x80)
        --start;
    return bytes.substr(start == 0 ? 0 : start - 1);
}

// Of UTF-16: a unit cut, or half a pair at the end.
bool IsTruncatedUtf16(std::string_view first, std::string_view last, std::uint64_t size) {
    const bool little = first.starts_with("\xFF\xFE"), big = first.starts_with("\xFE\xFF");
    if (!little && !big) return false;
    if (size % 2 != 0 || last.size() < 2) return true;
    const auto high = static_cast<unsigned char>(last[last.size() - (little ? 1 : 2)]);
    return (high & 0xFC) == 0xD8;
}

// Of a page: a tag or a comment cut.
bool IsTruncatedTag(std::string_view last) {
    const std::size_t tag = last.rfind('<');
    if (tag == last.npos || last.find('>', tag) != last.npos) return false;
    const char first = tag + 1 < last.size() ? last[tag + 1] : '/';
    return first == '/' || first == '!' || (first >= 'A' && first <= 'Z') ||
           (first >= 'a' && first <= 'z');
}

// Rich text ends with a brace; other text not within a character, and a page not within a tag.
bool LooksHalfWritten(const MainForm& form, const BookContent& content) {
    if (!content.plainText) return !Trim(std::string_view(content.richText)).ends_with('}');
    const FileReader& file = *content.plainText;
    const std::uint64_t size = file.Size();
    const std::string first = BytesAt(file, 0, firstBytes),
                      last = BytesAt(file, size - std::min(size, lastBytes), lastBytes);
    if (first.empty() || last.empty() || IsTruncatedUtf16(first, last, size)) return true;
    if (IsPageShown(form) && IsTruncatedTag(last)) return true;
    const bool isUtf8 =
        IsPageShown(form) ? form.ports.htmlView->Charset() == "UTF-8" : form.book.codePage == 0;
    return isUtf8 && IsTruncatedUtf8Sequence(LastSequence(last));
}

// The file as it is now, when it is another one than what is shown.
std::optional<FileVersion> ChangedVersion(const MainForm& form) {
    const auto& shown = form.places.file;
    if (!IsShownBookListed(form) || !shown) return std::nullopt;
    const auto version = form.ports.files->Version(form.book.path);
    return version && SameContent(*version, *shown) ? std::nullopt : version;
}

// Whether nothing is left to be shown.
bool ShowChange(MainForm& form) {
    const auto version = ChangedVersion(form);
    const bool quiet = version && version == form.book.changed;
    form.book.changed = version;
    if (!version) return true;
    if (!quiet) return false;
    // What cannot be shown is no reason for a message while one reads.
    BookFile file = OpenShownBookFile(form);
    ReadContent(*form.ports.files, MaxPlainText(form), file);
    if (file.problem || !file.content || file.version != version ||
        LooksHalfWritten(form, *file.content))
        return false;
    if (IsPageShown(form))
        KeepPageSelection(form);
    else
        KeepSelection(form);
    if (form.closed) return true; // while the page was asked
    ReloadBook(form, std::move(file));
    return !form.book.changed; // again, while it was read
}
} // namespace

void WatchBookFile(MainForm& form) {
    form.book.changed.reset();
    form.ports.fileWatch->Watch(form.book.path);
    fsBook_Changed(form); // while it was read
}

void fsBook_Changed(MainForm& form) {
    constexpr int quietTime = 1000; // milliseconds
    form.book.changed = ChangedVersion(form);
    if (!form.book.changed) return;
    form.ports.changeTimer->Start(quietTime,
                                  [&form] { RunCommand(form, [&form] { toChange_Timer(form); }); });
}

void toChange_Timer(MainForm& form) {
    if (ShowChange(form)) form.ports.changeTimer->Stop();
}

void CheckBookFile(MainForm& form) {
    if (form.ports.fileWatch->SeesAllChanges() || IsNetworkPath(form.book.path)) return;
    if (const auto version = ChangedVersion(form); version != form.book.changed)
        fsBook_Changed(form);
}
