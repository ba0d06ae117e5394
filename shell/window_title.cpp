#include "shell/window_title.h"

#include "common/char_refs.h"
#include "common/direction_controls.h"
#include "common/paths.h"
#include "common/text.h"

TitledBook TitledBookOf(const BookRecord& record, const std::u16string& path) {
    return {path, DecodeCharRefs(TrimBlanks(record[Field::Title]))};
}

std::u16string WindowTitle(const std::u16string& product, const std::u16string& profile,
                           const TitledBook* book, TitleMode mode) {
    std::u16string title = product + u" [" + profile + u"]";
    if (book) {
        const bool hasTitle = mode == TitleMode::BookTitle && !book->title.empty();
        title += u" - " + (hasTitle ? book->title : book->path);
    }
    return WithoutDirectionControls(title);
}

std::u16string AccessibleBookName(const TitledBook& book, char16_t separator) {
    return book.title.empty() ? std::u16string(FileNameOf(book.path, separator)) : book.title;
}
