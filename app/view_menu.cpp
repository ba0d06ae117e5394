#include "app/view_menu.h"

#include "app/book_state.h"
#include "app/charset.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "common/menu_items.h"
#include "reading/caret.h"
#include "reading/hourglass.h"
#include "reading/page_colors.h"
#include "reading/zoom.h"
#include "shell/options.h"

#include <algorithm>

void mView_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    menu.mViewRefresh[0].enabled = form.history.Count() > 0;
    menu.mViewFont[0].enabled = menu.mViewWordWrap[0].enabled = !IsPageShown(form);
    for (MenuItem& item : menu.mViewAlign.items)
        item.enabled = menu.mViewFont[0].enabled;
    const bool wraps = !IsPageShown(form) && menu.mViewWordWrap[0].checked;
    menu.mViewColumn[0].enabled = wraps;
    menu.mViewUnwrap[0].enabled = wraps && IsBookShown(form) && form.book.plain;
}

void mViewRefresh_Click(MainForm& form, int) {
    MenuArray& list = form.menu.mFileList;
    for (int i = 0; i < form.history.Count(); ++i)
        list[i].enabled = form.ports.files->FileExists(GetBookPath(form.history, i));
    if (IsBookShown(form)) return ReloadBook(form, OpenShownBookFile(form));
    // All books were out of reach at the start, perhaps on a stick that is there now.
    if (form.history.Count() > 0 && list[0].enabled) ShowBook(form, 0);
}

void mViewBackground_Click(MainForm& form, int) {
    TextView& view = *form.ports.textView;
    const auto title = PlainCaption(form.menu.mViewBackground[0]);
    const ColorAnswer answer = form.ports.dialogs->ChooseColor(title, view.BackColor());
    if (answer.result != DialogResult::Ok || answer.color == view.BackColor()) return;
    view.SetBackColor(answer.color);
    if (HasPageBody(form)) PaintPage(*form.ports.htmlView, answer.color);
    SaveBookState(form, 0);
}

namespace {
FontRequest FontQuestion(const MainForm& form, const std::vector<CharsetReading>& readings) {
    FontRequest request{PlainCaption(form.menu.mViewFont[0]), form.format.font,
                        form.format.textColor};
    for (const CharsetReading& each : readings) {
        if (each.page == PresentCodePage(form))
            request.reading = static_cast<int>(request.readings.size());
        request.readings.push_back({std::u16string(each.name.begin(), each.name.end()), each.line,
                                    FontCharsetOf(each.page), each.standsForScript});
    }
    return request;
}

// `codePage` is 0 when the charset of the text was not chosen by itself.
void ChangeFont(MainForm& form, ViewFont chosen, int codePage) {
    TextView& view = *form.ports.textView;
    if (codePage != 0) chosen.charset = ScriptCharset(codePage, chosen.charset);
    const bool newCharset = chosen.charset != form.format.font.charset;
    form.format.font = chosen;
    if (codePage != 0)
        ReadInCodePage(form, codePage);
    else if (newCharset)
        ReadInScriptOfFont(form);
    ApplyFont(view, chosen, Scrolling::Restore);
    if (newCharset && IsRightToLeftCharset(chosen.charset))
        ApplyAlignment(view, form.menu.mViewAlign, CheckedItem(form.menu.mViewAlign),
                       Scrolling::Restore);
}
} // namespace

void mViewFont_Click(MainForm& form, int) {
    TextFormat& format = form.format;
    TextView& view = *form.ports.textView;
    const std::vector<CharsetReading> readings = ReadingsOfBook(form);
    const FontRequest request = FontQuestion(form, readings);
    const FontAnswer answer = form.ports.dialogs->ChooseFont(request);
    const bool newReading = answer.reading >= 0 && answer.reading != request.reading;
    const bool newFont = answer.font != format.font || newReading;
    const bool newColor = answer.color != format.textColor;
    if (answer.result != DialogResult::Ok || (!newFont && !newColor)) return;
    const Hourglass hourglass(view);
    const int page = newReading ? readings[static_cast<std::size_t>(answer.reading)].page : 0;
    if (newFont) ChangeFont(form, answer.font, page);
    format.textColor = answer.color;
    if (newColor)
        ApplyTextColor(view, answer.color, form.menu.mOptionsFileColor[0].checked,
                       Scrolling::Restore);
    SaveBookState(form, 0);
    UpdateWindowTitle(form);
}

namespace {
void ZoomPage(MainForm& form, int step) {
    MenuItem& fontItem = form.menu.mViewFont[0];
    SetZoomStep(fontItem, ZoomStep(fontItem) + step);
    ZoomBy(form.page, *form.ports.htmlView, step);
}

// Whether that changes anything.
bool ResizeText(MainForm& form, int step) {
    constexpr double minSize = 1, maxSize = 1638; // points, what a font can have
    double& size = form.format.font.size;
    const double before = size;
    size = std::clamp(size + step, minSize, maxSize);
    if (size == before) return false;
    const Hourglass hourglass(*form.ports.textView);
    ApplyFont(*form.ports.textView, form.format.font, Scrolling::Restore);
    return true;
}
} // namespace

void mViewFontSize_Click(MainForm& form, int index) {
    const int step = index == 0 ? 1 : -1;
    if (IsPageShown(form))
        ZoomPage(form, step);
    else if (!ResizeText(form, step))
        return;
    SaveBookState(form, 0);
}

void mViewAlign_Click(MainForm& form, int index) {
    if (form.menu.mViewAlign[index].checked) return;
    const Hourglass hourglass(*form.ports.textView);
    ApplyAlignment(*form.ports.textView, form.menu.mViewAlign, index, Scrolling::Restore);
    SaveBookState(form, 0);
}

void mViewWordWrap_Click(MainForm& form, int) {
    MenuItem& item = form.menu.mViewWordWrap[0];
    SetWordWrap(*form.ports.textView, *form.ports.window, item, !item.checked);
    SaveBookState(form, 0);
}

void mViewColumn_Click(MainForm& form, int) {
    MenuItem& item = form.menu.mViewColumn[0];
    SetColumn(*form.ports.textView, item, !item.checked);
    SaveColumnOption(*form.dataFile, CurrentProfile(form), item.checked);
}

void mViewUnwrap_Click(MainForm& form, int) {
    MenuItem& item = form.menu.mViewUnwrap[0];
    SetUnwrapped(*form.ports.textView, item, !item.checked);
    if (IsShownBookListed(form))
        SaveUnwrapped(SettingsOf(form, form.history.Record(0)), item.checked);
}
