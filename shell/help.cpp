#include "shell/help.h"

#include "app/main_form.h"
#include "formats/rtf_writer.h"
#include "shell/help_search.h"

#include <memory>

std::u16string FindHelpFile(const Files& files, const std::u16string& besideProgram,
                            const std::u16string& sharedFolder) {
    if (sharedFolder.empty() || files.FileExists(besideProgram)) return besideProgram;
    const std::u16string name = besideProgram.substr(besideProgram.rfind(files.Separator()));
    return files.FileExists(sharedFolder + name) ? sharedFolder + name : besideProgram;
}

namespace {
void TellHelpIsMissing(MainForm& form, const std::u16string& path, bool isThere) {
    Message message;
    message.text = u"The help file " + std::u16string(isThere ? u"is damaged" : u"is missing") +
                   u":\r\n" + path + u"\r\nInstall the program again to have it back.";
    message.title = form.productTitle + u" Message";
    message.icon = MessageIcon::Exclamation;
    form.ports.dialogs->ShowMessage(message);
}

HelpContents ContentsOf(HelpBook book, const std::u16string& windowTitle) {
    HelpContents contents;
    contents.windowTitle = windowTitle;
    for (const HelpTopic& topic : book.topics)
        contents.titles.push_back(topic.title);
    const auto shared = std::make_shared<const HelpBook>(std::move(book));
    contents.page = [shared](int page) { return WriteRtf(shared->topics.at(page).page); };
    contents.search = [shared](std::u16string_view typed) { return SearchHelp(*shared, typed); };
    return contents;
}
} // namespace

void OpenHelp(MainForm& form, const std::string& topic) {
    const Files& files = *form.ports.files;
    const std::u16string path =
        FindHelpFile(files, form.HelpFilePath, form.ports.launch.sharedFolder);
    std::string bytes;
    const ReadStatus status = files.Read(path, maxHelpFileSize, bytes);
    std::optional<HelpBook> book;
    if (status == ReadStatus::Ok) book = ParseHelpFile(bytes);
    if (!book) return TellHelpIsMissing(form, path, status != ReadStatus::NotFound);
    const int page = FindHelpTopic(*book, topic);
    form.ports.helpWindow->Show(ContentsOf(std::move(*book), form.productTitle + u" Help"), page);
}

void mHelpTopics_Click(MainForm& form, int) {
    if (!form.menu.mHelpTopics[0].enabled) return;
    if (!form.ports.helpWindow->Raise()) OpenHelp(form, "");
}
