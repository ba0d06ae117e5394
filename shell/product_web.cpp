#include "shell/product_web.h"

#include "app/main_form.h"
#include "common/text.h"
#include "common/web_address.h"

std::u16string CommentsEntry(const ProgramVersion& version, std::size_t index) {
    const auto entries = Split(version.comments, u", ");
    return index < entries.size() ? entries[index] : u"";
}

std::u16string ProductAddress(const ProgramVersion& version) {
    return CommentsEntry(version, 0) + u"/Products/" + version.title + u"/";
}

void OpenWebAddress(MainForm& form, const std::u16string& address) {
    if (IsWebOrMailAddress(address)) form.ports.shell->OpenAddress(address);
}

void mHelpWeb_Click(MainForm& form, int) {
    OpenWebAddress(form, ProductAddress(form.ports.versionInfo->OwnVersion()));
}

void mHelpMail_Click(MainForm& form, int) {
    const ProgramVersion version = form.ports.versionInfo->OwnVersion();
    const std::u16string mailbox = CommentsEntry(version, 1);
    if (mailbox.empty()) return;
    OpenWebAddress(form, mailbox + u"?subject=" + PercentEncoded(version.title + u" Bug Report"));
}
