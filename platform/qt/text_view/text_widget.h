// The widget of the text view: a widget for a text pane.
#pragma once

#include "platform/qt/text_view/accessibility/readable_widget.h"
#include "view/text_pane.h"

class TextWidget : public ReadableWidget {
  public:
    explicit TextWidget(QWidget* parent);

    TextPane& Pane() { return pane_; }

    std::function<void()> onPlaceholderLink;

  protected:
    bool OnPress(Point point) override;

  private:
    TextPane pane_;
};
