#include "formats/rtf/rtf_fields.h"

#include "common/text.h"

namespace {

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\u00A0';
}

// Words are separated by blanks or quoted; a backslash in quotes makes the next character plain,
// out of them it begins a switch.
class FieldReader {
  public:
    explicit FieldReader(std::u16string_view text) : rest_(text) {}

    bool Next() {
        while (!rest_.empty() && IsBlank(rest_.front()))
            rest_.remove_prefix(1);
        word_.clear();
        isQuoted_ = !rest_.empty() && rest_.front() == u'"';
        if (rest_.empty()) return false;
        if (isQuoted_)
            ReadQuoted();
        else
            ReadPlain();
        return true;
    }
    const std::u16string& Word() const { return word_; }
    bool IsSwitch(char16_t letter) const {
        return IsAnySwitch() && word_.size() == 2 && FoldCase(word_[1]) == FoldCase(letter);
    }
    bool IsAnySwitch() const { return !isQuoted_ && !word_.empty() && word_[0] == u'\\'; }

  private:
    void ReadQuoted() {
        rest_.remove_prefix(1);
        for (; !rest_.empty() && rest_.front() != u'"'; rest_.remove_prefix(1)) {
            if (rest_.front() == u'\\' && rest_.size() > 1) rest_.remove_prefix(1);
            word_ += rest_.front();
        }
        if (!rest_.empty()) rest_.remove_prefix(1);
    }
    void ReadPlain() {
        for (; !rest_.empty() && !IsBlank(rest_.front()) && rest_.front() != u'"';
             rest_.remove_prefix(1))
            word_ += rest_.front();
    }

    std::u16string_view rest_;
    std::u16string word_;
    bool isQuoted_ = false;
};

std::u16string Quoted(std::u16string_view text) {
    std::u16string quoted = u"\"";
    for (const char16_t c : text) {
        if (c == u'"' || c == u'\\') quoted += u'\\';
        quoted += c;
    }
    return quoted + u'"';
}

} // namespace

std::u16string LinkOfField(std::u16string_view instruction) {
    FieldReader field(instruction);
    if (!field.Next() || !EqualIgnoringCase(field.Word(), u"HYPERLINK")) return {};
    std::u16string address, place;
    while (field.Next()) {
        if (field.IsSwitch(u'l')) {
            if (field.Next()) place = field.Word();
        } else if (field.IsSwitch(u'o') || field.IsSwitch(u't')) {
            field.Next(); // a tip or a frame's name
        } else if (!field.IsAnySwitch() && address.empty()) {
            address = field.Word();
        }
    }
    return place.empty() ? address : address + u'#' + place;
}

std::u16string FieldOfLink(std::u16string_view address) {
    return u"HYPERLINK " + Quoted(address);
}
