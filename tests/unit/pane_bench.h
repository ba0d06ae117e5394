// A text pane in a window that is only remembered, on the headless line layout: a 12-point letter
// is 8 pixels wide and its line 17 high.
#pragma once

#include "platform/none/none_canvas.h"
#include "platform/none/none_line_layout.h"
#include "view/pane_text_view.h"

#include <set>

class FakePaneWindow : public PaneWindow {
  public:
    Size room{400, 170};
    double dpi = 96;
    bool focused = true, horizontalBar = false;
    int redraws = 0;
    ScrollRange vertical, horizontal;
    std::set<PaneTimer> timers; // that run
    std::vector<Rect> redrawn;

    Size Room() const override {
        return {room.width, room.height - (horizontalBar ? scrollBar : 0)};
    }
    double Dpi() const override { return dpi; }
    bool HasFocus() const override { return focused; }
    int BlinkInterval() const override { return 500; }
    void Redraw() override { ++redraws; }
    void RedrawPart(const Rect& part) override { redrawn.push_back(part); }
    void SetHorizontalBar(bool shown) override { horizontalBar = shown; }
    void ShowVertical(const ScrollRange& range) override { vertical = range; }
    void ShowHorizontal(const ScrollRange& range) override { horizontal = range; }
    void StartTimer(PaneTimer timer, int) override { timers.insert(timer); }
    void StopTimer(PaneTimer timer) override { timers.erase(timer); }
    // Each look at the clock takes `look`, as the work between two looks does.
    std::chrono::milliseconds SteadyTime() const override { return time += look; }
    void OnTextChanging() override {}
    void OnTextChanged() override { ++textChanges; }
    void OnSelectionChanged(TextPos, TextPos) override { ++selectionChanges; }
    void OnVisibleTextChanged() override {}

    static constexpr int scrollBar = 16;
    mutable std::chrono::milliseconds time{0};
    std::chrono::milliseconds look{0};
    int textChanges = 0, selectionChanges = 0;
};

class NoPictures : public PictureStore {
  public:
    void Clear() override {}
    bool CanDecode(PictureFormat) const override { return true; }
    Size NaturalSize(const Picture&) override { return {40, 30}; }
    bool IsKept(TextPos, Size) const override { return false; }
    bool Draw(Canvas&, const Picture&, const Rect&) override { return false; }
};

class PaneBench : public PaneTextView {
  public:
    static constexpr int letter = 8, lineHeight = 17;

    explicit PaneBench(int width = 400, int height = 170) : pane_(window, lines, pictures) {
        window.room = {width, height};
        SetFont({u"Fixed", 12, 0});
    }
    // On another line layout, which must outlive this object, in its own font.
    explicit PaneBench(LineLayout& system) : pane_(window, system, pictures) {}
    TextPane& Pane() const override { return pane_; }
    int TextWidth() { return window.room.width - 2 * Margin(); }
    int Margin() { return std::max(6, window.room.width / 40); }
    Rect Caret() { return Pane().CaretRect().value_or(Rect{}); }
    TextPos Press(PaneKey key, bool extend = false, bool control = false) {
        Pane().Press(key, extend, control);
        return Pane().Caret();
    }
    std::vector<NoneDrawing> Painted() {
        NoneCanvas canvas;
        Pane().Paint(canvas, {0, 0, window.room.width, window.room.height});
        return canvas.drawings;
    }
    std::vector<std::u16string> PaintedLines() {
        std::vector<std::u16string> painted;
        for (const NoneDrawing& drawing : Painted())
            if (drawing.kind == NoneDrawing::Kind::Text) painted.push_back(drawing.text);
        return painted;
    }

    // Of the port, what is the window's.
    TextPos Find(std::u16string_view what, TextPos start, FindOptions options) const override {
        return FindWhile(what, start, options, [] { return true; });
    }
    std::vector<Heading> Headings() const override {
        return Pane().Headings([] { return true; });
    }
    PrintAnswer Print(const std::u16string&) override { return {}; }
    void VisitText(const TextVisitor& visit) const override {
        visit(Pane().Source(), [] { return true; });
    }
    void SetBounds(const Rect&) override {}
    void SetVisible(bool) override {}
    void SetCursorShape(CursorShape) override {}
    void FocusView() override {}

    FakePaneWindow window;
    NoneLineLayout lines;
    NoPictures pictures;

  private:
    mutable TextPane pane_;
};
