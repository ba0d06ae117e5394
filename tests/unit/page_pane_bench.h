// The HTML view on a page pane in a window that is only remembered, on the headless line layout: a
// letter of 16 pixels is 8 wide, and its line 16 high.
#pragma once

#include "common/keys.h"
#include "tests/unit/pane_bench.h"
#include "view/html/pane_html_view.h"

class PagePaneBench : public PaneHtmlView {
  public:
    explicit PagePaneBench(const Files& files, int width = 600, int height = 400)
        : PaneHtmlView(files, 1252), pane_(window, lines, pictures, files) {
        window.room = {width, height};
        pane_.onLink = [this](HtmlNodeId link) { FollowLink(link); };
    }

    PagePane& Pane() const override { return pane_; }
    // One event or load, and what runs in the meantime.
    void ProcessEvents() {
        for (const PaneTimer timer : std::set(window.timers))
            pane_.OnTimer(timer);
        RunPosted();
    }
    void Press(int keyCode, int shift) {
        if (onKey) onKey(keyCode, shift);
        const bool extend = shift & ShiftKey, control = shift & CtrlKey;
        if (control && ZoomByKey(keyCode)) return;
        if (HandleOtherKey(keyCode, extend)) return;
        if (keyCode == 34) pane_.Press(PaneKey::PageDown, extend, control);
    }
    std::vector<NoneDrawing> Painted() {
        NoneCanvas canvas;
        pane_.Paint(canvas, {0, 0, window.room.width, window.room.height});
        return canvas.drawings;
    }

    // Of the port, what is the window's.
    PrintAnswer Print(const std::u16string&) override { return {}; }
    void SetBounds(const Rect& bounds) override {
        window.room = {bounds.width, bounds.height};
        pane_.OnResized();
    }
    void SetVisible(bool) override {}
    void FocusView() override {}
    void WakeUp() override {}
    void ShowNotice(std::u16string_view text) override { notice = text; }
    void ReportZoomKey(bool larger) override {
        if (onKey) onKey(larger ? PlusKey : MinusKey, CtrlKey);
    }

    std::function<void(int keyCode, int shift)> onKey;
    std::u16string notice;
    FakePaneWindow window;
    NoneLineLayout lines;
    NoPictures pictures;

  private:
    mutable PagePane pane_;
};
