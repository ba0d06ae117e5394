// The one door into the module of the HTML view.
#pragma once

#include "platform/html_view.h"

class QWidget;

// The view of the module, with what it tells besides the port: to the place that it is shown in.
class EngineView : public HtmlView {
  public:
    std::function<void(bool answers)> onAnswering; // the page hangs, or answers again
};

// Makes the engine's view in `parent`. `ansiCodePage` is of pages that name no charset. The caller
// deletes the view, and lets go of no module.
using MakeHtmlView = EngineView*(QWidget* parent, int ansiCodePage);
constexpr char makeHtmlViewName[] = "NorvasetMakeHtmlView";
