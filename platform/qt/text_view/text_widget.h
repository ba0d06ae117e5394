// The widget of the text view: a pane widget for a text, and its accessibility events.
#pragma once

#include "platform/qt/text_view/pane_widget.h"
#include "view/text_pane.h"

class TextWidget : public PaneWidget {
  public:
    explicit TextWidget(QWidget* parent);

    TextPane& Pane() { return pane_; }
    // Points and boxes in the viewport.
    TextPos CharacterAtPoint(QPoint point);
    QRect CharacterRect(TextPos position); // null if the widget is hidden; see TextPane

    std::function<void()> onPlaceholderLink;

  protected:
    bool OnPress(Point point) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void OnTextChanging() override;
    void OnTextChanged() override;
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnVisibleTextChanged() override;
    QString AccessibleBeginning();
    void NotifyVisibleDataChanged();

    TextPane pane_;
    QBasicTimer visibleDataTimer_;
    QString oldBeginning_; // of the text before it changes
};
