// The view of the engine's module, as its panel sees it.
#pragma once

#include "platform/html_view.h"

// With the events that its panel needs besides the port's.
class EngineView : public HtmlView {
  public:
    std::function<void(bool responsive)> onResponsiveChanged; // the page hangs, or responds again
};
