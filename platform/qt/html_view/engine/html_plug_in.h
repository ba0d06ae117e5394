// The entry point of the HTML view's module.
#pragma once

#include "platform/html_view.h"

class QWidget;

// The view of the module, with the events that its panel needs besides the port's.
class EngineView : public HtmlView {
  public:
    std::function<void(bool responsive)> onResponsiveChanged; // the page hangs, or responds again
};

// Creates the view in `parent`. `ansiCodePage` is for pages that declare no charset. The caller
// owns the view, and never unloads the module.
using MakeHtmlView = EngineView*(QWidget* parent, int ansiCodePage);
constexpr char makeHtmlViewName[] = "NorvasetMakeHtmlView";
