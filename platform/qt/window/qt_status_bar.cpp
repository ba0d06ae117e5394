#include "platform/qt/window/qt_status_bar.h"

#include "platform/qt/window/status_panels.h"

namespace {

constexpr int usualHeight = 18; // pixels

} // namespace

QtStatusBar::QtStatusBar(QWidget* parent) : panels_(new StatusPanels(parent)) {
    SetHeight(usualHeight);
}

void QtStatusBar::SetPanels(const std::vector<StatusPanel>& panels) {
    panels_->SetPanels(panels);
}

int QtStatusBar::Height() const {
    return panels_->height();
}

void QtStatusBar::SetHeight(int pixels) {
    panels_->resize(panels_->width(), pixels);
}

void QtStatusBar::SetBounds(const Rect& bounds) {
    panels_->setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
}
