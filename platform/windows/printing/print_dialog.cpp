#include "platform/windows/printing/print_dialog.h"

#include "platform/windows/base/text.h"
#include "platform/windows/line_layout/win_line_layout.h"
#include "platform/windows/line_layout/win_pictures.h"
#include "platform/windows/printing/print_progress.h"
#include "platform/windows/printing/win_print_device.h"

#include <cderr.h>
#include <commdlg.h>

#include <string>

namespace {

using Result = PrintAnswer::Result;

constexpr DWORD maxPage = 0xFFFF; // what the dialog's fields hold

// What the dialog answered. Owns what the system gave with it.
class PrintChoice {
  public:
    explicit PrintChoice(HWND owner) {
        dialog_.lStructSize = sizeof dialog_;
        dialog_.hwndOwner = owner;
        dialog_.Flags = PD_RETURNDC | PD_ALLPAGES | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE;
        dialog_.nFromPage = dialog_.nToPage = dialog_.nMinPage = 1;
        dialog_.nMaxPage = static_cast<WORD>(maxPage);
        chosen_ = PrintDlgW(&dialog_) && dialog_.hDC;
        error_ = chosen_ ? 0 : CommDlgExtendedError();
    }
    ~PrintChoice() {
        if (dialog_.hDC) DeleteDC(dialog_.hDC);
        if (dialog_.hDevMode) GlobalFree(dialog_.hDevMode);
        if (dialog_.hDevNames) GlobalFree(dialog_.hDevNames);
    }
    PrintChoice(const PrintChoice&) = delete;
    PrintChoice& operator=(const PrintChoice&) = delete;

    bool IsChosen() const { return chosen_; }
    // The dialog itself has told of a missing printer.
    bool Failed() const { return error_ != 0 && error_ != PDERR_NODEFAULTPRN; }
    HDC Context() const { return dialog_.hDC; }
    bool IsRange() const { return dialog_.Flags & PD_PAGENUMS; }
    int From() const { return dialog_.nFromPage; }
    int To() const { return dialog_.nToPage; }
    bool IntoFile() const { return dialog_.Flags & PD_PRINTTOFILE; }

  private:
    PRINTDLGW dialog_ = {};
    bool chosen_ = false;
    DWORD error_ = 0;
};

std::u16string LastError() {
    wchar_t text[256] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   GetLastError(), 0, text, 256, nullptr);
    return FromWide(text);
}

PrintEnd PrintOn(HDC context, HWND owner, const PrintJob& print, const PageRanges& pageRanges) {
    PrintProgress progress(owner);
    WinLineLayout lines;
    WinPictures pictures;
    WinPrintDevice device(context,
                          [&progress](int percent) { return progress.OnProgress(percent); });
    return print(lines, pictures, device, pageRanges);
}

} // namespace

PrintAnswer PrintByDialog(HWND owner, const std::u16string& title, const PrintJob& print) {
    const PrintChoice choice(owner);
    if (!choice.IsChosen())
        return choice.Failed() ? PrintAnswer{Result::Failed, {}} : PrintAnswer{};
    const std::wstring name = ToWide(title);
    DOCINFOW document = {};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    if (choice.IntoFile()) document.lpszOutput = L"FILE:"; // the system asks for its name
    if (StartDocW(choice.Context(), &document) <= 0) {
        if (GetLastError() == ERROR_CANCELLED || GetLastError() == ERROR_PRINT_CANCELLED) return {};
        return {Result::Failed, LastError()};
    }
    PageRanges pageRanges;
    if (choice.IsRange()) {
        pageRanges.contains = [&choice](int page) {
            return page >= choice.From() && page <= choice.To();
        };
        pageRanges.last = choice.To();
    }
    const PrintEnd end = PrintOn(choice.Context(), owner, print, pageRanges);
    if (end == PrintEnd::Done && EndDoc(choice.Context()) > 0) return {Result::Printed, {}};
    const std::u16string reason = end == PrintEnd::GivenUp ? u"" : LastError();
    AbortDoc(choice.Context());
    return {end == PrintEnd::GivenUp ? Result::Cancelled : Result::Failed, reason};
}
