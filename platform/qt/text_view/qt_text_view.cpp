#include "platform/qt/text_view/qt_text_view.h"

#include "platform/qt/base/qt_text.h"
#include "platform/qt/text_view/event_pump.h"
#include "platform/qt/text_view/qt_printing.h"
#include "platform/qt/text_view/text_widget.h"
#include "view/print_pages.h"

QtTextView::QtTextView(QWidget* parent) : widget_(new TextWidget(parent)) {
    widget_->onContextMenu = [this] {
        if (onContextMenu) onContextMenu();
    };
    widget_->onFilesDropped = [this](const std::vector<std::u16string>& paths) {
        if (onFilesDropped) onFilesDropped(paths);
    };
    widget_->onPlaceholderLink = [this] {
        if (onPlaceholderLink) onPlaceholderLink();
    };
}

QtTextView::~QtTextView() {
    delete widget_;
}

QWidget* QtTextView::Widget() const {
    return widget_;
}

QPoint QtTextView::ContextMenuPoint() const {
    return widget_->ContextMenuPoint();
}

TextPane& QtTextView::Pane() const {
    return widget_->Pane();
}

TextPos QtTextView::Find(std::u16string_view what, TextPos start, FindOptions options) const {
    EventPump events;
    return FindWhile(what, start, options, [&events] { return events.ProcessEvents(); });
}

std::vector<Heading> QtTextView::Headings() const {
    EventPump events;
    return Pane().Headings([&events] { return events.ProcessEvents(); });
}

void QtTextView::VisitText(const TextVisitor& visit) const {
    EventPump events;
    visit(Pane().Source(), [&events] { return events.ProcessEvents(); });
}

void QtTextView::SetBounds(const Rect& bounds) {
    widget_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
}

void QtTextView::SetVisible(bool visible) {
    widget_->setVisible(visible);
}

void QtTextView::SetCursorShape(CursorShape shape) {
    widget_->SetCursorShape(shape == CursorShape::Wait ? Qt::WaitCursor : Qt::IBeamCursor);
}

void QtTextView::FocusView() {
    widget_->setFocus();
}

void QtTextView::Announce(std::u16string_view text) {
    widget_->Announce(text);
}

void QtTextView::SetName(std::u16string_view name) {
    widget_->setAccessibleName(QStringView(name).toString());
}

PrintAnswer QtTextView::Print(const std::u16string& title) {
    const PrintJob print = [&](LineLayout& lines, PictureStore& pictures, PrintDevice& device,
                               const PageRanges& pageRanges) {
        return PrintPages(PrintedTextOf(Pane(), title, pageRanges), lines, pictures, device);
    };
    return PrintByDialog(widget_->window(), title, print);
}
