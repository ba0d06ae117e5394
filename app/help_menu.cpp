#include "app/help_menu.h"

#include "app/main_form.h"
#include "common/web_address.h"
#include "reading/hourglass.h"
#include "shell/about.h"
#include "shell/help/help_contents.h"
#include "shell/update/product_web.h"
#include "shell/update/update_check.h"

void mHelpTopics_Click(MainForm& form, int) {
    if (!form.menu.mHelpTopics[0].enabled) return;
    if (!form.ports.helpWindow->Raise()) OpenHelp(form, "");
}

void OpenHelp(MainForm& form, const std::string& topic) {
    const Files& files = *form.ports.files;
    const auto path = FindHelpFile(files, form.HelpFilePath, form.ports.launch.sharedFolder);
    const HelpAtTopic help = ReadHelp(files, path, topic, form.messages.productTitle + u" Help");
    if (!help.problem.empty())
        return ShowPlainMessage(form.messages, MessageIcon::Exclamation,
                                MessageTitle::ProductMessage, help.problem);
    form.ports.helpWindow->Show(help.contents, help.page);
}

namespace {
// Hands a web or mail address to the desktop; any other is left alone.
void OpenWebAddress(MainForm& form, const std::u16string& address) {
    if (IsWebOrMailAddress(address)) form.ports.shell->OpenAddress(address);
}

FetchAnswer Fetch(MainForm& form, const std::u16string& address) {
    const Hourglass hourglass(*form.ports.textView);
    return form.ports.updateCheck->Fetch(address);
}

void OfferUpdate(MainForm& form, const ProgramVersion& own, const UpdateResult& check) {
    const auto addresses = DownloadAddresses(own, form.ports.launch.executableName,
                                             form.ports.updateCheck->Packages(), check.newest);
    const int pressed =
        form.ports.dialogs->ShowRichMessage(UpdateOffer(check.newVersion, addresses),
                                            form.messages.productTitle, {u"Cancel", u"Download"});
    if (pressed != 2) return;
    for (const std::u16string& address : addresses)
        OpenWebAddress(form, address);
}
} // namespace

void mHelpUpdate_Click(MainForm& form, int) {
    const ProgramVersion own = form.ports.versionInfo->OwnVersion();
    const FetchAnswer answer = Fetch(form, UpdateAddress(own, form.ports.launch.executableName));
    if (answer.status == FetchStatus::Abandoned) return;
    const UpdateResult check =
        answer.status == FetchStatus::Ok ? CompareVersions(own, answer.bytes) : UpdateResult();
    switch (check.status) {
    case UpdateResult::Status::Unknown:
        return ShowPlainMessage(form.messages, MessageIcon::Critical, MessageTitle::Product,
                                u"Remote resource is not accessible now.\r\nPlease try later.");
    case UpdateResult::Status::UpToDate:
        return ShowPlainMessage(form.messages, MessageIcon::Information, MessageTitle::Product,
                                u"Your copy of the application is up to date.");
    case UpdateResult::Status::NewerVersion: return OfferUpdate(form, own, check);
    }
}

void mHelpWeb_Click(MainForm& form, int) {
    OpenWebAddress(form, ProductAddress(form.ports.versionInfo->OwnVersion()));
}

void mHelpMail_Click(MainForm& form, int) {
    OpenWebAddress(form, FeedbackAddress(form.ports.versionInfo->OwnVersion()));
}

void mHelpAbout_Click(MainForm& form, int) {
    ShowAboutBox(*form.ports.dialogs, form.ports.versionInfo->OwnVersion());
}
