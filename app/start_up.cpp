#include "app/start_up.h"

#include "app/data_file.h"
#include "app/events.h"
#include "app/late_data_file.h"
#include "app/main_form.h"
#include "app/profiles.h"
#include "books/book_file.h"
#include "books/charsets.h"
#include "books/save_state.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/keyboard.h"
#include "reading/zoom.h"
#include "shell/options.h"
#include "shell/version_text.h"

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

void Register(MainForm& form) {
    const ProgramVersion version = form.ports.versionInfo->OwnVersion();
    const std::u16string key = u"SOFTWARE\\" + version.company + u"\\" + version.title;
    RegWriteValue(*form.ports.registry, key, u"", form.ports.launch.programFolder);
    RegWriteValue(*form.ports.registry, key, u"CurrentVersion", VersionText(version, false));
}

void SetUpViews(MainForm& form) {
    form.ports.statusBar->SetPanels({{u"Common", PanelStyle::Text, true},
                                     {u"Pagination", PanelStyle::Text, false},
                                     {u"Date", PanelStyle::Date, false}});
    FitStatusBar(form);
    form.viewFont = form.ports.window->DefaultViewFont();
    form.viewFont.charset = CodePageToCharset(form.ports.locale->AnsiCodePage());
    form.ports.textView->SetFont(form.viewFont);
    form.ports.textView->SetVisible(true); // from the first moment one of the two views is
    form.ports.window->ApplySystemFont();
}

} // namespace

namespace {
// A second program of this user ends without a word, as the first one is on the screen.
bool Claim(MainForm& form) {
    const InstanceClaim claim = form.ports.shell->ClaimDataFile(form.DataFilePath);
    if (claim.result == InstanceClaim::Result::SomebodyElse) {
        const std::u16string text = form.DataFilePath + u"\r\nis in use by " + claim.holder +
                                    u". Close " + form.productTitle + u" there first.";
        form.ports.dialogs->ShowMessage(BookMessage(form, text, "trouble"));
    }
    return claim.IsGranted();
}
} // namespace

bool Form_Load(MainForm& form) {
    const Launch& launch = form.ports.launch;
    form.DataFilePath = ResolveDataFilePath(*form.ports.files, launch);
    if (!Claim(form)) return false;
    form.started = true;
    TakeOverDataFile(form);
    form.dataFile = OpenDataFile(form);
    ReadDataFile(form);
    {
        // A flush to the disk can take as long as all the rest: one for what start-up writes.
        IniBatch oneWrite(*form.dataFile);
        SetUpMenus(form.menu);
        ShowShortcuts(form);
        Register(form);
        form.HelpFilePath = ProgramFile(*form.ports.files, launch, u".hlp");
        SetUpViews(form);
        form.dateNames = BuildPaddedDateNames(*form.ports.locale, [&](std::u16string_view text) {
            return form.ports.window->TextWidth(text);
        });
        WriteScheme(*form.dataFile);
        LoadEditors(form);
        LoadProfileList(form);
        ConnectEvents(form);
        RunCommand(form, [&form] { EnterProfile(form); });
        oneWrite.Commit();
    }
    form.ports.window->Open();
    RunCommand(form, [&form] { TellStartTrouble(form); });
    form.ports.saveTimer->Start(1000,
                                [&form] { RunCommand(form, [&form] { toSave_Timer(form); }); });
    return true;
}

void Form_Unload(MainForm& form) {
    if (!form.started || form.closed) return;
    SettleZoom(form);
    IniBatch oneWrite(*form.dataFile);
    SaveBookState(form, 0);
    SaveWindowPlacement(form);
    oneWrite.Commit();
    form.closed = true; // nothing may begin while the last message waits
    WriteDataFileAtLast(form);
}

void toSave_Timer(MainForm& form) {
    TakeUpLateDataFile(form);
    WatchDataFile(form);
    const int next = (WholeNumber(form.toSaveTag) % 60 + 1) % 60;
    form.toSaveTag = NumberText(next);
    if (next == 0) SaveBookState(form, 0);
}
