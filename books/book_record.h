// The book record: what is remembered of one book, 18 text fields joined by "=".
#pragma once

#include <array>
#include <string>
#include <string_view>

enum class Field {
    Path,
    Access,
    Filter,
    FontName,
    FontSize,
    Charset,
    Bold,
    Italic,
    Underline,
    Strikethru,
    Wrap,
    Align,
    ForeColor,
    BackColor,
    LastPos,
    Size,
    Title,
    Marks,
};

// The kind of a book: the place of its pattern in the Open dialog's filter list.
enum class BookKind { Text, RichText, Html, Other };

class BookRecord {
  public:
    static constexpr int FieldCount = 18;

    // Missing fields are empty, surplus ones are dropped.
    static BookRecord Parse(std::u16string_view text);
    std::u16string ToText() const;

    std::u16string& operator[](Field field) { return fields_[static_cast<std::size_t>(field)]; }
    const std::u16string& operator[](Field field) const {
        return fields_[static_cast<std::size_t>(field)];
    }
    int Number(Field) const; // 0 for an empty field
    bool Flag(Field) const;
    std::u16string Path() const; // as the file system knows it
    BookKind Kind() const;       // Other for a number that is no kind
    void SetKind(BookKind);

    bool operator==(const BookRecord&) const = default;

  private:
    std::array<std::u16string, FieldCount> fields_;
};

// A path as the key of a record and back: a key cannot hold "=", a path cannot hold "*".
std::u16string PathToKey(std::u16string_view path);
std::u16string KeyToPath(std::u16string_view key);

// The key of a record's text: what stands before the first "=".
std::u16string_view RecordKey(std::u16string_view text);
