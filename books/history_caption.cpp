#include "books/history_caption.h"

#include "common/char_refs.h"
#include "common/direction_controls.h"
#include "common/text.h"

#include <utility>

namespace {
constexpr std::u16string_view beforeTitle = u"\t= ";
constexpr std::size_t maxTitleLength = 41, cutTitle = 40; // a title of just 41 units is kept whole

std::u16string Kilobytes(const std::u16string& size) {
    return u"(" + NumberText(RoundToEven(NumericValue(size) / 1024)) + u"K) ";
}

std::u16string ShownTitle(const std::u16string& stored) {
    std::u16string title = DecodeCharRefs(stored);
    if (title.size() > maxTitleLength) title.resize(cutTitle);
    return title;
}
} // namespace

std::u16string HistoryCaption(const BookRecord& record, const DateNames& names,
                              const DateTime& now) {
    std::u16string caption(TrimBlanks(record[Field::Access]));
    if (!caption.empty())
        caption = u"[" + FormatListDate(ParseStoredDateTime(caption, now), names) + u"] ";
    if (!record[Field::Size].empty()) caption += Kilobytes(record[Field::Size]);
    caption += record.Path();
    if (!record[Field::Title].empty())
        caption += std::u16string(beforeTitle) + ShownTitle(record[Field::Title]);
    return WithoutDirectionControls(std::move(caption));
}

std::u16string DirectedCaption(std::u16string_view caption) {
    if (!HasRightToLeft(caption)) return u"";
    const std::size_t dateEnd = caption.starts_with(u'[') ? caption.find(u"] ") + 1 : 0;
    const std::u16string date = DirectedWords(caption.substr(0, dateEnd));
    caption.remove_prefix(dateEnd);
    const std::size_t at = caption.find(beforeTitle);
    if (at == caption.npos) return date + DirectedPath(caption);
    const std::u16string_view title = caption.substr(at + beforeTitle.size());
    return date + DirectedPath(caption.substr(0, at)) + std::u16string(beforeTitle) +
           DirectedText(title);
}
