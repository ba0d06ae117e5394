#include "books/other_view.h"

#include "common/text.h"

#include <array>

namespace {
constexpr std::u16string_view asideKey = u"OtherView";

// What each of the two views counts in units of its own; and the title, which a page brings along.
constexpr std::array viewFields = {Field::FontSize, Field::Charset, Field::LastPos, Field::Marks,
                                   Field::Title};

std::u16string StateOf(const BookRecord& record) {
    std::vector<std::u16string> state;
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

} // namespace

void ExchangeViewState(BookRecord& record, IniFile& file, const std::u16string& section) {
    const std::u16string state = StateOf(record);
    RestoreState(record, IniReadString(file, section, asideKey));
    IniWriteString(file, section, asideKey, state);
}
