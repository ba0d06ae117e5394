#include "shell/update/product_web.h"

#include "common/text.h"
#include "common/web_address.h"

std::u16string CommentsEntry(const ProgramVersion& version, std::size_t index) {
    const auto entries = Split(version.comments, u", ");
    return index < entries.size() ? entries[index] : u"";
}

std::u16string ProductAddress(const ProgramVersion& version) {
    return CommentsEntry(version, 0) + u"/Products/" + version.title + u"/";
}

std::u16string FeedbackAddress(const ProgramVersion& version) {
    const std::u16string mailbox = CommentsEntry(version, 1);
    if (mailbox.empty()) return u"";
    return mailbox + u"?subject=" + PercentEncoded(version.title + u" Bug Report");
}
