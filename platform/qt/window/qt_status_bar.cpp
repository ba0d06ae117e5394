#include "platform/qt/window/qt_status_bar.h"

#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QtWidgets/qdrawutil.h>

#include <algorithm>
#include <numeric>

namespace {

constexpr int defaultHeight = 18;               // pixels
constexpr int spacing = 2;                      // pixels
constexpr int margin = 6, textPanelWidth = 120; // pixels at 96 dpi
// Milliseconds; a timer until midnight would be late after suspend.
constexpr int dateRefreshInterval = 30'000;

} // namespace

StatusPanels::StatusPanels(QWidget* parent) : QWidget(parent) {
    dateTimer_.callOnTimeout([this] { UpdateDate(); });
}

void StatusPanels::SetPanels(const std::vector<StatusPanel>& panels) {
    panels_ = panels;
    dateTimer_.stop();
    if (std::ranges::any_of(
            panels_, [](const StatusPanel& panel) { return panel.style == PanelStyle::Date; })) {
        UpdateDate();
        dateTimer_.start(dateRefreshInterval);
    }
    update();
}

void StatusPanels::UpdateDate() {
    const QString today = QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
    if (std::exchange(date_, today) == today) return;
    setAccessibleName(date_);
    update();
}

int StatusPanels::PanelWidth(const StatusPanel& panel) const {
    const auto scaled = [this](int pixels) { return pixels * logicalDpiX() / 96; };
    if (panel.style == PanelStyle::Date)
        return fontMetrics().horizontalAdvance(date_) + 2 * scaled(margin);
    return panel.spring ? 0 : scaled(textPanelWidth);
}

std::vector<QRect> StatusPanels::PanelRects() const {
    const int used = std::accumulate(
        panels_.begin(), panels_.end(), 0,
        [this](int sum, const StatusPanel& panel) { return sum + PanelWidth(panel) + spacing; });
    const auto springs = std::ranges::count_if(panels_, &StatusPanel::spring);
    const int spare =
        springs ? std::max(0, width() + spacing - used) / static_cast<int>(springs) : 0;
    std::vector<QRect> rects;
    int left = 0;
    for (const StatusPanel& panel : panels_) {
        rects.emplace_back(left, spacing, PanelWidth(panel) + (panel.spring ? spare : 0),
                           height() - spacing);
        left += rects.back().width() + spacing;
    }
    return rects;
}

void StatusPanels::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    // In the direction of its own letters, whatever the window's is.
    painter.setLayoutDirection(date_.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    const std::vector<QRect> rects = PanelRects();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        qDrawShadePanel(&painter, rects[i], palette(), true);
        if (panels_[i].style == PanelStyle::Date)
            painter.drawText(rects[i], Qt::AlignCenter | Qt::TextSingleLine, date_);
    }
}

QtStatusBar::QtStatusBar(QWidget* parent) : panels_(new StatusPanels(parent)) {
    SetHeight(defaultHeight);
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
