// The view of the engine's module, as its panel sees it.
#pragma once

#include "platform/html_view.h"
#include "platform/qt/html_view/undeclared_page.h"

// With the events that its panel needs besides the port's.
class EngineView : public HtmlView {
  public:
    // ReadUndeclaredPage: the module has no code pages.
    std::function<std::optional<UndeclaredPage>(const std::string& path)> readUndeclared;
    std::function<void(bool responsive)> onResponsiveChanged; // the page hangs, or responds again
};
