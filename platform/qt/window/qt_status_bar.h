// The status bar on Qt.
#pragma once

#include "platform/status_bar.h"

class StatusPanels;
class QWidget;

class QtStatusBar final : public StatusBar {
  public:
    explicit QtStatusBar(QWidget* parent); // which comes to own the widget

    void SetPanels(const std::vector<StatusPanel>&) override;
    int Height() const override;
    void SetHeight(int pixels) override;
    void SetBounds(const Rect&) override;

  private:
    StatusPanels* panels_;
};
