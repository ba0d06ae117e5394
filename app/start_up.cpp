#include "app/start_up.h"

#include "app/data_file.h"
#include "app/events.h"
#include "app/main_form.h"
#include "app/profiles.h"
#include "books/charsets.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "common/list_persistence.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/keyboard.h"
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
    form.ports.window->ApplySystemFont();
}

// The profile names in order, at least "Default".
void FillProfileMenus(MainForm& form) {
    std::vector<std::u16string> profiles;
    LoadListFromSection(*form.dataFile, profileListSection, &profiles);
    std::erase(profiles, u"");
    if (profiles.empty()) profiles = {u"Default"};
    MenuTree& menu = form.menu;
    menu.mProfileList[0].caption = menu.mUserDeleteList[0].caption = profiles.front();
    for (std::size_t i = 1; i < profiles.size(); ++i) {
        AddMenuItem(menu.mProfileList, profiles[i]);
        AddMenuItem(menu.mUserDeleteList, profiles[i]);
    }
}
} // namespace

bool Form_Load(MainForm& form) {
    const Launch& launch = form.ports.launch;
    form.DataFilePath = ResolveDataFilePath(*form.ports.files, launch);
    if (!form.ports.shell->BecomeOnlyInstance(form.DataFilePath)) return false;
    form.started = true;
    TakeOverDataFile(form);
    form.dataFile = OpenDataFile(form);
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
        form.menu.mUser[0].tag = IniReadString(*form.dataFile, profileListSection, u"0");
        FillProfileMenus(form);
        ConnectEvents(form);
        RunCommand(form, [&form] {
            const FlagScope switching(form.ProfileSwitching);
            mProfileList_Click(form, 0);
        });
    }
    form.ports.window->Open();
    form.ports.saveTimer->Start(1000,
                                [&form] { RunCommand(form, [&form] { toSave_Timer(form); }); });
    return true;
}

void Form_Unload(MainForm& form) {
    if (!form.started || form.closed) return;
    IniBatch oneWrite(*form.dataFile);
    SaveBookState(form, 0);
    SaveWindowPlacement(form);
    form.closed = true;
}

void toSave_Timer(MainForm& form) {
    const int next = (WholeNumber(form.toSaveTag) % 60 + 1) % 60;
    form.toSaveTag = NumberText(next);
    if (next == 0) SaveBookState(form, 0);
}
