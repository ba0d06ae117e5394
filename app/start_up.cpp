#include "app/start_up.h"

#include "app/data_file.h"
#include "app/events.h"
#include "app/keys.h"
#include "app/main_form.h"
#include "app/options_menu.h"
#include "app/profiles.h"
#include "app/run_command.h"
#include "app/saving_events.h"
#include "common/menu_items.h"
#include "datafile/location.h"
#include "datafile/scheme.h"
#include "formats/codepages/charsets.h"
#include "shell/layout.h"
#include "shell/registration.h"

namespace {
void SetUpMenus(MenuTree& menu) {
    menu.mFileList[0].caption = menu.mBookmarkList[0].caption = u"";
    menu.mFileList[0].visible = menu.mBookmarkList[0].visible = false;
    menu.mFileRemove[0].enabled = false;
    menu.mUserDeleteList[0].enabled = false;
    menu.mViewAlign[2].visible = false; // centred text is not offered

    SetMenuShortcutText(menu.mFileExit[0], u"Alt+F4");
    SetMenuShortcutText(menu.mViewFontSize[0], u"Ctrl+ +");
    SetMenuShortcutText(menu.mViewFontSize[1], u"Ctrl+ \u2013");
    SetMenuShortcutText(menu.mBookmarkLast[0], u"Alt+F2");

    menu.mFileRemovePlaceholder[0].heading = true;
    menu.mBookmarkDeletePlaceholder[0].heading = true;
    menu.mUserDeletePlaceholder[0].heading = true;

    CheckRadioItem(0, menu.mViewAlign);
    CheckRadioItem(0, menu.mOptionsTitle);
}

void SetUpViews(MainForm& form) {
    form.ports.statusBar->SetPanels({{u"Common", PanelStyle::Text, true},
                                     {u"Pagination", PanelStyle::Text, false},
                                     {u"Date", PanelStyle::Date, false}});
    FitStatusBar(*form.ports.statusBar, *form.ports.window);
    ViewFont& font = form.format.font;
    font = form.ports.window->DefaultViewFont();
    font.charset = CodePageToCharset(form.ports.locale->AnsiCodePage());
    form.ports.textView->SetFont(font);
    form.ports.textView->SetVisible(true); // from the first moment one of the two views is
    form.ports.window->ApplySystemFont();
}

void TellWhyItEnds(MainForm& form, const std::u16string& text) {
    form.ports.dialogs->ShowMessage(BookMessage(form.messages, text, "trouble"));
}

// A second instance hands its book to the first one, which comes to the front, and exits without a
// message. A first instance that is exiting lets the second one take over.
bool Claim(MainForm& form) {
    constexpr int timeout = 3000, betweenAttempts = 50; // milliseconds
    constexpr int timeoutWithEnd = maxPageWait + timeout;
    int limit = timeout;
    const std::u16string& title = form.messages.productTitle;
    for (int waited = 0;; waited += betweenAttempts) {
        const InstanceClaim claim = form.ports.shell->ClaimDataFile(form.DataFilePath);
        if (claim.IsGranted()) return true;
        if (claim.result == InstanceClaim::Result::SomebodyElse) {
            TellWhyItEnds(form, form.DataFilePath + u"\r\nis in use by " + claim.holder +
                                    u". Close " + title + u" there first.");
            return false;
        }
        const HandOver answer = form.ports.shell->HandOverBook(
            form.DataFilePath, form.ports.launch.commandLine, limit - waited);
        if (answer == HandOver::Taken) return false;
        if (answer == HandOver::Refused) limit = timeoutWithEnd;
        if (answer == HandOver::NoAnswer || waited + betweenAttempts >= limit) {
            TellWhyItEnds(form, title + u" is running already, but does not answer. Try again when "
                                        u"it has finished what it is doing, or end it.");
            return false;
        }
        form.ports.clock->Wait(betweenAttempts);
    }
}
} // namespace

bool Form_Load(MainForm& form) {
    const Launch& launch = form.ports.launch;
    form.DataFilePath = ResolveDataFilePath(*form.ports.files, launch);
    ConnectLaterStarts(form);
    if (!Claim(form)) return false;
    form.started = true;
    const auto otherUsersFile = SeedOwnDataFile(*form.ports.files, launch, form.DataFilePath);
    form.dataFile = OpenDataFile(form);
    ReadDataFile(form);
    {
        // A flush to disk can take as long as the rest of start-up: all its writes share one.
        IniBatch oneWrite(*form.dataFile);
        SetUpMenus(form.menu);
        ShowShortcuts(form);
        RegisterProgram(*form.ports.registry, form.ports.versionInfo->OwnVersion(),
                        launch.programFolder);
        form.HelpFilePath = ProgramFile(*form.ports.files, launch, u".hlp");
        SetUpViews(form);
        form.history.dateNames =
            BuildPaddedDateNames(*form.ports.locale, [&](std::u16string_view text) {
                return form.ports.window->TextWidth(text);
            });
        WriteScheme(*form.dataFile);
        LoadAllEditors(form);
        LoadProfileList(form);
        ConnectEvents(form);
        RunCommand(form, [&form] { EnterProfile(form); });
        oneWrite.Commit();
    }
    form.ports.window->Open();
    RunCommand(form, [&] { ReportStartTrouble(form, otherUsersFile); });
    form.ports.saveTimer->Start(1000,
                                [&form] { RunCommand(form, [&form] { toSave_Timer(form); }); });
    return true;
}
