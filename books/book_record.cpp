#include "books/book_record.h"

#include "common/text.h"

BookRecord BookRecord::Parse(std::u16string_view text) {
    BookRecord record;
    for (auto& field : record.fields_) {
        const auto end = text.find(u'=');
        field = text.substr(0, end);
        if (end == std::u16string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return record;
}

std::u16string BookRecord::ToText() const {
    std::u16string text = fields_[0];
    for (std::size_t i = 1; i < fields_.size(); ++i)
        (text += u'=') += fields_[i];
    return text;
}

int BookRecord::Number(Field field) const {
    return WholeNumber((*this)[field]);
}

bool BookRecord::Flag(Field field) const {
    return NumericValue((*this)[field]) != 0;
}

std::u16string BookRecord::Path() const {
    return KeyToPath((*this)[Field::Path]);
}

BookKind BookRecord::Kind() const {
    const int number = Number(Field::Filter);
    const bool isKind = InRange(number, 0, static_cast<int>(BookKind::Other), true);
    return isKind ? static_cast<BookKind>(number) : BookKind::Other;
}

void BookRecord::SetKind(BookKind kind) {
    (*this)[Field::Filter] = NumberText(static_cast<int>(kind));
}

std::u16string PathToKey(std::u16string_view path) {
    return Replace(path, u"=", u"*");
}

std::u16string KeyToPath(std::u16string_view key) {
    return Replace(key, u"*", u"=");
}

std::u16string_view RecordKey(std::u16string_view text) {
    return text.substr(0, text.find(u'='));
}
