#include "books/record_format.h"

#include "common/text.h"

#include <algorithm>
#include <utility>

namespace {
std::u16string FlagText(bool on) {
    return on ? u"1" : u"0";
}

Color ColorOf(const std::u16string& field, Color fallback) {
    return field.empty() ? fallback : static_cast<Color>(WholeNumber(field)) & 0xFFFFFF;
}
} // namespace

ViewFont FontOf(const BookRecord& record, ViewFont standard) {
    constexpr int maxSize = 1638; // points, the most that a rich-edit control takes
    ViewFont font = std::move(standard);
    const int size = record.Number(Field::FontSize);
    if (!record[Field::FontName].empty()) font.name = record[Field::FontName];
    if (size > 0) font.size = std::min(size, maxSize);
    font.charset = std::clamp(record.Number(Field::Charset), 0, 255);
    font.bold = record.Flag(Field::Bold);
    font.italic = record.Flag(Field::Italic);
    font.underline = record.Flag(Field::Underline);
    font.strikethrough = record.Flag(Field::Strikethru);
    return font;
}

Color TextColorOf(const BookRecord& record) {
    return ColorOf(record[Field::ForeColor], defaultTextColor);
}

Color BackColorOf(const BookRecord& record) {
    return ColorOf(record[Field::BackColor], defaultBackColor);
}

void StoreFormat(BookRecord& record, const TextFormat& format, bool wrap, int alignment) {
    const ViewFont& font = format.font;
    record[Field::FontName] = Replace(font.name, u"=", u"");
    record[Field::FontSize] = NumberText(RoundToEven(font.size));
    record[Field::Bold] = FlagText(font.bold);
    record[Field::Italic] = FlagText(font.italic);
    record[Field::Underline] = FlagText(font.underline);
    record[Field::Strikethru] = FlagText(font.strikethrough);
    record[Field::Wrap] = FlagText(wrap);
    record[Field::Align] = NumberText(alignment);
    record[Field::ForeColor] = NumberText(format.textColor);
}
