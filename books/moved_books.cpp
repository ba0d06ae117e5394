#include "books/moved_books.h"

#include "common/paths.h"
#include "common/text.h"
#include "datafile/list_persistence.h"

#include <algorithm>

namespace {
char16_t SeparatorOf(std::u16string_view path) {
    return IsPosixPath(path) ? u'/' : u'\\';
}

// The name at the end of a folder's path; "" for a root.
std::u16string_view LastName(std::u16string_view folder) {
    return folder.substr(FolderOf(folder).size());
}
std::u16string_view WithoutSeparator(std::u16string_view name) {
    return name.substr(std::min<std::size_t>(name.size(), 1));
}
} // namespace

FolderMove MoveOf(std::u16string_view from, std::u16string_view to) {
    for (;;) {
        const std::u16string_view last = WithoutSeparator(LastName(from));
        if (last.empty() || !EqualIgnoringCase(last, WithoutSeparator(LastName(to)))) break;
        from = FolderOf(from);
        to = FolderOf(to);
    }
    return {std::u16string(from), std::u16string(to)};
}

std::u16string PathAfter(const FolderMove& move, std::u16string_view path) {
    const std::size_t length = move.from.size();
    const bool posix = IsPosixPath(path);
    if (path.size() <= length || !IsPathSeparator(path[length], posix)) return u"";
    if (!StartsWithIgnoringCase(path, move.from)) return u"";
    std::u16string rest(path.substr(length));
    const char16_t separator = move.to.empty() ? u'/' : SeparatorOf(move.to);
    for (char16_t& unit : rest)
        if (IsPathSeparator(unit, posix)) unit = separator;
    return move.to + rest;
}

void MoveBook(History& history, IniFile& file, const std::u16string& profile, int index,
              const std::u16string& path) {
    BookRecord record = history.Record(index);
    const std::u16string before = BookSection(history, profile, record[Field::Path]);
    record[Field::Path] = PathToKey(path);
    history.SetRecord(index, record);
    const std::u16string now = BookSection(history, profile, record[Field::Path]);
    if (!EqualIgnoringCase(before, now)) {
        const ListLines lines = LoadSectionLines(file, before);
        if (!lines.empty()) file.MergeSection(now, LoadSectionLines(file, now), lines);
        file.RemoveLines(before, lines);
    }
    SetHistoryCaption(history, index);
    SyncRemoveMenu(history, history.Count() - 1);
}
