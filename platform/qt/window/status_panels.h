// The widget that draws the panels of the status bar.
#pragma once

#include "platform/status_bar.h"

#include <QTimer>
#include <QWidget>

class StatusPanels final : public QWidget {
  public:
    explicit StatusPanels(QWidget* parent);

    void SetPanels(const std::vector<StatusPanel>&);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    void RenewDate();
    int PanelWidth(const StatusPanel&) const; // pixels; of a spring panel the least

    std::vector<StatusPanel> panels_;
    QString date_;
    QTimer dateTimer_;
};
