// The widget of our own view of pages: a pane widget with the keys and the context menu of a page.
#pragma once

#include "platform/html_view.h"
#include "platform/qt/text_view/accessibility/readable_widget.h"
#include "view/html/page_pane.h"

class QLabel;

class HtmlWidget final : public ReadableWidget {
  public:
    HtmlWidget(QWidget* parent, const Files& files); // initially hidden

    PagePane& Pane() { return pane_; }
    bool IsPage() const override { return true; }
    void OfferEngineChange(bool offered) { offersEngineChange_ = offered; }
    void ShowNotice(const QString& text); // over the page; "" for none

    std::function<bool(int keyCode)> onZoomKey;              // with Ctrl; whether it is one
    std::function<bool(int keyCode, bool shift)> onOtherKey; // Tab and Return
    std::function<void(PageCommand)> onCommand;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;
    void OnTextChanged() override;

  private:
    void ShowContextMenu();

    PagePane pane_;
    QLabel* notice_;
    bool offersEngineChange_ = false;
};
