#include "platform/qt/html_view/html_panel.h"

#include "platform/qt/text_view/pane/dropped_paths.h"

#include <QDropEvent>
#include <QLabel>

HtmlPanel::HtmlPanel(QWidget* parent) : QWidget(parent), notice_(new QLabel(this)) {
    setAcceptDrops(true);
    notice_->setAlignment(Qt::AlignCenter);
    notice_->setWordWrap(true);
    notice_->setAutoFillBackground(true);
    notice_->hide();
    hide();
}

void HtmlPanel::ShowNotice(const QString& text) {
    notice_->setText(text);
    notice_->raise();
    notice_->show();
}

void HtmlPanel::HideNotice() {
    notice_->hide();
}

void HtmlPanel::resizeEvent(QResizeEvent*) {
    notice_->setGeometry(rect());
}

void HtmlPanel::dragEnterEvent(QDragEnterEvent* event) {
    const bool isOfPage = event->source(); // a link or a picture of it is no file to open
    if (!isOfPage) AcceptFileDrag(*event);
}

void HtmlPanel::dropEvent(QDropEvent* event) {
    const auto paths = AcceptFileDrop(*event);
    if (!paths.empty() && onFilesDropped) onFilesDropped(paths);
}
