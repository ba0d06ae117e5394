// The port of the status bar: panels with keys; a date panel keeps itself current.
#pragma once

#include "common/geometry.h"

#include <string>
#include <vector>

enum class PanelStyle { Text, Date };

struct StatusPanel {
    std::u16string key;
    PanelStyle style = PanelStyle::Text;
    bool spring = false; // takes the width that the others leave
};

class StatusBar {
  public:
    virtual ~StatusBar() = default;

    virtual void SetPanels(const std::vector<StatusPanel>&) = 0;
    virtual int Height() const = 0; // pixels
    virtual void SetHeight(int pixels) = 0;
    virtual void SetBounds(const Rect&) = 0;
};
