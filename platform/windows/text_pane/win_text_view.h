// The text view on Windows: a text pane in a window of our own.
#pragma once

#include "platform/windows/text_pane/text_window.h"
#include "platform/windows/window/win_drops.h"
#include "view/pane_text_view.h"

class WinTextView : public PaneTextView {
  public:
    explicit WinTextView(HWND parent); // which outlives the view
    WinTextView(const WinTextView&) = delete;
    WinTextView& operator=(const WinTextView&) = delete;

    HWND Handle() const { return text_->Handle(); }
    POINT ContextMenuPoint() const { return contextPoint_; } // of the last request, on the screen

    // Keeps the window drawn while it searches long, although it is const.
    TextPos Find(std::u16string_view what, TextPos start, FindOptions options) const override;
    void VisitText(const TextVisitor& visit) const override;

    std::vector<Heading> Headings() const override; // likewise
    PrintAnswer Print(const std::u16string& title) override;

    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void SetCursorShape(CursorShape shape) override;
    void FocusView() override;
    void SetName(std::u16string_view name) override;

    TextPane& Pane() const override { return text_->Pane(); }
    ComPtr<TextProvider> Accessible() { return text_->Accessible(); }
    void Announce(std::u16string_view) override;

  private:
    std::unique_ptr<TextWindow> text_;
    POINT contextPoint_ = {};
    WinDrops drops_{onFilesDropped};
};
