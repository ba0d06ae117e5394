#include "platform/qt/html_view/qt_page_view.h"

#include "common/keys.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/html_view/html_widget.h"
#include "platform/qt/system/qt_locale.h"
#include "platform/qt/text_view/qt_printing.h"
#include "platform/shared/call_handler.h"

QtPageView::QtPageView(QWidget* parent, const Files& files)
    : PaneHtmlView(files, QtLocale().AnsiCodePage()), widget_(new HtmlWidget(parent, files)) {
    widget_->Pane().onLink = [this](HtmlNodeId link) { FollowLink(link); };
    widget_->onZoomKey = [this](int keyCode) { return ZoomByKey(keyCode); };
    widget_->onOtherKey = [this](int keyCode, bool shift) {
        return HandleOtherKey(keyCode, shift);
    };
    widget_->onCommand = [this](PageCommand command) { CallHandler(onCommand, command); };
    widget_->onFilesDropped = [this](const std::vector<std::u16string>& paths) {
        CallHandler(onFilesDropped, paths);
    };
}

QtPageView::~QtPageView() {
    delete widget_;
}

QWidget* QtPageView::Widget() const {
    return widget_;
}

PagePane& QtPageView::Pane() const {
    return widget_->Pane();
}

void QtPageView::WakeUp() {
    QMetaObject::invokeMethod(
        widget_, [this] { CallHandler(std::function<void()>([this] { RunPosted(); })); },
        Qt::QueuedConnection);
}

void QtPageView::ShowNotice(std::u16string_view text) {
    widget_->ShowNotice(ToQt(text));
}

void QtPageView::ReportZoomKey(bool larger) {
    CallHandler(onZoomKey, larger ? PlusKey : MinusKey, CtrlKey);
}

void QtPageView::OfferEngineChange(bool offered) {
    widget_->OfferEngineChange(offered);
}

PrintAnswer QtPageView::Print(const std::u16string& title) {
    if (!HasBody()) return {};
    const PrintJob print = [&](LineLayout& lines, PictureStore& pictures, PrintDevice& device,
                               const PageRanges& pageRanges) {
        return Pane().Print(title, pageRanges, lines, pictures, device);
    };
    return PrintByDialog(widget_->window(), title, print);
}

void QtPageView::SetBounds(const Rect& bounds) {
    widget_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
}

void QtPageView::SetVisible(bool visible) {
    widget_->setVisible(visible);
}

void QtPageView::FocusView() {
    widget_->setFocus();
}

void QtPageView::Announce(std::u16string_view text) {
    widget_->Announce(text);
}
