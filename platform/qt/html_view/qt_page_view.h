// Our own HTML view on Qt: a page pane in a widget, with no engine.
#pragma once

#include "view/html/pane_html_view.h"

#include <QPointer>

class HtmlWidget;
class QWidget;

class QtPageView final : public PaneHtmlView {
  public:
    QtPageView(QWidget* parent, const Files& files); // the files must outlive this object
    ~QtPageView() override;
    QtPageView(const QtPageView&) = delete;
    QtPageView& operator=(const QtPageView&) = delete;

    QWidget* Widget() const;
    // The keystroke of SendZoomKey.
    std::function<void(int keyCode, int shift)> onZoomKey;

    void OfferEngineChange(bool offered) override;
    PrintAnswer Print(const std::u16string& title) override;
    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void FocusView() override;
    void Announce(std::u16string_view text) override;

  protected:
    PagePane& Pane() const override;
    void WakeUp() override;
    void ShowNotice(std::u16string_view text) override;
    void ReportZoomKey(bool larger) override;

  private:
    QPointer<HtmlWidget> widget_; // null once the parent has deleted it
};
