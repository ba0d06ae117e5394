#include "shell/about.h"

#include "common/text.h"
#include "shell/update/product_web.h"
#include "shell/update/version_text.h"

std::u16string AboutText(const ProgramVersion& version, const std::u16string& extraText) {
    const std::u16string lineEnd = u"\r\n", mail = CommentsEntry(version, 1);
    std::u16string text = Replace(version.description, u". ", u"." + lineEnd) + lineEnd;
    text += u"Version " + VersionText(version, VersionFormat::Full) + lineEnd;
    if (!extraText.empty()) text += extraText + lineEnd;
    text += std::u16string(60, u' ') + lineEnd; // keeps the box wide enough for the lines
    text += version.copyright + lineEnd + CommentsEntry(version, 0) + lineEnd;
    return text + mail;
}

void ShowAboutBox(Dialogs& dialogs, const ProgramVersion& version,
                  const std::u16string& extraText) {
    Message message;
    message.title = u"About " + version.trademarks;
    message.text = AboutText(version, extraText);
    message.icon = MessageIcon::Application;
    dialogs.ShowMessage(message);
}
