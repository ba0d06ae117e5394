#include "reading/view_commands.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/history_list.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "common/menu_items.h"
#include "reading/caret.h"
#include "reading/charset_change.h"
#include "reading/formatting.h"
#include "reading/hourglass.h"
#include "reading/page_colors.h"
#include "reading/zoom.h"
#include "shell/window_title.h"

#include <algorithm>

namespace {
constexpr double minSize = 1, maxSize = 1638; // points, what a font can have

void TakeFont(MainForm& form, const ViewFont& chosen) {
    const int oldCharset = form.viewFont.charset;
    form.viewFont = chosen;
    if (chosen.charset != oldCharset) ReadInCharset(form);
    ApplyFont(form, false);
    if (chosen.charset != oldCharset && IsRightToLeftCharset(chosen.charset))
        ApplyAlignment(form, CheckedItem(form.menu.mViewAlign), false);
}
} // namespace

void mView_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    menu.mViewRefresh[0].enabled = HistoryCount(form) > 0;
    menu.mViewFont[0].enabled = menu.mViewWordWrap[0].enabled = !IsPageShown(form);
    for (MenuItem& item : menu.mViewAlign.items)
        item.enabled = menu.mViewFont[0].enabled;
}

namespace {
void ReloadBook(MainForm& form) {
    // Read once before the view is given up: a file that has gone leaves the text on the screen.
    if (!ExamineBookFile(form, GetBookPath(form, 0)) || !SettleZoom(form)) return;
    SaveBookState(form, 0);
    form.menu.mFileList[0].checked = false;
    const FlagScope refreshing(form.Refreshing);
    mFileList_Click(form, 0);
    form.menu.mFileList[0].checked = true;
}
} // namespace

void mViewRefresh_Click(MainForm& form, int) {
    MenuArray& list = form.menu.mFileList;
    for (int i = 0; i < HistoryCount(form); ++i)
        list[i].enabled = form.ports.files->FileExists(GetBookPath(form, i));
    if (IsBookShown(form)) return ReloadBook(form);
    // All books were out of reach at the start, perhaps on a stick that is there now.
    if (HistoryCount(form) > 0 && list[0].enabled) mFileList_Click(form, 0);
}

void mViewBackground_Click(MainForm& form, int) {
    TextView& view = *form.ports.textView;
    const auto title = DialogTitle(form.menu.mViewBackground[0]);
    const ColorAnswer answer = form.ports.dialogs->ChooseColor(title, view.BackColor());
    if (answer.result != DialogResult::Ok || answer.color == view.BackColor()) return;
    view.SetBackColor(answer.color);
    if (HasPageBody(form)) PaintPage(form);
    SaveBookState(form, 0);
}

void mViewFont_Click(MainForm& form, int) {
    TextView& view = *form.ports.textView;
    const auto title = DialogTitle(form.menu.mViewFont[0]);
    const FontAnswer answer = form.ports.dialogs->ChooseFont(title, form.viewFont, form.textColor);
    const bool newFont = answer.font != form.viewFont, newColor = answer.color != form.textColor;
    if (answer.result != DialogResult::Ok || (!newFont && !newColor)) return;
    const Hourglass hourglass(view);
    if (newFont) TakeFont(form, answer.font);
    if (newColor) ApplyTextColor(form, answer.color, false);
    SaveBookState(form, 0);
    UpdateWindowTitle(form);
}

void mViewFontSize_Click(MainForm& form, int index) {
    if (IsPageShown(form)) {
        ZoomPage(form, index == 0);
        return SaveBookState(form, 0);
    }
    TextView& view = *form.ports.textView;
    const double size = std::clamp(form.viewFont.size + 1 - 2 * index, minSize, maxSize);
    if (size == form.viewFont.size) return;
    const Hourglass hourglass(view);
    form.viewFont.size = size;
    ApplyFont(form, false);
    SaveBookState(form, 0);
}

void mViewAlign_Click(MainForm& form, int index) {
    if (form.menu.mViewAlign[index].checked) return;
    const Hourglass hourglass(*form.ports.textView);
    ApplyAlignment(form, index, false);
    SaveBookState(form, 0);
}

void mViewWordWrap_Click(MainForm& form, int) {
    SetWordWrap(form, !form.menu.mViewWordWrap[0].checked);
    SaveBookState(form, 0);
}
