// The text view on Qt Widgets. Lays out only what is visible, so that a book of any size opens at
// once.
#pragma once

#include "view/pane_text_view.h"

#include <QPoint>
#include <QPointer>

class QWidget;
class TextWidget;

class QtTextView : public PaneTextView {
  public:
    explicit QtTextView(QWidget* parent);
    ~QtTextView() override;
    QtTextView(const QtTextView&) = delete;
    QtTextView& operator=(const QtTextView&) = delete;

    QWidget* Widget() const;
    QPoint ContextMenuPoint() const; // global position of the last request

    // Runs the event loop while it searches long, although it is const: see EventPump.
    TextPos Find(std::u16string_view what, TextPos start, FindOptions options) const override;
    void VisitText(const TextVisitor& visit) const override;

    std::vector<Heading> Headings() const override; // likewise
    PrintAnswer Print(const std::u16string& title) override;

    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void SetCursorShape(CursorShape shape) override;
    void FocusView() override;
    void SetName(std::u16string_view name) override;
    void Announce(std::u16string_view text) override;

  protected:
    TextPane& Pane() const override;

  private:
    QPointer<TextWidget> widget_; // null once the parent has deleted it
};
