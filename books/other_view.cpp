#include "books/other_view.h"

#include "books/kept_places.h"
#include "common/text.h"
#include "reading/bookmarks.h"

#include <array>

namespace {
constexpr std::u16string_view asideKey = u"OtherView";

// What each of the two views counts in units of its own; and the title, which a page brings along.
constexpr std::array viewFields = {Field::FontSize, Field::Charset, Field::LastPos, Field::Marks,
                                   Field::Title};

std::u16string StateOf(const BookRecord& record) {
    std::vector<std::u16string> state;
    state.reserve(viewFields.size());
    for (const Field field : viewFields)
        state.push_back(record[field]);
    return Join(state, u"=");
}

// Without one kept aside the book begins at its start, as it would if it were new.
void RestoreState(BookRecord& record, const std::u16string& aside) {
    auto state = Split(aside, u"=");
    if (aside.empty()) state = {u"", record[Field::Charset], u"", u"", record[Field::Title]};
    state.resize(viewFields.size());
    for (std::size_t i = 0; i < viewFields.size(); ++i)
        record[viewFields[i]] = state[i];
}

// A view that has never shown the book finds the places of the other one in its own text, by their
// words: that text is another one, of no file.
void CarryPlaces(const BookRecord& before, BookRecord& record, const BookSettings& settings) {
    const bool fromPage = before.Kind() == BookKind::Html;
    const PlacesOf from = fromPage ? PlacesOf::Page : PlacesOf::Text;
    KeptPlaces places = LoadPlaces(settings, from);
    if (!places.text) return;
    const TextPos length = fromPage ? places.top.length : places.text->length;
    const TextPos keptFor = fromPage ? places.top.offset : places.position;
    if (keptFor != before.Number(Field::LastPos)) places.position = -1;
    places.text = {length, 0};
    places.SetFile({});
    places.top = {0, 0, length};
    if (fromPage && places.position > 0) record[Field::LastPos] = NumberText(places.position);
    std::vector<std::u16string> marks;
    for (const std::u16string& tag : Split(before[Field::Marks], u"|"))
        if (const auto mark = ParseMark(tag); mark && places.marks.contains(mark->start))
            marks.push_back(tag);
    record[Field::Marks] = Join(marks, u"|");
    KeptPlaces none;
    StorePlaces(settings, fromPage ? PlacesOf::Text : PlacesOf::Page, places, none);
}
} // namespace

void ExchangeViewState(BookRecord& record, const BookSettings& settings) {
    const BookRecord before = record;
    const std::u16string state = StateOf(record), aside = settings.Read(asideKey);
    RestoreState(record, aside);
    if (aside.empty()) CarryPlaces(before, record, settings);
    settings.Write(asideKey, state);
}
