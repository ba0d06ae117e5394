#include "platform/qt/text_view/text_widget.h"

TextWidget::TextWidget(QWidget* parent)
    : ReadableWidget(parent), pane_(*this, Lines(), Pictures()) {
    SetReadable(pane_);
}

bool TextWidget::OnPress(Point point) {
    if (!pane_.IsPlaceholderLink(point)) return false;
    if (onPlaceholderLink) onPlaceholderLink();
    return true;
}
