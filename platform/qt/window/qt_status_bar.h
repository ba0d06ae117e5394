// The status bar on Qt.
#pragma once

#include "platform/status_bar.h"

#include <QTimer>
#include <QWidget>

// The widget that draws the panels.
class StatusPanels final : public QWidget {
  public:
    explicit StatusPanels(QWidget* parent);

    void SetPanels(const std::vector<StatusPanel>&);
    std::vector<QRect> PanelRects() const;
    QString Date() const { return date_; } // as the date panel shows it

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    void UpdateDate();
    int PanelWidth(const StatusPanel&) const; // pixels; of a spring panel the minimum

    std::vector<StatusPanel> panels_;
    QString date_;
    QTimer dateTimer_;
};

class QtStatusBar final : public StatusBar {
  public:
    explicit QtStatusBar(QWidget* parent); // which takes ownership of the widget

    void SetPanels(const std::vector<StatusPanel>&) override;
    int Height() const override;
    void SetHeight(int pixels) override;
    void SetBounds(const Rect&) override;

  private:
    StatusPanels* panels_;
};
