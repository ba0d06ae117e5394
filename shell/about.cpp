#include "shell/about.h"

#include "app/main_form.h"
#include "common/text.h"
#include "shell/product_web.h"
#include "shell/version_text.h"

std::u16string AboutText(const ProgramVersion& version, const std::u16string& extraText) {
    const std::u16string lineEnd = u"\r\n", mail = CommentsEntry(version, 1);
    std::u16string text = Replace(version.description, u". ", u"." + lineEnd) + lineEnd;
    text += u"Version " + VersionText(version, true) + lineEnd;
    if (!extraText.empty()) text += extraText + lineEnd;
    text += std::u16string(60, u' ') + lineEnd; // keeps the box wide enough for the lines
    text += version.copyright + lineEnd + CommentsEntry(version, 0) + lineEnd;
    return text + mail;
}

void ShowAboutBox(MainForm& form, const std::u16string& extraText) {
    const ProgramVersion version = form.ports.versionInfo->OwnVersion();
    Message message;
    message.title = u"About " + version.trademarks;
    message.text = AboutText(version, extraText);
    message.icon = MessageIcon::Application;
    form.ports.dialogs->ShowMessage(message);
}

void mHelpAbout_Click(MainForm& form, int) {
    ShowAboutBox(form);
}
