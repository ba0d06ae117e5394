#include "formats/rtf/rtf_field_words.h"

#include "common/text.h"

namespace {
bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\u00A0';
}
} // namespace

bool RtfFieldWords::Next() {
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

bool RtfFieldWords::IsSwitch(char16_t letter) const {
    return IsAnySwitch() && word_.size() == 2 && FoldCase(word_[1]) == FoldCase(letter);
}

void RtfFieldWords::ReadQuoted() {
    rest_.remove_prefix(1);
    for (; !rest_.empty() && rest_.front() != u'"'; rest_.remove_prefix(1)) {
        if (rest_.front() == u'\\' && rest_.size() > 1) rest_.remove_prefix(1);
        word_ += rest_.front();
    }
    if (!rest_.empty()) rest_.remove_prefix(1);
}

void RtfFieldWords::ReadPlain() {
    for (; !rest_.empty() && !IsBlank(rest_.front()) && rest_.front() != u'"';
         rest_.remove_prefix(1))
        word_ += rest_.front();
}
