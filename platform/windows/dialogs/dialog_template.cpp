#include "platform/windows/dialogs/dialog_template.h"

#include "platform/windows/window/dpi.h"

namespace {

class TemplateWriter {
  public:
    void Word(int value) { words_.push_back(static_cast<WORD>(value)); }
    void Dword(DWORD value) {
        Word(LOWORD(value));
        Word(HIWORD(value));
    }
    void Text(std::wstring_view text) {
        words_.insert(words_.end(), text.begin(), text.end());
        Word(0);
    }
    void AlignToDword() {
        if (words_.size() % 2 != 0) Word(0);
    }
    std::vector<WORD> Words() { return std::move(words_); }

  private:
    std::vector<WORD> words_;
};

void AddFont(TemplateWriter& out) {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const LOGFONTW& font = metrics.lfMessageFont;
    const int height = font.lfHeight < 0 ? -font.lfHeight : font.lfHeight;
    out.Word(MulDiv(height, 72, SystemDpi())); // points
    out.Word(FW_NORMAL);
    out.Word(font.lfCharSet << 8); // not italic
    out.Text(font.lfFaceName);
}

void AddControl(TemplateWriter& out, const DialogControl& control) {
    out.AlignToDword();
    out.Dword(0); // helpID
    out.Dword(0); // no extended style
    out.Dword(control.style | WS_CHILD | WS_VISIBLE);
    for (const short number : {control.left, control.top, control.width, control.height})
        out.Word(number);
    out.Dword(control.id);
    out.Word(0xFFFF); // the class is an atom
    out.Word(static_cast<WORD>(control.type));
    out.Text(control.caption);
    out.Word(0); // no creation data
}

} // namespace

std::vector<WORD> DialogTemplate(const std::wstring& title, short width, short height,
                                 const std::vector<DialogControl>& controls) {
    TemplateWriter out;
    out.Word(1);      // dlgVer
    out.Word(0xFFFF); // signature of DLGTEMPLATEEX
    out.Dword(0);     // helpID
    out.Dword(0);     // no extended style
    out.Dword(DS_SHELLFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU);
    out.Word(static_cast<int>(controls.size()));
    for (const short number : {short{0}, short{0}, width, height})
        out.Word(number);
    out.Word(0); // no menu
    out.Word(0); // the default dialog class
    out.Text(title);
    AddFont(out);
    for (const DialogControl& control : controls)
        AddControl(out, control);
    return out.Words();
}
