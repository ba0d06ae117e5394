#include "platform/qt/window/status_panels.h"

#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QtWidgets/qdrawutil.h>

#include <algorithm>
#include <numeric>

namespace {

constexpr int gap = 2;                         // pixels
constexpr int inset = 6, textPanelWidth = 120; // pixels at 96 dpi
constexpr int dateRefreshInterval = 30'000;    // milliseconds, also after the machine has slept

} // namespace

StatusPanels::StatusPanels(QWidget* parent) : QWidget(parent) {
    dateTimer_.callOnTimeout([this] { RenewDate(); });
}

void StatusPanels::SetPanels(const std::vector<StatusPanel>& panels) {
    panels_ = panels;
    dateTimer_.stop();
    if (std::ranges::any_of(
            panels_, [](const StatusPanel& panel) { return panel.style == PanelStyle::Date; })) {
        RenewDate();
        dateTimer_.start(dateRefreshInterval);
    }
    update();
}

void StatusPanels::RenewDate() {
    const QString today = QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
    if (std::exchange(date_, today) == today) return;
    setAccessibleName(date_);
    update();
}

int StatusPanels::PanelWidth(const StatusPanel& panel) const {
    const auto scaled = [this](int pixels) { return pixels * logicalDpiX() / 96; };
    if (panel.style == PanelStyle::Date)
        return fontMetrics().horizontalAdvance(date_) + 2 * scaled(inset);
    return panel.spring ? 0 : scaled(textPanelWidth);
}

void StatusPanels::paintEvent(QPaintEvent*) {
    const int used = std::accumulate(
        panels_.begin(), panels_.end(), 0,
        [this](int sum, const StatusPanel& panel) { return sum + PanelWidth(panel) + gap; });
    const auto springs = std::ranges::count_if(panels_, &StatusPanel::spring);
    const int spare = springs ? std::max(0, width() + gap - used) / static_cast<int>(springs) : 0;

    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    int left = 0;
    for (const StatusPanel& panel : panels_) {
        const QRect place(left, gap, PanelWidth(panel) + (panel.spring ? spare : 0),
                          height() - gap);
        qDrawShadePanel(&painter, place, palette(), true);
        if (panel.style == PanelStyle::Date)
            painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, date_);
        left += place.width() + gap;
    }
}
