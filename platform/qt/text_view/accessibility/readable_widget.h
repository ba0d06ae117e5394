// The widget of a pane whose text assistive technology can read: its accessibility events.
#pragma once

#include "platform/qt/text_view/pane/pane_widget.h"
#include "view/readable_pane.h"

class ReadableWidget : public PaneWidget {
  public:
    ReadablePane& Readable() { return *readable_; }
    virtual bool IsPage() const { return false; } // of the web

    // Points and boxes in the viewport.
    TextPos CharacterAtPoint(QPoint point);
    QRect CharacterRect(TextPos position); // null if the widget is hidden; see ReadablePane
    QRect ObjectRect(std::size_t object);  // likewise

    // Qt 6.4 has no announcements. A screen reader says a description of what has the focus when it
    // changes.
    void Announce(std::u16string_view text);

  protected:
    explicit ReadableWidget(QWidget* parent);
    void SetReadable(ReadablePane& pane); // once, by the constructor of the derived class

    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void OnTextChanging() override;
    void OnTextChanged() override;

  private:
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnVisibleTextChanged() override;
    void OnObjectFocused() override;
    QString AccessibleBeginning();
    void NotifyVisibleDataChanged();

    ReadablePane* readable_ = nullptr;
    QBasicTimer visibleDataTimer_;
    QString oldBeginning_; // of the text before it changes
};
