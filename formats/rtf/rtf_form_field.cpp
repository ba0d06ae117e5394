#include "formats/rtf/rtf_form_field.h"

#include "common/text.h"
#include "formats/rtf/rtf_field_words.h"
#include "formats/rtf/rtf_limits.h"

#include <utility>

void RtfFormField::Apply(const RtfWordEntry& entry, std::int32_t parameter) {
    if (entry.word == RtfWord::FormResult) result_ = parameter;
    if (entry.word == RtfWord::FormDefaultResult) defaultResult_ = parameter;
}

void RtfFormField::EndEntry() {
    if (entries_.size() < maxRtfFormEntries) entries_.push_back(std::exchange(entry_, {}));
    entry_.clear();
}

std::u16string RtfFormField::Text(std::u16string_view instruction) const {
    RtfFieldWords words(instruction);
    if (!words.Next()) return {};
    if (EqualIgnoringCase(words.Word(), u"FORMCHECKBOX")) return Result() ? u"\u2612" : u"\u2610";
    if (EqualIgnoringCase(words.Word(), u"FORMTEXT")) return defaultText_;
    const auto chosen = static_cast<std::size_t>(Result());
    const bool isList = EqualIgnoringCase(words.Word(), u"FORMDROPDOWN");
    return isList && chosen < entries_.size() ? entries_[chosen] : std::u16string();
}
