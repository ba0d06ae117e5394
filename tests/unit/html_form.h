// A form with pages to read in the headless HTML view.
#pragma once

#include "test_form.h"

#include "app/open_book.h"
#include "common/text.h"

#include <utility>

struct HtmlForm : TestForm {
    using TestForm::TestForm;

    static NonePage LongPage() {
        NonePage page;
        page.title = u"A Page";
        for (int i = 0; i < 300; ++i)
            page.text += u"line " + NumberText(i) + u"\n";
        return page;
    }

    void PutPage(const std::u16string& path, const NonePage& page = LongPage()) {
        PutBook(path, "<html>");
        Page().pages[path] = page;
    }
    void OpenLoaded(const std::u16string& path) {
        OpenBook(form, path);
        Page().FinishLoading();
    }
    // A data file with these history lines in the profile "A".
    void PutHistory(const std::string& lines) {
        PutDataFile("[mProfileList]\r\n0=A\r\n[A\\mFileList]\r\n" + lines);
    }
    // By the user: the window is told first, then the view acts.
    void Press(int key, int shift) {
        TellWindow(key, shift);
        const bool zooms = (shift & (CtrlKey | AltKey)) == CtrlKey && Page().HasBody();
        if (zooms && (key == PlusKey || key == MinusKey || key == 48)) {
            Page().ZoomByHand(key == 48 ? 0 : key == PlusKey ? 1 : -1);
            if (Page().zoomsAtOnce) Page().onZoomed();
        }
    }
    // The keystrokes that the program sent come by the window.
    void DeliverZoomKeys() {
        for (const bool larger : std::exchange(Page().zoomKeys, {}))
            TellWindow(larger ? PlusKey : MinusKey, CtrlKey);
        if (Page().zoomsAtOnce) Page().onZoomed();
    }
    void TellWindow(int key, int shift) {
        Window().Events().onKeyDown(key, shift);
        Window().Events().onKeyUp(key, shift);
    }
    void Choose(MenuArray& menu, MenuArray& command, int index = 0) {
        Menus().Open(menu);
        Menus().Click(command, index);
    }
    void Find(const std::u16string& text) {
        Dialogs().findAnswer = {DialogResult::Ok, text, false, false};
        Choose(Menu().mEdit, Menu().mEditFind);
    }
    void Autosave() { Timer().Tick(60); }
    std::u16string& Clip() { return static_cast<NoneClipboard&>(*form.ports.clipboard).text; }
    std::u16string ZoomTag() const { return form.menu.mViewFont[0].tag; }
};
